#pragma once

#include "NoticeOverlay.h"
#include "ZRProgressHUD.h"

#include <QAbstractAnimation>

namespace pomwick {

// What tests (and the notice's frame bench) see of a notice's insides: its timers, fired by hand,
// its running animation, its clock and screen turn, and where its overlay draws its parts.
struct ZRProgressHUDTestAccess {
    static QTimer& graceTimer(ZRProgressHUD* hud) { return hud->graceTimer_; }
    static QTimer& minShowTimer(ZRProgressHUD* hud) { return hud->minShowTimer_; }
    // The pending hide(animated, delay) calls, each a one-shot timer.
    static auto& delayedHides(ZRProgressHUD* hud) { return hud->delayedHides_; }
    // Runs a pending one-shot timer now; false when it was not pending.
    static bool fire(QTimer& timer) {
        const bool pending = timer.isActive();
        timer.stop();
        return pending && QMetaObject::invokeMethod(&timer, "timeout");
    }
    // The show or hide animation under way, if any.
    static QAbstractAnimation* animation(ZRProgressHUD* hud) { return hud->animation_; }
    // Runs the animation under way to its end; false when there is none.
    static bool finishAnimation(ZRProgressHUD* hud) {
        QAbstractAnimation* running = animation(hud);
        if (running != nullptr)
            running->setCurrentTime(running->totalDuration());
        return running != nullptr;
    }
    static void setClock(ZRProgressHUD* hud, ZRProgressHUD::Clock clock) { hud->clock_ = clock; }
    static void setOrientation(std::optional<int> o) { ZRProgressHUD::orientationOverride_ = o; }
    static NoticeOverlay* overlay(ZRProgressHUD* hud) { return hud->overlay_; }
    static QWidget* indicator(ZRProgressHUD* hud) { return hud->indicator_; }
    static auto& frames(ZRProgressHUD* hud) { return hud->overlay_->frames(); }
};

} // namespace pomwick

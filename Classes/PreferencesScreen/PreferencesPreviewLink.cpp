// The preview: the screen's message center, the composed badge over the sample icon, and the
// layout for the current size.
#include "BadgeImagePrimitives.h"
#include "FontPickerSheet.h"
#include "MessageNames.h"
#include "MessagingCenter.h"
#include "PomwickPreferencesViewController.h"
#include "PreviewHeader.h"
#include "TableView.h"
#include "ViewGeometry.h"

#include <QTimer>

namespace pomwick {

namespace {

// Runs the action on the next turn of the event loop, once however often it is asked before
// then: a burst of messages that only ask for a refresh costs one refresh, not one each, while
// messages that come one at a time are each answered as before.
MessagingCenter::Handler coalesced(QObject* owner, std::function<void()> action) {
    auto* nextTurn = new QTimer(owner);
    nextTurn->setSingleShot(true);
    nextTurn->setInterval(0);
    QObject::connect(nextTurn, &QTimer::timeout, owner, std::move(action));
    return [nextTurn](const QString&) {
        if (!nextTurn->isActive())
            nextTurn->start();
    };
}

} // namespace

void PomwickPreferencesViewController::registerPreviewMessages() {
    MessagingCenter& center = MessagingCenter::centerNamed(CenterName::preferences);
    if (!center.doesServerExist())
        center.runServerOnCurrentThread();
    center.registerForMessageName(MessageName::badgeSavedToTmp, this, coalesced(this, [this] {
                                      handleSimpleMessageNamed(MessageName::badgeSavedToTmp);
                                  }));
    center.registerForMessageName(MessageName::reloadData, this,
                                  coalesced(this, [this] { updateUI(); }));
}

void PomwickPreferencesViewController::handleSimpleMessageNamed(const QString& name) {
    if (name != MessageName::badgeSavedToTmp || header_ == nullptr)
        return;
    header_->showUnavailable(false);
    endRespring();
    setFinalBadgeImage(header_->showComposedBadge(iconSize_));
}

void PomwickPreferencesViewController::viewDidLayoutSubviews() {
    if (header_ == nullptr)
        return;
    const QRectF viewBounds = bounds(view());
    setFrame(mainTableView_, QRectF(0, 0, viewBounds.width(), viewBounds.height()));
    header_->layOut(viewBounds.width());
    fontSheet_->layOut(viewBounds);
}

void PomwickPreferencesViewController::updateUI() {
    viewDidLayoutSubviews();
    // Back from the position editor: its drop is a step.
    endGesture(tr("Position"));
    reloadTableData();
}

void PomwickPreferencesViewController::didRotateFromInterfaceOrientation(int) {
    updateUI();
}

QImage PomwickPreferencesViewController::imageByCombiningImage(const QImage& first,
                                                               const QImage& second) const {
    return pomwick::imageByCombiningImage(first, second);
}

} // namespace pomwick

#pragma once

#include "NoticeIndicator.h"

#include <QVariantAnimation>

namespace pomwick {

// The large white activity indicator, 37 x 37: twelve spokes fading behind the brightest one,
// which steps round once a second while animating. The animation runs only while it is on screen,
// by itself or in a notice.
class ActivityIndicatorView : public NoticeIndicator {
    Q_OBJECT
public:
    static constexpr int side = 37;
    static constexpr int spokes = 12;

    explicit ActivityIndicatorView(QWidget* parent = nullptr);

    void startAnimating();
    void stopAnimating();
    bool isAnimating() const { return animating_; }
    // The spoke drawn brightest, 0 at twelve o'clock, clockwise.
    int leadingSpoke() const { return leadingSpoke_; }
    void setLeadingSpoke(int spoke);

    void paint(QPainter& painter) const override;

protected:
    void presentedChanged() override { followVisibility(); }
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void followVisibility();

    QVariantAnimation rotation_;
    bool animating_ = false;
    int leadingSpoke_ = 0;
};

} // namespace pomwick

#pragma once

#include <QVariantAnimation>
#include <QWidget>

namespace pomwick {

// The large white activity indicator, 37 x 37: twelve spokes fading behind the brightest one,
// which steps round once a second while animating. The animation runs only while it is on screen.
class ActivityIndicatorView : public QWidget {
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

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void followVisibility();

    QVariantAnimation rotation_;
    bool animating_ = false;
    int leadingSpoke_ = 0;
};

} // namespace pomwick

#pragma once

#include "ViewController.h"

#include <QImage>
#include <QLabel>
#include <QPointF>
#include <QRectF>

namespace pomwick {

// What the position editor takes from the screen that pushes it: the size of that screen's view,
// the icon side the renderer reported, and the badge as the preview last showed it.
class BadgePositionSender {
public:
    virtual ~BadgePositionSender() = default;
    virtual QRectF viewBounds() = 0;
    virtual float iconSize() const = 0;
    virtual QImage finalBadgeImage() const = 0;
};

// A full-screen page on which the user drags a sample of the badge over a sample icon, with the
// mouse, a finger or the arrow keys. Each drag's end stores the badge's top-left corner as
// fractions of the icon's size; leaving the page asks the settings screen to refresh.
class BadgePositionViewController : public ViewController {
    Q_OBJECT
public:
    BadgePositionViewController();
    ~BadgePositionViewController() override;

    // Set before the page is shown; the sender stays below this page on the navigation stack, so
    // it outlives it.
    BadgePositionSender* sender() const { return sender_; }
    void setSender(BadgePositionSender* sender) { sender_ = sender; }

    void viewDidLoad() override;
    void viewWillDisappear(bool animated) override;
    void viewDidLayoutSubviews() override;

    // The drag, with points in the square's coordinates.
    void touchesBegan(QPointF point);
    void touchesMoved(QPointF point);
    void touchesEnded();

    QWidget* innerView() const { return innerView_; }
    QLabel* iconImageView() const { return iconImageView_; }
    QLabel* badgeImageView() const { return badgeImageView_; }
    QLabel* infoTextView() const { return infoTextView_; }
    // In points, fractions included (the square of a 60.5-point icon is 181.5 wide): in the
    // page's coordinates for the square, in the square's for the icon and the badge.
    QRectF innerFrame() const { return innerFrame_; }
    QRectF iconFrame() const { return iconFrame_; }
    QRectF badgeFrame() const { return badgeFrame_; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    static void place(QWidget* view, QRectF& kept, const QRectF& frame);
    void layOutForViewSize(QSizeF size);
    // Moves the badge by the offset when it stays wholly inside the square; otherwise not at all.
    void moveBadgeIfInside(QPointF offset);
    void storeLocation() const;

    QWidget* innerView_ = nullptr;
    QRectF innerFrame_;
    QRectF iconFrame_;
    QRectF badgeFrame_;
    QPointF lastPoint_;
    QLabel* badgeImageView_ = nullptr;
    QLabel* iconImageView_ = nullptr;
    bool touchingInsideBadge_ = false;
    QLabel* infoTextView_ = nullptr;
    BadgePositionSender* sender_ = nullptr;
};

} // namespace pomwick

#include "BadgePositionViewController.h"

#include "Appearance.h"
#include "MessageNames.h"
#include "MessagingCenter.h"
#include "PreviewFiles.h"
#include "Settings.h"
#include "TextScanning.h"
#include "ViewGeometry.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPixmap>
#include <cmath>

namespace pomwick {
namespace {

qreal truncated(qreal value) {
    return std::trunc(value);
}

// The square's top and the hint's offset use a 32-bit 0.1, widened: a tenth of the *width*, also
// in landscape, so the hint sits where it always did.
qreal hintTop(qreal viewWidth) {
    return truncated(viewWidth * double(0.1f));
}

QRectF squareFrame(QSizeF view, float iconSize) {
    const qreal side = 3.0 * double(iconSize);
    return {truncated((view.width() - side) * 0.5), truncated((view.height() - side) * 0.5), side,
            side};
}

// Whether a badge may move from one span to another along one axis of the square [low, high]: a
// badge that fits must stay inside (edges touching count as inside, and so does a badge with no
// size); one longer than the square can never fit, and may move as long as it reaches no further
// out than before, so that it can still be dragged.
bool allowedAlong(qreal low, qreal high, qreal fromLow, qreal fromHigh, qreal toLow, qreal toHigh) {
    if (fromHigh - fromLow <= high - low)
        return toLow >= low && toHigh <= high;
    const auto outside = [&](qreal a, qreal b) {
        return std::max<qreal>(0, low - a) + std::max<qreal>(0, b - high);
    };
    constexpr qreal rounding = 1e-6;
    return outside(toLow, toHigh) <= outside(fromLow, fromHigh) + rounding;
}

bool allowedMove(const QRectF& square, const QRectF& from, const QRectF& to) {
    return allowedAlong(square.left(), square.right(), from.left(), from.right(), to.left(),
                        to.right()) &&
           allowedAlong(square.top(), square.bottom(), from.top(), from.bottom(), to.top(),
                        to.bottom());
}

// The white rounded square with its thin black rim; while the page has the keyboard, a focus
// ring around the badge, which the arrow keys move.
class RoundedSquare : public QWidget {
public:
    RoundedSquare(QWidget* page) : QWidget(page), page_(page) {}
    QWidget* badge = nullptr;

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(Appearance::outline(), 1.0));
        painter.setBrush(Appearance::cellBackground());
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 10, 10);
        if (badge != nullptr && Appearance::showsFocusRing(page_))
            Appearance::drawFocusRing(painter, QRectF(badge->geometry()).adjusted(-4, -4, 4, 4),
                                      badge->height() / 2.0 + 4);
    }

private:
    QWidget* page_;
};

QLabel* imageView(QWidget* parent, const QImage& image, const QString& accessibleName) {
    auto* view = new QLabel(parent);
    view->setScaledContents(true);
    view->setAttribute(Qt::WA_TransparentForMouseEvents);
    view->setAccessibleName(accessibleName);
    if (!image.isNull())
        view->setPixmap(QPixmap::fromImage(image));
    return view;
}

} // namespace

BadgePositionViewController::BadgePositionViewController() = default;

BadgePositionViewController::~BadgePositionViewController() = default;

void BadgePositionViewController::viewDidLoad() {
    setTitle(tr("Set Position"));
    QWidget* root = view();
    setBackgroundColor(root, Appearance::screenBackground);
    const QSizeF size = sender_ ? sender_->viewBounds().size() : bounds(root).size();
    setFrame(root, QRectF(frame(root).topLeft(), size));
    root->setFocusPolicy(Qt::StrongFocus);
    root->setAccessibleName(tr("Set Position"));
    root->setAccessibleDescription(tr("Drag the badge, or move it with the arrow keys."));
    root->installEventFilter(this);

    const float iconSize = sender_ ? sender_->iconSize() : 0;
    auto* square = new RoundedSquare(root);
    innerView_ = square;
    innerView_->setAttribute(Qt::WA_TransparentForMouseEvents);
    innerView_->setAccessibleName(tr("Icon area"));
    // The badge's place is a setting, drawn where it is stored in any language.
    innerView_->setLayoutDirection(Qt::LeftToRight);
    place(innerView_, innerFrame_, squareFrame(size, iconSize));

    const qreal side = truncated(iconSize);
    const QSizeF inner = innerFrame_.size();
    iconImageView_ = imageView(innerView_, loadBundleImage(PreviewFile::sampleIcon), tr("Icon"));
    place(iconImageView_, iconFrame_,
          QRectF(truncated((inner.width() - side) * 0.5), truncated((inner.height() - side) * 0.5),
                 side, side));

    const BadgeLocation location = getBadgeLocation();
    const QImage badge = sender_ ? sender_->finalBadgeImage() : QImage();
    badgeImageView_ = imageView(innerView_, badge, tr("Badge"));
    square->badge = badgeImageView_;
    place(badgeImageView_, badgeFrame_,
          QRectF(float(iconFrame_.x() + location.x * iconFrame_.width()),
                 float(iconFrame_.y() + location.y * iconFrame_.height()),
                 badge.deviceIndependentSize().width(), badge.deviceIndependentSize().height()));

    // The blank before the line break is part of the hint as it always read.
    infoTextView_ = new QLabel(tr("Drag the badge bubble \nto your desired location."), root);
    infoTextView_->setFont(Appearance::systemFont(16));
    infoTextView_->setAlignment(Qt::AlignCenter);
    infoTextView_->setMargin(8);
    infoTextView_->setFrameStyle(QFrame::Box | QFrame::Plain);
    infoTextView_->setLineWidth(1);
    setBackgroundColor(infoTextView_, Appearance::cellBackground);
    setTextColor(infoTextView_, Appearance::labelText);
    infoTextView_->setAttribute(Qt::WA_TransparentForMouseEvents);
    layOutForViewSize(size);
}

// The frame is kept with its fractions, from which the drag goes on and the place is stored; the
// widget sits on whole points.
void BadgePositionViewController::place(QWidget* view, QRectF& kept, const QRectF& frame) {
    kept = frame;
    setFrame(view, frame);
}

void BadgePositionViewController::layOutForViewSize(QSizeF size) {
    place(innerView_, innerFrame_, squareFrame(size, sender_ ? sender_->iconSize() : 0));
    // The hint reaches one point past both edges, so of its rim only the top and bottom show.
    const qreal height = infoTextView_->sizeHint().height();
    setFrame(infoTextView_, QRectF(-1, hintTop(size.width()), size.width() + 2, height));
}

void BadgePositionViewController::viewWillDisappear(bool) {
    MessagingCenter::centerNamed(CenterName::preferences).sendMessageName(MessageName::reloadData);
}

void BadgePositionViewController::viewDidLayoutSubviews() {
    layOutForViewSize(bounds(view()).size());
}

void BadgePositionViewController::touchesBegan(QPointF point) {
    lastPoint_ = point;
    if (badgeFrame_.contains(point))
        touchingInsideBadge_ = true;
}

void BadgePositionViewController::touchesMoved(QPointF point) {
    if (touchingInsideBadge_)
        moveBadgeIfInside(
            QPointF(float(point.x() - lastPoint_.x()), float(point.y() - lastPoint_.y())));
    // Also when the badge stayed: a finger that comes back inside moves it by new motion only.
    lastPoint_ = point;
}

void BadgePositionViewController::touchesEnded() {
    touchingInsideBadge_ = false;
    storeLocation();
}

void BadgePositionViewController::moveBadgeIfInside(QPointF offset) {
    const QRectF candidate = badgeFrame_.translated(offset);
    if (allowedMove(QRectF(QPointF(), innerFrame_.size()), badgeFrame_, candidate))
        place(badgeImageView_, badgeFrame_, candidate);
}

void BadgePositionViewController::storeLocation() const {
    const QRectF& icon = iconFrame_;
    // Without an icon size there is no fraction to store: the stored place is kept.
    if (icon.width() <= 0 || icon.height() <= 0)
        return;
    const float dx = float(badgeFrame_.x() - icon.x());
    const float dy = float(badgeFrame_.y() - icon.y());
    setPreferencesObjectKey(formatFloat(dx / icon.width()) + "," + formatFloat(dy / icon.height()),
                            SettingsKey::badgeLocation);
}

bool BadgePositionViewController::eventFilter(QObject* watched, QEvent* event) {
    if (watched != view())
        return false;
    const auto inSquare = [this](QEvent* e) {
        return innerView_->mapFrom(view(), static_cast<QMouseEvent*>(e)->position());
    };
    switch (event->type()) {
    case QEvent::FocusIn:
    case QEvent::FocusOut:
        innerView_->update();
        return false;
    case QEvent::MouseButtonPress:
        view()->setFocus(Qt::MouseFocusReason);
        touchesBegan(inSquare(event));
        return true;
    case QEvent::MouseMove:
        if (static_cast<QMouseEvent*>(event)->buttons() != Qt::NoButton)
            touchesMoved(inSquare(event));
        return true;
    case QEvent::MouseButtonRelease:
        touchesEnded();
        return true;
    case QEvent::KeyPress:
    case QEvent::KeyRelease: {
        auto* key = static_cast<QKeyEvent*>(event);
        QPointF step;
        switch (key->key()) {
        case Qt::Key_Left:
            step = {-1, 0};
            break;
        case Qt::Key_Right:
            step = {1, 0};
            break;
        case Qt::Key_Up:
            step = {0, -1};
            break;
        case Qt::Key_Down:
            step = {0, 1};
            break;
        default:
            return false;
        }
        // A held key nudges on every repeat and stores once, when it is let go.
        if (event->type() == QEvent::KeyPress)
            moveBadgeIfInside(step);
        else if (!key->isAutoRepeat())
            storeLocation();
        return true;
    }
    default:
        return false;
    }
}

} // namespace pomwick

#include "ViewGeometry.h"

#include "Appearance.h"

#include <QGraphicsOpacityEffect>
#include <QPalette>
#include <QResizeEvent>
#include <cmath>

namespace pomwick {
namespace {

constexpr const char* frameProperty = "pomwickFrame";
constexpr const char* tagProperty = "pomwickTag";
constexpr const char* alphaProperty = "pomwickAlpha";
constexpr const char* mirroredProperty = "pomwickMirroredFrames";

int placed(qreal value) {
    return std::isfinite(value) ? int(std::lround(std::clamp(value, -1e6, 1e6))) : 0;
}

QRect placedRect(const QRectF& frame) {
    return {placed(frame.x()), placed(frame.y()), std::max(0, placed(frame.width())),
            std::max(0, placed(frame.height()))};
}

// Right to left, a frame's x counts from the parent's right edge, where a layout would put it.
QRect placedRect(const QWidget* view, const QRectF& frame, int parentWidth) {
    QRect rect = placedRect(frame);
    if (view->parentWidget() != nullptr && view->parentWidget()->isRightToLeft())
        rect.moveLeft(parentWidth - rect.right() - 1);
    return rect;
}

QRect placedRect(const QWidget* view, const QRectF& frame) {
    return placedRect(view, frame, view->parentWidget() ? view->parentWidget()->width() : 0);
}

// A mirrored parent that changes width takes the children it placed along to the new right edge.
class MirroredFrames : public QObject {
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::Resize)
            return false;
        const int oldWidth = static_cast<QResizeEvent*>(event)->oldSize().width();
        for (QObject* child : watched->children()) {
            auto* view = qobject_cast<QWidget*>(child);
            const QVariant stored = view ? view->property(frameProperty) : QVariant();
            if (stored.isValid() &&
                view->geometry() == placedRect(view, stored.toRectF(), oldWidth))
                view->setGeometry(placedRect(view, stored.toRectF()));
        }
        return false;
    }
};

} // namespace

void setFrame(QWidget* view, const QRectF& frame) {
    view->setProperty(frameProperty, frame);
    view->setGeometry(placedRect(view, frame));
    QWidget* parent = view->parentWidget();
    if (parent != nullptr && parent->isRightToLeft() &&
        !parent->property(mirroredProperty).isValid()) {
        parent->setProperty(mirroredProperty, true);
        parent->installEventFilter(new MirroredFrames(parent));
    }
}

QRectF frame(const QWidget* view) {
    // A widget placed by someone else since its frame was set: its geometry is the truth.
    const QVariant stored = view->property(frameProperty);
    if (stored.isValid() && placedRect(view, stored.toRectF()) == view->geometry())
        return stored.toRectF();
    return QRectF(view->geometry());
}

QRectF bounds(const QWidget* view) {
    return QRectF(QPointF(0, 0), frame(view).size());
}

void setTag(QWidget* view, int tag) {
    view->setProperty(tagProperty, tag);
}

int tag(const QWidget* view) {
    return view->property(tagProperty).toInt();
}

QWidget* viewWithTag(const QWidget* parent, int wanted) {
    for (QObject* child : parent->children()) {
        auto* view = qobject_cast<QWidget*>(child);
        if (view != nullptr && view->property(tagProperty).isValid() && tag(view) == wanted)
            return view;
    }
    return nullptr;
}

void setAlpha(QWidget* view, qreal alpha) {
    view->setProperty(alphaProperty, alpha);
    if (alpha >= 1.0) {
        view->setGraphicsEffect(nullptr);
        return;
    }
    auto* effect = new QGraphicsOpacityEffect(view);
    effect->setOpacity(alpha);
    view->setGraphicsEffect(effect);
}

qreal alpha(const QWidget* view) {
    const QVariant stored = view->property(alphaProperty);
    return stored.isValid() ? stored.toReal() : 1.0;
}

void setBackgroundColor(QWidget* view, const QColor& color) {
    QPalette palette = view->palette();
    palette.setColor(QPalette::Window, color);
    view->setPalette(palette);
    view->setAutoFillBackground(color.alpha() > 0);
}

void setTextColor(QWidget* view, const QColor& color) {
    QPalette palette = view->palette();
    palette.setColor(QPalette::WindowText, color);
    palette.setColor(QPalette::Text, color);
    view->setPalette(palette);
}

QColor textColor(const QWidget* view) {
    return view->palette().color(QPalette::WindowText);
}

void setBackgroundColor(QWidget* view, QColor (*lookup)()) {
    Appearance::follow(
        view, [view, lookup] { setBackgroundColor(view, lookup()); }, "background");
}

void setTextColor(QWidget* view, QColor (*lookup)()) {
    Appearance::follow(
        view, [view, lookup] { setTextColor(view, lookup()); }, "text");
}

} // namespace pomwick

#include "ViewGeometry.h"

#include "Appearance.h"

#include <QGraphicsOpacityEffect>
#include <QPalette>
#include <cmath>

namespace pomwick {
namespace {

constexpr const char* frameProperty = "pomwickFrame";
constexpr const char* tagProperty = "pomwickTag";
constexpr const char* alphaProperty = "pomwickAlpha";

int placed(qreal value) {
    return std::isfinite(value) ? int(std::lround(std::clamp(value, -1e6, 1e6))) : 0;
}

QRect placedRect(const QRectF& frame) {
    return {placed(frame.x()), placed(frame.y()), std::max(0, placed(frame.width())),
            std::max(0, placed(frame.height()))};
}

} // namespace

void setFrame(QWidget* view, const QRectF& frame) {
    view->setProperty(frameProperty, frame);
    view->setGeometry(placedRect(frame));
}

QRectF frame(const QWidget* view) {
    // A widget placed by someone else since its frame was set: its geometry is the truth.
    const QVariant stored = view->property(frameProperty);
    if (stored.isValid() && placedRect(stored.toRectF()) == view->geometry())
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

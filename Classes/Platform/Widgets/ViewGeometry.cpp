#include "ViewGeometry.h"

#include "Appearance.h"

#include <QGraphicsOpacityEffect>
#include <QPalette>
#include <QPointer>
#include <QResizeEvent>
#include <cmath>

namespace pomwick {
namespace {

constexpr const char* tagProperty = "pomwickTag";
constexpr const char* alphaProperty = "pomwickAlpha";

int placed(qreal value) {
    return std::isfinite(value) ? int(std::lround(std::clamp(value, -1e6, 1e6))) : 0;
}

// Right to left, a frame's x counts from the parent's right edge, where a layout would put it;
// mirrored twice, a rectangle is itself again.
QRect mirrored(const QWidget* view, QRect rect) {
    const QWidget* parent = view->parentWidget();
    if (parent != nullptr && parent->isRightToLeft())
        rect.moveLeft(parent->width() - rect.right() - 1);
    return rect;
}

// A mirrored parent that changes width takes the children placed by frame along to its new right
// edge: they keep their distance from it.
class MirroredFrames : public QObject {
public:
    explicit MirroredFrames(QWidget* parent) : QObject(parent) { parent->installEventFilter(this); }

    static MirroredFrames* of(QWidget* parent) {
        for (QObject* child : parent->children())
            if (auto* frames = dynamic_cast<MirroredFrames*>(child))
                return frames;
        return new MirroredFrames(parent);
    }
    void track(QWidget* view) {
        if (!placed_.contains(view))
            placed_.emplace_back(view);
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::Resize)
            return false;
        // A resize held back until the parent is shown has no old size: its children were
        // placed against the width it has.
        const auto* resize = static_cast<QResizeEvent*>(event);
        if (!resize->oldSize().isValid())
            return false;
        const int moved = resize->size().width() - resize->oldSize().width();
        placed_.removeIf([watched](const QPointer<QWidget>& view) {
            return view.isNull() || view->parent() != watched;
        });
        for (QWidget* view : placed_)
            view->move(view->x() + moved, view->y());
        return false;
    }

private:
    QList<QPointer<QWidget>> placed_;
};

} // namespace

void setFrame(QWidget* view, const QRectF& frame) {
    const QRect rect(placed(frame.x()), placed(frame.y()), std::max(0, placed(frame.width())),
                     std::max(0, placed(frame.height())));
    view->setGeometry(mirrored(view, rect));
    QWidget* parent = view->parentWidget();
    if (parent != nullptr && parent->isRightToLeft())
        MirroredFrames::of(parent)->track(view);
}

QRectF frame(const QWidget* view) {
    return QRectF(mirrored(view, view->geometry()));
}

QRectF bounds(const QWidget* view) {
    return QRectF(QPointF(0, 0), QSizeF(view->size()));
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

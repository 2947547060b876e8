#include "Appearance.h"

#include <QApplication>
#include <QFocusEvent>
#include <QFontDatabase>
#include <QPaintEngine>
#include <QPainter>
#include <QWidget>
#include <map>

namespace pomwick::Appearance {
namespace {

// Follows whether the user steers with the keyboard or the pointer: the last key or click decides,
// and so does how the focus last arrived (Tab, or a click).
class InputModality : public QObject {
public:
    InputModality() { qApp->installEventFilter(this); }
    bool keyboard = false;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        switch (event->type()) {
        case QEvent::KeyPress:
            set(true);
            break;
        case QEvent::MouseButtonPress:
        case QEvent::TouchBegin:
            set(false);
            break;
        case QEvent::FocusIn:
            // A dialog that opens tells its focus widget "by Tab" before that has the focus: no
            // keystroke of the user's.
            if (auto* widget = qobject_cast<QWidget*>(watched); widget && !widget->hasFocus())
                break;
            switch (static_cast<QFocusEvent*>(event)->reason()) {
            case Qt::TabFocusReason:
            case Qt::BacktabFocusReason:
            case Qt::ShortcutFocusReason:
                set(true);
                break;
            case Qt::MouseFocusReason:
                set(false);
                break;
            default:
                break;
            }
            break;
        default:
            break;
        }
        return false;
    }

private:
    void set(bool byKeyboard) {
        if (keyboard == byKeyboard)
            return;
        keyboard = byKeyboard;
        if (QWidget* focused = QApplication::focusWidget())
            focused->update();
    }
};

} // namespace

QColor tint() {
    return QColor(0, 122, 255);
}
QColor barBackground() {
    return QColor(248, 248, 248);
}
QColor hairline() {
    return QColor(200, 199, 204);
}
QColor groupedBackground() {
    return QColor(239, 239, 244);
}
QColor sectionHeaderText() {
    return QColor(109, 109, 114);
}
QColor selectedCellBackground() {
    return QColor(217, 217, 217);
}

QFont systemFont(int points, QFont::Weight weight) {
    // Asked for on every row of every rebuild: made once per size and weight.
    static std::map<std::pair<int, int>, QFont> made;
    auto found = made.find({points, int(weight)});
    if (found == made.end()) {
        QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
        font.setPixelSize(points);
        font.setWeight(weight);
        found = made.emplace(std::pair{points, int(weight)}, font).first;
    }
    return found->second;
}

qreal hairlineWidth(const QPainter& painter) {
    // The engine's device is where the pixels go: the backing store, or the image a widget is
    // rendered into, whose scale may differ from the widget's screen.
    const QPaintEngine* engine = painter.paintEngine();
    const QPaintDevice* device = engine != nullptr ? engine->paintDevice() : painter.device();
    return device != nullptr ? 1 / std::max<qreal>(1, device->devicePixelRatioF()) : 1;
}

bool showsFocusRing(const QWidget* widget) {
    static auto* modality = new InputModality;
    return widget->hasFocus() && modality->keyboard;
}

void drawFocusRing(QPainter& painter, const QRectF& outline, qreal radius) {
    painter.save();
    painter.setOpacity(1);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    // The tinted ring inside a white one: one of the two stands out from any colour around it.
    const QRectF ring = outline.adjusted(2, 2, -2, -2);
    const qreal inner = std::max<qreal>(0, radius - 2);
    painter.setPen(QPen(Qt::white, 4));
    painter.drawRoundedRect(ring, inner, inner);
    painter.setPen(QPen(tint(), 2));
    painter.drawRoundedRect(ring, inner, inner);
    painter.restore();
}

namespace {
QColor& segmentedTint() {
    static QColor color = tint();
    return color;
}
} // namespace

QColor segmentedControlTint() {
    return segmentedTint();
}
void setSegmentedControlTint(const QColor& color) {
    segmentedTint() = color;
}

} // namespace pomwick::Appearance

#include "Appearance.h"

#include <QApplication>
#include <QFocusEvent>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QPaintEngine>
#include <QPainter>
#include <QWidget>
#include <map>
#include <set>
#include <vector>

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

// Tells the followers when the application palette turns from light to dark or back.
class Follower;
class LookWatcher : public QObject {
public:
    LookWatcher() : dark_(isDark()) { qApp->installEventFilter(this); }
    std::set<Follower*> followers;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool dark_;
};

LookWatcher& watcher() {
    static auto* made = new LookWatcher;
    return *made;
}

class Follower : public QObject {
public:
    Follower(QObject* owner, std::function<void()> apply)
        : QObject(owner), apply(std::move(apply)) {
        watcher().followers.insert(this);
    }
    ~Follower() override { watcher().followers.erase(this); }
    const std::function<void()> apply;
};

bool LookWatcher::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ApplicationPaletteChange && watched == qApp && isDark() != dark_) {
        dark_ = !dark_;
        // Recoloring may make or delete followers: the ones there now are called, if still there.
        const std::vector<Follower*> now(followers.begin(), followers.end());
        for (Follower* follower : now)
            if (followers.contains(follower))
                follower->apply();
    }
    return false;
}

QColor pick(QColor light, QColor dark) {
    return isDark() ? dark : light;
}

} // namespace

bool isDark() {
    return QGuiApplication::palette().color(QPalette::Window).lightness() < 128;
}

void follow(QObject* owner, std::function<void()> apply, const char* aspect) {
    apply();
    // A second lookup for the same aspect replaces the first rather than racing it.
    if (aspect != nullptr)
        delete owner->findChild<QObject*>(aspect, Qt::FindDirectChildrenOnly);
    (new Follower(owner, std::move(apply)))->setObjectName(aspect);
}

// The phone's light and dark settings colors; the tint is the same in both.
QColor tint() {
    return QColor(0, 122, 255);
}
QColor barBackground() {
    return pick(QColor(248, 248, 248), QColor(22, 22, 24));
}
QColor hairline() {
    return pick(QColor(200, 199, 204), QColor(56, 56, 58));
}
QColor groupedBackground() {
    return pick(QColor(239, 239, 244), QColor(0, 0, 0));
}
QColor sectionHeaderText() {
    return pick(QColor(109, 109, 114), QColor(142, 142, 147));
}
QColor selectedCellBackground() {
    return pick(QColor(217, 217, 217), QColor(58, 58, 60));
}
QColor cellBackground() {
    return pick(Qt::white, QColor(28, 28, 30));
}
QColor screenBackground() {
    return pick(QColor::fromRgbF(0.95, 0.95, 0.95), QColor(0, 0, 0));
}
QColor labelText() {
    return pick(Qt::black, Qt::white);
}
QColor footnoteText() {
    return pick(QColor(170, 170, 170), QColor(118, 118, 122));
}
QColor disabledText() {
    return pick(QColor(180, 180, 184), QColor(90, 90, 94));
}
QColor destructive() {
    return pick(QColor(255, 59, 48), QColor(255, 69, 58));
}
QColor errorText() {
    return pick(QColor(192, 57, 43), QColor(255, 105, 97));
}
QColor outline() {
    return pick(Qt::black, QColor(142, 142, 147));
}
QColor controlTint() {
    return pick(Qt::black, QColor(174, 174, 178));
}
QColor switchRim() {
    return pick(QColor(229, 229, 234), QColor(72, 72, 74));
}
QColor sliderTrack() {
    return pick(QColor(182, 182, 182), QColor(72, 72, 74));
}
QColor scrollIndicator() {
    return pick(QColor(0, 0, 0, 110), QColor(255, 255, 255, 110));
}
QColor sheetBarBackground() {
    return pick(QColor(247, 247, 248), QColor(22, 22, 24));
}
QColor sheetBarRim() {
    return pick(QColor::fromRgbF(1.0 / 3, 1.0 / 3, 1.0 / 3), QColor(84, 84, 88));
}
QColor pickerBackground() {
    return pick(QColor::fromRgbF(0.98f, 0.98f, 0.98f, 0.98f),
                QColor::fromRgbF(0.11f, 0.11f, 0.12f, 0.98f));
}
QColor menuBorder() {
    return pick(QColor(209, 209, 214), QColor(56, 56, 58));
}
QColor menuSelection() {
    return pick(QColor(229, 229, 234), QColor(58, 58, 60));
}
QColor noticeBackground(qreal opacity) {
    // On black, the dark look's notice is a lighter grey to stand out.
    return pick(QColor::fromRgbF(0, 0, 0, float(opacity)),
                QColor::fromRgbF(0.28f, 0.28f, 0.29f, float(opacity)));
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

// What screen readers learn about the controls Qt does not know: the switch is a check box whose
// value reads "on" or "off", a segmented control is a group of radio buttons, the slider reports
// its float value, and a row is an item that can be pressed and is unavailable while it is dimmed
// or does not react.
#include "SegmentedControl.h"
#include "Slider.h"
#include "Switch.h"
#include "TableViewCell.h"

#include <QAccessibleValueInterface>
#include <QAccessibleWidget>
#include <QCoreApplication>
#include <cmath>

namespace pomwick {
namespace {

// A widget that answers one press-like action by clicking.
template <typename Widget> class Pressable : public QAccessibleWidget {
public:
    Pressable(Widget* widget, QAccessible::Role role, QString action)
        : QAccessibleWidget(widget, role), action_(std::move(action)) {}

    Widget* control() const { return static_cast<Widget*>(widget()); }
    QStringList actionNames() const override {
        return QStringList{action_} + QAccessibleWidget::actionNames();
    }
    void doAction(const QString& name) override {
        if (name == action_ && widget()->isEnabled())
            control()->click();
        else
            QAccessibleWidget::doAction(name);
    }

private:
    QString action_;
};

class SwitchAccessible : public Pressable<Switch> {
public:
    explicit SwitchAccessible(Switch* toggle)
        : Pressable(toggle, QAccessible::CheckBox, toggleAction()) {}

    QString text(QAccessible::Text kind) const override {
        if (kind == QAccessible::Value)
            return control()->isOn() ? QCoreApplication::translate("pomwick::Switch", "on")
                                     : QCoreApplication::translate("pomwick::Switch", "off");
        return Pressable::text(kind);
    }
    QAccessible::State state() const override {
        QAccessible::State state = Pressable::state();
        state.checkable = true;
        state.checked = control()->isOn();
        return state;
    }
};

// A segment of a segmented control: one of a set of radio buttons.
class SegmentAccessible : public Pressable<QAbstractButton> {
public:
    explicit SegmentAccessible(QAbstractButton* segment)
        : Pressable(segment, QAccessible::RadioButton, pressAction()) {}

    QString text(QAccessible::Text kind) const override {
        if (kind == QAccessible::Name && control()->accessibleName().isEmpty())
            return control()->text();
        return Pressable::text(kind);
    }
    QAccessible::State state() const override {
        QAccessible::State state = Pressable::state();
        state.checkable = true;
        state.checked = control()->isChecked();
        return state;
    }
};

class CellAccessible : public Pressable<TableViewCell> {
public:
    explicit CellAccessible(TableViewCell* cell)
        : Pressable(cell, QAccessible::ListItem, pressAction()) {}

    QString text(QAccessible::Text kind) const override {
        if (kind == QAccessible::Name && control()->accessibleName().isEmpty())
            return control()->textLabel()->text();
        return Pressable::text(kind);
    }
    QAccessible::State state() const override {
        QAccessible::State state = Pressable::state();
        state.disabled = control()->isDimmed() || !control()->isUserInteractionEnabled();
        return state;
    }
    // A row that ignores touches ignores a screen reader's press too.
    void doAction(const QString& name) override {
        if (name != pressAction() || control()->isUserInteractionEnabled())
            Pressable::doAction(name);
    }
};

class SliderAccessible : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    explicit SliderAccessible(Slider* slider) : QAccessibleWidget(slider, QAccessible::Slider) {}

    Slider* slider() const { return static_cast<Slider*>(widget()); }
    // The position it keeps inside is no control of its own.
    int childCount() const override { return 0; }
    QAccessibleInterface* child(int) const override { return nullptr; }
    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ValueInterface ? static_cast<QAccessibleValueInterface*>(this)
                                                   : QAccessibleWidget::interface_cast(type);
    }
    QString text(QAccessible::Text kind) const override {
        if (kind == QAccessible::Value)
            return QString::number(slider()->value(), 'g', 6);
        return QAccessibleWidget::text(kind);
    }
    // Six significant digits, as the value is stored: 0.4, not 0.400000006.
    QVariant currentValue() const override { return text(QAccessible::Value).toDouble(); }
    void setCurrentValue(const QVariant& value) override {
        const double range = slider()->maximumValue() - slider()->minimumValue();
        if (range <= 0 || !slider()->isEnabled())
            return;
        const double fraction = (value.toDouble() - slider()->minimumValue()) / range;
        // As a key step goes: a change and a release.
        slider()->stepTo(int(std::lround(fraction * Slider::steps)));
    }
    QVariant maximumValue() const override { return double(slider()->maximumValue()); }
    QVariant minimumValue() const override { return double(slider()->minimumValue()); }
    QVariant minimumStepSize() const override {
        return (double(slider()->maximumValue()) - slider()->minimumValue()) / Slider::steps;
    }
};

QAccessibleInterface* makeAccessible(const QString& className, QObject* object) {
    if (className == QLatin1String(Switch::staticMetaObject.className()))
        return new SwitchAccessible(static_cast<Switch*>(object));
    if (className == QLatin1String(Slider::staticMetaObject.className()))
        return new SliderAccessible(static_cast<Slider*>(object));
    if (className == QLatin1String(SegmentedControl::staticMetaObject.className()))
        return new QAccessibleWidget(static_cast<QWidget*>(object), QAccessible::Grouping);
    if (className == QLatin1String(Segment::staticMetaObject.className()))
        return new SegmentAccessible(static_cast<Segment*>(object));
    if (className == QLatin1String(TableViewCell::staticMetaObject.className()))
        return new CellAccessible(static_cast<TableViewCell*>(object));
    return nullptr;
}

void installAccessibleInterfaces() {
    QAccessible::installFactory(makeAccessible);
}
Q_CONSTRUCTOR_FUNCTION(installAccessibleInterfaces)

} // namespace
} // namespace pomwick

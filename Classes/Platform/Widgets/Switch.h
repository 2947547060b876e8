#pragma once

#include "PomwickPlatformExport.h"

#include <QAbstractButton>
#include <QColor>

namespace pomwick {

// The on/off switch, 51 x 31 points: a checkable button, so Tab, Space and screen readers work
// as for any check box. Its value is the button's `checked` property (toggled on every change);
// valueChanged comes from the user's toggles only.
class POMWICK_PLATFORM_EXPORT Switch : public QAbstractButton {
    Q_OBJECT
public:
    static constexpr QSize size{51, 31};

    explicit Switch(QWidget* parent = nullptr);

    bool isOn() const { return isChecked(); }
    void setOn(bool on, bool animated = false);
    void setOnTintColor(const QColor& color);

    QSize sizeHint() const override { return size; }

signals:
    void valueChanged();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QColor onTint_{52, 199, 89};
};

} // namespace pomwick

#pragma once

#include "PomwickPlatformExport.h"

#include <QAbstractSlider>

namespace pomwick {

// A horizontal slider of float values on Qt's own slider, so that Tab, the arrow keys and screen
// readers work. Dragging reports every change (valueChanged); letting go reports whether the
// finger was still on the control (touchUpInside) or had left it (touchUpOutside). A step by
// key or by an assistive action is a change and a release at once. Setting the value from code
// clamps it and reports nothing but floatValueChanged.
class POMWICK_PLATFORM_EXPORT Slider : public QAbstractSlider {
    Q_OBJECT
    Q_PROPERTY(float floatValue READ value WRITE setValue NOTIFY floatValueChanged USER true)
public:
    static constexpr qreal height = 31;
    // The keyboard's and the assistive tools' step: a hundredth of the range.
    static constexpr int steps = 100;

    explicit Slider(QWidget* parent = nullptr);

    float minimumValue() const { return minimum_; }
    float maximumValue() const { return maximum_; }
    float value() const { return value_; }
    void setMinimumValue(float minimum);
    void setMaximumValue(float maximum);
    void setValue(float value, bool animated = false);

signals:
    void floatValueChanged(float value);
    void valueChanged();
    void touchUpInside();
    void touchUpOutside();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    // The wheel scrolls the page, as a touch slider does not react to it.
    void wheelEvent(QWheelEvent* event) override;

private:
    float clamped(float value) const;
    float valueAt(qreal x) const;
    qreal thumbCenter() const;
    void assign(float value);
    void track(qreal x);
    void stepped(int position);

    float minimum_ = 0;
    float maximum_ = 1;
    float value_ = 0;
    bool assigning_ = false;
    bool releasedInside_ = true;
};

} // namespace pomwick

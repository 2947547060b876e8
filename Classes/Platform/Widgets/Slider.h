#pragma once

#include <QWidget>

namespace pomwick {

// A horizontal slider of float values. Dragging reports every change (valueChanged); letting go
// reports whether the finger was still on the control (touchUpInside) or had left it
// (touchUpOutside). Setting the value from code clamps it and reports nothing.
class Slider : public QWidget {
    Q_OBJECT
public:
    static constexpr qreal height = 31;

    explicit Slider(QWidget* parent = nullptr);

    float minimumValue() const { return minimum_; }
    float maximumValue() const { return maximum_; }
    float value() const { return value_; }
    void setMinimumValue(float minimum);
    void setMaximumValue(float maximum);
    void setValue(float value, bool animated);

signals:
    void valueChanged();
    void touchUpInside();
    void touchUpOutside();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    float clamped(float value) const;
    float valueAt(qreal x) const;
    qreal thumbCentre() const;
    void track(qreal x);

    float minimum_ = 0;
    float maximum_ = 1;
    float value_ = 0;
    bool tracking_ = false;
};

} // namespace pomwick

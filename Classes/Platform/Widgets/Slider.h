#pragma once

#include "PomwickPlatformExport.h"

#include <QWidget>

class QAbstractSlider;

namespace pomwick {

// A horizontal slider of float values. It owns Qt's slider logic (a QAbstractSlider that the keys
// and assistive tools step) instead of being one, so that its float value, setter and change
// signal hide none of Qt's int ones. Every change is reported (valueChanged), whoever makes it;
// letting go of a drag is sliderReleased. A step by key or by an assistive action is a change
// and a release at once. Setters clamp and report only a real change.
class POMWICK_PLATFORM_EXPORT Slider : public QWidget {
    Q_OBJECT
    Q_PROPERTY(float value READ value WRITE setValue NOTIFY valueChanged USER true)
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
    bool isSliderDown() const;
    // Moves to one of the `steps` positions as a key step does: a change and a release.
    void stepTo(int position);

signals:
    void valueChanged(float value);
    void sliderReleased();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    // The wheel scrolls the page, as a touch slider does not react to it.
    void wheelEvent(QWheelEvent* event) override;

private:
    float clamped(float value) const;
    float valueAt(qreal x) const;
    qreal thumbCenter() const;
    void assign(float value);
    void track(qreal x);
    void stepped(int position);

    QAbstractSlider* positions_;
    float minimum_ = 0;
    float maximum_ = 1;
    float value_ = 0;
    bool assigning_ = false;
};

} // namespace pomwick

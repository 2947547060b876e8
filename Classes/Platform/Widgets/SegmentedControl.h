#pragma once

#include "PomwickPlatformExport.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QColor>
#include <QStringList>
#include <QWidget>

namespace pomwick {

class SegmentedControl;

// One segment: the control paints all of them; a segment carries the state, the focus and the
// accessible name.
class POMWICK_PLATFORM_EXPORT Segment : public QAbstractButton {
    Q_OBJECT
public:
    Segment(const QString& title, SegmentedControl* control);

protected:
    void paintEvent(QPaintEvent*) override {}
    // The control draws the focus ring.
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
};

// Segments side by side, the selected one filled with the tint: one checkable button per segment
// in an exclusive group, so Tab reaches the selected segment, the arrow keys choose another and
// screen readers read each as a radio button. valueChanged comes from the user choosing another
// segment.
class POMWICK_PLATFORM_EXPORT SegmentedControl : public QWidget {
    Q_OBJECT
    Q_PROPERTY(int selectedSegmentIndex READ selectedSegmentIndex WRITE setSelectedSegmentIndex
                   NOTIFY selectedSegmentIndexChanged USER true)
public:
    explicit SegmentedControl(const QStringList& items, QWidget* parent = nullptr);

    int selectedSegmentIndex() const { return group_.checkedId(); }
    void setSelectedSegmentIndex(int index);
    void setTintColor(const QColor& color);
    QColor tintColor() const { return tint_; }
    QAbstractButton* segment(int index) const { return group_.button(index); }

signals:
    // Any change of the selection, from code too.
    void selectedSegmentIndexChanged(int index);
    void valueChanged();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    // Clicks land on the control and go to the segment under the pointer.
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    QRectF segmentRect(int index) const;

    QButtonGroup group_;
    QColor tint_;
    bool changed_ = false;
};

} // namespace pomwick

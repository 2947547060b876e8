#pragma once

#include <QColor>
#include <QStringList>
#include <QWidget>

namespace pomwick {

// Segments side by side; the selected one is filled with the tint. valueChanged comes from the
// user choosing another segment.
class SegmentedControl : public QWidget {
    Q_OBJECT
public:
    explicit SegmentedControl(QStringList items, QWidget* parent = nullptr);

    int selectedSegmentIndex() const { return selected_; }
    void setSelectedSegmentIndex(int index);
    void setTintColor(const QColor& colour);

signals:
    void valueChanged();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    QRectF segmentRect(int index) const;

    QStringList items_;
    int selected_ = -1;
    QColor tint_;
};

} // namespace pomwick

#pragma once

#include "PomwickPlatformExport.h"
#include "ScrollingItemView.h"

#include <QScroller>
#include <optional>

namespace pomwick {

// One wheel of a picker: a list view over a model whose scroll position is the selected row times
// the row height, so that row r rests in the middle at position r x height. QScroller is its one
// motion engine: it drags the wheel, snaps it to rows and turns it to a row asked for in code.
// The item delegate paints the rows; the model's rows change only by a reset.
class POMWICK_PLATFORM_EXPORT PickerWheel : public ScrollingItemView {
    Q_OBJECT
public:
    explicit PickerWheel(QWidget* parent = nullptr);

    void setRowHeight(qreal height);
    qreal rowHeight() const { return rowHeight_; }
    // -1 while the wheel has no rows.
    int selectedRow() const;
    // Turns to the row, kept inside the rows; `byUser` reports it once the wheel rests there.
    void moveToRow(int row, bool animated, bool byUser);

    QRect visualRect(const QModelIndex& index) const override;
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;
    QModelIndex indexAt(const QPoint& point) const override;
    void reset() override;

signals:
    // The user has brought the wheel to rest on a row.
    void rowPicked(int row);

protected:
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void updateGeometries() override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent*) override {}
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QScroller* scroller() const;
    int rows() const;
    int position() const;
    void setPosition(int position);
    int rowAtPosition(int position) const;
    void scrollerStateChanged(QScroller::State state);
    void rest(int row, bool byUser);
    void syncCurrentIndex();

    qreal rowHeight_ = 32;
    int selected_ = 0;
    // The row a turn made in code or by key is heading for, and whether the user asked for it.
    std::optional<int> target_;
    bool targetByUser_ = false;
    bool dragged_ = false;
    std::optional<int> pressedRow_;
    bool syncing_ = false;
    int wheelAngle_ = 0;
};

} // namespace pomwick

#pragma once

#include "PomwickPlatformExport.h"
#include "ScrollingItemView.h"

#include <QPixmap>
#include <QScroller>
#include <map>
#include <memory>
#include <optional>
#include <vector>

class QPropertyAnimation;

namespace pomwick {

class PickerView;

// One wheel of a picker: a list view whose scroll position is the selected row times the row
// height, so that row r rests in the middle at position r x height. QScroller drags it and snaps
// it to rows; a property animation turns it to a row. Rows are made, rendered and kept only while
// they are near the middle.
class POMWICK_PLATFORM_EXPORT PickerWheel : public ScrollingItemView {
    Q_OBJECT
    Q_PROPERTY(int position READ position WRITE setPosition)
public:
    PickerWheel(PickerView* picker, int component);
    ~PickerWheel() override;

    int numberOfRows();
    void reload();
    void setRowHeight(qreal height);
    qreal rowHeight() const { return rowHeight_; }
    int selectedRow();
    // Turns to the row; `byUser` tells the picker's delegate once the wheel rests there.
    void moveToRow(int row, bool animated, bool byUser);
    // What assistive technology reads for the row: its view's accessible name or label text.
    QString rowName(int row);
    int position() const;
    void setPosition(int position);
    // Whether the wheel is still turning (an animation or the scroller at work).
    bool isMoving() const;

    QRect visualRect(const QModelIndex& index) const override;
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;
    QModelIndex indexAt(const QPoint& point) const override;

protected:
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void updateGeometries() override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent*) override {}
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    class Model;
    struct Row {
        std::unique_ptr<QWidget> view;
        QPixmap image;
    };
    void scrollerStateChanged(QScroller::State state);
    void comeToRest(bool byUser);
    void rest(int row, bool byUser);
    int rowAtPosition(int position) const;
    qreal rowCenter(int row) const;
    const Row& rowAt(int row);
    QWidget* makeRowView(int row);
    void retireRows(int first, int last);
    void syncCurrentIndex();

    PickerView* picker_;
    int component_;
    Model* model_;
    int rows_ = -1;
    qreal rowHeight_ = 32;
    int selected_ = 0;
    std::optional<int> target_;
    bool targetByUser_ = false;
    bool dragged_ = false;
    std::optional<int> pressedRow_;
    bool syncing_ = false;
    int wheelAngle_ = 0;
    std::map<int, Row> cache_;
    std::vector<std::unique_ptr<QWidget>> spare_;
    QPropertyAnimation* animation_;
};

} // namespace pomwick

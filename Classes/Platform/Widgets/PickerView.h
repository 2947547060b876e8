#pragma once

#include "PomwickPlatformExport.h"

#include <QWidget>
#include <vector>

class QAbstractItemModel;

namespace pomwick {

class PickerRowDelegate;
class PickerWheel;

// Wheels side by side, each a column of a model's rows turning on a cylinder, the selected row in
// the middle under a band across the picker. Wheels are dragged (kinetically, coming to rest on a
// row), turned with the mouse wheel, tapped on a row, or moved with Up, Down, Page Up, Page Down,
// Home and End; Tab goes from wheel to wheel. Each wheel reads as a list of named rows.
class POMWICK_PLATFORM_EXPORT PickerView : public QWidget {
    Q_OBJECT
public:
    static constexpr qreal componentSpacing = 5;
    static constexpr qreal sideMargin = 10;

    explicit PickerView(QWidget* parent = nullptr);

    // Adds a wheel over the model (not owned), at first as wide as its share of the picker.
    PickerWheel* addComponent(QAbstractItemModel* model);
    // A wheel `width` wide (not finite or below 0: hidden), or, when it stretches, sharing out
    // what the others leave, never narrower than `width`.
    void setComponentWidth(int component, qreal width, bool stretches = false);
    int numberOfComponents() const { return int(components_.size()); }
    int numberOfRowsInComponent(int component) const;
    // Rows outside the wheel are ignored; nothing is reported.
    void selectRow(int row, int component, bool animated);
    // -1 when the wheel has no rows or does not exist.
    int selectedRowInComponent(int component) const;
    void setRowHeight(qreal height);
    qreal rowHeight() const { return rowHeight_; }
    void setShowsSelectionIndicator(bool shows);
    bool showsSelectionIndicator() const { return showsSelectionIndicator_; }
    // The one delegate that paints every wheel's rows.
    PickerRowDelegate* rowDelegate() const { return delegate_; }
    // The wheel of a component, or null.
    PickerWheel* wheel(int component) const;

    QSize sizeHint() const override { return {320, 216}; }

signals:
    // The user has brought a wheel to rest on a row (never for selectRow).
    void rowPicked(int row, int component);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    struct Component {
        PickerWheel* wheel;
        qreal width;
        bool stretches;
    };
    void layoutWheels();

    std::vector<Component> components_;
    PickerRowDelegate* delegate_;
    qreal rowHeight_ = 32;
    bool showsSelectionIndicator_ = true;
};

} // namespace pomwick

#pragma once

#include "PomwickPlatformExport.h"

#include <QWidget>
#include <vector>

namespace pomwick {

class PickerView;
class PickerWheel;

// What the picker asks of its data source and tells its delegate (one object here, not owned by
// the picker). Rows are asked for lazily: only the rows a wheel shows are made.
class POMWICK_PLATFORM_EXPORT PickerViewDataSource {
public:
    virtual ~PickerViewDataSource() = default;
    virtual int numberOfComponentsInPickerView(PickerView* picker) = 0;
    virtual int numberOfRowsInComponent(PickerView* picker, int component) = 0;
    // Widths that are not finite or below 0 hide the wheel. The default shares the width out.
    virtual qreal widthForComponent(PickerView* picker, int component);
    virtual qreal rowHeightForComponent(PickerView*, int) { return 32; }
    // The view a row shows, centered in its row; the picker owns it from then on and renders it.
    // `reusingView` is a view the picker no longer shows, or null; the picker deletes it unless it
    // comes back. Null shows nothing.
    virtual QWidget* viewForRow(PickerView* picker, int row, int component,
                                QWidget* reusingView) = 0;
    // The user has brought a wheel to rest on a row (never for selectRow).
    virtual void didSelectRow(PickerView*, int /*row*/, int /*component*/) {}
};

// Wheels side by side, each a column of rows turning on a cylinder, the selected row in the
// middle under a band across the picker. Wheels are dragged (kinetically, coming to rest on a
// row), turned with the mouse wheel, tapped on a row, or moved with Up, Down, Page Up, Page Down,
// Home and End; Tab goes from wheel to wheel. Each wheel reads as a list of named rows.
class POMWICK_PLATFORM_EXPORT PickerView : public QWidget {
    Q_OBJECT
public:
    static constexpr qreal componentSpacing = 5;

    explicit PickerView(QWidget* parent = nullptr);
    ~PickerView() override;

    void setDataSource(PickerViewDataSource* dataSource);
    PickerViewDataSource* dataSource() const { return dataSource_; }

    int numberOfComponents();
    int numberOfRowsInComponent(int component);
    void reloadAllComponents();
    void reloadComponent(int component);
    // Rows outside the wheel are ignored.
    void selectRow(int row, int component, bool animated);
    // -1 when the wheel has no rows or does not exist.
    int selectedRowInComponent(int component);
    void setShowsSelectionIndicator(bool shows);
    bool showsSelectionIndicator() const { return showsSelectionIndicator_; }
    void setComponentAccessibleName(int component, const QString& name);

    // The wheel of a component (its list view), or null.
    PickerWheel* wheel(int component);

    QSize sizeHint() const override { return {320, 216}; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void ensureComponents();
    void layoutWheels();

    PickerViewDataSource* dataSource_ = nullptr;
    std::vector<PickerWheel*> wheels_;
    bool loaded_ = false;
    bool showsSelectionIndicator_ = true;
};

} // namespace pomwick

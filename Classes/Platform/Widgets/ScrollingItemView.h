#pragma once

#include "PomwickPlatformExport.h"

#include <QListView>

namespace pomwick {

// A list view whose subclass lays out and paints its items itself: being a list view, it reads to
// assistive technology as a list of named items. Scrolling is vertical, by pixel, through the
// hidden vertical scroll bar, dragged kinetically with QScroller; nothing is selected by moving
// the current item, only by the subclass.
class POMWICK_PLATFORM_EXPORT ScrollingItemView : public QListView {
    Q_OBJECT
public:
    explicit ScrollingItemView(QWidget* parent = nullptr);

    void doItemsLayout() override;

protected:
    int horizontalOffset() const override { return 0; }
    int verticalOffset() const override;
    bool isIndexHidden(const QModelIndex&) const override { return false; }
    void setSelection(const QRect&, QItemSelectionModel::SelectionFlags) override {}
    QRegion visualRegionForSelection(const QItemSelection& selection) const override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex&,
                                                         const QEvent*) const override;
    void scrollContentsBy(int dx, int dy) override;
};

} // namespace pomwick

#pragma once

#include <QColor>
#include <QStyledItemDelegate>

namespace pomwick {

// How a swatch looks at a moment: its color fills the item's square, a border drawn inside its
// edge marks the selection, alpha dims the whole swatch, and the focus ring shows the keyboard's
// place.
struct CollectionViewCell {
    QColor backgroundColor;
    QColor borderColor;
    qreal borderWidth = 0;
    qreal alpha = 1;
    bool selected = false;
    bool focused = false;
};

// Paints a palette's rows as plain square swatches: the row's background color, a border while
// selected (if the selection is to be shown), dimmed while pressed, and the focus ring while the
// keyboard steers.
class ColorSwatchDelegate : public QStyledItemDelegate {
    Q_OBJECT
public:
    static constexpr qreal selectionBorderWidth = 5.0;
    static constexpr qreal highlightedAlpha = 0.5;

    using QStyledItemDelegate::QStyledItemDelegate;

    void setSelectionAppearance(bool highlightSelection, const QColor& borderColor);
    // The look of the swatch that the view's option and the model's index describe.
    CollectionViewCell cell(const QStyleOptionViewItem& option, const QModelIndex& index) const;
    void setColorCell(CollectionViewCell& cell, bool selected) const;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

private:
    bool highlightSelection_ = true;
    QColor selectionBorderColor_ = Qt::white;
};

} // namespace pomwick

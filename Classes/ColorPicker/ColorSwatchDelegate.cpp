#include "ColorSwatchDelegate.h"

#include "Appearance.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>

namespace pomwick {

void ColorSwatchDelegate::setSelectionAppearance(bool highlightSelection,
                                                 const QColor& borderColor) {
    highlightSelection_ = highlightSelection;
    selectionBorderColor_ = borderColor;
}

CollectionViewCell ColorSwatchDelegate::cell(const QStyleOptionViewItem& option,
                                             const QModelIndex& index) const {
    CollectionViewCell look;
    look.backgroundColor = index.data(Qt::BackgroundRole).value<QColor>();
    look.selected = option.state.testFlag(QStyle::State_Selected);
    look.alpha = option.state.testFlag(QStyle::State_Sunken) ? highlightedAlpha : 1.0;
    look.focused = option.state.testFlag(QStyle::State_HasFocus);
    setColorCell(look, look.selected);
    return look;
}

void ColorSwatchDelegate::setColorCell(CollectionViewCell& cell, bool selected) const {
    if (selected && highlightSelection_) {
        cell.borderColor = selectionBorderColor_;
        cell.borderWidth = selectionBorderWidth;
    } else {
        cell.borderColor = QColor();
        cell.borderWidth = 0;
    }
}

void ColorSwatchDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                const QModelIndex& index) const {
    const CollectionViewCell look = cell(option, index);
    const QRectF rect(option.rect);
    painter->setOpacity(std::clamp(look.alpha, 0.0, 1.0));
    painter->fillRect(rect, look.backgroundColor);
    const qreal border = std::min({look.borderWidth, rect.width() / 2, rect.height() / 2});
    if (border > 0 && look.borderColor.isValid()) {
        QPainterPath ring;
        ring.addRect(rect);
        ring.addRect(rect.adjusted(border, border, -border, -border));
        painter->fillPath(ring, look.borderColor);
    }
    painter->setOpacity(1);
    if (look.focused)
        Appearance::drawFocusRing(*painter, rect, 0);
}

} // namespace pomwick

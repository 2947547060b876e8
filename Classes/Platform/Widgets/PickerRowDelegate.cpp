#include "PickerRowDelegate.h"

#include <QAbstractItemView>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <numbers>

namespace pomwick {

void PickerRowDelegate::setBox(qreal sideInset, qreal height) {
    sideInset_ = sideInset;
    boxHeight_ = height;
}

void PickerRowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const {
    const auto* view = qobject_cast<const QAbstractItemView*>(option.widget);
    const QRectF row(option.rect);
    const qreal middle = view != nullptr ? view->viewport()->height() / 2.0 : row.center().y();
    const qreal radius = std::max(middle, row.height());
    const qreal angle = (row.center().y() - middle) / radius;
    if (std::abs(angle) >= std::numbers::pi / 2)
        return;
    const qreal turn = std::cos(angle);
    const qreal width = std::max(row.width() - 2 * sideInset_, 0.0);
    const QRectF box(-width / 2, -boxHeight_ / 2, width, boxHeight_);

    painter->save();
    painter->setOpacity(0.12 + 0.88 * turn * turn * turn);
    painter->translate(row.center().x(), middle + radius * std::sin(angle));
    painter->scale(1, turn);
    painter->setClipRect(box);
    const QVariant background = index.data(Qt::BackgroundRole);
    if (background.isValid())
        painter->fillRect(box, background.value<QColor>());
    const QVariant foreground = index.data(Qt::ForegroundRole);
    const QColor textColor = foreground.isValid() ? foreground.value<QColor>()
                                                  : option.palette.color(QPalette::WindowText);
    // Text in its background's colour cannot be seen at rest; faded, its edges would darken it.
    if (background.isValid() && background.value<QColor>() == textColor) {
        painter->restore();
        return;
    }
    const QVariant font = index.data(Qt::FontRole);
    painter->setFont(font.isValid() ? font.value<QFont>() : option.font);
    painter->setPen(textColor);
    const QVariant alignment = index.data(Qt::TextAlignmentRole);
    const int flags =
        alignment.isValid() ? alignment.toInt() : int(Qt::AlignLeft | Qt::AlignVCenter);
    // Too long a text ends in an ellipsis rather than running past the box.
    const QString text =
        painter->fontMetrics().elidedText(index.data().toString(), Qt::ElideRight, int(width));
    painter->drawText(box, flags, text);
    painter->restore();
}

} // namespace pomwick

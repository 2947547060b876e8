#include "TextDrawing.h"

#include <QFontMetricsF>

namespace pomwick {

QSizeF sizeWithAttributes(const QString& text, const QFont& font) {
    const QFontMetricsF metrics(font);
    return {metrics.horizontalAdvance(text), metrics.height()};
}

void drawLabelText(QPainter& painter, const QString& text, const QFont& font, const QColor& color,
                   const QRectF& rect) {
    const QFontMetricsF metrics(font);
    // Measured text fits its own measured width: only a narrower rectangle truncates.
    const bool fits = metrics.horizontalAdvance(text) <= rect.width() + 0.5;
    const QString shown = fits ? text : metrics.elidedText(text, Qt::ElideRight, rect.width());
    const Qt::Alignment horizontal = text.isRightToLeft() ? Qt::AlignRight : Qt::AlignLeft;
    painter.save();
    painter.setFont(font);
    painter.setPen(color);
    painter.drawText(rect, static_cast<int>(horizontal | Qt::AlignVCenter | Qt::TextSingleLine),
                     shown);
    painter.restore();
}

} // namespace pomwick

#pragma once

#include "PomwickPlatformExport.h"

#include <QColor>
#include <QFont>
#include <QPainter>
#include <QRectF>
#include <QSizeF>
#include <QString>

namespace pomwick {

// The size of one line of text: its advance width and the font's line height.
POMWICK_PLATFORM_EXPORT QSizeF sizeWithAttributes(const QString& text, const QFont& font);

// Draws text as a label does with its defaults: one line, natural alignment (by the text's own
// direction), truncated at the tail with an ellipsis when too wide, centered vertically in the
// rectangle, on a transparent background.
POMWICK_PLATFORM_EXPORT void drawLabelText(QPainter& painter, const QString& text,
                                           const QFont& font, const QColor& color,
                                           const QRectF& rect);

} // namespace pomwick

#pragma once

#include "PomwickPlatformExport.h"

#include <QColor>
#include <QFont>
#include <QRectF>

class QPainter;

namespace pomwick::Appearance {

// The look shared by the controls: a phone settings app's colors and its system font at sizes
// given in points (logical pixels).
POMWICK_PLATFORM_EXPORT QColor tint();
POMWICK_PLATFORM_EXPORT QColor barBackground();
POMWICK_PLATFORM_EXPORT QColor hairline();
POMWICK_PLATFORM_EXPORT QColor groupedBackground();
POMWICK_PLATFORM_EXPORT QColor sectionHeaderText();
POMWICK_PLATFORM_EXPORT QColor selectedCellBackground();
POMWICK_PLATFORM_EXPORT QFont systemFont(int points, QFont::Weight weight = QFont::Normal);

// The keyboard focus as every control shows it: a tinted ring just inside the given outline.
POMWICK_PLATFORM_EXPORT void drawFocusRing(QPainter& painter, const QRectF& outline, qreal radius);

// The process-wide tint of segmented controls, black once the settings screen has set it.
POMWICK_PLATFORM_EXPORT QColor segmentedControlTint();
POMWICK_PLATFORM_EXPORT void setSegmentedControlTint(const QColor& color);

} // namespace pomwick::Appearance

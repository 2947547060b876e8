#pragma once

#include "Color.h"
#include "Font.h"
#include "PomwickPlatformExport.h"

#include <QColor>
#include <QFont>
#include <optional>

namespace pomwick {

// At the drawing boundary: stored components are not clamped, colors on screen are.
POMWICK_PLATFORM_EXPORT QColor toQColor(const Color& color);

// A font's size is in points, which are logical pixels here: a 16-point font has a 16-pixel em
// whatever the screen's DPI. No font at all draws in the label's default, the system font at 17.
POMWICK_PLATFORM_EXPORT QFont toQFont(const std::optional<Font>& font);

} // namespace pomwick

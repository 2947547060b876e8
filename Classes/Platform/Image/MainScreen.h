#pragma once

#include "PomwickPlatformExport.h"

#include <optional>

namespace pomwick {

// Pixels per point of the main screen: the primary screen's device pixel ratio, 1 without one.
// Tests override it to draw at 1, 2 and 3.
POMWICK_PLATFORM_EXPORT double mainScreenScale();
POMWICK_PLATFORM_EXPORT void setMainScreenScaleOverride(std::optional<double> scale);

} // namespace pomwick

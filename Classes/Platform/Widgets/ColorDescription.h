#pragma once

#include "Color.h"
#include "PomwickPlatformExport.h"

#include <QString>

namespace pomwick {

// How a color is read out to assistive technology: "red 100% green 50% blue 0%".
POMWICK_PLATFORM_EXPORT QString describeColor(const Color& color);

} // namespace pomwick

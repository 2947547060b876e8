#pragma once

#include "PomwickPlatformExport.h"

namespace pomwick {

// Restarts the home screen: kills, without asking, the process that serves the renderer's
// message center; its supervisor starts it again. Does nothing when nobody serves it.
POMWICK_PLATFORM_EXPORT void restartHomeScreen();

} // namespace pomwick

#pragma once

namespace pomwick {

// Restarts the home screen: kills, without asking, the process that serves the renderer's
// message center; its supervisor starts it again. Does nothing when nobody serves it.
void restartHomeScreen();

} // namespace pomwick

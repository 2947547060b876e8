#pragma once

#include <QString>
#include <optional>

namespace pomwick {

// One exchange with the renderer, for tools without the settings screen: waits for the renderer
// to serve its center, serves the screen's center meanwhile, asks for a fresh badge background
// and waits for the answer. Returns what went wrong, or nothing once the background is fresh.
std::optional<QString> requestFreshBadgeBackground(int timeoutMilliseconds);

} // namespace pomwick

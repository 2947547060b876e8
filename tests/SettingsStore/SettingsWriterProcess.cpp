// Rewrites the settings file in a loop: the other side of the tests that read while it writes or
// write at the same time. Usage:
//   pomwick-settings-writer ROOT COUNT          the text, short and long in turn
//   pomwick-settings-writer ROOT COUNT PREFIX   the keys PREFIX0 .. PREFIX<COUNT-1>, one a write
#include "DevicePaths.h"
#include "Settings.h"

#include <cstdlib>
#include <string>

int main(int argc, char** argv) {
    if (argc != 3 && argc != 4)
        return 2;
    pomwick::DeviceRoot::set(argv[1]);
    const long count = std::atol(argv[2]);
    for (long i = 0; i < count; ++i) {
        if (argc == 4) {
            pomwick::setPreferencesObjectKey("1", argv[3] + std::to_string(i));
            continue;
        }
        // Alternating lengths, so that a torn file would show.
        const std::string text = i % 2 == 0 ? std::string("short") : std::string(3000, 'L');
        pomwick::setPreferencesObjectKey(text, pomwick::SettingsKey::badgeTextFieldText);
    }
    return 0;
}

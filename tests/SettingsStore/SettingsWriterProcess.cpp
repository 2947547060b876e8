// Writes keys to the settings file from a process of its own: the other writer of the tests that
// write at the same time. Usage:
//   pomwick-settings-writer ROOT COUNT PREFIX   the keys PREFIX0 .. PREFIX<COUNT-1>, one a write
#include "DevicePaths.h"
#include "Settings.h"

#include <cstdlib>
#include <string>

int main(int argc, char** argv) {
    if (argc != 4)
        return 2;
    pomwick::DeviceRoot::set(argv[1]);
    const long count = std::atol(argv[2]);
    for (long i = 0; i < count; ++i)
        pomwick::setPreferencesObjectKey("1", argv[3] + std::to_string(i));
    return 0;
}

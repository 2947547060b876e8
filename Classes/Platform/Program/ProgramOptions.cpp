#include "ProgramInfo.h"

#include "DevicePaths.h"

namespace pomwick {

std::string versionLine(std::string_view program) {
    return std::string(program) + " " + POMWICK_VERSION + "\n";
}

std::string deviceRootHelp() {
    const std::string fallback = DeviceRoot::defaultRoot().empty()
                                     ? std::string("(none: no home folder)")
                                     : DeviceRoot::defaultRoot().string();
    return "The device root is --root DIR, else $POMWICK_ROOT, else " + fallback + ".\n";
}

} // namespace pomwick

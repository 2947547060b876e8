#pragma once

#include "PomwickPlatformExport.h"

#include <string>

namespace pomwick {

// A font as the settings name it, plus the installed face it draws with. `name` is the name that
// was asked for (a face's PostScript name, its full name, a family, or an alias that fontconfig is
// configured with); `family` and `style` identify the face that fontconfig resolved it to.
struct POMWICK_PLATFORM_EXPORT Font {
    std::string name;
    float size = 0;
    std::string family;
    std::string style;
    std::string file;

    friend bool operator==(const Font&, const Font&) = default;
};

} // namespace pomwick

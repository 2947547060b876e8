#include "ColorPalette.h"

#include "ColorText.h"
#include "PlistDictionary.h"
#include "PreviewFiles.h"

namespace pomwick {

std::vector<Color> loadColorPalette() {
    std::vector<Color> colors;
    const auto palette = PlistDictionary::readFromFile(bundleFile(PreviewFile::palette));
    if (!palette)
        return colors;
    for (const std::string& hex : palette->stringsInFirstArray("hash"))
        colors.push_back(getUIColorFromHexString(hex, 1.0f));
    return colors;
}

} // namespace pomwick

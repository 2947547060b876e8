#include "ColourPalette.h"

#include "ColourText.h"
#include "PlistDictionary.h"
#include "PreviewFiles.h"

namespace pomwick {

std::vector<Colour> loadColourPalette() {
    std::vector<Colour> colours;
    const auto palette = PlistDictionary::readFromFile(bundleFile(PreviewFile::palette));
    if (!palette)
        return colours;
    for (const std::string& hex : palette->stringsInFirstArray("hash"))
        colours.push_back(getUIColorFromHexString(hex, 1.0f));
    return colours;
}

} // namespace pomwick

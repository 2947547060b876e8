#include "FontCatalogue.h"

#include <algorithm>
#include <fontconfig/fontconfig.h>
#include <map>
#include <mutex>
#include <strings.h>

namespace pomwick {
namespace {

// The product's default font is usually not installed on Linux: map it onto the closest
// installed humanist sans, as fontconfig's metric aliases do for other well-known names. Added to
// the process's current configuration, so that Qt's drawing resolves it the same way.
constexpr const char* productAliases = R"(<?xml version="1.0"?>
<!DOCTYPE fontconfig SYSTEM "fonts.dtd">
<fontconfig>
  <alias binding="same">
    <family>Verdana</family>
    <prefer><family>DejaVu Sans</family><family>Liberation Sans</family></prefer>
  </alias>
</fontconfig>
)";

// A name no configuration mentions: what fontconfig substitutes for it is the plain fallback.
constexpr const char* unconfiguredName = "pomwick-unconfigured-family";

struct Face {
    std::string family;
    std::string style;
    std::string postScriptName;
    std::string fullName;
    std::string file;
};

bool equalsIgnoringCase(std::string_view a, std::string_view b) {
    return a.size() == b.size() && strncasecmp(a.data(), b.data(), a.size()) == 0;
}

bool lessIgnoringCase(const std::string& a, const std::string& b) {
    const int order = strcasecmp(a.c_str(), b.c_str());
    return order != 0 ? order < 0 : a < b;
}

std::string patternString(FcPattern* pattern, const char* object) {
    FcChar8* value = nullptr;
    if (FcPatternGetString(pattern, object, 0, &value) != FcResultMatch || value == nullptr)
        return {};
    return reinterpret_cast<const char*>(value);
}

Face faceOf(FcPattern* pattern) {
    return {patternString(pattern, FC_FAMILY), patternString(pattern, FC_STYLE),
            patternString(pattern, FC_POSTSCRIPT_NAME), patternString(pattern, FC_FULLNAME),
            patternString(pattern, FC_FILE)};
}

FcConfig* configuration() {
    static std::once_flag once;
    std::call_once(once, [] {
        FcInit();
        FcConfigParseAndLoadFromMemory(FcConfigGetCurrent(),
                                       reinterpret_cast<const FcChar8*>(productAliases), FcTrue);
    });
    return FcConfigGetCurrent();
}

// Every installed face with a PostScript name, families sorted case-insensitively, the faces of
// a family by PostScript name.
std::vector<Face> installedFaces() {
    FcPattern* all = FcPatternCreate();
    FcObjectSet* objects =
        FcObjectSetBuild(FC_FAMILY, FC_STYLE, FC_POSTSCRIPT_NAME, FC_FULLNAME, FC_FILE, nullptr);
    FcFontSet* set = FcFontList(configuration(), all, objects);
    std::vector<Face> faces;
    for (int i = 0; set != nullptr && i < set->nfont; ++i) {
        Face face = faceOf(set->fonts[i]);
        if (!face.family.empty() && !face.postScriptName.empty())
            faces.push_back(std::move(face));
    }
    if (set != nullptr)
        FcFontSetDestroy(set);
    FcObjectSetDestroy(objects);
    FcPatternDestroy(all);

    std::sort(faces.begin(), faces.end(), [](const Face& a, const Face& b) {
        if (!equalsIgnoringCase(a.family, b.family))
            return lessIgnoringCase(a.family, b.family);
        return a.postScriptName < b.postScriptName;
    });
    faces.erase(std::unique(faces.begin(), faces.end(),
                            [](const Face& a, const Face& b) {
                                return a.postScriptName == b.postScriptName;
                            }),
                faces.end());
    return faces;
}

const std::vector<Face>& faces() {
    static const std::vector<Face> list = installedFaces();
    return list;
}

// The families fontconfig's configuration substitutes for a family name, the name itself left
// out: equal for every name that no rule mentions.
std::vector<std::string> substitutedFamilies(std::string_view name) {
    FcPattern* pattern = FcPatternCreate();
    FcPatternAddString(pattern, FC_FAMILY,
                       reinterpret_cast<const FcChar8*>(std::string(name).c_str()));
    FcConfigSubstitute(configuration(), pattern, FcMatchPattern);
    FcDefaultSubstitute(pattern);
    std::vector<std::string> families;
    FcChar8* family = nullptr;
    for (int i = 0; FcPatternGetString(pattern, FC_FAMILY, i, &family) == FcResultMatch; ++i) {
        const std::string_view text = reinterpret_cast<const char*>(family);
        if (!equalsIgnoringCase(text, name))
            families.emplace_back(text);
    }
    FcPatternDestroy(pattern);
    return families;
}

std::optional<Face> bestMatchForFamily(std::string_view family) {
    FcPattern* pattern = FcPatternCreate();
    FcPatternAddString(pattern, FC_FAMILY,
                       reinterpret_cast<const FcChar8*>(std::string(family).c_str()));
    FcConfigSubstitute(configuration(), pattern, FcMatchPattern);
    FcDefaultSubstitute(pattern);
    FcResult result = FcResultNoMatch;
    FcPattern* match = FcFontMatch(configuration(), pattern, &result);
    FcPatternDestroy(pattern);
    if (match == nullptr)
        return std::nullopt;
    Face face = faceOf(match);
    FcPatternDestroy(match);
    return face;
}

std::optional<Face> resolveUncached(std::string_view name) {
    if (name.empty())
        return std::nullopt;
    for (const Face& face : faces()) {
        if (equalsIgnoringCase(face.postScriptName, name) ||
            equalsIgnoringCase(face.fullName, name))
            return face;
    }
    const bool isFamily = std::any_of(faces().begin(), faces().end(), [&](const Face& face) {
        return equalsIgnoringCase(face.family, name);
    });
    static const std::vector<std::string> fallback = substitutedFamilies(unconfiguredName);
    if (isFamily || substitutedFamilies(name) != fallback)
        return bestMatchForFamily(name);
    return std::nullopt;
}

// Matching through fontconfig's rules costs a few hundred microseconds and the installed fonts
// are listed once per process, so each name is resolved once.
std::optional<Face> resolve(std::string_view name) {
    static std::mutex lock;
    static std::map<std::string, std::optional<Face>, std::less<>> resolved;
    const std::lock_guard<std::mutex> guard(lock);
    auto found = resolved.find(name);
    if (found == resolved.end())
        found = resolved.emplace(std::string(name), resolveUncached(name)).first;
    return found->second;
}

} // namespace

const FontCatalogue& FontCatalogue::shared() {
    static FontCatalogue catalogue;
    return catalogue;
}

std::vector<std::string> FontCatalogue::familyNames() const {
    std::vector<std::string> names;
    for (const Face& face : faces()) {
        if (names.empty() || !equalsIgnoringCase(names.back(), face.family))
            names.push_back(face.family);
    }
    return names;
}

std::vector<std::string> FontCatalogue::fontNamesForFamilyName(std::string_view family) const {
    std::vector<std::string> names;
    for (const Face& face : faces()) {
        if (equalsIgnoringCase(face.family, family))
            names.push_back(face.postScriptName);
    }
    return names;
}

std::optional<Font> FontCatalogue::fontWithName(std::string_view name, float size) const {
    const auto face = resolve(name);
    if (!face)
        return std::nullopt;
    return Font{std::string(name), size, face->family, face->style, face->file};
}

} // namespace pomwick

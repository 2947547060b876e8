#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace pomwick {

// libplist 2.2 aborts on a NUL inside a string, recurses once per level of nesting, parses a
// binary plist's shared objects anew at every reference to them, and takes time quadratic in a
// text's entity references. These checks run over the raw
// bytes before libplist sees them, so that any file is parsed in bounded time and memory or not
// at all. Both are conservative: they may refuse a file libplist would read, never the reverse.
struct PlistLimits {
    // The settings are one dictionary of strings: depth 2 and a few dozen objects.
    static constexpr size_t maximumDepth = 64;
    static constexpr size_t maximumObjects = 100000;
    // Bytes of strings and data once every reference is expanded.
    static constexpr uint64_t maximumPayload = 16 * 1024 * 1024;
    // Entity references times the file's size: a few tens of milliseconds of libplist's work.
    static constexpr uint64_t maximumEntityWork = uint64_t{1} << 27;
};

// Binary ("bplist00"): the object graph from the root, each reference expanded as libplist
// expands it, has no cycle, at most maximumDepth levels, maximumObjects objects and
// maximumPayload bytes of strings and data, and no string holds a NUL.
bool isSafeBinaryPlist(std::string_view bytes);

// XML: no NUL byte, at most maximumDepth open elements at a time and maximumObjects elements,
// not counting the <plist> element around them, and few enough entity references ("&amp;") for
// the file's size.
bool isSafeXmlPlist(std::string_view bytes);

} // namespace pomwick

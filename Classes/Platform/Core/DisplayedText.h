#pragma once

#include <cstddef>
#include <string_view>

namespace pomwick {

// How much of a stored text a one-line view lays out. A line shows a few dozen characters, while
// shaping 100,000 (one letter under as many combining marks looks like one character) takes
// seconds; views show at most this many UTF-16 code units and leave the stored text whole.
inline constexpr std::size_t displayedTextLimit = 256;

// The length of the part shown: the whole text up to the limit, never ending inside a surrogate
// pair.
inline std::size_t displayedLength(std::u16string_view text) {
    if (text.size() <= displayedTextLimit)
        return text.size();
    const char16_t last = text[displayedTextLimit - 1];
    return last >= 0xD800 && last <= 0xDBFF ? displayedTextLimit - 1 : displayedTextLimit;
}

} // namespace pomwick

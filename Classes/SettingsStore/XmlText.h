#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace pomwick {

// The code point of the UTF-8 sequence at `at`, moving `at` past it; nothing for an invalid
// sequence (overlong, surrogate, beyond U+10FFFF, cut short), moving `at` one byte on.
std::optional<char32_t> nextCodePoint(std::string_view text, size_t& at);

// A character XML 1.0 can carry: tab, line feed, carriage return and everything from U+0020
// except U+FFFE, U+FFFF and the surrogates.
bool isXmlCharacter(char32_t c);

// Why a value cannot be stored as property-list text (it is not valid UTF-8, or holds U+0000),
// or nothing when it can.
std::optional<std::string> whyNotPlistText(std::string_view text);

// Valid UTF-8 of characters XML can carry only.
bool isXmlText(std::string_view text);

// The text with every invalid sequence and every character XML cannot carry replaced by U+FFFD.
std::string withXmlCharactersOnly(std::string_view text);

} // namespace pomwick

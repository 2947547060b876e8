#pragma once

#include "PomwickPlatformExport.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace pomwick {

// Text scanning with the device's string rules, which the stored settings and the palette rely
// on. None of them fails: text that holds no number reads 0.

// Leading white space, then an optional sign and leading zeros are skipped; true when the next
// character is one of Y, y, T, t or a digit 1-9.
POMWICK_PLATFORM_EXPORT bool boolValue(std::string_view text);

// The leading decimal integer after white space and an optional sign; 0 when there is none.
// Out of range saturates at INT32_MAX / INT32_MIN.
POMWICK_PLATFORM_EXPORT int32_t intValue(std::string_view text);

// The leading decimal number (digits, point, exponent) after white space; 0 when there is none.
// "inf", "nan" and hexadecimal floats are not numbers here.
POMWICK_PLATFORM_EXPORT float floatValue(std::string_view text);
POMWICK_PLATFORM_EXPORT double doubleValue(std::string_view text);

// Hex scanning as the palette does it: every "#" before the number is skipped (nothing else, not
// even white space), an optional 0x / 0X prefix is accepted and scanning stops at the first
// non-hex character. Nothing scanned gives 0; a value beyond 32 bits gives 4294967295.
POMWICK_PLATFORM_EXPORT uint32_t intFromHexString(std::string_view text);

// "%f": fixed notation with six decimals, independent of the process locale.
POMWICK_PLATFORM_EXPORT std::string formatFloat(double value);
// "%i"
POMWICK_PLATFORM_EXPORT std::string formatInt(int32_t value);

// Splits on every occurrence of the separator; "" gives one empty part, as the device does.
POMWICK_PLATFORM_EXPORT std::vector<std::string_view> componentsSeparatedBy(std::string_view text,
                                                                            char separator);

} // namespace pomwick

#include "TextScanning.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace pomwick {
namespace {

bool isSpace(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\v' || c == '\f';
}
bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

std::string_view skipSpace(std::string_view text) {
    size_t i = 0;
    while (i < text.size() && isSpace(text[i]))
        ++i;
    return text.substr(i);
}

// Length of the decimal number at the start of text ([sign] digits [. digits] [exponent]), or 0.
size_t decimalNumberLength(std::string_view text) {
    size_t i = 0;
    if (i < text.size() && (text[i] == '+' || text[i] == '-'))
        ++i;
    size_t digits = 0;
    while (i < text.size() && isDigit(text[i]))
        ++i, ++digits;
    if (i < text.size() && text[i] == '.') {
        ++i;
        while (i < text.size() && isDigit(text[i]))
            ++i, ++digits;
    }
    if (digits == 0)
        return 0;
    if (i < text.size() && (text[i] == 'e' || text[i] == 'E')) {
        size_t e = i + 1;
        if (e < text.size() && (text[e] == '+' || text[e] == '-'))
            ++e;
        if (e < text.size() && isDigit(text[e])) {
            while (e < text.size() && isDigit(text[e]))
                ++e;
            i = e;
        }
    }
    return i;
}

int hexDigit(char c) {
    if (isDigit(c))
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return -1;
}

// For a number beyond a double's range (digits, point, exponent; no sign): whether it is too
// small rather than too large. Its first significant digit's place, plus the exponent, is
// negative for a tiny number however many zeros spell it ("0." + 400 zeros + "1", "1e-999").
bool isTiny(std::string_view number) {
    const size_t e = number.find_first_of("eE");
    const std::string_view mantissa = number.substr(0, e);
    const size_t point = std::min(mantissa.find('.'), mantissa.size());
    const size_t firstWhole = mantissa.substr(0, point).find_first_not_of('0');
    int64_t place = 0;
    if (firstWhole != std::string_view::npos) {
        place = static_cast<int64_t>(point - firstWhole);
    } else {
        const std::string_view fraction = mantissa.substr(std::min(point + 1, mantissa.size()));
        place = -static_cast<int64_t>(std::min(fraction.find_first_not_of('0'), fraction.size()));
    }
    const int64_t exponent = e == std::string_view::npos ? 0 : intValue(number.substr(e + 1));
    return place + exponent < 0;
}

} // namespace

bool boolValue(std::string_view text) {
    text = skipSpace(text);
    size_t i = 0;
    if (i < text.size() && (text[i] == '+' || text[i] == '-'))
        ++i;
    while (i < text.size() && text[i] == '0')
        ++i;
    if (i == text.size())
        return false;
    const char c = text[i];
    return c == 'Y' || c == 'y' || c == 'T' || c == 't' || (c >= '1' && c <= '9');
}

int32_t intValue(std::string_view text) {
    text = skipSpace(text);
    bool negative = false;
    size_t i = 0;
    if (i < text.size() && (text[i] == '+' || text[i] == '-'))
        negative = text[i++] == '-';
    int64_t value = 0;
    for (; i < text.size() && isDigit(text[i]); ++i) {
        value = value * 10 + (text[i] - '0');
        if (value > int64_t{std::numeric_limits<int32_t>::max()} + 1)
            break;
    }
    if (negative)
        value = -value;
    if (value > std::numeric_limits<int32_t>::max())
        return std::numeric_limits<int32_t>::max();
    if (value < std::numeric_limits<int32_t>::min())
        return std::numeric_limits<int32_t>::min();
    return static_cast<int32_t>(value);
}

double doubleValue(std::string_view text) {
    text = skipSpace(text);
    const size_t length = decimalNumberLength(text);
    if (length == 0)
        return 0.0;
    // from_chars takes no leading "+".
    std::string_view number = text.substr(0, length);
    const bool negative = number.front() == '-';
    if (number.front() == '+' || negative)
        number.remove_prefix(1);
    double value = 0.0;
    const auto result = std::from_chars(number.data(), number.data() + number.size(), value);
    if (result.ec == std::errc::result_out_of_range)
        value = isTiny(number) ? 0.0 : HUGE_VAL;
    return negative ? -value : value;
}

float floatValue(std::string_view text) {
    return static_cast<float>(doubleValue(text));
}

uint32_t intFromHexString(std::string_view text) {
    size_t i = 0;
    while (i < text.size() && text[i] == '#')
        ++i;
    if (i + 1 < text.size() && text[i] == '0' && (text[i + 1] == 'x' || text[i + 1] == 'X'))
        i += 2;
    uint64_t value = 0;
    bool overflow = false;
    for (; i < text.size() && hexDigit(text[i]) >= 0; ++i) {
        value = value * 16 + static_cast<uint64_t>(hexDigit(text[i]));
        if (value > std::numeric_limits<uint32_t>::max()) {
            overflow = true;
            value = std::numeric_limits<uint32_t>::max();
        }
    }
    return overflow ? std::numeric_limits<uint32_t>::max() : static_cast<uint32_t>(value);
}

std::string formatFloat(double value) {
    // std::to_chars is locale-independent, unlike printf's "%f".
    char buffer[512];
    const auto result =
        std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed, 6);
    return std::string(buffer, result.ptr);
}

std::string formatInt(int32_t value) {
    return std::to_string(value);
}

std::vector<std::string_view> componentsSeparatedBy(std::string_view text, char separator) {
    std::vector<std::string_view> parts;
    size_t start = 0;
    for (size_t at = text.find(separator); at != std::string_view::npos;
         at = text.find(separator, start)) {
        parts.push_back(text.substr(start, at - start));
        start = at + 1;
    }
    parts.push_back(text.substr(start));
    return parts;
}

} // namespace pomwick

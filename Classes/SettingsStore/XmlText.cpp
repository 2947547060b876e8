#include "XmlText.h"

namespace pomwick {

std::optional<char32_t> nextCodePoint(std::string_view text, size_t& at) {
    const auto byte = [&](size_t i) {
        return static_cast<unsigned char>(text[i]);
    };
    const unsigned char lead = byte(at);
    size_t length = 1;
    char32_t c = lead;
    char32_t minimum = 0;
    if (lead >= 0xF0 && lead <= 0xF4)
        length = 4, c = lead & 0x07, minimum = 0x10000;
    else if (lead >= 0xE0 && lead <= 0xEF)
        length = 3, c = lead & 0x0F, minimum = 0x800;
    else if (lead >= 0xC2 && lead <= 0xDF)
        length = 2, c = lead & 0x1F, minimum = 0x80;
    else if (lead >= 0x80) {
        ++at;
        return std::nullopt;
    }
    if (at + length > text.size()) {
        ++at;
        return std::nullopt;
    }
    for (size_t i = 1; i < length; ++i) {
        if ((byte(at + i) & 0xC0) != 0x80) {
            ++at;
            return std::nullopt;
        }
        c = c << 6 | (byte(at + i) & 0x3F);
    }
    if (c < minimum || c > 0x10FFFF || (c >= 0xD800 && c <= 0xDFFF)) {
        ++at;
        return std::nullopt;
    }
    at += length;
    return c;
}

bool isXmlCharacter(char32_t c) {
    return c == 0x9 || c == 0xA || c == 0xD || (c >= 0x20 && c <= 0xD7FF) ||
           (c >= 0xE000 && c <= 0xFFFD) || (c >= 0x10000 && c <= 0x10FFFF);
}

std::optional<std::string> whyNotPlistText(std::string_view text) {
    for (size_t at = 0; at < text.size();) {
        const auto c = nextCodePoint(text, at);
        if (!c)
            return std::string("the value is not valid UTF-8 text");
        if (*c == 0)
            return std::string("the value holds the character U+0000, which a property list "
                               "cannot carry");
    }
    return std::nullopt;
}

bool isXmlText(std::string_view text) {
    for (size_t at = 0; at < text.size();) {
        const auto c = nextCodePoint(text, at);
        if (!c || !isXmlCharacter(*c))
            return false;
    }
    return true;
}

std::string withXmlCharactersOnly(std::string_view text) {
    std::string carried;
    carried.reserve(text.size());
    for (size_t at = 0; at < text.size();) {
        const size_t start = at;
        const auto c = nextCodePoint(text, at);
        if (c && isXmlCharacter(*c))
            carried.append(text.substr(start, at - start));
        else
            carried.append("\xEF\xBF\xBD");
    }
    return carried;
}

} // namespace pomwick

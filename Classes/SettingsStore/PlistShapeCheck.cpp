#include "PlistShapeCheck.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <optional>
#include <vector>

namespace pomwick {
namespace {

// The binary format: "bplist00", the objects, a table of their offsets, and a 32-byte trailer.
class BinaryPlist {
public:
    explicit BinaryPlist(std::string_view bytes)
        : data_(reinterpret_cast<const unsigned char*>(bytes.data())), size_(bytes.size()) {}

    bool readTrailer() {
        constexpr size_t header = 8, trailer = 32;
        if (size_ < header + trailer)
            return false;
        const unsigned char* end = data_ + size_ - trailer;
        offsetSize_ = end[6];
        referenceSize_ = end[7];
        objectCount_ = number(end + 8, 8);
        root_ = number(end + 16, 8);
        tableOffset_ = number(end + 24, 8);
        return offsetSize_ >= 1 && offsetSize_ <= 8 && referenceSize_ >= 1 && referenceSize_ <= 8 &&
               objectCount_ >= 1 && objectCount_ <= PlistLimits::maximumObjects &&
               root_ < objectCount_ && tableOffset_ >= header && tableOffset_ < size_ - trailer &&
               objectCount_ <= (size_ - trailer - tableOffset_) / offsetSize_;
    }

    uint64_t objectCount() const { return objectCount_; }
    uint64_t root() const { return root_; }

    // Where an object's references start and how many it has (keys and values for a
    // dictionary), and the bytes of its string or data; nothing when the object is malformed or
    // is a string holding a NUL.
    struct References {
        size_t at = 0;
        uint64_t count = 0;
        uint64_t payload = 0;
    };
    std::optional<References> referencesOf(uint64_t index) const {
        const uint64_t offset = number(data_ + tableOffset_ + index * offsetSize_, offsetSize_);
        if (offset < 8 || offset >= tableOffset_)
            return std::nullopt;
        const unsigned kind = data_[offset] >> 4;
        const unsigned info = data_[offset] & 0xF;
        size_t at = offset + 1;
        switch (kind) {
        case 0x0: // null, false, true, fill
            return References{};
        case 0x1: // integer
        case 0x2: // real
            return info <= 4 && fits(at, uint64_t{1} << info) ? std::optional(References{})
                                                              : std::nullopt;
        case 0x3: // date
            return fits(at, 8) ? std::optional(References{}) : std::nullopt;
        case 0x8: // uid
            return fits(at, info + 1) ? std::optional(References{}) : std::nullopt;
        case 0x4: // data
        case 0x5: // ASCII string
        case 0x6: // UTF-16 string
        {
            const auto length = lengthAt(info, at);
            const uint64_t unit = kind == 0x6 ? 2 : 1;
            if (!length || *length > (tableOffset_ - at) / unit)
                return std::nullopt;
            if (kind == 0x5 && std::memchr(data_ + at, 0, *length) != nullptr)
                return std::nullopt;
            for (uint64_t i = 0; kind == 0x6 && i < *length; ++i)
                if (data_[at + 2 * i] == 0 && data_[at + 2 * i + 1] == 0)
                    return std::nullopt;
            // A UTF-16 unit becomes up to three bytes of UTF-8.
            return References{0, 0, kind == 0x6 ? 3 * *length : *length};
        }
        case 0xA: // array
        case 0xC: // set
        case 0xD: // dictionary
        {
            const auto length = lengthAt(info, at);
            const uint64_t perEntry = kind == 0xD ? 2 * referenceSize_ : referenceSize_;
            if (!length || *length > (tableOffset_ - at) / perEntry)
                return std::nullopt;
            return References{at, kind == 0xD ? 2 * *length : *length};
        }
        default:
            return std::nullopt;
        }
    }

    uint64_t reference(const References& references, uint64_t i) const {
        return number(data_ + references.at + i * referenceSize_, referenceSize_);
    }

private:
    static uint64_t number(const unsigned char* at, size_t size) {
        uint64_t value = 0;
        for (size_t i = 0; i < size; ++i)
            value = value << 8 | at[i];
        return value;
    }

    bool fits(size_t at, uint64_t length) const { return length <= tableOffset_ - at; }

    // A count in the low nibble, or 0xF and an integer object after the marker.
    std::optional<uint64_t> lengthAt(unsigned info, size_t& at) const {
        if (info != 0xF)
            return info;
        if (at >= tableOffset_ || data_[at] >> 4 != 0x1 || (data_[at] & 0xF) > 3)
            return std::nullopt;
        const size_t size = size_t{1} << (data_[at] & 0xF);
        if (!fits(at + 1, size))
            return std::nullopt;
        const uint64_t length = number(data_ + at + 1, size);
        at += 1 + size;
        return length;
    }

    const unsigned char* data_;
    size_t size_;
    size_t offsetSize_ = 0;
    size_t referenceSize_ = 0;
    uint64_t objectCount_ = 0;
    uint64_t root_ = 0;
    uint64_t tableOffset_ = 0;
};

// Skips from `at` past the next `end`; false when there is none.
bool skipPast(std::string_view text, size_t& at, std::string_view end) {
    const size_t found = text.find(end, at);
    if (found == std::string_view::npos)
        return false;
    at = found + end.size();
    return true;
}

// Skips from inside a tag past its closing ">", over quoted attribute values; tells whether the
// tag closed itself ("/>").
std::optional<bool> skipTag(std::string_view text, size_t& at) {
    char quote = 0;
    for (; at < text.size(); ++at) {
        const char c = text[at];
        if (quote != 0) {
            if (c == quote)
                quote = 0;
        } else if (c == '"' || c == '\'') {
            quote = c;
        } else if (c == '>') {
            ++at;
            return text[at - 2] == '/';
        }
    }
    return std::nullopt;
}

} // namespace

bool isSafeBinaryPlist(std::string_view bytes) {
    BinaryPlist plist(bytes);
    if (!plist.readTrailer())
        return false;
    // A depth-first walk over the object graph, each object's expanded size and height worked
    // out once, so that shared references cost nothing here while they are counted in full.
    enum class State : uint8_t { unseen, open, done };
    std::vector<State> state(plist.objectCount(), State::unseen);
    std::vector<uint32_t> expanded(plist.objectCount(), 0);
    std::vector<uint32_t> payload(plist.objectCount(), 0);
    std::vector<uint32_t> height(plist.objectCount(), 0);
    struct Frame {
        uint64_t index;
        BinaryPlist::References references;
        uint64_t next = 0;
        uint64_t size = 1;
        uint64_t height = 1;
        uint64_t payload = 0;
    };
    const auto withinLimits = [](const Frame& frame) {
        return frame.size <= PlistLimits::maximumObjects &&
               frame.height <= PlistLimits::maximumDepth &&
               frame.payload <= PlistLimits::maximumPayload;
    };
    std::vector<Frame> path;
    const auto enter = [&](uint64_t index) {
        const auto references = plist.referencesOf(index);
        if (!references || path.size() >= PlistLimits::maximumDepth)
            return false;
        state[index] = State::open;
        path.push_back({index, *references});
        path.back().payload = references->payload;
        return withinLimits(path.back());
    };
    if (!enter(plist.root()))
        return false;
    for (;;) {
        Frame& top = path.back();
        if (top.next < top.references.count) {
            const uint64_t child = plist.reference(top.references, top.next++);
            if (child >= plist.objectCount() || state[child] == State::open)
                return false;
            if (state[child] == State::unseen) {
                if (!enter(child))
                    return false;
                continue;
            }
            top.size += expanded[child];
            top.payload += payload[child];
            top.height = std::max<uint64_t>(top.height, height[child] + 1);
        } else {
            const Frame done = top;
            path.pop_back();
            state[done.index] = State::done;
            expanded[done.index] = static_cast<uint32_t>(done.size);
            payload[done.index] = static_cast<uint32_t>(done.payload);
            height[done.index] = static_cast<uint32_t>(done.height);
            if (path.empty())
                return true;
            path.back().size += done.size;
            path.back().payload += done.payload;
            path.back().height = std::max(path.back().height, done.height + 1);
        }
        if (!withinLimits(path.back()))
            return false;
    }
}

bool isSafeXmlPlist(std::string_view bytes) {
    if (bytes.find('\0') != std::string_view::npos)
        return false;
    // libplist moves the rest of a text once for every entity in it: bound entities × length.
    const auto entities = static_cast<uint64_t>(std::count(bytes.begin(), bytes.end(), '&'));
    if (entities * bytes.size() > PlistLimits::maximumEntityWork)
        return false;
    // The <plist> element around the root is one more level and element than the binary format
    // has, so that whatever one format holds within the limits, the other does too.
    constexpr size_t maximumDepth = PlistLimits::maximumDepth + 1;
    constexpr size_t maximumElements = PlistLimits::maximumObjects + 1;
    size_t depth = 0;
    size_t elements = 0;
    for (size_t at = bytes.find('<'); at != std::string_view::npos; at = bytes.find('<', at)) {
        const std::string_view rest = bytes.substr(at);
        bool skipped = true;
        if (rest.starts_with("<!--"))
            skipped = skipPast(bytes, at, "-->");
        else if (rest.starts_with("<![CDATA["))
            skipped = skipPast(bytes, at, "]]>");
        else if (rest.starts_with("<?"))
            skipped = skipPast(bytes, at, "?>");
        else if (rest.starts_with("<!"))
            skipped = skipPast(bytes, at, ">");
        else if (rest.starts_with("</")) {
            depth -= depth > 0 ? 1 : 0;
            skipped = skipPast(bytes, at, ">");
        } else {
            ++at;
            const auto closesItself = skipTag(bytes, at);
            if (!closesItself || ++elements > maximumElements)
                return false;
            if (!*closesItself && ++depth > maximumDepth)
                return false;
        }
        if (!skipped)
            return false;
    }
    return true;
}

} // namespace pomwick

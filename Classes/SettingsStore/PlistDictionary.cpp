#include "PlistDictionary.h"

#include "PlistShapeCheck.h"
#include "RegularFile.h"
#include "XmlText.h"

#include <locale.h>
#include <plist/plist.h>
#include <utility>

namespace pomwick {
namespace {

plist_t node(void* root) {
    return static_cast<plist_t>(root);
}

// libplist reads and writes <real> with the C library's number functions, which follow the
// process locale: a comma-decimal locale would misread 0.5. Pin "C" numbers for this thread
// while libplist works, whatever the application set.
class CNumericLocale {
public:
    CNumericLocale()
        : c_(newlocale(LC_NUMERIC_MASK, "C", duplocale(uselocale(nullptr)))),
          previous_(uselocale(c_)) {}
    ~CNumericLocale() {
        uselocale(previous_);
        freelocale(c_);
    }
    CNumericLocale(const CNumericLocale&) = delete;
    CNumericLocale& operator=(const CNumericLocale&) = delete;

private:
    locale_t c_;
    locale_t previous_;
};

} // namespace

// XML, as long as XML can carry every text (written raw, a control character would make the file
// unreadable to every other reader) and it is not too large to read back. Else the binary format,
// which carries any character and data without base64; text that is not even UTF-8 (only another
// program can have stored it) goes as U+FFFD in XML.
std::optional<std::string> PlistDictionary::encoded() const {
    const plist_t root = node(root_);
    const CNumericLocale numbers;
    char* xml = nullptr;
    uint32_t length = 0;
    plist_to_xml(root, &xml, &length);
    if (xml == nullptr)
        return std::nullopt;
    std::string text(xml, length);
    plist_to_xml_free(xml);
    if (isXmlText(text) && text.size() <= maximumFileSize)
        return text;
    char* binary = nullptr;
    if (!whyNotPlistText(text))
        plist_to_bin(root, &binary, &length);
    if (binary == nullptr)
        return withXmlCharactersOnly(text);
    std::string bytes(binary, length);
    plist_to_bin_free(binary);
    return bytes;
}

PlistDictionary::PlistDictionary() : root_(plist_new_dict()) {}
PlistDictionary::PlistDictionary(void* root) : root_(root) {}

PlistDictionary::~PlistDictionary() {
    if (root_ != nullptr)
        plist_free(node(root_));
}

PlistDictionary::PlistDictionary(PlistDictionary&& other) noexcept
    : root_(std::exchange(other.root_, nullptr)) {}

PlistDictionary& PlistDictionary::operator=(PlistDictionary&& other) noexcept {
    std::swap(root_, other.root_);
    return *this;
}

std::optional<PlistDictionary> PlistDictionary::readFromFile(const std::filesystem::path& path) {
    std::error_code error;
    const auto bytes = readRegularFile(path, maximumFileSize, error);
    if (!bytes)
        return std::nullopt;
    return fromBytes(*bytes);
}

std::optional<PlistDictionary> PlistDictionary::fromBytes(std::string_view bytes) {
    if (bytes.empty() || bytes.size() > maximumFileSize)
        return std::nullopt;
    // libplist takes the binary format by this signature, everything else as XML.
    const bool binary = bytes.starts_with("bplist00");
    if (!(binary ? isSafeBinaryPlist(bytes) : isSafeXmlPlist(bytes)))
        return std::nullopt;
    plist_t root = nullptr;
    const CNumericLocale numbers;
    // Picks binary or XML by the "bplist00" signature; a parse failure leaves root NULL.
    plist_from_memory(bytes.data(), static_cast<uint32_t>(bytes.size()), &root);
    if (root == nullptr)
        return std::nullopt;
    if (plist_get_node_type(root) != PLIST_DICT) {
        plist_free(root);
        return std::nullopt;
    }
    return PlistDictionary(root);
}

std::optional<StoredValue> PlistDictionary::lookup(std::string_view key) const {
    const plist_t item = plist_dict_get_item(node(root_), std::string(key).c_str());
    if (item == nullptr)
        return std::nullopt;
    StoredValue value;
    switch (plist_get_node_type(item)) {
    case PLIST_STRING: {
        uint64_t length = 0;
        const char* text = plist_get_string_ptr(item, &length);
        value.kind = StoredValue::Kind::String;
        value.text = text != nullptr ? std::string(text, length) : "";
        break;
    }
    case PLIST_UINT: {
        // libplist 2.2 keeps every integer as unsigned; negative ones come back two's complement.
        uint64_t number = 0;
        plist_get_uint_val(item, &number);
        value.kind = StoredValue::Kind::Number;
        value.number = static_cast<double>(static_cast<int64_t>(number));
        break;
    }
    case PLIST_REAL:
        value.kind = StoredValue::Kind::Number;
        plist_get_real_val(item, &value.number);
        break;
    case PLIST_BOOLEAN: {
        uint8_t flag = 0;
        plist_get_bool_val(item, &flag);
        value.kind = StoredValue::Kind::Number;
        value.number = flag != 0 ? 1 : 0;
        break;
    }
    default:
        break;
    }
    return value;
}

std::vector<std::string> PlistDictionary::keys() const {
    std::vector<std::string> found;
    plist_dict_iter iterator = nullptr;
    plist_dict_new_iter(node(root_), &iterator);
    char* key = nullptr;
    plist_t value = nullptr;
    for (plist_dict_next_item(node(root_), iterator, &key, &value); key != nullptr;
         plist_dict_next_item(node(root_), iterator, &key, &value)) {
        found.emplace_back(key);
        std::free(key);
        key = nullptr;
    }
    std::free(iterator);
    return found;
}

std::vector<std::string> PlistDictionary::stringsInFirstArray(std::string_view field) const {
    std::vector<std::string> found;
    plist_dict_iter iterator = nullptr;
    plist_dict_new_iter(node(root_), &iterator);
    char* key = nullptr;
    plist_t first = nullptr;
    plist_dict_next_item(node(root_), iterator, &key, &first);
    std::free(key);
    std::free(iterator);
    if (first == nullptr || plist_get_node_type(first) != PLIST_ARRAY)
        return found;
    // By the iterator: libplist 2.2 finds an item by its index walking from the array's start.
    plist_array_iter entries = nullptr;
    plist_array_new_iter(first, &entries);
    plist_t entry = nullptr;
    for (plist_array_next_item(first, entries, &entry); entry != nullptr;
         plist_array_next_item(first, entries, &entry)) {
        if (plist_get_node_type(entry) != PLIST_DICT)
            continue;
        const plist_t value = plist_dict_get_item(entry, std::string(field).c_str());
        if (value == nullptr || plist_get_node_type(value) != PLIST_STRING)
            continue;
        char* text = nullptr;
        plist_get_string_val(value, &text);
        found.emplace_back(text != nullptr ? text : "");
        std::free(text);
    }
    std::free(entries);
    return found;
}

void PlistDictionary::setString(std::string_view key, std::string_view value) {
    plist_dict_set_item(node(root_), std::string(key).c_str(),
                        plist_new_string(std::string(value).c_str()));
}

bool PlistDictionary::remove(std::string_view key) {
    if (plist_dict_get_item(node(root_), std::string(key).c_str()) == nullptr)
        return false;
    plist_dict_remove_item(node(root_), std::string(key).c_str());
    return true;
}

} // namespace pomwick

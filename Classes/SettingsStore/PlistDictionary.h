#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pomwick {

// A value of the settings dictionary, as far as the getters can use it: a string, or a number
// (integers, reals and booleans all answer as numbers, as they do on the device). Anything else
// (dates, data, arrays, dictionaries) is `Other`.
struct StoredValue {
    enum class Kind { String, Number, Other };
    Kind kind = Kind::Other;
    std::string text;
    double number = 0;
};

// The one wrapper around libplist: a property list whose root is a dictionary, read from XML or
// binary files and written back atomically, as XML unless it holds text XML cannot carry.
class PlistDictionary {
public:
    // Files above this size are refused unread: the settings file is a few hundred bytes.
    static constexpr std::uintmax_t maximumFileSize = 4 * 1024 * 1024;

    PlistDictionary();
    ~PlistDictionary();
    PlistDictionary(PlistDictionary&& other) noexcept;
    PlistDictionary& operator=(PlistDictionary&& other) noexcept;
    PlistDictionary(const PlistDictionary&) = delete;
    PlistDictionary& operator=(const PlistDictionary&) = delete;

    // Nothing when the file is missing, unreadable, too large, not a property list, or its root
    // is not a dictionary.
    static std::optional<PlistDictionary> readFromFile(const std::filesystem::path& path);
    // The same for bytes already read.
    static std::optional<PlistDictionary> fromBytes(std::string_view bytes);

    std::optional<StoredValue> lookup(std::string_view key) const;
    // The root's keys, in the order the file lists them.
    std::vector<std::string> keys() const;
    // The first value of the root (in the order the file lists its keys) as an array of
    // dictionaries: the string each entry holds under `field`, in the array's order. Entries that
    // are not dictionaries or hold no string there are left out; a first value that is no array
    // gives an empty list.
    std::vector<std::string> stringsInFirstArray(std::string_view field) const;

    void setString(std::string_view key, std::string_view value);
    // Whether the key was there.
    bool remove(std::string_view key);

    // The file's bytes: XML, or the binary format when the text holds what XML cannot carry or
    // the XML would be too large to read back.
    std::optional<std::string> encoded() const;

private:
    explicit PlistDictionary(void* root);
    void* root_;
};

} // namespace pomwick

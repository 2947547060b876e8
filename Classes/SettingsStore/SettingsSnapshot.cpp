#include "SettingsSnapshot.h"

#include "DevicePaths.h"

#include <atomic>

namespace pomwick {
namespace {
std::atomic<uint64_t> reads{0};
} // namespace

SettingsSnapshot::SettingsSnapshot()
    : dictionary_(PlistDictionary::readFromFile(hostPath(DevicePath::preferencesFile))) {
    reads.fetch_add(1, std::memory_order_relaxed);
}

SettingValue SettingsSnapshot::value(const Setting& setting) const {
    const auto stored = dictionary_ ? dictionary_->lookup(setting.key) : std::nullopt;
    if (setting.key != SettingsKey::badgeFont)
        return setting.parse(stored, setting.defaultValue);
    // The font's default is the default face at the stored size, and a stored name is looked up
    // at that size too.
    const Font face = *std::get<std::optional<Font>>(setting.defaultValue);
    return setting.parse(stored, Font{face.name, float(badgeFontSize()), {}, {}, {}});
}

uint64_t SettingsSnapshot::fileReads() {
    return reads.load(std::memory_order_relaxed);
}

} // namespace pomwick

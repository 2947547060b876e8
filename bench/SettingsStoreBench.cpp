// One getter and one setter against a settings file holding every key, in a fresh device root.
#include "DevicePaths.h"
#include "Settings.h"

#include <benchmark/benchmark.h>
#include <filesystem>
#include <unistd.h>

using namespace pomwick;

namespace {

class SettingsFixture : public benchmark::Fixture {
public:
    void SetUp(const benchmark::State&) override {
        char folder[] = "/tmp/pomwick-bench-XXXXXX";
        root_ = ::mkdtemp(folder);
        DeviceRoot::set(root_);
        const std::pair<std::string_view, std::string_view> settings[] = {
            {SettingsKey::enabled, "1"},
            {SettingsKey::badgeVisible, "TRUE"},
            {SettingsKey::badgeTextFieldText, "New:@"},
            {SettingsKey::badgeFont, "DejaVuSans-Bold"},
            {SettingsKey::badgeFontSize, "16"},
            {SettingsKey::badgeFontColor, "1.000000,1.000000,1.000000,1.000000"},
            {SettingsKey::badgeBackgroundColor, "1.000000,0.231373,0.188235,1.000000"},
            {SettingsKey::badgeBorderColor, "1.000000,1.000000,1.000000,1.000000"},
            {SettingsKey::badgeBorderWidth, "1.200000"},
            {SettingsKey::badgeAlpha, "0.900000"},
            {SettingsKey::badgeLocation, "0.700000,-0.100000"},
        };
        for (const auto& [key, value] : settings)
            setPreferencesObjectKey(value, key);
    }
    void TearDown(const benchmark::State&) override { std::filesystem::remove_all(root_); }

private:
    std::filesystem::path root_;
};

} // namespace

BENCHMARK_F(SettingsFixture, Getter_getBadgeAlpha)(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(getBadgeAlpha());
}

BENCHMARK_F(SettingsFixture, Setter_setPreferencesObjectKey)(benchmark::State& state) {
    int step = 0;
    for (auto _ : state)
        setPreferencesObjectKey(++step % 2 == 0 ? "0.500000" : "0.900000", SettingsKey::badgeAlpha);
}

BENCHMARK_MAIN();

// One getter and one setter against a settings file holding every key, in a fresh device root,
// beside the floor of the setter: the same steps as bare C calls, no checks and no property list.
#include "DevicePaths.h"
#include "Settings.h"

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <filesystem>
#include <stdio.h>
#include <sys/file.h>
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

// Lock, read the file, write it to a new temporary, put that in place, unlock: with rename(2)
// when exchange is 0, else with an exchange and the unlink of the old file, as the store does.
void bareCRewrite(benchmark::State& state, int exchange) {
    const std::string file = hostPath(DevicePath::preferencesFile).string();
    char lock[4096], pattern[4096], bytes[65536];
    snprintf(lock, sizeof lock, "%s.lock", file.c_str());
    snprintf(pattern, sizeof pattern, "%s.XXXXXX", file.c_str());
    for (auto _ : state) {
        const int locked = open(lock, O_RDWR | O_CREAT | O_CLOEXEC, 0644);
        flock(locked, LOCK_EX);
        const int in = open(file.c_str(), O_RDONLY | O_CLOEXEC);
        const ssize_t length = read(in, bytes, sizeof bytes);
        close(in);
        char temporary[4096];
        snprintf(temporary, sizeof temporary, "%s", pattern);
        const int out = mkstemp(temporary);
        benchmark::DoNotOptimize(write(out, bytes, size_t(length)));
        close(out);
        if (!exchange)
            rename(temporary, file.c_str());
        else if (renameat2(AT_FDCWD, temporary, AT_FDCWD, file.c_str(), RENAME_EXCHANGE) == 0)
            unlink(temporary);
        close(locked);
    }
}

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

BENCHMARK_F(SettingsFixture, BareC_LockReadWriteRename)(benchmark::State& state) {
    bareCRewrite(state, 0);
}

BENCHMARK_F(SettingsFixture, BareC_LockReadWriteExchange)(benchmark::State& state) {
    bareCRewrite(state, 1);
}

#include "DevicePaths.h"

#include <cstdlib>
#include <gtest/gtest.h>

using namespace pomwick;

TEST(DevicePaths, DevicePathsLiveUnderTheCurrentRoot) {
    const auto previous = DeviceRoot::current();
    DeviceRoot::set("/srv/device");
    EXPECT_EQ(hostPath(DevicePath::preferencesFile),
              "/srv/device/var/mobile/Library/Preferences/com.velquor.pomwickpreferences.plist");
    EXPECT_EQ(hostPath("/tmp/iconSize.txt"), "/srv/device/tmp/iconSize.txt");
    EXPECT_EQ(hostPath("tmp/x"), "/srv/device/tmp/x");
    DeviceRoot::set(previous);
}

TEST(DevicePaths, RootComesFromOptionThenEnvironmentThenUserState) {
    setenv("POMWICK_ROOT", "/from/environment", 1);
    EXPECT_EQ(DeviceRoot::choose(std::string("/from/option")), "/from/option");
    EXPECT_EQ(DeviceRoot::choose(std::nullopt), "/from/environment");
    unsetenv("POMWICK_ROOT");
    setenv("XDG_STATE_HOME", "/state", 1);
    EXPECT_EQ(DeviceRoot::choose(std::nullopt), "/state/pomwick/device");
    unsetenv("XDG_STATE_HOME");
    setenv("HOME", "/home/someone", 1);
    EXPECT_EQ(DeviceRoot::defaultRoot(), "/home/someone/.local/state/pomwick/device");
}

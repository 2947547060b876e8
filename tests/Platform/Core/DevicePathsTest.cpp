#include "DevicePaths.h"

#include <QTemporaryDir>
#include <cstdlib>
#include <gtest/gtest.h>
#include <pwd.h>
#include <unistd.h>

using namespace pomwick;

TEST(DevicePaths, RootComesFromOptionEnvironmentStateOrHomeAndIsRefusedIfOthersCanChangeIt) {
    const std::string home = std::getenv("HOME") ? std::getenv("HOME") : "";
    setenv("POMWICK_ROOT", "/from/environment", 1);
    EXPECT_EQ(DeviceRoot::choose(std::string("/from/option")), "/from/option");
    EXPECT_EQ(DeviceRoot::choose(std::nullopt), "/from/environment");
    unsetenv("POMWICK_ROOT");
    setenv("XDG_STATE_HOME", "/state", 1);
    EXPECT_EQ(DeviceRoot::choose(std::nullopt), "/state/pomwick/device");
    unsetenv("XDG_STATE_HOME");
    setenv("HOME", "/home/someone", 1);
    EXPECT_EQ(DeviceRoot::defaultRoot(), "/home/someone/.local/state/pomwick/device");
    // Without HOME, the home folder of the password database.
    unsetenv("HOME");
    const passwd* user = getpwuid(geteuid());
    ASSERT_NE(user, nullptr);
    EXPECT_EQ(DeviceRoot::defaultRoot(),
              std::filesystem::path(user->pw_dir) / ".local/state/pomwick/device");
    if (!home.empty())
        setenv("HOME", home.c_str(), 1);

    namespace fs = std::filesystem;
    QTemporaryDir scratch;
    const fs::path base = scratch.path().toStdString();
    const auto folder = [&](const char* name, fs::perms perms) {
        fs::create_directories(base / name);
        fs::permissions(base / name, perms);
        return base / name;
    };
    using fs::perms;
    struct Case {
        fs::path root;
        const char* refusal; // "": accepted
    } cases[] = {
        {folder("own", perms::owner_all), ""},
        {base / "own" / "not-yet-made", ""},
        {folder("world-writable", perms::all), "can be written by other users"},
        {folder("open-parent", perms::all) / "device", "can be written by other users"},
        {folder("sticky-parent", perms::all | perms::sticky_bit) / "device", ""},
        {fs::path(), "no home folder"},
    };
    for (const Case& c : cases) {
        const auto refusal = DeviceRoot::refusal(c.root);
        EXPECT_EQ(refusal.has_value(), *c.refusal != '\0') << c.root;
        EXPECT_NE(refusal.value_or("").find(c.refusal), std::string::npos) << c.root;
    }
    if (geteuid() == 0) {
        const fs::path theirs = folder("theirs", perms::owner_all);
        ASSERT_EQ(chown(theirs.c_str(), 65534, 65534), 0);
        EXPECT_NE(DeviceRoot::refusal(theirs).value_or("").find("belongs to another user"),
                  std::string::npos);
    }
}

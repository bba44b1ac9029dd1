#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "host/dialogs/VRKDlgApplication.h"

namespace {

TEST(DialogApplication, NoDisplayNoPlatformIsRefused) {
    std::string why;
    EXPECT_FALSE(VRKDlgApplication::PlatformUsable(nullptr, nullptr, nullptr, true, why));
    EXPECT_EQ(why,
              "no display: neither DISPLAY nor WAYLAND_DISPLAY is set (QT_QPA_PLATFORM=offscreen "
              "runs dialogs without one)");
    EXPECT_FALSE(VRKDlgApplication::PlatformUsable("", "", "", true, why));
}

TEST(DialogApplication, DisplayOrOffscreenIsUsable) {
    std::string why = "old";
    EXPECT_TRUE(VRKDlgApplication::PlatformUsable(nullptr, ":0", nullptr, true, why));
    EXPECT_EQ(why, "");
    EXPECT_TRUE(VRKDlgApplication::PlatformUsable(nullptr, nullptr, "wayland-0", true, why));
    EXPECT_TRUE(VRKDlgApplication::PlatformUsable("offscreen", nullptr, nullptr, true, why));
    EXPECT_TRUE(VRKDlgApplication::PlatformUsable("xcb", ":1", nullptr, true, why));
}

TEST(DialogApplication, PlatformWithoutItsDisplayIsRefused) {
    std::string why;
    EXPECT_FALSE(VRKDlgApplication::PlatformUsable("xcb", nullptr, "wayland-0", true, why));
    EXPECT_EQ(why, "QT_QPA_PLATFORM asks for xcb but DISPLAY is not set");
    EXPECT_FALSE(VRKDlgApplication::PlatformUsable("wayland", ":0", nullptr, true, why));
    EXPECT_EQ(why, "QT_QPA_PLATFORM asks for wayland but WAYLAND_DISPLAY is not set");
}

TEST(DialogApplication, MissingPluginIsRefused) {
    std::string why;
    EXPECT_FALSE(
        VRKDlgApplication::PlatformUsable("nosuch;offscreen", nullptr, nullptr, false, why));
    EXPECT_EQ(why, "the Qt platform plugin 'nosuch' is not installed");
}

// The tests run with QT_QPA_PLATFORM=offscreen, whose plugin comes with the toolkit.
TEST(DialogApplication, OffscreenIsAvailableHere) {
    std::string why = "old";
    EXPECT_TRUE(VRKDlgApplication::Available(why)) << why;
    EXPECT_EQ(why, "");
}

// The program runs itself with no display and no platform in its environment: Available() says
// so, and the child goes on to its end instead of being ended by Qt.
TEST(DialogApplication, WithoutDisplayAvailableRefusesAndTheProgramGoesOn) {
    std::string why;
    if (std::getenv("VRK_DLG_NO_DISPLAY_CHILD") != nullptr) {
        EXPECT_FALSE(VRKDlgApplication::Available(why));
        EXPECT_EQ(why.rfind("no display: ", 0), 0u) << why;
        return;
    }
    std::string filter =
        "--gtest_filter=DialogApplication.WithoutDisplayAvailableRefusesAndTheProgramGoesOn";
    std::vector<char*> argv = {const_cast<char*>("/proc/self/exe"), filter.data(), nullptr};
    std::vector<std::string> variables = {"VRK_DLG_NO_DISPLAY_CHILD=1"};
    for (const char* name : {"ASAN_OPTIONS", "UBSAN_OPTIONS", "LSAN_OPTIONS"}) {
        if (const char* value = std::getenv(name)) {
            variables.push_back(std::string(name) + "=" + value);
        }
    }
    std::vector<char*> envp;
    for (std::string& variable : variables) {
        envp.push_back(variable.data());
    }
    envp.push_back(nullptr);
    pid_t child = 0;
    ASSERT_EQ(posix_spawn(&child, "/proc/self/exe", nullptr, nullptr, argv.data(), envp.data()), 0);
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0);
}

}  // namespace

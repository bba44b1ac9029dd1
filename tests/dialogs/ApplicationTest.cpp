#include <gtest/gtest.h>

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

}  // namespace

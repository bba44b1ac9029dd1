#include <gtest/gtest.h>

#include "host/drawing/VRKDrawingPalette.h"
#include "support/RecordingGenerator.h"

namespace {

TEST(DrawingPalette, EachColourIsDefinedOnceAndKeepsItsIndex) {
    RecordingGenerator generator;
    VRKDrawingPalette palette;
    EXPECT_EQ(palette.Index({255, 0, 0}, generator), 1);
    EXPECT_EQ(palette.Index({0, 0, 255}, generator), 2);
    EXPECT_EQ(palette.Index({255, 0, 0}, generator), 1);
    EXPECT_EQ(palette.Index({0, 0, 255}, generator), 2);
    EXPECT_EQ(generator.calls,
              (std::vector<std::string>{"DefineColor 1 1 0 0", "DefineColor 2 0 0 1"}));
    EXPECT_EQ(palette.GetDefinedCount(), 2);
}

TEST(DrawingPalette, PastTheLastIndexTheNearestColourIsTaken) {
    RecordingGenerator generator;
    VRKDrawingPalette palette;
    for (int i = 0; i < 255; ++i) {
        ASSERT_EQ(palette.Index({static_cast<std::uint8_t>(i), 0, 0}, generator), i + 1);
    }
    EXPECT_EQ(generator.calls.size(), 255u);
    // (255, 0, 0) is nearest (254, 0, 0), index 255; (100, 3, 0) nearest (100, 0, 0), index 101.
    EXPECT_EQ(palette.Index({255, 0, 0}, generator), 255);
    EXPECT_EQ(palette.Index({100, 3, 0}, generator), 101);
    EXPECT_EQ(palette.Index({100, 3, 0}, generator), 101);
    EXPECT_EQ(generator.calls.size(), 255u);
    EXPECT_EQ(palette.GetSubstitutedCount(), 2);
}

}  // namespace

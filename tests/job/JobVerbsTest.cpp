#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "host/job/VRKJobVerbs.h"

namespace {

const VRKJobVerb& verb(std::string_view name) {
    const VRKJobVerb* found = VRKJobVerbs::Find(name, nullptr);
    EXPECT_NE(found, nullptr) << name;
    return found != nullptr ? *found : VRKJobVerbs::kAll[0];
}

// The argument counts a line must have follow from the kinds of its verb.
TEST(JobVerbs, ArgumentCountsFollowFromTheKinds) {
    constexpr std::size_t kAny = VRKJobVerb::kUnbounded;
    const struct {
        const char* name;
        std::size_t least;
        std::size_t most;
    } cases[] = {
        {"Begin", 0, kAny},        {"End", 0, 0},
        {"MoveTo", 2, 2},          {"DrawPolyline", 1, kAny},
        {"FillArea", 1, kAny},     {"DrawArcCircle", 6, 6},
        {"DrawArcEllipse", 8, 8},  {"DrawBitmap", 3, 5},
        {"DrawText", 3, 3},        {"DefineColor", 4, 4},
        {"SetLineStyle", 1, kAny}, {"SetTextAttribute", 2, 2},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(verb(c.name).LeastArguments(), c.least) << c.name;
        EXPECT_EQ(verb(c.name).MostArguments(), c.most) << c.name;
    }
}

// Only verbs whose arguments are all numbers are read as common lines.
TEST(JobVerbs, CommonVerbs) {
    std::string common;
    for (const VRKJobVerb& v : VRKJobVerbs::kAll) {
        if (v.common) {
            common += std::string(v.name) + " ";
        }
    }
    EXPECT_EQ(common, "MoveTo LineTo DrawArcCircle FillArea SelectDrawColor SelectFillColor ");
}

TEST(JobVerbs, LookUp) {
    const VRKJobVerb* lineTo = VRKJobVerbs::Find("LineTo", nullptr);
    ASSERT_NE(lineTo, nullptr);
    EXPECT_STREQ(lineTo->usage, "LineTo x y");
    // The previous verb is tried first, and another name still finds its own verb.
    EXPECT_EQ(VRKJobVerbs::Find("LineTo", lineTo), lineTo);
    EXPECT_STREQ(VRKJobVerbs::Find("MoveTo", lineTo)->name, "MoveTo");
    EXPECT_EQ(VRKJobVerbs::Find("Line", lineTo), nullptr);
    EXPECT_EQ(VRKJobVerbs::Find("lineto", nullptr), nullptr);
    EXPECT_EQ(VRKJobVerbs::FindIgnoringCase("lineto"), lineTo);
    EXPECT_EQ(VRKJobVerbs::FindIgnoringCase("lineto2"), nullptr);
}

TEST(JobVerbs, ArgumentErrorNamesTheUsage) {
    EXPECT_EQ(verb("DrawText").ArgumentError("missing argument"),
              "DrawText: missing argument; usage: DrawText x y \"text\"");
}

}  // namespace

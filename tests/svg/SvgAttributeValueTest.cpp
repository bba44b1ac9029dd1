#include <gtest/gtest.h>

#include "host/svg/VRKSvgAttributeValue.h"

namespace {

TEST(SvgAttributeValue, DecodesWhatTheParserLeavesWritten) {
    EXPECT_EQ(VRKSvgAttributeValue::Decode("M0 0 L1 1"), "M0 0 L1 1");
    EXPECT_EQ(VRKSvgAttributeValue::Decode("a&#38;b"), "a&b");
    EXPECT_EQ(VRKSvgAttributeValue::Decode("&#x41;&#66;&lt;&gt;&amp;&apos;&quot;"), "AB<>&'\"");
    EXPECT_EQ(VRKSvgAttributeValue::Decode("caf&#xE9; &#x20AC; &#x1F600;"),
              "caf\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x98\x80");
    // References to undeclared entities are left out; a lone ampersand stays.
    EXPECT_EQ(VRKSvgAttributeValue::Decode("x&foo;y"), "xy");
    EXPECT_EQ(VRKSvgAttributeValue::Decode("x & y"), "x & y");
    EXPECT_EQ(VRKSvgAttributeValue::Decode("&#x110000;z"), "z");
}

}  // namespace

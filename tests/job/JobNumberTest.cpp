#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "host/job/VRKJobNumber.h"

namespace {

using VRKJobNumber::Status;

Status parseDouble(const char* text, double& value) {
    return VRKJobNumber::ParseDouble(text, value);
}

TEST(JobNumber, DecimalForms) {
    for (const char* text : {"10", "-0.0249", "1.5e3", "+3", ".5", "7.", "1E-2", "-0", "0007"}) {
        EXPECT_TRUE(VRKJobNumber::IsDecimal(text)) << text;
    }
    for (const char* text :
         {"",    "+",   "-",    ".",   "e5",       "1e",    "1e+", "--1", "+-1", "0x10",
          "1,5", "inf", "-inf", "nan", "infinity", "1.2.3", " 1",  "1 ",  "1f",  "١"}) {
        EXPECT_FALSE(VRKJobNumber::IsDecimal(text)) << text;
    }
}

TEST(JobNumber, DoubleValues) {
    double v = 0.0;
    ASSERT_EQ(parseDouble("-0.0249", v), Status::kOk);
    EXPECT_EQ(v, -0.0249);
    ASSERT_EQ(parseDouble("1.5e3", v), Status::kOk);
    EXPECT_EQ(v, 1500.0);
    ASSERT_EQ(parseDouble("+3", v), Status::kOk);
    EXPECT_EQ(v, 3.0);
    ASSERT_EQ(parseDouble(".5", v), Status::kOk);
    EXPECT_EQ(v, 0.5);
    ASSERT_EQ(parseDouble("-0", v), Status::kOk);
    EXPECT_TRUE(std::signbit(v));
    EXPECT_EQ(parseDouble("nan", v), Status::kNotANumber);
    EXPECT_EQ(parseDouble("1e400", v), Status::kOutOfRange);
    EXPECT_EQ(parseDouble("-1e400", v), Status::kOutOfRange);
}

TEST(JobNumber, FloatIsTheDoubleNarrowed) {
    float f = 0.0f;
    ASSERT_EQ(VRKJobNumber::ParseFloat("0.1", f), Status::kOk);
    EXPECT_EQ(f, static_cast<float>(0.1));
    // Rounded once as a double, then to float, as a host passing a double coordinate would.
    ASSERT_EQ(VRKJobNumber::ParseFloat("1.00000005960464477539062500001", f), Status::kOk);
    EXPECT_EQ(f, static_cast<float>(1.00000005960464477539062500001));
    ASSERT_EQ(VRKJobNumber::ParseFloat("3.4028234663852886e38", f), Status::kOk);
    EXPECT_EQ(f, std::numeric_limits<float>::max());
    EXPECT_EQ(VRKJobNumber::ParseFloat("3.5e38", f), Status::kOutOfRange);
    EXPECT_EQ(VRKJobNumber::ParseFloat("-1e39", f), Status::kOutOfRange);
    EXPECT_EQ(VRKJobNumber::ParseFloat("abc", f), Status::kNotANumber);
}

TEST(JobNumber, Integers) {
    int i = 0;
    ASSERT_EQ(VRKJobNumber::ParseInt("3", i), Status::kOk);
    EXPECT_EQ(i, 3);
    ASSERT_EQ(VRKJobNumber::ParseInt("-1", i), Status::kOk);
    EXPECT_EQ(i, -1);
    ASSERT_EQ(VRKJobNumber::ParseInt("+12", i), Status::kOk);
    EXPECT_EQ(i, 12);
    ASSERT_EQ(VRKJobNumber::ParseInt("2147483647", i), Status::kOk);
    EXPECT_EQ(i, 2147483647);
    ASSERT_EQ(VRKJobNumber::ParseInt("-2147483648", i), Status::kOk);
    EXPECT_EQ(i, -2147483647 - 1);
    EXPECT_EQ(VRKJobNumber::ParseInt("2147483648", i), Status::kOutOfRange);
    EXPECT_EQ(VRKJobNumber::ParseInt("-2147483649", i), Status::kOutOfRange);
    EXPECT_EQ(VRKJobNumber::ParseInt("3.0", i), Status::kNotAnInteger);
    EXPECT_EQ(VRKJobNumber::ParseInt("1e2", i), Status::kNotAnInteger);
    EXPECT_EQ(VRKJobNumber::ParseInt("x", i), Status::kNotANumber);
    EXPECT_EQ(VRKJobNumber::ParseInt("", i), Status::kNotANumber);
    EXPECT_EQ(VRKJobNumber::ParseInt("0x1", i), Status::kNotANumber);
}

}  // namespace

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <string>

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

// The reading for a float gives the float of the correctly rounded double, with or without an
// exponent, near the midpoints of two floats and elsewhere.
TEST(JobNumber, FloatReadingIsTheDoubleNarrowed) {
    std::mt19937 random(20261124);
    for (int i = 0; i < 20000; ++i) {
        std::string text = std::to_string(random() % 100000000000ull);
        text.insert(random() % (text.size() + 1), ".");
        if (i % 2 == 0) {
            text += "e-" + std::to_string(random() % 20);
        }
        const char* const end = text.data() + text.size();
        double read = 0.0;
        auto status = Status::kNotANumber;
        ASSERT_EQ(
            VRKJobNumber::ReadDecimal(text.data(), end, VRKJobNumber::Target::kFloat, read, status),
            end);
        ASSERT_EQ(status, Status::kOk) << text;
        double exact = 0.0;
        ASSERT_EQ(parseDouble(text.c_str(), exact), Status::kOk);
        EXPECT_EQ(static_cast<float>(read), static_cast<float>(exact)) << text;
    }
}

// Read in a buffer, a number stops at the first byte that is not part of it.
TEST(JobNumber, ReadingStopsAfterTheNumber) {
    const char line[] = "-12.5e1 7\n";
    double value = 0.0;
    auto status = Status::kNotANumber;
    const char* end = VRKJobNumber::ReadDecimal(line, VRKJobNumber::Unbounded{},
                                                VRKJobNumber::Target::kDouble, value, status);
    EXPECT_EQ(end, line + 7);
    EXPECT_EQ(status, Status::kOk);
    EXPECT_EQ(value, -125.0);
    int integer = 0;
    end = VRKJobNumber::ReadInteger(line + 8, VRKJobNumber::Unbounded{}, integer, status);
    EXPECT_EQ(end, line + 9);
    EXPECT_EQ(status, Status::kOk);
    EXPECT_EQ(integer, 7);
    // Many digits and large exponents take the careful conversion.
    const char uncommon[] = "0.000000000000000000000000000015 ";
    end = VRKJobNumber::ReadDecimal(uncommon, VRKJobNumber::Unbounded{},
                                    VRKJobNumber::Target::kDouble, value, status);
    EXPECT_EQ(end, uncommon + 32);
    EXPECT_EQ(status, Status::kOk);
    EXPECT_EQ(value, 1.5e-29);
    const char beyondFloat[] = "1e39\n";
    end = VRKJobNumber::ReadDecimal(beyondFloat, VRKJobNumber::Unbounded{},
                                    VRKJobNumber::Target::kFloat, value, status);
    EXPECT_EQ(end, beyondFloat + 4);
    EXPECT_EQ(status, Status::kOutOfRange);
    const char longInteger[] = "-00000000000000000000000000042 ";
    end = VRKJobNumber::ReadInteger(longInteger, VRKJobNumber::Unbounded{}, integer, status);
    EXPECT_EQ(end, longInteger + 30);
    EXPECT_EQ(status, Status::kOk);
    EXPECT_EQ(integer, -42);
}

}  // namespace

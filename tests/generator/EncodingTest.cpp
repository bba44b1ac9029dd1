#include <gtest/gtest.h>

#include <climits>
#include <string>

#include "generator/HPGL2Encoding.h"
#include "support/Printable.h"

namespace {

std::string Encoded(int v) {
    return encodeNumber(v);
}
std::string Bytes(std::initializer_list<int> bytes) {
    std::string s;
    for (int b : bytes) {
        s.push_back(static_cast<char>(b));
    }
    return s;
}

// Decodes PE digits the way a plotter does, for round trips.
long long Decode(const std::string& digits) {
    unsigned long long u = 0;
    int shift = 0;
    for (const char c : digits) {
        const int b = static_cast<unsigned char>(c);
        if (b >= 191) {
            u |= static_cast<unsigned long long>(b - 191) << shift;
            break;
        }
        u |= static_cast<unsigned long long>(b - 63) << shift;
        shift += 6;
    }
    return (u & 1) != 0 ? -static_cast<long long>(u >> 1) : static_cast<long long>(u >> 1);
}

TEST(EncodeNumber, ZeroIsOneTerminatingByte) {
    EXPECT_BYTES(Bytes({191}), Encoded(0));
}

TEST(EncodeNumber, MinusOneFollowsTheFold) {
    // u = 2 * 1 + 1 = 3, so the terminating byte is 3 + 191.
    EXPECT_BYTES(Bytes({194}), Encoded(-1));
}

TEST(EncodeNumber, ThirtyTwoNeedsTwoDigits) {
    // u = 64: one digit 63 + 0, then the terminator 191 + 1.
    EXPECT_BYTES(Bytes({63, 192}), Encoded(32));
}

TEST(EncodeNumber, SmallValues) {
    EXPECT_BYTES(Bytes({193}), Encoded(1));
    EXPECT_BYTES(Bytes({253}), Encoded(31));           // u = 62
    EXPECT_BYTES(Bytes({254}), Encoded(-31));          // u = 63, the largest single byte
    EXPECT_BYTES(Bytes({63 + 1, 192}), Encoded(-32));  // u = 65
}

TEST(EncodeNumber, ExtremesFitSixDigits) {
    // INT_MAX: u = 2^32 - 2.
    EXPECT_BYTES(Bytes({63 + 62, 63 + 63, 63 + 63, 63 + 63, 63 + 63, 191 + 3}), Encoded(INT_MAX));
    // INT_MIN: u = 2^32 + 1, which does not fit 32 bits.
    EXPECT_BYTES(Bytes({63 + 1, 63, 63, 63, 63, 191 + 4}), Encoded(INT_MIN));
}

TEST(EncodeNumber, DifferencesOfTwoPositionsFitSixDigits) {
    // Two 32-bit positions differ by up to 2^32 - 1 either way: u up to 2^33 - 1, six digits.
    char digits[8];
    const auto encoded = [&digits](long long v) {
        return std::string(digits, encodeNumberTo(digits, v));
    };
    EXPECT_BYTES(Bytes({63 + 62, 126, 126, 126, 126, 191 + 7}), encoded(4294967295LL));
    EXPECT_BYTES(Bytes({126, 126, 126, 126, 126, 191 + 7}), encoded(-4294967295LL));
    EXPECT_BYTES(Bytes({63, 63, 63, 63, 63, 191 + 4}), encoded(2147483648LL));
    for (long long v : {4294967295LL, -4294967295LL, 2147483648LL, -2147483649LL, 3000000000LL}) {
        EXPECT_EQ(Decode(encoded(v)), v);
    }
    // Within 32 bits, the same digits as before.
    EXPECT_BYTES(Encoded(INT_MIN), encoded(INT_MIN));
    EXPECT_BYTES(Encoded(-400), encoded(-400));
}

TEST(EncodeNumber, RoundTrips) {
    for (long long v = -70000; v <= 70000; v += 7) {
        ASSERT_EQ(Decode(Encoded(static_cast<int>(v))), v);
    }
    for (int v : {INT_MIN, INT_MIN + 1, INT_MAX, INT_MAX - 1, 4095, 4096, -4096, 262143, 262144}) {
        ASSERT_EQ(Decode(Encoded(v)), v);
    }
}

TEST(EncodeNumber, DigitsStayInTheirRanges) {
    for (int v : {0, 5, -5, 100, -100, 123456, -123456, INT_MAX, INT_MIN}) {
        const std::string d = Encoded(v);
        ASSERT_FALSE(d.empty());
        for (std::size_t i = 0; i + 1 < d.size(); ++i) {
            const int b = static_cast<unsigned char>(d[i]);
            EXPECT_GE(b, 63);
            EXPECT_LE(b, 126);
        }
        const int last = static_cast<unsigned char>(d.back());
        EXPECT_GE(last, 191);
        EXPECT_LE(last, 254);
    }
}

}  // namespace

#include <gtest/gtest.h>

#include <charconv>
#include <climits>
#include <cmath>
#include <cstring>
#include <locale>
#include <random>
#include <string>
#include <vector>

#include "host/core/VRKPrintMemoryStream.h"

namespace {

TEST(PrintStream, IntegersInPlainDecimal) {
    VRKPrintMemoryStream s;
    s.WriteInt(0);
    s.Put(',');
    s.WriteInt(-42);
    s.Put(',');
    s.WriteInt(2147483647);
    s.Put(',');
    s.WriteInt(-2147483648LL);
    EXPECT_EQ(s.Data(), "0,-42,2147483647,-2147483648");
}

TEST(PrintStream, FloatsInGeneralThenFixedNotation) {
    VRKPrintMemoryStream s;
    s.WriteFloat(0.35f);
    s.Put(' ');
    s.WriteFloat(1234567.0);
    s.Put(' ');
    s.SetFixed(2);
    s.WriteFloat(0.35f);
    s.Put(' ');
    s.WriteFloat(16.604);
    s.Put(' ');
    s.WriteFloat(-0.001);
    s.Put(' ');
    s.WriteFloat(11.338582677);
    s.Put(' ');
    s.WriteFloat(8400.0);
    s.Put(' ');
    s.WriteFloat(0.125);  // an exact tie rounds to even, as printf does
    EXPECT_EQ(s.Data(), "0.35 1.23457e+06 0.35 16.60 -0.00 11.34 8400.00 0.12");
}

struct CommaDecimal : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

// The fixed notation is formatted without std::to_chars for most values; every digit must still
// be the one std::to_chars writes (the exact value rounded, ties to even).
TEST(PrintStream, FixedNotationMatchesToChars) {
    std::vector<double> values = {0.0,    -0.0,  0.125,  0.375,      2.675,   -2.675,  0.005,
                                  -0.005, 0.015, 1e-300, -1e-300,    5e-324,  0.5,     1.5,
                                  2.5,    -0.5,  99.995, 123456.785, 1e15,    9.0e15,  -9.0e15,
                                  1e17,   1e22,  1e300,  -1e300,     33640.0, 47560.0, 0.0049999};
    std::mt19937_64 random(5);
    for (int i = 0; i < 20000; ++i) {
        // Random bit patterns over every magnitude, and values of a plotter's range.
        const auto bits = random();
        double v;
        std::memcpy(&v, &bits, sizeof v);
        if (std::isfinite(v)) {
            values.push_back(v);
        }
        values.push_back(static_cast<double>(static_cast<float>((random() % 4000000) / 100.0)) *
                         40.0);
        values.push_back(static_cast<double>(random() % 200000) / 1000.0 - 100.0);
        values.push_back(static_cast<double>(random() % 100000) / 8.0);
    }
    for (int decimals = 0; decimals <= 7; ++decimals) {
        VRKPrintMemoryStream s;
        s.SetFixed(decimals);
        std::string expected;
        for (const double v : values) {
            char text[400];
            const auto r =
                std::to_chars(text, text + sizeof text, v, std::chars_format::fixed, decimals);
            expected.append(text, r.ptr);
            expected += ';';
            s.WriteFloat(v);
            s.Put(';');
        }
        EXPECT_EQ(s.Data(), expected) << decimals << " decimals";
    }
}

// Integers are formatted without std::to_chars below 10^8; every digit must be the same.
TEST(PrintStream, IntegersMatchToChars) {
    std::vector<long long> values = {0,         1,         9,         10,         99,
                                     100,       12345678,  99999999,  100000000,  100000001,
                                     -1,        -10,       -99999999, -100000000, 4294967296LL,
                                     LLONG_MAX, LLONG_MIN, 1000,      10000,      10001};
    std::mt19937_64 random(9);
    for (int i = 0; i < 20000; ++i) {
        values.push_back(static_cast<long long>(random() % 200000000) - 100000000);
        values.push_back(static_cast<long long>(random() % 100000));
        values.push_back(static_cast<long long>(random()));
    }
    VRKPrintMemoryStream s;
    std::string expected;
    for (const long long v : values) {
        char text[32];
        expected.append(text, std::to_chars(text, text + sizeof text, v).ptr);
        expected += ',';
        s.WriteInt(v);
        s.Put(',');
    }
    EXPECT_EQ(s.Data(), expected);
}

TEST(PrintStream, ProcessLocaleDoesNotChangeAByte) {
    const std::locale previous =
        std::locale::global(std::locale(std::locale::classic(), new CommaDecimal));
    VRKPrintMemoryStream s;
    s.SetFixed(2);
    s.WriteFloat(1234.5);
    s.Put(' ');
    s.WriteInt(1234567);
    std::locale::global(previous);
    EXPECT_EQ(s.Data(), "1234.50 1234567");
}

TEST(PrintStream, LargeWritesPassTheBuffer) {
    VRKPrintMemoryStream s(64);
    std::string big(1000, 'x');
    s.Write("ab");
    s.Write(big);
    s.Write("cd");
    for (int i = 0; i < 100; ++i) {
        s.WriteInt(i % 10);
    }
    std::string expected = "ab" + big + "cd";
    for (int i = 0; i < 100; ++i) {
        expected += static_cast<char>('0' + i % 10);
    }
    EXPECT_EQ(s.BytesWritten(), expected.size());
    EXPECT_EQ(s.Data(), expected);
}

TEST(PrintStream, FailureIsSticky) {
    VRKPrintMemoryStream s(64);
    s.Write("kept");
    s.Flush();
    s.FailNextWrite();
    s.Write("lost");
    EXPECT_FALSE(s.Flush());
    EXPECT_FALSE(s.Good());
    s.Write("also lost");
    EXPECT_FALSE(s.Flush());
    EXPECT_EQ(s.Data(), "kept");
}

TEST(PrintStream, PathAndPrivateData) {
    VRKPrintMemoryStream s;
    int data = 7;
    s.SetPath("out/plot.plt");
    s.SetPrivateData(&data);
    EXPECT_EQ(s.GetPath().ToUtf8(), "out/plot.plt");
    EXPECT_EQ(s.GetPrivateData(), &data);
}

TEST(PrintStream, EndLineFlushes) {
    VRKPrintMemoryStream s;
    s.Write("@PJL");
    s.EndLine();
    EXPECT_EQ(s.BytesWritten(), 5u);
    EXPECT_EQ(s.Data(), "@PJL\n");
}

}  // namespace

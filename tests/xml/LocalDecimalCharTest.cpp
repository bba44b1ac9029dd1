// The decimal point in the notation of the C library's locale.

#include <gtest/gtest.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "host/core/VRKLocalDecimalChar.h"
#include "support/CommaLocale.h"

namespace {

TEST(LocalDecimalChar, TheCLocaleKeepsThePoint) {
    EXPECT_EQ(GetStringWithLocalDecimalCharV2("0.35").str(), "0.35");
    EXPECT_EQ(GetStringWithLocalDecimalCharV2("").str(), "");
    EXPECT_EQ(GetStringWithLocalDecimalCharV2("1.2.3").str(), "1.2.3");
}

TEST(LocalDecimalChar, ADecimalCommaLocaleGetsCommas) {
    const std::string& locales = CommaLocaleFolder();
    ASSERT_FALSE(locales.empty()) << "cannot build the " << kCommaLocale << " locale";
    ::setenv("LOCPATH", locales.c_str(), 1);
    const std::string saved = std::setlocale(LC_ALL, nullptr);
    ASSERT_NE(std::setlocale(LC_ALL, kCommaLocale), nullptr);
    const std::string local = GetStringWithLocalDecimalCharV2("0.35").str();
    const std::string twice = GetStringWithLocalDecimalCharV2("1.2.3").str();
    double value = 0.0;
    std::sscanf(local.c_str(), "%le", &value);
    std::setlocale(LC_ALL, saved.c_str());
    EXPECT_EQ(local, "0,35");
    EXPECT_EQ(twice, "1,2,3");
    EXPECT_EQ(value, 0.35);
}

}  // namespace

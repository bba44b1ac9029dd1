// Job names cleaned for the PJL lines that carry them.

#include <gtest/gtest.h>

#include <string>

#include "host/job/VRKJobName.h"

namespace {

TEST(JobName, PlainNamesStayAsTheyAre) {
    for (const std::string name : {"plan.job", "Plan 7", "/tmp/a b/c.plt", "Grundri\xC3\x9F", ""}) {
        EXPECT_EQ(VRKJobName::Clean(name), name);
        EXPECT_EQ(VRKJobName::Changes(name), "");
    }
}

TEST(JobName, QuotesAndControlCharactersCannotEndThePjlLine) {
    const std::string name = "x\"\n@PJL SET COPIES=999";
    EXPECT_EQ(VRKJobName::Clean(name), "x' @PJL SET COPIES=999");
    EXPECT_EQ(VRKJobName::Changes(name),
              "double quotes became apostrophes, control characters became blanks");
}

TEST(JobName, EveryControlByteBecomesABlank) {
    std::string name;
    for (int c = 0; c < 32; ++c) {
        name += static_cast<char>(c);
    }
    name += '\x7F';
    name += "\x1b%-12345X";
    EXPECT_EQ(VRKJobName::Clean(name), std::string(34, ' ') + "%-12345X");
    EXPECT_EQ(VRKJobName::Changes(name), "control characters became blanks");
    EXPECT_EQ(VRKJobName::Changes("say \"hi\""), "double quotes became apostrophes");
    EXPECT_EQ(VRKJobName::Clean("say \"hi\""), "say 'hi'");
}

}  // namespace

// Jobs whose forms or coordinates lie beyond the plotter's integer range, found by the fuzz target
// `job` (fuzz/regressions/job/, the file name beside each). The generators converted them to
// plotter units in an int, which overflowed: undefined behaviour that the sanitizer build reports.
// The job player now refuses each at the line of the value beyond the range, before any generator
// sees it.

#include <gtest/gtest.h>

#include <ostream>
#include <sstream>
#include <string>

#include "host/core/VRKClassDictionary.h"
#include "host/core/VRKPrintFileGenerator.h"
#include "host/core/VRKPrintMemoryStream.h"
#include "host/core/VRKSmartRef.h"
#include "host/job/VRKJobPlayer.h"

namespace {

struct OutOfRangeJob {
    const char* reproducer;
    const char* language;
    const char* job;
    // The line of the value beyond the range, where the job is refused.
    int line;
};

const OutOfRangeJob kJobs[] = {
    {"form-width-beyond-int-hpgl2", "HPGL2", "Begin width=111111119\nEnd\n", 1},
    {"form-width-beyond-int-hpgl", "HPGL", "Begin width=210214748\nEnd\n", 1},
    {"form-height-beyond-int-hpgl", "HPGL", "Begin height=210214748\nEnd\n", 1},
    {"form-height-beyond-int-hpgl2", "HPGL2", "Begin height=2921474836477\nEnd\n", 1},
    // The strokes of a line far wider than any pen lay beyond the range, across the line: the
    // width itself is refused.
    {"stroke-offset-beyond-int", "HPGL",
     "Begin\nSetDrawWidth 1e30\nMoveTo 0 0\nLineTo 10 10\nEnd\n", 2},
    {"x-beyond-int", "HPGL2", "Begin\nDrawPolyline 2 0 0 1e20 9\nEnd\n", 2},
    {"y-beyond-int", "HPGL2", "Begin\nDrawPolyline 2 0 0 9 1e20\nEnd\n", 2},
    {"text-x-beyond-int", "HPGL2", "Begin\nDrawText 221474836 0 \"\"\nEnd\n", 2},
    // The integer the overflowing conversion leaves is then subtracted from: a signed overflow.
    {"difference-of-overflowed-units", "HP1000GL2",
     "Begin\nDrawArcCircle 121836472 5 2 0 5 0\nDrawArcCircle 9 0 2 5 5 0\nEnd\n", 2},
    // Hatched in the HP-GL dialect, an area 2e38 mm high takes scan lines without end.
    {"hatch-over-2e38-mm", "HPGL", "Begin\nSelectFillColor 1\nFillArea 1 3 0 0 10 2e38 20 0\nEnd\n",
     3},
};

// The reproducer's name in test output, instead of the bytes of the struct.
void PrintTo(const OutOfRangeJob& job, std::ostream* out) {
    *out << job.reproducer;
}

class JobOutOfRange : public testing::TestWithParam<OutOfRangeJob> {};

TEST_P(JobOutOfRange, IsRefusedAtItsLine) {
    const OutOfRangeJob& c = GetParam();
    const VRKClassEntry* entry = VRKClassDictionary::Instance().FindLanguage(c.language);
    ASSERT_NE(entry, nullptr);
    auto object = VRKSmartRef<VRKBaseUnknown>::Adopt(entry->factory());
    auto* generator = dynamic_cast<VRKPrintFileGenerator*>(object.get());
    ASSERT_NE(generator, nullptr);
    VRKPrintMemoryStream stream;
    generator->Attach(&stream);
    VRKJobPlayer player(*generator);
    std::istringstream in(c.job);
    const bool played = player.Play(in, "JOB", "");
    generator->Attach(nullptr);
    EXPECT_FALSE(played);
    EXPECT_EQ(player.GetError().line, c.line) << player.GetError().ToString();
    EXPECT_NE(player.GetError().message.find("beyond the plotter's range"), std::string::npos)
        << player.GetError().ToString();
}

INSTANTIATE_TEST_SUITE_P(FuzzRegressions, JobOutOfRange, testing::ValuesIn(kJobs),
                         [](const testing::TestParamInfo<OutOfRangeJob>& info) {
                             std::string name = info.param.reproducer;
                             for (char& ch : name) {
                                 if (ch == '-') {
                                     ch = '_';
                                 }
                             }
                             return name;
                         });

}  // namespace

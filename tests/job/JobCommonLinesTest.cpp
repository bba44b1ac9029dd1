// The job player: common lines, read straight from the read buffer.

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <random>
#include <sstream>
#include <streambuf>
#include <string>
#include <vector>

#include "host/job/VRKJobPlayer.h"
#include "job/JobPlay.h"
#include "support/RecordingGenerator.h"
#include "support/TempFolder.h"

namespace {

// Lines of plain numbers are read straight from the line; the same line with a comment after it
// goes through the lexer. Both must make the same call with the same values.
TEST(JobPlayerCommonLines, SameCallsAsTheLexedLines) {
    const std::vector<std::string> lines = {
        "LineTo 1.5 -2",
        "MoveTo\t+.5   7.",
        "LineTo 0.1 0.30000000000000004441",
        "LineTo 1e3 -2.5E-2",
        "LineTo 123456789012345678901 1e30",
        "LineTo 3.4028234663852886e38 -0",
        "LineTo 0.000000000000000000000001 12345.678",
        "DrawArcCircle 10 20 5 0 6.283185307179586 1",
        "DrawArcCircle 10 20 5 0 6.283185307179586 0",
        "FillArea 2 3 4  0 0 10 0 5 5  20 20 30 20 30 30 20 30",
        "FillArea 1 0",
        "FillArea 0",
        "SelectDrawColor +7",
        "SelectFillColor -3",
        "SelectDrawColor 2147483647",
    };
    for (const std::string& line : lines) {
        EXPECT_EQ(play("Begin\n" + line + "\nEnd\n"), play("Begin\n" + line + " # lexed\nEnd\n"))
            << line;
    }
}

// A common line at the very end of the file, without a line end, is read like any other.
TEST(JobPlayerCommonLines, LastLineWithoutLineEnd) {
    EXPECT_EQ(play("Begin\nLineTo 1.5 2"), play("Begin\nLineTo 1.5 2 # lexed"));
    EXPECT_EQ(play("Begin\nSelectDrawColor 3"), play("Begin\nSelectDrawColor 3 # lexed"));
    EXPECT_EQ(play("Begin\nLineTo 1.5 2\r"), play("Begin\nLineTo 1.5 2 # lexed\r"));
}

// A line too long for the limit makes no call, even with the verb of the line before.
TEST(JobPlayerCommonLines, LengthLimitComesFirst) {
    RecordingGenerator generator;
    VRKJobPlayer player(generator);
    player.SetMaxLineLength(12);
    std::istringstream in("Begin\nLineTo 1 2\nLineTo 1.5 2.25\nEnd\n");
    EXPECT_FALSE(player.Play(in, "JOB", ""));
    EXPECT_EQ(player.GetError().ToString(), "JOB:3: the line is longer than 12 bytes");
    ASSERT_EQ(generator.calls.size(), 2u);
    EXPECT_EQ(generator.calls[1], "LineTo 1 2");
}

// A stream that hands out its text a few bytes at a time, as a pipe may: lines are cut at every
// place by the end of what has been read.
class TrickleBuffer : public std::streambuf {
  public:
    TrickleBuffer(std::string text, std::size_t piece) : text_(std::move(text)), piece_(piece) {}

  protected:
    int_type underflow() override {
        if (at_ >= text_.size()) {
            return traits_type::eof();
        }
        const std::size_t n = std::min(piece_, text_.size() - at_);
        char* const start = text_.data() + at_;
        setg(start, start, start + n);
        at_ += n;
        return traits_type::to_int_type(*start);
    }

  private:
    std::string text_;
    std::size_t piece_;
    std::size_t at_ = 0;
};

// A job of every common verb, one after another and repeated, with blanks, tabs and CR LF ends.
std::string mixedCommonJob(int repeats) {
    std::string job = "Begin\n";
    for (int i = 0; i < repeats; ++i) {
        const std::string n = std::to_string(i % 997) + "." + std::to_string(i % 13);
        job += "SelectDrawColor " + std::to_string(i % 8) + "\n";
        job += "MoveTo " + n + " -" + n + "\n";
        job += "LineTo\t" + n + "  0.125\r\n";
        job += "LineTo 1 " + n + " \n";
        job += "LineTo 2 3 # a comment sends this one to the lexer\n";
        job += "DrawArcCircle " + n + " 20 5 0 6.283185307179586 " + std::to_string(i % 2) + "\n";
        job += "SelectFillColor " + std::to_string(i % 5) + "\n";
        job += "FillArea 1 3 0 0 " + n + " 0 5 5\n";
        job += "SetDrawWidth 0.35\n";
    }
    return job + "End\n";
}

// What the lexer makes of the same job: every line with a comment, so that none is common.
std::string lexedCalls(const std::string& job) {
    std::string lexed;
    std::size_t start = 0;
    while (start < job.size()) {
        std::size_t end = job.find('\n', start);
        std::string line = job.substr(start, end - start);
        const bool cr = !line.empty() && line.back() == '\r';
        if (cr) {
            line.pop_back();
        }
        lexed +=
            line + (line.find('#') == std::string::npos ? " # lexed" : "") + (cr ? "\r\n" : "\n");
        start = end + 1;
    }
    return play(lexed);
}

// Common lines read in the buffer make the calls the lexer makes, wherever the reads cut them.
TEST(JobPlayerCommonLines, RunsInTheBufferMakeTheLexersCalls) {
    const std::string job = mixedCommonJob(40);
    const std::string expected = lexedCalls(job);
    ASSERT_EQ(expected.find("error"), std::string::npos) << expected;
    ASSERT_NE(expected.find("FillArea 1 3 0 0 39 0 5 5"), std::string::npos)
        << expected.substr(0, 600);
    ASSERT_EQ(play(job), expected);
    for (const std::size_t piece : {1u, 2u, 3u, 7u, 64u, 1000u}) {
        RecordingGenerator generator;
        VRKJobPlayer player(generator);
        TrickleBuffer buffer(job, piece);
        std::istream in(&buffer);
        ASSERT_TRUE(player.Play(in, "JOB", "")) << piece << ": " << player.GetError().ToString();
        EXPECT_EQ(callsOf(generator), expected) << "pieces of " << piece << " bytes";
    }
}

// A file larger than one read: lines that the end of a read cuts are played all the same.
TEST(JobPlayerCommonLines, LinesAcrossReadsOfAFile) {
    TempFolder folder{"common-lines"};
    const std::string job = mixedCommonJob(6000);
    ASSERT_GT(job.size(), std::size_t{3} << 18);
    const std::string path = folder.Write("big.job", job);
    RecordingGenerator generator;
    VRKJobPlayer player(generator);
    ASSERT_TRUE(player.PlayFile(path)) << player.GetError().ToString();
    EXPECT_EQ(callsOf(generator), lexedCalls(job));
}

// Numbers next to the midpoint of two floats, where rounding twice (to a double, then to a float)
// is most easily got wrong, and random numbers of every length: common lines give the floats the
// careful reading of the lexer gives.
TEST(JobPlayerCommonLines, NumbersNearTheMidpointOfTwoFloats) {
    std::mt19937 random(20261122);
    std::uniform_real_distribution<float> magnitude(-3.0f, 7.0f);
    std::string job = "Begin\n";
    char text[64];
    for (int i = 0; i < 4000; ++i) {
        const float f = std::pow(10.0f, magnitude(random));
        const float next = std::nextafter(f, 1e30f);
        const double midpoint = (static_cast<double>(f) + next) / 2;
        for (const int digits : {15, 16, 17}) {
            std::snprintf(text, sizeof text, "%.*f",
                          digits - 1 - static_cast<int>(std::floor(std::log10(midpoint))),
                          midpoint);
            job += std::string("LineTo ") + text + " -" + text + "\n";
        }
        // Plain random numbers: up to 19 digits, any number of them after the point. Most lie
        // beyond the plotter's range, which a coordinate must not; an angle takes them all.
        std::uniform_int_distribution<int> count(1, 19);
        const int n = count(random);
        std::string number;
        for (int d = 0; d < n; ++d) {
            number += static_cast<char>('0' + random() % 10);
        }
        number.insert(random() % (n + 1), ".");
        job += "DrawArcCircle 0 0 1 " + number + " 1 0\n";
    }
    job += "End\n";
    const std::string expected = lexedCalls(job);
    ASSERT_EQ(expected.find("error"), std::string::npos) << expected.substr(expected.size() - 300);
    EXPECT_EQ(play(job), expected);
}

// A failure of the generator in a run of common lines stops at that line.
TEST(JobPlayerCommonLines, GeneratorFailureInARun) {
    RecordingGenerator generator;
    generator.failIn = "DrawArcCircle";
    EXPECT_EQ(play("Begin\nLineTo 1 2\nLineTo 3 4\nDrawArcCircle 1 2 3 0 1 0\nLineTo 5 6\nEnd\n",
                   generator),
              kBeginDefaults +
                  "LineTo 1 2\nLineTo 3 4\nerror: JOB:4: the generator failed in DrawArcCircle\n");
}

// A NUL byte ends nothing: the line goes to the lexer, which refuses it.
TEST(JobPlayerCommonLines, NulByteInALine) {
    using namespace std::string_literals;
    EXPECT_EQ(errorOf("Begin\nLineTo 1 2\nLineTo 1\0 2\nEnd\n"s),
              "JOB:3: LineTo: '1\\x00' is not a number");
    EXPECT_EQ(errorOf("Begin\nLineTo 1 2\nLineTo 1 2\0\nEnd\n"s),
              "JOB:3: LineTo: '2\\x00' is not a number");
}

// Lines that look common but are not keep the errors of the general path.
TEST(JobPlayerCommonLines, UncommonLinesKeepTheirErrors) {
    EXPECT_EQ(errorOfLine("LineTo 1 2 3"), "JOB:2: LineTo: extra argument '3'; usage: LineTo x y");
    EXPECT_EQ(errorOfLine("LineTo 1e39 2"), "JOB:2: LineTo: '1e39' is beyond the range of a float");
    EXPECT_EQ(errorOfLine("DrawArcCircle 1 2 3 0 1 2"),
              "JOB:2: DrawArcCircle: filled must be 0 or 1; usage: DrawArcCircle cx cy r start "
              "end filled");
    EXPECT_EQ(errorOfLine("SelectDrawColor 2147483648"),
              "JOB:2: SelectDrawColor: '2147483648' is beyond the range of an integer");
    EXPECT_EQ(errorOfLine("FillArea 1 3 0 0 1 0"),
              "JOB:2: FillArea: the 1 polygon has 3 points, which need 6 coordinates; 4 given");
    EXPECT_EQ(errorOf("LineTo 1 2\n"), "JOB:1: LineTo before Begin");
}

}  // namespace

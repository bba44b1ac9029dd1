// The job player: bitmaps, files, streaming and the locale.

#include <gtest/gtest.h>

#include <clocale>
#include <sstream>
#include <streambuf>
#include <string>

#include "host/job/VRKJobPlayer.h"
#include "job/JobPlay.h"
#include "support/CommaLocale.h"
#include "support/RecordingGenerator.h"
#include "support/TempFolder.h"
#include "support/TestPng.h"

namespace {

// ---- Bitmaps ---------------------------------------------------------------------------------

class JobPlayerBitmaps : public ::testing::Test {
  protected:
    TempFolder folder{"bitmaps"};
};

TEST_F(JobPlayerBitmaps, PathIsTakenFromTheJobFilesFolder) {
    std::filesystem::create_directory(folder.File("img"));
    // 2 x 1 RGB at 500 pixels a metre (2 mm a pixel).
    folder.Write("img/two.png", TestPng::Build(2, 1, 8, 2, std::string("\0abcdef", 7),
                                               {{"pHYs", TestPng::Phys(500, 500, 1)}}));
    const std::string job = folder.Write("job.job",
                                         "Begin\n"
                                         "DrawBitmap 10 20 \"img/two.png\"\n"
                                         "DrawBitmap 1 2 \"img/two.png\" 0.5 0.25\n"
                                         "End\n");
    RecordingGenerator generator;
    VRKJobPlayer player(generator);
    ASSERT_TRUE(player.PlayFile(job)) << player.GetError().ToString();
    ASSERT_EQ(generator.calls.size(), 4u);
    EXPECT_EQ(generator.calls[1], "DrawBitmap 10 20 2x1 format=2 pixel=2,2 616263646566");
    EXPECT_EQ(generator.calls[2], "DrawBitmap 1 2 2x1 format=2 pixel=0.5,0.25 616263646566");
}

TEST_F(JobPlayerBitmaps, AbsolutePathAndDefaultPixelSize) {
    const std::string png =
        folder.Write("grey.png", TestPng::Build(1, 1, 8, 0, std::string("\0\x7F", 2)));
    RecordingGenerator generator;
    EXPECT_EQ(play("Begin\nDrawBitmap 0 0 \"" + png + "\"\nEnd\n", generator, "/nowhere"),
              kBeginDefaults + "DrawBitmap 0 0 1x1 format=0 pixel=0.254,0.254 7f\nEnd\n");
}

TEST_F(JobPlayerBitmaps, ImagesLongerThanARollAreRefused) {
    // 100 x 2 pixels at one pixel a metre is 100 m wide: the largest allowed. 101 pixels are not.
    folder.Write("fits.png", TestPng::Build(100, 2, 8, 0, std::string(202, '\0'),
                                            {{"pHYs", TestPng::Phys(1, 1, 1)}}));
    folder.Write("long.png", TestPng::Build(101, 2, 8, 0, std::string(204, '\0'),
                                            {{"pHYs", TestPng::Phys(1, 1, 1)}}));
    const std::string job = folder.Write("job.job",
                                         "Begin\n"
                                         "DrawBitmap 0 0 \"fits.png\"\n"
                                         "DrawBitmap 0 0 \"fits.png\" 0.1 50001\n"
                                         "End\n");
    RecordingGenerator generator;
    VRKJobPlayer player(generator);
    EXPECT_FALSE(player.PlayFile(job));
    EXPECT_EQ(player.GetError().ToString(),
              job + ":3: DrawBitmap: the image '" + folder.File("fits.png") +
                  "' would be 10 mm x 100002 mm at its pixel size; an image may be at most 100 m "
                  "on either side");
    ASSERT_EQ(generator.calls.size(), 2u);
    EXPECT_EQ(generator.calls[1].substr(0, 42), "DrawBitmap 0 0 100x2 format=0 pixel=1000,1");

    const std::string job2 = folder.Write("job2.job", "Begin\nDrawBitmap 0 0 \"long.png\"\nEnd\n");
    EXPECT_FALSE(player.PlayFile(job2));
    EXPECT_EQ(player.GetError().ToString(),
              job2 + ":2: DrawBitmap: the image '" + folder.File("long.png") +
                  "' would be 101000 mm x 2000 mm at its pixel size; an image may be at most 100 m "
                  "on either side");
}

TEST_F(JobPlayerBitmaps, BitmapThatCannotBeRead) {
    folder.Write("text.png", "Begin\n");
    const std::string job = folder.Write("job.job",
                                         "Begin\n"
                                         "DrawBitmap 0 0 \"missing.png\"\n"
                                         "End\n");
    RecordingGenerator generator;
    VRKJobPlayer player(generator);
    EXPECT_FALSE(player.PlayFile(job));
    EXPECT_EQ(player.GetError().ToString(), job + ":2: DrawBitmap: cannot read the bitmap '" +
                                                folder.Path() +
                                                "/missing.png': No such file or directory");
    EXPECT_EQ(errorOf("Begin\nDrawBitmap 0 0 \"" + folder.File("text.png") + "\"\nEnd\n"),
              "JOB:2: DrawBitmap: cannot read the bitmap '" + folder.File("text.png") +
                  "': not a PNG file");
    EXPECT_EQ(errorOfLine("DrawBitmap 0 0 \"\""),
              "JOB:2: DrawBitmap: an empty file name; usage: DrawBitmap x y \"file.png\" [pw ph]");
    EXPECT_EQ(errorOfLine("DrawBitmap 0 0 \"a.png\" 0 1"),
              "JOB:2: DrawBitmap: the pixel width and height must be greater than 0; usage: "
              "DrawBitmap x y \"file.png\" [pw ph]");
    EXPECT_EQ(errorOfLine("DrawBitmap 0 0 a.png"),
              "JOB:2: DrawBitmap: expected a string in double quotes, got 'a.png'; usage: "
              "DrawBitmap x y \"file.png\" [pw ph]");
}

// ---- Files, streaming, locale ----------------------------------------------------------------

TEST(JobPlayerFiles, FileThatCannotBeOpened) {
    TempFolder folder("files");
    RecordingGenerator generator;
    VRKJobPlayer player(generator);
    EXPECT_FALSE(player.PlayFile(folder.File("none.job")));
    EXPECT_EQ(player.GetError().ToString(),
              folder.File("none.job") + ": cannot open the job file: No such file or directory");
    EXPECT_FALSE(player.PlayFile(folder.Path()));
    EXPECT_EQ(player.GetError().ToString(),
              folder.Path() + ": cannot open the job file: it is a folder");
    EXPECT_TRUE(generator.calls.empty());
}

TEST(JobPlayerFiles, ErrorTextHasFileLineAndMessage) {
    EXPECT_EQ((VRKJobError{"a.job", 3, "unknown verb 'X'"}).ToString(),
              "a.job:3: unknown verb 'X'");
    EXPECT_EQ((VRKJobError{"a.job", 0, "cannot open"}).ToString(), "a.job: cannot open");
}

TEST(JobPlayerFiles, LinesLongerThanTheLimitAreRefused) {
    RecordingGenerator generator;
    VRKJobPlayer player(generator);
    player.SetMaxLineLength(11);
    std::istringstream fits("Begin\nMoveTo 1 23\nEnd\n");  // 11 bytes before the LF
    EXPECT_TRUE(player.Play(fits, "JOB", "")) << player.GetError().ToString();
    std::istringstream tooLong("Begin\nMoveTo 1 234\nEnd\n");
    EXPECT_FALSE(player.Play(tooLong, "JOB", ""));
    EXPECT_EQ(player.GetError().ToString(), "JOB:2: the line is longer than 11 bytes");
}

TEST(JobPlayerFiles, EndlessLineFromADevice) {
    // /dev/zero never ends a line: the default limit, 1 MiB, stops it.
    RecordingGenerator generator;
    VRKJobPlayer player(generator);
    EXPECT_FALSE(player.PlayFile("/dev/zero"));
    EXPECT_EQ(player.GetError().ToString(), "/dev/zero:1: the line is longer than 1048576 bytes");
}

TEST(JobPlayerFiles, DefaultLimitIsOneMebibyte) {
    // A comment of exactly 1 MiB is a line like any other; one byte more is refused.
    RecordingGenerator generator;
    VRKJobPlayer player(generator);
    std::istringstream fits("Begin\n#" + std::string(1048575, 'c') + "\nEnd\n");
    EXPECT_TRUE(player.Play(fits, "JOB", "")) << player.GetError().ToString();
    std::istringstream tooLong("Begin\n#" + std::string(1048576, 'c') + "\nEnd\n");
    EXPECT_FALSE(player.Play(tooLong, "JOB", ""));
    EXPECT_EQ(player.GetError().ToString(), "JOB:2: the line is longer than 1048576 bytes");
}

TEST(JobPlayerFiles, PlayerCanBeUsedAgain) {
    RecordingGenerator first;
    VRKJobPlayer player(first);
    std::istringstream bad("Begin\nOops\n");
    EXPECT_FALSE(player.Play(bad, "a", ""));
    std::istringstream good("Begin\nEnd\n");
    EXPECT_TRUE(player.Play(good, "b", ""));
    EXPECT_EQ(player.GetError().message, "");
}

// A stream of `lines` MoveTo lines between Begin and End, made as it is read, that counts the
// bytes handed out so far.
class GeneratedJob : public std::streambuf {
  public:
    explicit GeneratedJob(long lines) : lines_(lines) {}
    long long handedOut = 0;

  protected:
    int_type underflow() override {
        if (next_ > lines_ + 1) {
            return traits_type::eof();
        }
        current_ = next_ == 0       ? "Begin\n"
                   : next_ > lines_ ? "End\n"
                                    : "MoveTo " + std::to_string(next_) + " " +
                                          std::to_string(next_ % 100) + "\n";
        ++next_;
        handedOut += static_cast<long long>(current_.size());
        setg(current_.data(), current_.data(), current_.data() + current_.size());
        return traits_type::to_int_type(current_[0]);
    }

  private:
    long lines_;
    long next_ = 0;
    std::string current_;
};

// Records how much of the job had been read when each call arrived.
class ProgressGenerator final : public VRKPrintGenerator {
  public:
    explicit ProgressGenerator(const GeneratedJob& job)
        : VRKPrintGenerator("Progress"), job_(job) {}
    long long readAtFirstMove = -1;
    long moves = 0;

  protected:
    void DrvMoveTo(float, float) override {
        if (moves++ == 0) {
            readAtFirstMove = job_.handedOut;
        }
    }

  private:
    const GeneratedJob& job_;
};

TEST(JobPlayerFiles, PlayerStreamsLineByLine) {
    // Half a million lines, some 7 MB: the first call arrives after the first lines were read,
    // not after the whole job.
    constexpr long kLines = 500000;
    GeneratedJob job(kLines);
    std::istream in(&job);
    ProgressGenerator generator(job);
    VRKJobPlayer player(generator);
    ASSERT_TRUE(player.Play(in, "generated", "")) << player.GetError().ToString();
    EXPECT_EQ(generator.moves, kLines);
    EXPECT_GT(generator.readAtFirstMove, 0);
    EXPECT_LT(generator.readAtFirstMove, 100);
    EXPECT_GT(job.handedOut, 7000000);
}

TEST(JobPlayerFiles, NumbersDoNotDependOnTheLocale) {
    const std::string& locales = CommaLocaleFolder();
    ASSERT_FALSE(locales.empty()) << "localedef could not build " << kCommaLocale
                                  << " (Debian package locales)";
    ::setenv("LOCPATH", locales.c_str(), 1);
    const std::string saved = std::setlocale(LC_ALL, nullptr);
    ASSERT_NE(std::setlocale(LC_ALL, kCommaLocale), nullptr);
    ASSERT_STREQ(std::localeconv()->decimal_point, ",");
    const std::string result =
        play("Begin width=210.5 margins=1.5,0,0,0\nMoveTo 1.25 -0.5e1\nEnd\n");
    const std::string comma = errorOfLine("MoveTo 1,25 2");
    std::setlocale(LC_ALL, saved.c_str());
    EXPECT_EQ(result, "Begin w=210.5 h=297 o=1 r=0 c=0 m=1.5,0,0,0 t=0\nMoveTo 1.25 -5\nEnd\n");
    EXPECT_EQ(comma, "JOB:2: MoveTo: '1,25' is not a number");
}

}  // namespace

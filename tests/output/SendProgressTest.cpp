// The progress line of a send: its text, and when it is drawn.

#include <fcntl.h>
#include <poll.h>
#include <stdlib.h>
#include <termios.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <chrono>
#include <string>

#include "host/output/VRKSendProgress.h"

namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

TEST(SendProgress, Sizes) {
    EXPECT_EQ(VRKSendProgress::FormatSize(0), "0 bytes");
    EXPECT_EQ(VRKSendProgress::FormatSize(1), "1 byte");
    EXPECT_EQ(VRKSendProgress::FormatSize(999), "999 bytes");
    EXPECT_EQ(VRKSendProgress::FormatSize(1000), "1 KB");
    EXPECT_EQ(VRKSendProgress::FormatSize(410999), "410 KB");
    EXPECT_EQ(VRKSendProgress::FormatSize(999999), "999 KB");
    EXPECT_EQ(VRKSendProgress::FormatSize(1000000), "1.0 MB");
    EXPECT_EQ(VRKSendProgress::FormatSize(1299999), "1.2 MB");
    EXPECT_EQ(VRKSendProgress::FormatSize(5000000), "5.0 MB");
    EXPECT_EQ(VRKSendProgress::FormatSize(999999999), "999.9 MB");
    EXPECT_EQ(VRKSendProgress::FormatSize(1000000000), "1.0 GB");
    EXPECT_EQ(VRKSendProgress::FormatSize(12345678901), "12.3 GB");
}

TEST(SendProgress, Lines) {
    EXPECT_EQ(VRKSendProgress::FormatLine(1200000, 5000000, 410000),
              "sent 1.2 MB of 5.0 MB, 410 KB/s");
    EXPECT_EQ(VRKSendProgress::FormatLine(1200000, 0, 410000), "sent 1.2 MB, 410 KB/s");
    EXPECT_EQ(VRKSendProgress::FormatLine(512, 0, 0), "sent 512 bytes, 0 bytes/s");
    EXPECT_EQ(VRKSendProgress::FormatLine(3000000000, 3000000000, 2500000.7),
              "sent 3.0 GB of 3.0 GB, 2.5 MB/s");
}

// A terminal to draw on (its master side to read what was drawn), set raw so that the bytes come
// through as they are, and a clock the test moves.
class ProgressOnTerminal : public testing::Test {
  protected:
    void SetUp() override {
        master_ = ::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
        ASSERT_GE(master_, 0);
        ASSERT_EQ(::grantpt(master_), 0);
        ASSERT_EQ(::unlockpt(master_), 0);
        terminal_ = ::open(::ptsname(master_), O_RDWR | O_NOCTTY | O_CLOEXEC);
        ASSERT_GE(terminal_, 0);
        termios settings{};
        ::tcgetattr(terminal_, &settings);
        ::cfmakeraw(&settings);
        ::tcsetattr(terminal_, TCSANOW, &settings);
    }
    void TearDown() override {
        ::close(terminal_);
        ::close(master_);
    }

    // What was drawn since the last call.
    std::string Drawn() {
        std::string text;
        pollfd waiting{master_, POLLIN, 0};
        while (::poll(&waiting, 1, 50) > 0) {
            char buffer[1024];
            const ssize_t n = ::read(master_, buffer, sizeof buffer);
            if (n <= 0) {
                break;
            }
            text.append(buffer, static_cast<std::size_t>(n));
        }
        return text;
    }

    VRKSendProgress::Clock Clock() {
        return [this] { return now_; };
    }

    int master_ = -1;
    int terminal_ = -1;
    steady_clock::time_point now_{};
};

TEST_F(ProgressOnTerminal, DrawnAfterASecondAtMostFourTimesASecond) {
    VRKSendProgress progress(5000000, terminal_, Clock());
    now_ += milliseconds(500);
    progress.Update(500000);
    EXPECT_EQ(Drawn(), "");
    now_ += milliseconds(500);
    progress.Update(990000);
    EXPECT_EQ(Drawn(), "");
    now_ += milliseconds(1);
    progress.Update(1000000);
    EXPECT_EQ(Drawn(), "\rsent 1.0 MB of 5.0 MB, 999 KB/s\x1b[K");
    now_ += milliseconds(200);
    progress.Update(1200000);
    EXPECT_EQ(Drawn(), "");
    now_ += milliseconds(48);
    progress.Update(1250000);
    EXPECT_EQ(Drawn(), "");
    now_ += milliseconds(1251);
    progress.Update(2500000);
    EXPECT_EQ(Drawn(), "\rsent 2.5 MB of 5.0 MB, 1.0 MB/s\x1b[K");
    now_ += milliseconds(100);
    progress.Update(2600000);
    EXPECT_EQ(Drawn(), "");
    // Finish draws the last state, drawn or not, and ends the line.
    now_ += milliseconds(100);
    progress.Update(5000000);
    progress.Finish();
    EXPECT_EQ(Drawn(), "\rsent 5.0 MB of 5.0 MB, 1.8 MB/s\x1b[K\n");
    now_ += milliseconds(1000);
    progress.Update(5000000);
    progress.Finish();
    EXPECT_EQ(Drawn(), "");
}

TEST_F(ProgressOnTerminal, AShortSendDrawsNothing) {
    {
        VRKSendProgress progress(0, terminal_, Clock());
        now_ += milliseconds(900);
        progress.Update(100);
        progress.Finish();
    }
    EXPECT_EQ(Drawn(), "");
}

TEST_F(ProgressOnTerminal, AnUnfinishedLineIsEndedWhenTheProgressGoes) {
    {
        VRKSendProgress progress(0, terminal_, Clock());
        now_ += milliseconds(2000);
        progress.Update(4000);
    }
    EXPECT_EQ(Drawn(), "\rsent 4 KB, 2 KB/s\x1b[K\n");
}

TEST(SendProgress, NothingIsDrawnOnWhatIsNotATerminal) {
    int ends[2];
    ASSERT_EQ(::pipe2(ends, O_NONBLOCK | O_CLOEXEC), 0);
    steady_clock::time_point now{};
    {
        VRKSendProgress progress(1000, ends[1], [&] { return now; });
        now += milliseconds(5000);
        progress.Update(500);
        progress.Finish();
    }
    char byte;
    EXPECT_EQ(::read(ends[0], &byte, 1), -1);
    ::close(ends[0]);
    ::close(ends[1]);
}

}  // namespace

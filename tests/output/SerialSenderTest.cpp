// Serial lines, over a pseudo-terminal: the sender writes the terminal's side, the test plays
// the plotter on the master side.

#include <fcntl.h>
#include <poll.h>
#include <stdlib.h>
#include <termios.h>
#include <unistd.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <thread>

#include "host/output/VRKSender.h"
#include "host/output/VRKSerialSender.h"
#include "tests/output/SenderTestSupport.h"
#include "tests/support/PseudoTerminal.h"

namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr char kXoff = 0x13;
constexpr char kXon = 0x11;

std::unique_ptr<VRKSender> SerialSender(const std::string& text, double timeoutSeconds = 0) {
    VRKDestination destination;
    std::string error;
    EXPECT_TRUE(VRKDestination::Parse(text, destination, error)) << error;
    VRKSendOptions options;
    options.timeoutSeconds = timeoutSeconds;
    auto sender = VRKSender::Create(destination, options);
    EXPECT_NE(dynamic_cast<VRKSerialSender*>(sender.get()), nullptr);
    return sender;
}

TEST(SerialSender, XoffHoldsTheLineAndXonLetsItGoOn) {
    PseudoTerminal line;
    ASSERT_FALSE(line.Terminal().empty());
    const std::string plot = VariedBytes(400 * 1000);
    const auto sender = SerialSender("serial:" + line.Terminal() + "?baud=9600&flow=xonxoff");
    std::string error = "not finished";
    std::thread sending([&] { error = SendAll(*sender, plot, 50000); });

    std::string received;
    line.ReadUntil(20000, milliseconds(10000), received);
    ASSERT_GE(received.size(), 20000u);
    ASSERT_EQ(::write(line.Master(), &kXoff, 1), 1);
    // What was under way when XOFF came still arrives; after that, nothing.
    line.ReadFor(milliseconds(200), received);
    const std::size_t held = received.size();
    EXPECT_EQ(line.ReadFor(milliseconds(300), received), 0u);
    EXPECT_LT(held, plot.size());
    // The plotter talks meanwhile: the sender reads it and drops it.
    ASSERT_EQ(::write(line.Master(), "ESC.O", 5), 5);
    EXPECT_EQ(line.ReadFor(milliseconds(100), received), 0u);
    ASSERT_EQ(::write(line.Master(), &kXon, 1), 1);
    line.ReadUntil(plot.size(), milliseconds(20000), received);
    sending.join();
    EXPECT_EQ(error, "");
    EXPECT_EQ(received.size(), plot.size());
    EXPECT_TRUE(received == plot);
    // Nothing more comes.
    EXPECT_EQ(line.ReadFor(milliseconds(50), received), 0u);
}

TEST(SerialSender, TheLineIsSetRaw8N1AtItsSpeed) {
    PseudoTerminal line;
    const auto sender = SerialSender("serial:" + line.Terminal() + "?baud=19200&flow=rtscts");
    std::string error;
    ASSERT_TRUE(sender->Open(error)) << error;
    const int terminal = ::open(line.Terminal().c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    ASSERT_GE(terminal, 0);
    termios settings{};
    ASSERT_EQ(::tcgetattr(terminal, &settings), 0);
    ::close(terminal);
    EXPECT_EQ(settings.c_cflag & CSIZE, static_cast<tcflag_t>(CS8));
    EXPECT_EQ(settings.c_cflag & (PARENB | CSTOPB), 0u);
    EXPECT_NE(settings.c_cflag & CLOCAL, 0u);
    EXPECT_NE(settings.c_cflag & CREAD, 0u);
    EXPECT_NE(settings.c_cflag & CRTSCTS, 0u);
    EXPECT_EQ(settings.c_iflag & (IXON | IXOFF | IXANY), 0u);
    EXPECT_EQ(settings.c_lflag & (ICANON | ECHO | ISIG), 0u);
    EXPECT_EQ(settings.c_oflag & OPOST, 0u);
    EXPECT_EQ(::cfgetospeed(&settings), static_cast<speed_t>(B19200));
    EXPECT_EQ(::cfgetispeed(&settings), static_cast<speed_t>(B19200));
    // Raw: a line end and the control characters go as they are.
    const std::string bytes("PA\n\r\x03\x04\x13\x11\x1a\xff", 10);
    ASSERT_TRUE(sender->Send(bytes.data(), bytes.size(), error)) << error;
    ASSERT_TRUE(sender->Finish(error)) << error;
    std::string received;
    line.ReadUntil(bytes.size(), milliseconds(5000), received);
    EXPECT_EQ(received, bytes);
}

TEST(SerialSender, FlowNoneSetsNeitherFlowControl) {
    PseudoTerminal line;
    const auto sender = SerialSender("serial:" + line.Terminal() + "?flow=none&baud=115200");
    std::string error;
    ASSERT_TRUE(sender->Open(error)) << error;
    const int terminal = ::open(line.Terminal().c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    termios settings{};
    ASSERT_EQ(::tcgetattr(terminal, &settings), 0);
    ::close(terminal);
    EXPECT_EQ(settings.c_cflag & CRTSCTS, 0u);
    EXPECT_EQ(settings.c_iflag & (IXON | IXOFF | IXANY), 0u);
    EXPECT_EQ(::cfgetospeed(&settings), static_cast<speed_t>(B115200));
    sender->Abort();
}

TEST(SerialSender, AHeldLineFailsAfterTheTimeout) {
    PseudoTerminal line;
    const auto sender = SerialSender("serial:" + line.Terminal(), 1);
    std::string error;
    ASSERT_TRUE(sender->Open(error)) << error;
    ASSERT_EQ(::write(line.Master(), &kXoff, 1), 1);
    std::this_thread::sleep_for(milliseconds(100));
    const std::string plot = VariedBytes(200000);
    const auto start = steady_clock::now();
    EXPECT_FALSE(sender->Send(plot.data(), plot.size(), error));
    const double seconds = std::chrono::duration<double>(steady_clock::now() - start).count();
    EXPECT_EQ(error, "the plotter stopped taking data: nothing was taken for 1 second");
    EXPECT_GE(seconds, 1);
    EXPECT_LT(seconds, 4);
}

TEST(SerialSender, ANonTerminalIsNotASerialLine) {
    const auto sender = SerialSender("serial:/dev/null");
    std::string error;
    EXPECT_FALSE(sender->Open(error));
    EXPECT_EQ(error, "/dev/null is not a serial line (not a terminal device)");
}

TEST(SerialSender, AMissingDeviceSaysSo) {
    const auto sender = SerialSender("serial:/dev/no-such-line");
    std::string error;
    EXPECT_FALSE(sender->Open(error));
    EXPECT_EQ(error, "No such file or directory");
}

}  // namespace

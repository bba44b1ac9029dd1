#include "host/output/VRKSerialSender.h"

#include <fcntl.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "host/output/VRKSerialSpeeds.h"

namespace {

ssize_t WriteToLine(int fd, const void* data, std::size_t size) {
    return ::write(fd, data, size);
}

// What the kernel has not sent down the line yet.
bool QueuedOnLine(int fd, int& queued, std::string& reason) {
    if (::ioctl(fd, TIOCOUTQ, &queued) != 0) {
        reason = std::strerror(errno);
        return false;
    }
    return true;
}

}  // namespace

VRKSerialSender::VRKSerialSender(std::string device, int baud, VRKDestination::Flow flow,
                                 VRKSendOptions options)
    : VRKDescriptorSender(
          // The line is full or stopped by XOFF while the plotter draws: what it sends meanwhile
          // is dropped. A line that cannot be read any more still may be written: the write says.
          VRKDescriptorWriter(
              WriteToLine, "plotter", "the line took no byte", "the line was hung up",
              VRKDescriptorWriter::UnreadableInput::kStopReading, options.timeoutSeconds),
          "the line is not open"),
      device_(std::move(device)),
      baud_(baud),
      flow_(flow),
      options_(std::move(options)) {}

VRKSerialSender::~VRKSerialSender() {
    Abort();
}

bool VRKSerialSender::Open(std::string& error) {
    Abort();
    writer_.Reset();
    do {
        fd_ = ::open(device_.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    } while (fd_ < 0 && errno == EINTR);
    if (fd_ < 0) {
        error = std::strerror(errno);
        return false;
    }
    if (!::isatty(fd_)) {
        return Fail(device_ + " is not a serial line (not a terminal device)", error);
    }
    return SetUpLine(error);
}

bool VRKSerialSender::SetUpLine(std::string& error) {
    speed_t speed;
    if (!VRKSerialSpeed(baud_, speed)) {
        return Fail(std::to_string(baud_) + " baud is not a standard speed of a serial line",
                    error);
    }
    termios line{};
    if (::tcgetattr(fd_, &line) != 0) {
        return Fail(std::string("cannot read the line's settings: ") + std::strerror(errno), error);
    }
    ::cfmakeraw(&line);
    line.c_cflag &= ~static_cast<tcflag_t>(CSIZE | PARENB | CSTOPB | CRTSCTS);
    line.c_cflag |= CS8 | CLOCAL | CREAD;
    line.c_iflag &= ~static_cast<tcflag_t>(IXON | IXOFF | IXANY);
    switch (flow_) {
        case VRKDestination::Flow::kXonXoff:
            // The kernel stops output on XOFF and only XON restarts it.
            line.c_iflag |= IXON;
            break;
        case VRKDestination::Flow::kRtsCts:
            line.c_cflag |= CRTSCTS;
            break;
        case VRKDestination::Flow::kNone:
            break;
    }
    line.c_cc[VMIN] = 1;
    line.c_cc[VTIME] = 0;
    if (::cfsetispeed(&line, speed) != 0 || ::cfsetospeed(&line, speed) != 0) {
        return Fail(
            "cannot set the line to " + std::to_string(baud_) + " baud: " + std::strerror(errno),
            error);
    }
    if (::tcsetattr(fd_, TCSANOW, &line) != 0) {
        return Fail(std::string("cannot set up the line: ") + std::strerror(errno), error);
    }
    // What the plotter sent before, at whatever speed, is not an answer to this plot.
    ::tcflush(fd_, TCIFLUSH);
    return true;
}

bool VRKSerialSender::Finish(std::string& error) {
    if (!CheckOpen(error) || !WaitUntilSent(QueuedOnLine, error)) {
        return false;
    }
    // close() waits for the last bytes to leave the UART.
    const int closed = ::close(fd_);
    fd_ = -1;
    if (closed != 0 && errno != EINTR) {
        error = std::strerror(errno);
        return false;
    }
    return true;
}

void VRKSerialSender::Abort() {
    if (fd_ < 0) {
        return;
    }
    ::tcflush(fd_, TCOFLUSH);
    ::close(fd_);
    fd_ = -1;
}

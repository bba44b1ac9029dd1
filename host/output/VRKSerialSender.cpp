#include "host/output/VRKSerialSender.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "host/output/VRKSendSupport.h"
#include "host/output/VRKSerialSpeeds.h"

namespace {

const char kWho[] = "plotter";

}  // namespace

VRKSerialSender::VRKSerialSender(std::string device, int baud, VRKDestination::Flow flow,
                                 VRKSendOptions options)
    : device_(std::move(device)), baud_(baud), flow_(flow), options_(std::move(options)) {}

VRKSerialSender::~VRKSerialSender() {
    Abort();
}

bool VRKSerialSender::Open(std::string& error) {
    Abort();
    inputEnded_ = false;
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

bool VRKSerialSender::Send(const char* data, std::size_t size, std::string& error) {
    if (fd_ < 0) {
        error = "the line is not open";
        return false;
    }
    VRKSendTimer timer(options_.timeoutSeconds);
    bool hungUp = false;
    while (size > 0) {
        const ssize_t written = ::write(fd_, data, size);
        if (written > 0) {
            data += written;
            size -= static_cast<std::size_t>(written);
            timer.Restart();
            continue;
        }
        if (written < 0 && errno == EINTR) {
            continue;
        }
        if (written == 0 || (errno != EAGAIN && errno != EWOULDBLOCK)) {
            return Fail(written == 0 ? "the line took no byte" : std::strerror(errno), error);
        }
        if (hungUp) {
            return Fail("the line was hung up", error);
        }
        // The line is full or stopped by XOFF: wait, reading what the plotter sends meanwhile.
        for (;;) {
            if (timer.Expired()) {
                return Fail(VRKStoppedTakingData(kWho, options_.timeoutSeconds), error);
            }
            pollfd waiting{fd_, static_cast<short>(POLLOUT | (inputEnded_ ? 0 : POLLIN)), 0};
            const int ready = ::poll(&waiting, 1, timer.PollMilliseconds());
            if (ready < 0) {
                if (errno == EINTR) {
                    continue;
                }
                return Fail(std::strerror(errno), error);
            }
            if (ready == 0) {
                continue;
            }
            if ((waiting.revents & POLLIN) != 0 && !VRKDiscardInput(fd_, inputEnded_)) {
                // A line that cannot be read any more still may be written: the write says.
                inputEnded_ = true;
            }
            if ((waiting.revents & (POLLOUT | POLLERR)) != 0) {
                break;
            }
            if ((waiting.revents & POLLHUP) != 0) {
                hungUp = true;
                break;
            }
        }
    }
    return true;
}

bool VRKSerialSender::Finish(std::string& error) {
    if (fd_ < 0) {
        error = "the line is not open";
        return false;
    }
    // Nothing tells when the kernel's output queue falls, so it is looked at again after a pause
    // that grows from 1 to 50 ms; the timeout starts again whenever it has fallen.
    VRKSendTimer timer(options_.timeoutSeconds);
    int lastQueued = -1;
    int pause = 1;
    for (;;) {
        int queued = 0;
        if (::ioctl(fd_, TIOCOUTQ, &queued) != 0) {
            return Fail(std::strerror(errno), error);
        }
        if (queued == 0) {
            break;
        }
        if (lastQueued >= 0 && queued < lastQueued) {
            timer.Restart();
        }
        lastQueued = queued;
        if (timer.Expired()) {
            return Fail(VRKStoppedTakingData(kWho, options_.timeoutSeconds), error);
        }
        pollfd waiting{fd_, POLLIN, 0};
        const int ready = ::poll(&waiting, inputEnded_ ? 0 : 1, timer.PollMilliseconds(pause));
        pause = std::min(pause * 2, 50);
        if (ready > 0) {
            if ((waiting.revents & POLLIN) == 0 || !VRKDiscardInput(fd_, inputEnded_)) {
                inputEnded_ = true;
            }
        }
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

bool VRKSerialSender::Fail(const std::string& reason, std::string& error) {
    error = reason;
    Abort();
    return false;
}

#include "host/output/VRKSendSupport.h"

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cmath>
#include <cstdio>

VRKSendTimer::VRKSendTimer(double timeoutSeconds)
    : timeoutSeconds_(timeoutSeconds), start_(std::chrono::steady_clock::now()) {}

void VRKSendTimer::Restart() {
    start_ = std::chrono::steady_clock::now();
}

bool VRKSendTimer::Expired() const {
    return timeoutSeconds_ > 0 && PollMilliseconds() == 0;
}

int VRKSendTimer::PollMilliseconds(int capMilliseconds) const {
    if (timeoutSeconds_ <= 0) {
        return capMilliseconds;
    }
    const std::chrono::duration<double, std::milli> elapsed =
        std::chrono::steady_clock::now() - start_;
    const double left = std::ceil(timeoutSeconds_ * 1000.0 - elapsed.count());
    int milliseconds = left <= 0 ? 0 : left >= INT_MAX ? INT_MAX : static_cast<int>(left);
    if (capMilliseconds >= 0 && milliseconds > capMilliseconds) {
        milliseconds = capMilliseconds;
    }
    return milliseconds;
}

std::string VRKDescribeSeconds(double seconds) {
    char number[32];
    std::snprintf(number, sizeof number, "%g", seconds);
    return std::string(number) + (seconds == 1 ? " second" : " seconds");
}

std::string VRKStoppedTakingData(const std::string& who, double timeoutSeconds) {
    return "the " + who + " stopped taking data: nothing was taken for " +
           VRKDescribeSeconds(timeoutSeconds);
}

ssize_t VRKWriteWithoutSigPipe(int fd, const void* data, std::size_t size) {
    sigset_t pipeSignal, oldMask, pending;
    sigemptyset(&pipeSignal);
    sigaddset(&pipeSignal, SIGPIPE);
    // A SIGPIPE pending before the write is someone else's and stays pending.
    sigemptyset(&pending);
    sigpending(&pending);
    const bool wasPending = sigismember(&pending, SIGPIPE) == 1;
    pthread_sigmask(SIG_BLOCK, &pipeSignal, &oldMask);
    const ssize_t written = ::write(fd, data, size);
    const int writeError = errno;
    // The signal the write raised, if the process does not ignore it, is taken off here. A write
    // cut short by the reader's leaving raises it too, though it returns what it wrote.
    if (!wasPending) {
        sigemptyset(&pending);
        sigpending(&pending);
        if (sigismember(&pending, SIGPIPE) == 1) {
            const timespec noWait{0, 0};
            while (sigtimedwait(&pipeSignal, nullptr, &noWait) < 0 && errno == EINTR) {
            }
        }
    }
    pthread_sigmask(SIG_SETMASK, &oldMask, nullptr);
    errno = writeError;
    return written;
}

VRKWriteProgress VRKWriteWhatFits(int fd, const char*& data, std::size_t& size, VRKSendTimer& timer,
                                  VRKWriteCall write) {
    while (size > 0) {
        const ssize_t written = write(fd, data, size);
        if (written > 0) {
            data += written;
            size -= static_cast<std::size_t>(written);
            timer.Restart();
            continue;
        }
        if (written == 0) {
            return VRKWriteProgress::kTookNothing;
        }
        if (errno == EINTR) {
            continue;
        }
        return errno == EAGAIN || errno == EWOULDBLOCK ? VRKWriteProgress::kFull
                                                       : VRKWriteProgress::kFailed;
    }
    return VRKWriteProgress::kAllWritten;
}

bool VRKSetNonBlocking(int fd) {
    const int flags = ::fcntl(fd, F_GETFL);
    return flags >= 0 && ::fcntl(fd, F_SETFL, flags | O_NONBLOCK) == 0;
}

bool VRKDiscardInput(int fd, bool& eof) {
    char buffer[16384];
    // A bounded number of reads, so that a far end that talks without pause cannot hold the
    // caller here.
    for (int round = 0; round < 16; ++round) {
        const ssize_t got = ::read(fd, buffer, sizeof buffer);
        if (got > 0) {
            continue;
        }
        if (got == 0) {
            eof = true;
            return false;
        }
        if (errno == EINTR) {
            continue;
        }
        return errno == EAGAIN || errno == EWOULDBLOCK;
    }
    return true;
}

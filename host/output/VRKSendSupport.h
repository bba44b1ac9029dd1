#pragma once

#include <sys/types.h>

#include <chrono>
#include <cstddef>
#include <string>

// What the senders share: the clock of their timeouts, the wording of a span of seconds, a write
// that a reader gone away cannot turn into a SIGPIPE, and the writing of what a non-blocking
// descriptor takes now. Not part of the library's interface.

// The timeout of a send: a span of `timeoutSeconds` (0: for ever) that starts again whenever the
// far end takes a byte (Restart).
class VRKSendTimer {
  public:
    explicit VRKSendTimer(double timeoutSeconds);

    void Restart();
    bool Expired() const;
    // How long poll() may wait: the milliseconds left of the span (rounded up, 0 when it is over,
    // -1 for ever), and no more than `capMilliseconds` when that is 0 or more.
    int PollMilliseconds(int capMilliseconds = -1) const;

  private:
    double timeoutSeconds_;
    std::chrono::steady_clock::time_point start_;
};

// "1 second", "30 seconds", "0.5 seconds".
std::string VRKDescribeSeconds(double seconds);

// "the printer stopped taking data: nothing was taken for 30 seconds", with `who` for "printer".
std::string VRKStoppedTakingData(const std::string& who, double timeoutSeconds);

// write(), except that writing to a pipe or FIFO without a reader neither kills the process with
// SIGPIPE nor leaves one pending when the signal is caught: it fails with EPIPE, whatever the
// process does with SIGPIPE. SIGPIPE is blocked for the calling thread during the write only.
ssize_t VRKWriteWithoutSigPipe(int fd, const void* data, std::size_t size);

// A write that does not block, called as write() is: write() itself, send() with its flags, or
// VRKWriteWithoutSigPipe.
using VRKWriteCall = ssize_t (*)(int fd, const void* data, std::size_t size);

// Where VRKWriteWhatFits stopped.
enum class VRKWriteProgress {
    // Every byte was taken.
    kAllWritten,
    // The descriptor takes no more now (EAGAIN): the rest waits for room.
    kFull,
    // A write took no byte and gave no error.
    kTookNothing,
    // A write failed: errno says why.
    kFailed,
};

// Writes `data` to the non-blocking `fd` with `write` for as long as it takes bytes, moving `data`
// and `size` past what was taken and starting `timer` again each time it takes some; a write
// interrupted by a signal is made again.
VRKWriteProgress VRKWriteWhatFits(int fd, const char*& data, std::size_t& size, VRKSendTimer& timer,
                                  VRKWriteCall write);

// Sets O_NONBLOCK on `fd`; false with errno when it cannot.
bool VRKSetNonBlocking(int fd);

// Reads and drops whatever `fd` (non-blocking) has to read now. False when it has come to its end
// (read gave 0: `eof` set) or failed (errno set, `eof` left); true otherwise.
bool VRKDiscardInput(int fd, bool& eof);

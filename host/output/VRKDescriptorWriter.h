#pragma once

#include <cstddef>
#include <string>

#include "host/output/VRKSendSupport.h"

// Writes a plot to a non-blocking descriptor whose far end talks back: a printer's TCP connection,
// a plotter's serial line. While the descriptor is full, what the far end sends is read and
// dropped, so that it never stops for want of a reader of its answers; after the plot, the wait
// for the kernel to have sent it all reads and drops it too. Either fails when the far end takes
// no byte for the timeout (0: for ever). A failure comes back as the reason alone; the descriptor
// is the caller's to open, to close and to abort.
class VRKDescriptorWriter {
  public:
    // What becomes of the far end's input when reading it fails (its end is always taken quietly:
    // it is not read any more).
    enum class UnreadableInput {
        // It is not read any more, and the plot goes on: the writes and the kernel's queue say
        // whether the far end still takes it. While the queue empties, a hang-up or an error that
        // poll() reports without data ends its reading too, and a failing poll() is passed over.
        kStopReading,
        // The plot fails with the read's error. While the queue empties, a hang-up or an error
        // that poll() reports without data is left to the next count of the queue, after a
        // pause, and a failing poll() fails the plot.
        kFail,
    };

    // The number of bytes the kernel still holds for the far end, in `queued`; false with
    // `reason` when it cannot be counted or the far end is known not to take them.
    using QueueCount = bool (*)(int fd, int& queued, std::string& reason);

    // `who` names the far end in the timeout's message ("printer"); `tookNoByte` is the reason
    // when a write takes nothing ("the connection took no byte"), `hungUp` when the far end has
    // hung up and the descriptor takes no more ("the line was hung up").
    VRKDescriptorWriter(VRKWriteCall write, std::string who, std::string tookNoByte,
                        std::string hungUp, UnreadableInput unreadableInput, double timeoutSeconds);

    // For a newly opened descriptor: its far end's input is read again.
    void Reset() { inputEnded_ = false; }

    // Writes all `size` bytes to `fd`; the timeout starts again whenever the far end takes a byte.
    bool Write(int fd, const char* data, std::size_t size, std::string& reason);

    // Waits until `count` finds nothing left in the kernel's queue of `fd`. Nothing tells when
    // the queue falls, so it is counted again after a pause that grows from 1 to 50 ms; the
    // timeout starts again whenever it has fallen.
    bool WaitUntilSent(int fd, QueueCount count, std::string& reason);

  private:
    // Waits until `fd` takes more (or reports an error, which the next write gives), reading
    // what the far end sends meanwhile; `hungUp` set when the far end has hung up.
    bool WaitForRoom(int fd, const VRKSendTimer& timer, bool& hungUp, std::string& reason);
    // After reading the far end's input failed (or came to its end): whether the plot goes on.
    bool GoOnWithoutInput(std::string& reason);

    VRKWriteCall write_;
    std::string who_;
    std::string tookNoByte_;
    std::string hungUp_;
    UnreadableInput unreadableInput_;
    double timeoutSeconds_;
    // The far end has nothing more to read (its end, or its input could not be read).
    bool inputEnded_ = false;
};

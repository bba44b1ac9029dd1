#include "host/output/VRKDescriptorWriter.h"

#include <poll.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

VRKDescriptorWriter::VRKDescriptorWriter(VRKWriteCall write, std::string who,
                                         std::string tookNoByte, std::string hungUp,
                                         UnreadableInput unreadableInput, double timeoutSeconds)
    : write_(write),
      who_(std::move(who)),
      tookNoByte_(std::move(tookNoByte)),
      hungUp_(std::move(hungUp)),
      unreadableInput_(unreadableInput),
      timeoutSeconds_(timeoutSeconds) {}

bool VRKDescriptorWriter::Write(int fd, const char* data, std::size_t size, std::string& reason) {
    VRKSendTimer timer(timeoutSeconds_);
    bool hungUp = false;
    for (;;) {
        switch (VRKWriteWhatFits(fd, data, size, timer, write_)) {
            case VRKWriteProgress::kAllWritten:
                return true;
            case VRKWriteProgress::kTookNothing:
                reason = tookNoByte_;
                return false;
            case VRKWriteProgress::kFailed:
                reason = std::strerror(errno);
                return false;
            case VRKWriteProgress::kFull:
                break;
        }
        if (hungUp) {
            reason = hungUp_;
            return false;
        }
        if (!WaitForRoom(fd, timer, hungUp, reason)) {
            return false;
        }
    }
}

bool VRKDescriptorWriter::WaitForRoom(int fd, const VRKSendTimer& timer, bool& hungUp,
                                      std::string& reason) {
    for (;;) {
        if (timer.Expired()) {
            reason = VRKStoppedTakingData(who_, timeoutSeconds_);
            return false;
        }
        pollfd waiting{fd, static_cast<short>(POLLOUT | (inputEnded_ ? 0 : POLLIN)), 0};
        const int ready = ::poll(&waiting, 1, timer.PollMilliseconds());
        if (ready < 0) {
            if (errno == EINTR) {
                continue;
            }
            reason = std::strerror(errno);
            return false;
        }
        if (ready == 0) {
            continue;
        }
        if ((waiting.revents & POLLIN) != 0 && !VRKDiscardInput(fd, inputEnded_) &&
            !GoOnWithoutInput(reason)) {
            return false;
        }
        if ((waiting.revents & (POLLOUT | POLLERR)) != 0) {
            return true;
        }
        if ((waiting.revents & POLLHUP) != 0) {
            // The next write says why, or this was the end.
            hungUp = true;
            return true;
        }
    }
}

bool VRKDescriptorWriter::WaitUntilSent(int fd, QueueCount count, std::string& reason) {
    VRKSendTimer timer(timeoutSeconds_);
    int lastQueued = -1;
    int pause = 1;
    for (;;) {
        int queued = 0;
        if (!count(fd, queued, reason)) {
            return false;
        }
        if (queued == 0) {
            return true;
        }
        if (lastQueued >= 0 && queued < lastQueued) {
            timer.Restart();
        }
        lastQueued = queued;
        if (timer.Expired()) {
            reason = VRKStoppedTakingData(who_, timeoutSeconds_);
            return false;
        }
        pollfd waiting{fd, static_cast<short>(inputEnded_ ? 0 : POLLIN), 0};
        const int ready = ::poll(&waiting, inputEnded_ ? 0 : 1, timer.PollMilliseconds(pause));
        pause = std::min(pause * 2, 50);
        if (ready < 0 && errno != EINTR && unreadableInput_ == UnreadableInput::kFail) {
            reason = std::strerror(errno);
            return false;
        }
        if (ready <= 0) {
            continue;
        }
        if ((waiting.revents & POLLIN) != 0) {
            if (!VRKDiscardInput(fd, inputEnded_) && !GoOnWithoutInput(reason)) {
                return false;
            }
        } else if (unreadableInput_ == UnreadableInput::kStopReading) {
            inputEnded_ = true;
        } else {
            // An error or a hang-up without data: looked at on the next count; meanwhile poll()
            // would return at once.
            ::poll(nullptr, 0, pause);
        }
    }
}

bool VRKDescriptorWriter::GoOnWithoutInput(std::string& reason) {
    if (inputEnded_) {
        return true;
    }
    if (unreadableInput_ == UnreadableInput::kFail) {
        reason = std::strerror(errno);
        return false;
    }
    inputEnded_ = true;
    return true;
}

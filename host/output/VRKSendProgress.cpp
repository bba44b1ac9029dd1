#include "host/output/VRKSendProgress.h"

#include <unistd.h>

#include <cerrno>
#include <cstdio>

namespace {

using std::chrono::milliseconds;

// The line appears after a second of sending, then changes at most four times a second.
constexpr milliseconds kQuietStart{1000};
constexpr milliseconds kRedrawInterval{250};

void WriteAll(int fd, const std::string& text) {
    const char* data = text.data();
    std::size_t size = text.size();
    while (size > 0) {
        const ssize_t written = ::write(fd, data, size);
        if (written < 0 && errno == EINTR) {
            continue;
        }
        if (written <= 0) {
            return;
        }
        data += written;
        size -= static_cast<std::size_t>(written);
    }
}

}  // namespace

VRKSendProgress::VRKSendProgress(std::uint64_t total, int fd)
    : VRKSendProgress(total, fd, [] { return std::chrono::steady_clock::now(); }) {}

VRKSendProgress::VRKSendProgress(std::uint64_t total, int fd, Clock clock)
    : clock_(std::move(clock)),
      total_(total),
      fd_(fd),
      terminal_(::isatty(fd) == 1),
      start_(clock_()),
      lastDrawn_(start_) {}

VRKSendProgress::~VRKSendProgress() {
    // A line left unended would have the next message written after it.
    if (drawn_) {
        WriteAll(fd_, "\n");
    }
}

void VRKSendProgress::Update(std::uint64_t sent) {
    sent_ = sent;
    if (!terminal_ || finished_) {
        return;
    }
    const auto now = clock_();
    if (now - start_ <= kQuietStart || (drawn_ && now - lastDrawn_ < kRedrawInterval)) {
        return;
    }
    Draw(now);
}

void VRKSendProgress::Finish() {
    finished_ = true;
    if (!drawn_) {
        return;
    }
    Draw(clock_());
    WriteAll(fd_, "\n");
    drawn_ = false;
}

void VRKSendProgress::Draw(std::chrono::steady_clock::time_point now) {
    const std::chrono::duration<double> elapsed = now - start_;
    const double rate = elapsed.count() > 0 ? static_cast<double>(sent_) / elapsed.count() : 0;
    WriteAll(fd_, "\r" + FormatLine(sent_, total_, rate) + "\x1b[K");
    drawn_ = true;
    lastDrawn_ = now;
}

std::string VRKSendProgress::FormatLine(std::uint64_t sent, std::uint64_t total,
                                        double bytesPerSecond) {
    std::string line = "sent " + FormatSize(sent);
    if (total > 0) {
        line += " of " + FormatSize(total);
    }
    const std::uint64_t rate = bytesPerSecond > 0 ? static_cast<std::uint64_t>(bytesPerSecond) : 0;
    return line + ", " + FormatSize(rate) + "/s";
}

std::string VRKSendProgress::FormatSize(std::uint64_t bytes) {
    if (bytes == 1) {
        return "1 byte";
    }
    if (bytes < 1000) {
        return std::to_string(bytes) + " bytes";
    }
    if (bytes < 1000000) {
        return std::to_string(bytes / 1000) + " KB";
    }
    // Tenths of the unit, cut down.
    const bool giga = bytes >= 1000000000;
    const std::uint64_t tenths = bytes / (giga ? 100000000 : 100000);
    return std::to_string(tenths / 10) + "." + std::to_string(tenths % 10) + (giga ? " GB" : " MB");
}

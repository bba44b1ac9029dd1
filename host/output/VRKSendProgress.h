#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

// The progress line of a send on standard error: "sent 1.2 MB of 5.0 MB, 410 KB/s". Shown only
// while the send lasts longer than a second and only when the descriptor is a terminal; redrawn
// a few times a second, in place, and ended with a line break by Finish().
class VRKSendProgress {
  public:
    using Clock = std::function<std::chrono::steady_clock::time_point()>;

    // `total` is 0 when the size is not known (a plot sent while it is made).
    explicit VRKSendProgress(std::uint64_t total, int fd = 2);
    // The same with the caller's clock instead of the steady clock (for tests).
    VRKSendProgress(std::uint64_t total, int fd, Clock clock);
    ~VRKSendProgress();
    VRKSendProgress(const VRKSendProgress&) = delete;
    VRKSendProgress& operator=(const VRKSendProgress&) = delete;

    // `sent` bytes have gone so far.
    void Update(std::uint64_t sent);
    // Ends the line when one was drawn: draws the last state and a line break. Nothing is drawn
    // after it.
    void Finish();

    // The line's text: "sent 1.2 MB of 5.0 MB, 410 KB/s", or "sent 1.2 MB, 410 KB/s" when `total`
    // is 0.
    static std::string FormatLine(std::uint64_t sent, std::uint64_t total, double bytesPerSecond);
    // A size in decimal units, cut down, never rounded up: "1 byte", "999 bytes", "410 KB",
    // "1.2 MB", "3.0 GB".
    static std::string FormatSize(std::uint64_t bytes);

  private:
    void Draw(std::chrono::steady_clock::time_point now);

    Clock clock_;
    std::uint64_t total_;
    std::uint64_t sent_ = 0;
    int fd_;
    bool terminal_;
    // A line is on the screen, not ended yet.
    bool drawn_ = false;
    bool finished_ = false;
    std::chrono::steady_clock::time_point start_;
    std::chrono::steady_clock::time_point lastDrawn_;
};

#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>

// The progress line of a send on standard error: "sent 1.2 MB of 5.0 MB, 410 KB/s". Shown only
// while the send lasts longer than a second and only when the descriptor is a terminal; redrawn
// a few times a second, in place, and ended with a line break by Finish().
class VRKSendProgress {
  public:
    // `total` is 0 when the size is not known (a plot sent while it is made).
    explicit VRKSendProgress(std::uint64_t total, int fd = 2);
    ~VRKSendProgress();
    VRKSendProgress(const VRKSendProgress&) = delete;
    VRKSendProgress& operator=(const VRKSendProgress&) = delete;

    // `sent` bytes have gone so far.
    void Update(std::uint64_t sent);
    // Ends the line when one was drawn.
    void Finish();

  private:
    // ...
};

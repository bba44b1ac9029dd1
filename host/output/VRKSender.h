#pragma once

#include <cstddef>
#include <memory>
#include <string>

#include "host/output/VRKDestination.h"
#include "host/output/VRKSendOptions.h"

// Sends a plot's bytes to a destination that takes them as they come: a character device, a FIFO,
// a socket file, standard output, a printer's TCP port, the spooler or a serial line. Used as
//
//   Open, then Send as often as needed, then Finish (or Abort after a failure elsewhere).
//
// Every failure comes back as `error`: the reason alone ("cannot connect: Connection refused",
// "No space left on device"), which the caller puts after the destination's name. After a
// failure the sender is closed and only the destructor remains.
class VRKSender {
  public:
    virtual ~VRKSender() = default;

    // The sender for a destination: an in-place writer for kPath (which must name an existing
    // character device, FIFO or socket file) and kStandardOutput, and one of its own for each
    // other kind.
    static std::unique_ptr<VRKSender> Create(const VRKDestination& destination,
                                             const VRKSendOptions& options);

    // Opens the device, the connection, the spooler's process or the line.
    virtual bool Open(std::string& error) = 0;
    // Sends all `size` bytes, or fails.
    virtual bool Send(const char* data, std::size_t size, std::string& error) = 0;
    // Waits until what was sent has left (within the timeout) and closes. For the spooler, waits
    // for lp and fails with its message when it fails.
    virtual bool Finish(std::string& error) = 0;
    // Closes at once, dropping what has not left; for the spooler, the job is not submitted.
    virtual void Abort() = 0;

    // What the destination said on taking the plot, after Finish(): the spooler's request line
    // ("request id is plotroom-12 (1 file(s))"); empty for destinations that say nothing.
    virtual std::string GetReceipt() const { return std::string(); }
};

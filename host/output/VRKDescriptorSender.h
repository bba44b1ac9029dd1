#pragma once

#include <cstddef>
#include <string>

#include "host/output/VRKDescriptorWriter.h"
#include "host/output/VRKSender.h"

// What the senders over one non-blocking descriptor whose far end talks back share (a printer's
// TCP connection, a plotter's serial line): the descriptor, the writer that sends the plot down
// it, the sending itself, and the failure that closes the sender. A derived sender opens the
// descriptor, finishes and aborts in its own way. Not part of the library's interface.
class VRKDescriptorSender : public VRKSender {
  public:
    // Sends all `size` bytes through the writer; a failure aborts.
    bool Send(const char* data, std::size_t size, std::string& error) final;

  protected:
    // `notOpen` is the error of a call made while nothing is open ("the line is not open").
    VRKDescriptorSender(VRKDescriptorWriter writer, std::string notOpen);

    // True when the descriptor is open, else false with the error of a sender not open.
    bool CheckOpen(std::string& error) const;
    // Waits until `count` finds nothing left in the kernel's queue; a failure aborts.
    bool WaitUntilSent(VRKDescriptorWriter::QueueCount count, std::string& error);
    // `reason` as the error, after Abort(): the sender is closed. Always false.
    bool Fail(const std::string& reason, std::string& error);

    int fd_ = -1;
    VRKDescriptorWriter writer_;

  private:
    std::string notOpen_;
};

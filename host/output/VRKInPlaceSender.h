#pragma once

#include <string>

#include "host/output/VRKSender.h"

// Writes a plot in place to what a path names when it is not a regular file: a character device
// (a printer's port, /dev/usb/lp0), a FIFO, or a socket file (connected as an AF_UNIX stream);
// or to standard output. Nothing is created or truncated: a device is opened for writing as it
// is, and opening a FIFO waits until a reader opens it, as `cat > fifo` does. Writes wait as long
// as the device does; there is no timeout. Standard output is written and left open.
class VRKInPlaceSender final : public VRKSender {
  public:
    // `path` names the device, FIFO or socket file; "-" is standard output.
    explicit VRKInPlaceSender(std::string path);
    ~VRKInPlaceSender() override;

    bool Open(std::string& error) override;
    bool Send(const char* data, std::size_t size, std::string& error) override;
    bool Finish(std::string& error) override;
    void Abort() override;

  private:
    bool ConnectSocketFile(std::string& error);
    bool Fail(const std::string& reason, std::string& error);

    std::string path_;
    int fd_ = -1;
    bool ownsFd_ = false;
    bool isSocket_ = false;
};

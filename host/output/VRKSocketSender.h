#pragma once

#include <string>

#include "host/output/VRKDescriptorSender.h"
#include "host/output/VRKSendOptions.h"

// Sends a plot over raw TCP to a printer's port (socket://HOST:PORT, JetDirect's 9100 by
// default). Every address of the host is tried in turn, each for the options' timeout. A send
// fails when the printer takes no byte for the timeout; Finish closes the sending half and waits
// until the printer has acknowledged every byte, so that a plot that fails to arrive is reported,
// not left in the kernel's buffers. Whatever the printer sends back meanwhile is read and dropped.
class VRKSocketSender final : public VRKDescriptorSender {
  public:
    VRKSocketSender(std::string host, int port, VRKSendOptions options);
    ~VRKSocketSender() override;

    bool Open(std::string& error) override;
    bool Finish(std::string& error) override;
    // Resets the connection: what has not left is dropped.
    void Abort() override;

  private:
    // "printer:9100", "[::1]:9100".
    std::string HostAndPort() const;
    // Tries one address; the reason of its failure in `reason`.
    bool Connect(const struct addrinfo& address, std::string& reason);

    std::string host_;
    int port_;
    VRKSendOptions options_;
};

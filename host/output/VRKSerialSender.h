#pragma once

#include <string>

#include "host/output/VRKDescriptorSender.h"
#include "host/output/VRKDestination.h"
#include "host/output/VRKSendOptions.h"

// Sends a plot down a serial line (serial:DEVICE?baud=N&flow=F). The line is set raw, 8 data
// bits, no parity, 1 stop bit, receiver on, modem lines ignored, at the given speed both ways;
// flow control xonxoff lets the kernel stop and restart output on the plotter's XOFF and XON
// (output only: the plotter is never sent XOFF), rtscts uses the hardware lines, none neither.
// Input waiting on the line is dropped at the start, and whatever the plotter sends during the
// plot is read and dropped, so that its input never fills. A send fails when the line takes no
// byte for the timeout (0, for ever, is what a program gives a serial line: a plotter may hold
// XOFF as long as it draws); Finish waits, within the same timeout, until the kernel has sent
// every byte.
class VRKSerialSender final : public VRKDescriptorSender {
  public:
    VRKSerialSender(std::string device, int baud, VRKDestination::Flow flow,
                    VRKSendOptions options);
    ~VRKSerialSender() override;

    bool Open(std::string& error) override;
    bool Finish(std::string& error) override;
    // Drops what the kernel has not sent yet, and closes.
    void Abort() override;

  private:
    bool SetUpLine(std::string& error);

    std::string device_;
    int baud_;
    VRKDestination::Flow flow_;
    VRKSendOptions options_;
};

#pragma once

#include <memory>
#include <string>

#include "host/core/VRKPrintStream.h"
#include "host/output/VRKSendProgress.h"

class VRKSender;

// A print stream that hands its bytes to an open sender as the stream's buffer fills: the plot
// goes to the plotter while the generator makes it. The first failed send is kept and ends the
// stream, as a full disk ends a file stream.
class VRKSenderStream final : public VRKPrintStream {
  public:
    // The sender stays the caller's and must outlive the stream's last Flush().
    VRKSenderStream(VRKSender& sender, bool progress);
    ~VRKSenderStream() override;

    // The reason of the first failed send, empty while none has failed.
    const std::string& GetError() const { return error_; }
    // Ends the progress line, if one was drawn.
    void FinishProgress();

  protected:
    bool Sink(const char* data, std::size_t size) override;

  private:
    VRKSender& sender_;
    std::unique_ptr<VRKSendProgress> progress_;
    std::uint64_t sent_ = 0;
    std::string error_;
};

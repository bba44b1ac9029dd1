#pragma once

#include <string>

#include "host/core/VRKPrintStream.h"

// A print stream that keeps the plot in memory: for tests and for hosts that post-process it.
class VRKPrintMemoryStream final : public VRKPrintStream {
  public:
    explicit VRKPrintMemoryStream(std::size_t bufferSize = 4096) : VRKPrintStream(bufferSize) {}
    // Everything written so far.
    const std::string& Data() {
        Flush();
        return data_;
    }
    // Makes the next sink write fail, as a full disk would.
    void FailNextWrite() { failNext_ = true; }

  protected:
    bool Sink(const char* data, std::size_t size) override {
        if (failNext_) {
            return false;
        }
        data_.append(data, size);
        return true;
    }

  private:
    std::string data_;
    bool failNext_ = false;
};

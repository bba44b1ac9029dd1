#pragma once

#include <string>

#include "host/core/VRKPrintStream.h"

// A print stream writing to a file (or to standard output for the path "-"). The path the stream
// reports through GetPath() is set separately, so a host can name a job after the file the user
// asked for while it writes to a temporary file beside it.
class VRKPrintFileStream final : public VRKPrintStream {
  public:
    VRKPrintFileStream() = default;
    ~VRKPrintFileStream() override;

    // Creates or truncates the file; returns false and leaves errno set when it cannot.
    bool Open(const std::string& fileName);
    // Writes what is buffered and closes the file; false when any write or the close failed.
    bool Close();
    bool IsOpen() const { return fd_ >= 0; }
    // The errno of the first write or close that failed, 0 while none has.
    int GetErrorNumber() const { return errorNumber_; }
    // Its text ("No space left on device"), or "unknown error" when the stream failed without one.
    std::string GetErrorText() const;

  protected:
    bool Sink(const char* data, std::size_t size) override;

  private:
    int fd_ = -1;
    bool ownsFd_ = false;
    int errorNumber_ = 0;
};

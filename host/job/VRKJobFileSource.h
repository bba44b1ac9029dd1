#pragma once

#include <cstddef>

#include "host/job/VRKJobSource.h"

// A job read from a file descriptor, which the source closes.
class VRKJobFileSource final : public VRKJobSource {
  public:
    explicit VRKJobFileSource(int fd) : fd_(fd) {}
    ~VRKJobFileSource() override;
    VRKJobFileSource(const VRKJobFileSource&) = delete;
    VRKJobFileSource& operator=(const VRKJobFileSource&) = delete;

    // A read error ends the input like the end of the file: the job then lacks its End, or the
    // rest of a line, and says so.
    std::size_t Read(char* data, std::size_t size) override;

  private:
    int fd_;
};

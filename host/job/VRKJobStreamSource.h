#pragma once

#include <cstddef>
#include <istream>

#include "host/job/VRKJobSource.h"

// A job read from a stream.
class VRKJobStreamSource final : public VRKJobSource {
  public:
    explicit VRKJobStreamSource(std::istream& in) : buffer_(in.rdbuf()) {}

    // What the stream holds at hand, and only that: a stream that produces its text as it is
    // asked for (a pipe, a generator of lines) is not made to produce a whole block before the
    // first line is played. When nothing is at hand, one byte makes the stream fetch more.
    std::size_t Read(char* data, std::size_t size) override;

  private:
    std::streambuf* buffer_;
};

#pragma once

#include <cstddef>

// Where the bytes of a job come from: a file, a stream or memory, read a block at a time.
class VRKJobSource {
  public:
    virtual ~VRKJobSource() = default;
    // Up to `size` bytes into `data`; 0 at the end of the input.
    virtual std::size_t Read(char* data, std::size_t size) = 0;
};

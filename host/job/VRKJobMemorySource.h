#pragma once

#include <cstddef>
#include <string_view>

#include "host/job/VRKJobSource.h"

// A job held in memory, which must outlive the source. It is copied into the player's read
// buffer a block at a time, as a file is read.
class VRKJobMemorySource final : public VRKJobSource {
  public:
    explicit VRKJobMemorySource(std::string_view text) : text_(text) {}

    std::size_t Read(char* data, std::size_t size) override;

  private:
    std::string_view text_;
};

#pragma once

#include <bit>
#include <cstdint>

#include "host/core/VRKPrintStream.h"

// The text of an arc's sweep in the quick two-decimal form, kept from one arc to the next:
// circle after circle has the same sweep, and its text is made once.
class ArcSweepText {
  public:
    // The text for `sweep`, made anew only when the sweep changes; false when the value has no
    // quick form.
    bool Update(double sweep) {
        const auto bits = std::bit_cast<std::uint64_t>(sweep);
        if (bits != bits_ || length_ == 0) {
            const char* const end = formatFixed2Quick(text_, sweep);
            bits_ = bits;
            length_ = end != nullptr ? static_cast<int>(end - text_) : 0;
        }
        return length_ > 0;
    }
    // The text, with 16 bytes to read from its start.
    const char* Text() const { return text_; }
    int Length() const { return length_; }

  private:
    std::uint64_t bits_ = 0;
    int length_ = 0;
    char text_[32] = {};
};

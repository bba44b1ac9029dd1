#pragma once

#include <cstddef>
#include <cstdint>
#include <streambuf>
#include <string>
#include <vector>

#include "tools/plotdump/Sha256.h"

// The plot's bytes as the decoder reads them: one at a time with a few bytes of look-ahead, from a
// buffer of fixed size, so that a plot of any size is read in bounded memory. Every byte read is
// counted and hashed.
class PlotInput {
  public:
    // Look-ahead the decoder may ask for, in bytes beyond the next one.
    static constexpr std::size_t kLookAhead = 8;

    explicit PlotInput(std::streambuf& source);

    // The byte `ahead` bytes after the next one (0: the next one), or -1 past the end.
    int Peek(std::size_t ahead = 0);
    // The next byte, consumed, or -1 at the end.
    int Get();
    // Skips up to `count` bytes; returns how many there were.
    std::uint64_t Skip(std::uint64_t count);
    // The offset of the next byte from the start of the plot.
    std::uint64_t Offset() const { return offset_; }
    // Reads to the end and returns the SHA-256 of all the plot's bytes. Call it once, last.
    std::string Finish();

  private:
    bool fill(std::size_t wanted);

    std::streambuf& source_;
    std::vector<unsigned char> buffer_;
    std::size_t begin_ = 0;
    std::size_t end_ = 0;
    bool sourceEnded_ = false;
    std::uint64_t offset_ = 0;
    Sha256 hash_;
};

#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "host/job/VRKJobSource.h"

// The read buffer of the job player. Lines are cut out of it as it is filled a block at a time,
// and it grows only while a line does not fit: a file without line ends (a device, a damaged
// file) stops at the length limit instead of filling memory.
//
// Bytes [begin_, end_) are read and not yet played, and those before scanned_ hold no LF. Beyond
// the bytes read the buffer keeps kPadding bytes more: the reading of common lines loads words
// that may reach past the last line, and a mark put at end_ stops it there.
class VRKJobLineBuffer {
  public:
    // kLine: a line that stood whole in the buffer when NextLine was called; kLineReadOn: one
    // that it had to read on for (or the last line, which has no line end).
    enum class Result { kLine, kLineReadOn, kEnd, kTooLong };

    static constexpr std::size_t kPadding = 64;

    // Lines longer than this many bytes (the LF not counted) are refused.
    void SetMaxLineLength(std::size_t bytes) { maxLineLength_ = bytes; }
    std::size_t MaxLineLength() const { return maxLineLength_; }

    // Forgets what was read, for a new job; the memory is kept.
    void Reset();
    // The next line, without its LF, as a view into the buffer that stays valid until the next
    // call. A line ends with an LF in the buffer (one is put after the last line of the input).
    Result NextLine(VRKJobSource& source, std::string_view& line);

    // The unplayed bytes, for common lines: their start, with the mark (a NUL byte) put after
    // them; null when nothing was read yet.
    const char* Unplayed();
    // The end of the buffer's memory.
    const char* Limit() const { return buffer_.data() + buffer_.size(); }
    // The lines before `next` (within the unplayed bytes) were played.
    void Played(const char* next);

  private:
    std::size_t maxLineLength_ = std::size_t{1} << 20;
    std::vector<char> buffer_;
    std::size_t begin_ = 0;
    std::size_t end_ = 0;
    std::size_t scanned_ = 0;
    bool atEnd_ = false;
};

#pragma once

#include <cstddef>

// PCL delta-row compression (raster compression mode 3) against a seed row, the row sent before.
//
// The delta is a list of replacements. Each starts with a command byte: bits 5-7 hold the number
// of replaced bytes minus one (1 to 8 bytes), bits 0-4 the offset, the count of unchanged bytes
// since the end of the previous replacement. An offset of 31 or more writes 31 there and the rest
// in extension bytes: 255 while at least 255 remains, then the remainder (so a remainder of exactly
// 255 is followed by a 0 byte, and an offset of 31 by a single 0). The replacement bytes follow.
// Unchanged bytes at the end of the row are not written.
//
// `row` and `seed` hold `length` bytes. `out` must hold at least 2 * length + 128 bytes (the raw
// row, and beside it the delta, whose worst case is 9 bytes for every 8 plus the extension bytes
// of one long offset). On return `length` is the number of bytes to send from `out` and the
// result is the mode of those bytes: 3 for the delta, or 0 for the raw row when the delta is not
// shorter. Switching from another mode back to 0 costs two bytes ("0m"), so after a row in mode 3
// the delta may be one byte longer than the raw row and still be chosen; this keeps the printer
// in one mode across rows.
int compressDeltaRow(const unsigned char* row, unsigned char* out, const unsigned char* seed,
                     std::size_t& length, int lastMode);

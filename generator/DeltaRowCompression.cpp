#include "generator/DeltaRowCompression.h"

#include <cstring>

int compressDeltaRow(const unsigned char* row, unsigned char* out, const unsigned char* seed,
                     std::size_t& length, int lastMode) {
    const std::size_t raw = length;
    std::memcpy(out, row, raw);
    const std::size_t limit = raw + (lastMode != 0 ? 2 : 0);

    unsigned char* delta = out + raw;
    unsigned char* d = delta;
    std::size_t i = 0;
    while (i < raw) {
        std::size_t offset = 0;
        while (i < raw && row[i] == seed[i]) {
            ++i;
            ++offset;
        }
        if (i == raw) {
            break;
        }
        std::size_t run = 0;
        while (run < 8 && i + run < raw && row[i + run] != seed[i + run]) {
            ++run;
        }
        // Give up as soon as the delta can no longer win; the raw row is already in place.
        if (static_cast<std::size_t>(d - delta) + run + 1 + offset / 255 + 1 > limit + 8) {
            length = raw;
            return 0;
        }
        const unsigned char command = static_cast<unsigned char>((run - 1) << 5);
        if (offset < 31) {
            *d++ = static_cast<unsigned char>(command | offset);
        } else {
            *d++ = static_cast<unsigned char>(command | 31);
            std::size_t rest = offset - 31;
            while (rest >= 255) {
                *d++ = 255;
                rest -= 255;
            }
            *d++ = static_cast<unsigned char>(rest);
        }
        std::memcpy(d, row + i, run);
        d += run;
        i += run;
    }
    const std::size_t size = static_cast<std::size_t>(d - delta);
    if (size < limit) {
        std::memmove(out, delta, size);
        length = size;
        return 3;
    }
    length = raw;
    return 0;
}

#include "generator/HPGL2Encoding.h"

#include <cstdint>

const char* encodeNumber(int value) {
    static char digits[16];
    // 64 bits, so that the fold of the most negative int (2^32 + 1) does not overflow.
    const std::int64_t v = value;
    std::uint64_t u =
        v >= 0 ? static_cast<std::uint64_t>(2 * v) : static_cast<std::uint64_t>(-2 * v + 1);
    int n = 0;
    while (u >= 64 && n < 15) {
        digits[n++] = static_cast<char>((u & 63) + 63);
        u >>= 6;
    }
    // At most 15 digits fit; a 32-bit value needs six at most, so the terminator always fits.
    if (n < 15) {
        digits[n++] = static_cast<char>(u + 191);
    }
    digits[n] = '\0';
    return digits;
}

#pragma once

// The byte forms of HP-GL/2 beneath the instructions: the label terminator and the Polyline
// Encoded number form.
namespace HPGL2Encoding {

// Label terminator: the plotter's default end-of-text character.
inline constexpr char kLabelTerminator = '\x03';

}  // namespace HPGL2Encoding

#include <bit>
#include <cstdint>
#include <cstring>

// The Polyline Encoded (PE) digits of `value` in the 8-bit base-64 form: the value is folded to an
// unsigned one (2v for v >= 0, 2|v|+1 below), then sent six bits at a time, low bits first, as
// bytes 63..126, and closed by a terminating byte 191..254 that carries the last bits.
//
// The digits go into one static buffer that is returned and overwritten by the next call: write
// them before encoding the next number. Not for two threads at once.
const char* encodeNumber(int value);

// The same digits written to `out`, which must have room for 8 bytes (the bytes after the digits
// are scratch, and no terminator is written). Returns the end of the digits. The value may be any
// whose fold is below 2^36, that is within 2^35 - 1 either way: six digits at most. That takes
// every 32-bit value and every difference of two (up to 2^32 - 1 either way). Without branches on
// the value: the number of digits of random deltas cannot be predicted, and a mispredicted loop
// would cost more than the whole encoding.
inline char* encodeNumberTo(char* out, std::int64_t value) {
    // Folded in 64 bits: the fold of the most negative int alone is 2^32 + 1.
    const std::int64_t v = value;
    const std::int64_t sign = v >> 63;  // 0 or -1
    const std::uint64_t u =
        2 * static_cast<std::uint64_t>((v ^ sign) - sign) + static_cast<std::uint64_t>(sign & 1);
    // Digits: one per six bits, at least one.
    const int digits = (69 - std::countl_zero(u | 1)) / 6;
    if constexpr (std::endian::native == std::endian::little) {
        // The six-bit groups spread over the bytes of a word, 63 added to each, and 128 more to
        // the last digit, which makes it a terminating byte (191 + its bits). Group k moves
        // from bit 6k to bit 8k, in two steps: pairs of groups (12 bits) to 16-bit lanes, then
        // the upper group of each pair up by two bits.
        const std::uint64_t pairs =
            (u & 0xFFFull) | ((u << 4) & 0xFFF0000ull) | ((u << 8) & 0xFFF00000000ull);
        std::uint64_t word = (pairs & 0x003F003F003Full) | ((pairs << 2) & 0x3F003F003F00ull);
        word += 0x3F3F3F3F3F3Full + (std::uint64_t{128} << (8 * (digits - 1)));
        std::memcpy(out, &word, sizeof word);
    } else {
        for (int k = 0; k < digits - 1; ++k) {
            out[k] = static_cast<char>(((u >> (6 * k)) & 63) + 63);
        }
        out[digits - 1] = static_cast<char>((u >> (6 * (digits - 1))) + 191);
    }
    return out + digits;
}

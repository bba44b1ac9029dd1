#include "host/core/VRKPrintStream.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>

namespace {

constexpr std::size_t kSmallestBuffer = 128;

__extension__ typedef unsigned __int128 Wide;

constexpr std::uint64_t kPowersOfTen[] = {1, 10, 100, 1000, 10000, 100000, 1000000};

// Fixed notation with `Decimals` digits (0 to 6) of a finite value below 2^53 in magnitude,
// rounded as std::to_chars rounds it: from the exact binary value, ties to even. The value is
// m * 2^-shift exactly, so value * 10^Decimals is m * 10^Decimals / 2^shift, whose quotient and
// remainder are exact in integers (64 bits up to three decimals, 128 above). Writes at most 32
// bytes; returns null for the values it does not take (then the general formatter runs).
// The digits of q / 10^Decimals with its sign.
template <int Decimals>
char* writeScaled(char* out, std::uint64_t q, bool negative) {
    constexpr std::uint64_t kScale = kPowersOfTen[Decimals];
    if (negative) {
        *out++ = '-';
    }
    if constexpr (Decimals >= 1 && Decimals <= 3) {
        if (q < 100000000) {
            // All digits at once, then the last `Decimals` of them one place on for the point.
            out = writeDecimal(out, q, Decimals + 1);
            for (int i = 0; i < Decimals; ++i) {
                out[-i] = out[-i - 1];
            }
            out[-Decimals] = '.';
            return out + 1;
        }
    }
    out = writeDecimal(out, q / kScale);
    if constexpr (Decimals > 0) {
        *out++ = '.';
        std::uint64_t fraction = q % kScale;
        for (int i = Decimals - 1; i >= 0; --i) {
            out[i] = static_cast<char>('0' + fraction % 10);
            fraction /= 10;
        }
        out += Decimals;
    }
    return out;
}

template <int Decimals>
char* formatFixed(char* out, double value) {
    constexpr std::uint64_t kScale = kPowersOfTen[Decimals];
    // The common case in floating point: the product value * 10^Decimals is off the exact one
    // by half a unit in its last place at most (below 2^-23 under 2^30), so unless it lies
    // within 2^-20 of a tie it rounds to the same integer as the exact product. Adding and
    // taking away 2^52 rounds to the nearest integer, ties to even.
    {
        const double scaled = std::fabs(value * static_cast<double>(kScale));
        if (scaled < 1073741824.0) {
            constexpr double kTwo52 = 4503599627370496.0;
            const double rounded = (scaled + kTwo52) - kTwo52;
            if (std::fabs(scaled - rounded) < 0.5 - 0x1p-20) {
                return writeScaled<Decimals>(out, static_cast<std::uint64_t>(rounded),
                                             std::signbit(value));
            }
        }
    }
    const auto bits = std::bit_cast<std::uint64_t>(value);
    const bool negative = (bits >> 63) != 0;
    const int biased = static_cast<int>((bits >> 52) & 0x7FF);
    std::uint64_t mantissa = bits & ((std::uint64_t{1} << 52) - 1);
    if (biased == 0x7FF || biased >= 1075) {
        return nullptr;  // infinite, not a number, or 2^53 and above
    }
    int shift = 1074;  // subnormal: mantissa * 2^-1074
    if (biased != 0) {
        mantissa |= std::uint64_t{1} << 52;
        shift = 1075 - biased;
    }
    std::uint64_t q = 0;
    if constexpr (Decimals <= 3) {
        // m * 10^3 < 2^63; at a shift of 64 or more the value is below one half and rounds to 0.
        if (shift < 64) {
            const std::uint64_t n = mantissa * kScale;
            q = n >> shift;
            const std::uint64_t remainder = n - (q << shift);
            const std::uint64_t half = std::uint64_t{1} << (shift - 1);
            q += remainder > half || (remainder == half && (q & 1) != 0) ? 1 : 0;
        }
    } else {
        // m * 10^6 < 2^73; at a shift of 100 or more the value is below one half.
        if (shift < 100) {
            const Wide n = static_cast<Wide>(mantissa) * kScale;
            const Wide quotient = n >> shift;
            if ((quotient >> 64) != 0) {
                return nullptr;
            }
            q = static_cast<std::uint64_t>(quotient);
            const Wide remainder = n - (quotient << shift);
            const Wide half = static_cast<Wide>(1) << (shift - 1);
            q += remainder > half || (remainder == half && (q & 1) != 0) ? 1 : 0;
        }
    }
    return writeScaled<Decimals>(out, q, negative);
}

char* formatFixed(char* out, double value, int decimals) {
    switch (decimals) {
        case 0:
            return formatFixed<0>(out, value);
        case 1:
            return formatFixed<1>(out, value);
        case 2:
            return formatFixed<2>(out, value);
        case 3:
            return formatFixed<3>(out, value);
        case 4:
            return formatFixed<4>(out, value);
        case 5:
            return formatFixed<5>(out, value);
        case 6:
            return formatFixed<6>(out, value);
        default:
            return nullptr;
    }
}

}  // namespace

VRKPrintStream::VRKPrintStream(std::size_t bufferSize)
    : buffer_(std::max(bufferSize, kSmallestBuffer)),
      cursor_(buffer_.data()),
      end_(buffer_.data() + buffer_.size()) {}

VRKPrintStream::~VRKPrintStream() = default;

void VRKPrintStream::FlushBuffer() {
    const std::size_t size = static_cast<std::size_t>(cursor_ - buffer_.data());
    if (size > 0 && good_ && !Sink(buffer_.data(), size)) {
        good_ = false;
    }
    flushed_ += size;
    cursor_ = buffer_.data();
}

bool VRKPrintStream::Flush() {
    FlushBuffer();
    return good_;
}

void VRKPrintStream::WriteSlow(const char* data, std::size_t size) {
    FlushBuffer();
    if (size >= buffer_.size()) {
        if (good_ && !Sink(data, size)) {
            good_ = false;
        }
        flushed_ += size;
        return;
    }
    std::memcpy(cursor_, data, size);
    cursor_ += size;
}

void VRKPrintStream::WriteFloatExactly(double value) {
    if (fixed_ && precision_ >= 0 && precision_ <= 6) {
        char* const start = Claim(32);
        char* const end = formatFixed(start, value, precision_);
        if (end != nullptr) {
            Advance(end);
            return;
        }
    }
    // Fixed notation of a large value needs its integer digits plus the decimals.
    char text[400];
    std::to_chars_result r{};
    if (fixed_) {
        r = std::to_chars(text, text + sizeof text, value, std::chars_format::fixed, precision_);
    } else {
        r = std::to_chars(text, text + sizeof text, value, std::chars_format::general,
                          precision_ == 0 ? 1 : precision_);
    }
    if (r.ec != std::errc{}) {
        return;
    }
    Write(std::string_view(text, static_cast<std::size_t>(r.ptr - text)));
}

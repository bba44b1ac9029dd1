#pragma once

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <vector>

#include "host/core/VRKUnicodeString.h"

// The decimal digits of `value` at `out`, at least `leastDigits` of them (1 to 8, with leading
// zeros), which must have room for 20 bytes; returns their end.
// Values below 10^8, all a plot's coordinates, are split into their eight digits without a
// branch on the value and stored at once, the leading zeros dropped by a shift: the number of
// digits of a coordinate cannot be predicted, and a digit loop that mispredicts its end costs
// more than the whole formatting.
inline char* writeDecimal(char* out, std::uint64_t value, int leastDigits = 1) {
    if (std::endian::native != std::endian::little || value >= 100000000) {
        char* end = std::to_chars(out, out + 20, value).ptr;
        return end;
    }
    // Two 32-bit lanes of four digits, the more significant one in the low lane; then 16-bit
    // lanes of two digits, then bytes of one, each step dividing every lane by a multiplication.
    std::uint64_t lanes = (value / 10000) | ((value % 10000) << 32);
    const std::uint64_t hundreds = ((lanes * 5243) >> 19) & 0x0000007F0000007Full;
    lanes = hundreds | ((lanes - hundreds * 100) << 16);
    const std::uint64_t tens = ((lanes * 103) >> 10) & 0x000F000F000F000Full;
    lanes = tens | ((lanes - tens * 10) << 8);
    // Byte k now holds the k-th of eight digits; the leading zero bytes are dropped, down to
    // `leastDigits` digits.
    const int zeros = std::min(lanes == 0 ? 8 : std::countr_zero(lanes) / 8, 8 - leastDigits);
    const std::uint64_t text = (lanes + 0x3030303030303030ull) >> (8 * zeros);
    std::memcpy(out, &text, sizeof text);
    return out + (8 - zeros);
}

// A value in fixed notation with two decimals, the plotter's usual form, when it lies below 10^6
// and clearly away from a tie: value * 100 is then off the exact product by less than 2^-26,
// so rounding it to the nearest integer (adding and taking away 2^52, ties to even) gives the
// digits std::to_chars gives. Null for every other value, which the stream formats exactly.
inline char* formatFixed2Quick(char* out, double value) {
    const double scaled = std::fabs(value * 100.0);
    if (!(scaled < 99999999.0)) {
        return nullptr;
    }
    constexpr double kTwo52 = 4503599627370496.0;
    const double rounded = (scaled + kTwo52) - kTwo52;
    if (!(std::fabs(scaled - rounded) < 0.5 - 0x1p-20)) {
        return nullptr;
    }
    if (std::signbit(value)) {
        *out++ = '-';
    }
    // At least three digits, then the last two one place on for the point.
    out = writeDecimal(out, static_cast<std::uint64_t>(rounded), 3);
    out[0] = out[-1];
    out[-1] = out[-2];
    out[-2] = '.';
    return out + 1;
}

// The byte stream a print generator writes its plot to. Writes go into a large buffer that is
// handed to the sink (a file, memory) when it fills, on Flush() and on Close(). Numbers are
// formatted here, in the C locale whatever the process locale: integers in plain decimal, floats
// in the current notation (the general %g form with 6 significant digits until SetFixed() is
// called, then fixed with the given number of decimals, as an iostream would).
//
// Errors are sticky: once a sink write fails the stream stays failed and drops further output;
// the owner checks Good() once at the end, as it would with a full disk.
class VRKPrintStream {
  public:
    explicit VRKPrintStream(std::size_t bufferSize = std::size_t{1} << 18);
    VRKPrintStream(const VRKPrintStream&) = delete;
    VRKPrintStream& operator=(const VRKPrintStream&) = delete;
    virtual ~VRKPrintStream();

    // The path the stream was opened for; generators take the job name from it.
    const VRKUnicodeString& GetPath() const { return path_; }
    void SetPath(const VRKUnicodeString& path) { path_ = path; }
    // Data the host attaches to a stream for the drivers; never interpreted by the stream.
    void* GetPrivateData() const { return privateData_; }
    void SetPrivateData(void* data) { privateData_ = data; }

    void Write(std::string_view text) {
        if (text.size() <= static_cast<std::size_t>(end_ - cursor_)) {
            std::memcpy(cursor_, text.data(), text.size());
            cursor_ += text.size();
        } else {
            WriteSlow(text.data(), text.size());
        }
    }
    void WriteBytes(const void* data, std::size_t size) {
        Write(std::string_view(static_cast<const char*>(data), size));
    }
    void Put(char c) {
        if (cursor_ == end_) {
            FlushBuffer();
        }
        *cursor_++ = c;
    }
    void WriteInt(long long value) {
        Reserve(24);
        if (value < 0) {
            *cursor_++ = '-';
        }
        // The magnitude in unsigned arithmetic, where the most negative value has one too.
        const std::uint64_t magnitude =
            value < 0 ? 0 - static_cast<std::uint64_t>(value) : static_cast<std::uint64_t>(value);
        cursor_ = writeDecimal(cursor_, magnitude);
    }
    void WriteFloat(double value) {
        if (fixed_ && precision_ == 2) {
            char* const start = Claim(32);
            char* const end = formatFixed2Quick(start, value);
            if (end != nullptr) {
                Advance(end);
                return;
            }
        }
        WriteFloatExactly(value);
    }
    // Room for up to `size` bytes written in place: returns where to write them, and Advance()
    // then takes the end of what was written. For formatters that write straight into the
    // buffer; `size` must not exceed the buffer (128 bytes always fit).
    char* Claim(std::size_t size) {
        Reserve(size);
        return cursor_;
    }
    void Advance(char* end) { cursor_ = end; }
    // "\n", then a flush, as an end-of-line manipulator does.
    void EndLine() {
        Put('\n');
        Flush();
    }

    // Floats from now on in fixed notation with `decimals` digits after the point.
    void SetFixed(int decimals) {
        fixed_ = true;
        precision_ = decimals;
    }
    // Floats from now on in the general notation with `digits` significant digits.
    void SetGeneral(int digits = 6) {
        fixed_ = false;
        precision_ = digits;
    }
    bool IsFixed() const { return fixed_; }
    int GetPrecision() const { return precision_; }

    // Hands buffered bytes to the sink; false when the stream has failed.
    bool Flush();
    bool Good() const { return good_; }
    void SetFailed() { good_ = false; }
    // Bytes written so far, buffered ones included.
    std::size_t BytesWritten() const {
        return flushed_ + static_cast<std::size_t>(cursor_ - buffer_.data());
    }

  protected:
    // Takes `size` bytes for good; returns false when they could not be stored.
    virtual bool Sink(const char* data, std::size_t size) = 0;

  private:
    void WriteFloatExactly(double value);
    void Reserve(std::size_t size) {
        if (static_cast<std::size_t>(end_ - cursor_) < size) {
            FlushBuffer();
        }
    }
    void FlushBuffer();
    void WriteSlow(const char* data, std::size_t size);

    std::vector<char> buffer_;
    char* cursor_;
    char* end_;
    std::size_t flushed_ = 0;
    bool good_ = true;
    bool fixed_ = false;
    int precision_ = 6;
    VRKUnicodeString path_;
    void* privateData_ = nullptr;
};

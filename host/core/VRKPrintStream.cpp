#include "host/core/VRKPrintStream.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>

namespace {

constexpr std::size_t kSmallestBuffer = 128;

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

// Every value the quick form does not take (other precisions, values near a tie, large ones):
// std::to_chars rounds from the exact binary value, ties to even.
void VRKPrintStream::WriteFloatExactly(double value) {
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

#include "host/job/VRKJobLineBuffer.h"

#include <algorithm>
#include <cstring>

void VRKJobLineBuffer::Reset() {
    begin_ = end_ = scanned_ = 0;
    atEnd_ = false;
}

VRKJobLineBuffer::Result VRKJobLineBuffer::NextLine(VRKJobSource& source, std::string_view& line) {
    constexpr std::size_t kBlock = std::size_t{1} << 18;
    for (Result found = Result::kLine;; found = Result::kLineReadOn) {
        const char* const data = buffer_.data();
        const void* lf =
            scanned_ < end_ ? std::memchr(data + scanned_, '\n', end_ - scanned_) : nullptr;
        if (lf != nullptr) {
            const auto at = static_cast<std::size_t>(static_cast<const char*>(lf) - data);
            line = std::string_view(data + begin_, at - begin_);
            begin_ = scanned_ = at + 1;
            return line.size() > maxLineLength_ ? Result::kTooLong : found;
        }
        scanned_ = end_;
        if (end_ - begin_ > maxLineLength_) {
            return Result::kTooLong;
        }
        if (atEnd_) {
            if (begin_ == end_) {
                return Result::kEnd;
            }
            // The last line, without a line end. A line end is put after it all the same (in
            // the padding): the reading of common lines stops at line ends.
            buffer_[end_] = '\n';
            line = std::string_view(buffer_.data() + begin_, end_ - begin_);
            begin_ = scanned_ = end_;
            return Result::kLineReadOn;
        }
        // Room for a block behind the unplayed bytes: move them to the front, and grow the
        // buffer when they fill most of it.
        const std::size_t pending = end_ - begin_;
        if (begin_ > 0) {
            std::memmove(buffer_.data(), buffer_.data() + begin_, pending);
            begin_ = 0;
            end_ = scanned_ = pending;
        }
        const std::size_t usable = buffer_.empty() ? 0 : buffer_.size() - kPadding;
        if (usable - end_ < kBlock / 2) {
            buffer_.resize(std::max(usable * 2, kBlock) + kPadding);
        }
        const std::size_t got =
            source.Read(buffer_.data() + end_, buffer_.size() - kPadding - end_);
        if (got == 0) {
            atEnd_ = true;
        }
        end_ += got;
    }
}

const char* VRKJobLineBuffer::Unplayed() {
    if (buffer_.empty()) {
        return nullptr;
    }
    // A mark after the read bytes, neither a blank, a digit nor a line end: a line cut by the
    // end of the read bytes stops there and is left for the general path, which reads on.
    buffer_[end_] = '\0';
    return buffer_.data() + begin_;
}

void VRKJobLineBuffer::Played(const char* next) {
    const auto at = static_cast<std::size_t>(next - buffer_.data());
    if (at != begin_) {
        begin_ = scanned_ = at;
    }
}

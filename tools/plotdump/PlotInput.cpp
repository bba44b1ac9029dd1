#include "tools/plotdump/PlotInput.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr std::size_t kBufferSize = 64 * 1024;

}  // namespace

PlotInput::PlotInput(std::streambuf& source) : source_(source), buffer_(kBufferSize) {}

bool PlotInput::fill(std::size_t wanted) {
    if (end_ - begin_ >= wanted) {
        return true;
    }
    if (sourceEnded_) {
        return false;
    }
    // What is left moves to the front; the rest of the buffer is read, and hashed as it comes.
    std::memmove(buffer_.data(), buffer_.data() + begin_, end_ - begin_);
    end_ -= begin_;
    begin_ = 0;
    while (end_ < wanted && !sourceEnded_) {
        const std::streamsize got =
            source_.sgetn(reinterpret_cast<char*>(buffer_.data() + end_),
                          static_cast<std::streamsize>(buffer_.size() - end_));
        if (got <= 0) {
            sourceEnded_ = true;
            break;
        }
        hash_.Update(buffer_.data() + end_, static_cast<std::size_t>(got));
        end_ += static_cast<std::size_t>(got);
    }
    return end_ - begin_ >= wanted;
}

int PlotInput::Peek(std::size_t ahead) {
    if (ahead > kLookAhead || !fill(ahead + 1)) {
        return -1;
    }
    return buffer_[begin_ + ahead];
}

int PlotInput::Get() {
    if (!fill(1)) {
        return -1;
    }
    ++offset_;
    return buffer_[begin_++];
}

std::uint64_t PlotInput::Skip(std::uint64_t count) {
    std::uint64_t skipped = 0;
    while (skipped < count && fill(1)) {
        const std::uint64_t take = std::min<std::uint64_t>(count - skipped, end_ - begin_);
        begin_ += static_cast<std::size_t>(take);
        skipped += take;
    }
    offset_ += skipped;
    return skipped;
}

std::string PlotInput::Finish() {
    Skip(UINT64_MAX);
    return hash_.HexDigest();
}

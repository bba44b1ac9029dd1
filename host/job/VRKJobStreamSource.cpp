#include "host/job/VRKJobStreamSource.h"

#include <algorithm>
#include <string>

std::size_t VRKJobStreamSource::Read(char* data, std::size_t size) {
    using Traits = std::char_traits<char>;
    if (buffer_ == nullptr || size == 0) {
        return 0;
    }
    std::size_t got = 0;
    if (buffer_->in_avail() <= 0) {
        const Traits::int_type c = buffer_->sbumpc();
        if (Traits::eq_int_type(c, Traits::eof())) {
            return 0;
        }
        data[got++] = Traits::to_char_type(c);
    }
    const std::streamsize atHand = buffer_->in_avail();
    if (atHand > 0 && got < size) {
        const auto want = std::min(static_cast<std::size_t>(atHand), size - got);
        const std::streamsize n = buffer_->sgetn(data + got, static_cast<std::streamsize>(want));
        got += n > 0 ? static_cast<std::size_t>(n) : 0;
    }
    return got;
}

#include "host/job/VRKJobMemorySource.h"

#include <algorithm>
#include <cstring>

std::size_t VRKJobMemorySource::Read(char* data, std::size_t size) {
    const std::size_t n = std::min(size, text_.size());
    if (n > 0) {
        std::memcpy(data, text_.data(), n);
        text_.remove_prefix(n);
    }
    return n;
}

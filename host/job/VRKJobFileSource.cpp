#include "host/job/VRKJobFileSource.h"

#include <unistd.h>

#include <cerrno>

VRKJobFileSource::~VRKJobFileSource() {
    ::close(fd_);
}

std::size_t VRKJobFileSource::Read(char* data, std::size_t size) {
    for (;;) {
        const ssize_t n = ::read(fd_, data, size);
        if (n >= 0) {
            return static_cast<std::size_t>(n);
        }
        if (errno != EINTR) {
            return 0;
        }
    }
}

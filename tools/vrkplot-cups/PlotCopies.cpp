#include "tools/vrkplot-cups/PlotCopies.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <vector>

namespace {

bool writeAll(int fd, const char* data, std::size_t size, std::string& error) {
    while (size > 0) {
        const ssize_t written = ::write(fd, data, size);
        if (written < 0) {
            if (errno == EINTR) {
                continue;
            }
            error = std::string("writing the plot: ") + std::strerror(errno);
            return false;
        }
        data += written;
        size -= static_cast<std::size_t>(written);
    }
    return true;
}

}  // namespace

namespace PlotCopies {

bool Write(const std::string& path, int copies, int fd, std::string& error) {
    std::vector<char> buffer(1 << 16);
    for (int copy = 0; copy < copies; ++copy) {
        const int in = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
        if (in < 0) {
            error = path + ": " + std::strerror(errno);
            return false;
        }
        for (;;) {
            const ssize_t got = ::read(in, buffer.data(), buffer.size());
            if (got < 0 && errno == EINTR) {
                continue;
            }
            if (got < 0) {
                error = path + ": " + std::strerror(errno);
                ::close(in);
                return false;
            }
            if (got == 0) {
                break;
            }
            if (!writeAll(fd, buffer.data(), static_cast<std::size_t>(got), error)) {
                ::close(in);
                return false;
            }
        }
        ::close(in);
    }
    return true;
}

}  // namespace PlotCopies

#include "host/xml/VRKXmlText.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <sstream>

namespace vrk_xml {

bool readWholeFile(const std::string& path, std::string& text, std::string& error) {
    std::ifstream in(path, std::ios::binary);
    if (!in) {
        error = path + ": cannot open: " + std::strerror(errno);
        return false;
    }
    std::ostringstream buffer;
    buffer << in.rdbuf();
    if (in.bad()) {
        error = path + ": cannot read";
        return false;
    }
    text = std::move(buffer).str();
    return true;
}

bool writeWholeFile(const std::string& path, std::string_view text, std::string& error) {
    std::string temporary = path + ".XXXXXX";
    const int fd = mkstemp(temporary.data());
    if (fd < 0) {
        error = path + ": cannot write: " + std::strerror(errno);
        return false;
    }
    size_t written = 0;
    while (written < text.size()) {
        const ssize_t n = ::write(fd, text.data() + written, text.size() - written);
        if (n < 0) {
            if (errno == EINTR) {
                continue;
            }
            error = path + ": cannot write: " + std::strerror(errno);
            ::close(fd);
            std::remove(temporary.c_str());
            return false;
        }
        written += static_cast<size_t>(n);
    }
    // mkstemp makes the file readable by its owner only; a settings file is an ordinary file.
    const mode_t mask = ::umask(0);
    ::umask(mask);
    ::fchmod(fd, 0666 & ~mask);
    if (::close(fd) != 0 || std::rename(temporary.c_str(), path.c_str()) != 0) {
        error = path + ": cannot write: " + std::strerror(errno);
        std::remove(temporary.c_str());
        return false;
    }
    return true;
}

int lineOfOffset(std::string_view text, std::ptrdiff_t offset) {
    const auto end = static_cast<size_t>(
        std::clamp<std::ptrdiff_t>(offset, 0, static_cast<std::ptrdiff_t>(text.size())));
    return 1 +
           static_cast<int>(std::count(text.begin(), text.begin() + static_cast<long>(end), '\n'));
}

}  // namespace vrk_xml

#include "host/xml/VRKXmlText.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <sstream>

#include "host/output/VRKOutputPath.h"
#include "host/output/VRKReplacingFile.h"

namespace vrk_xml {

bool readWholeFile(const std::string& path, std::string& text, std::string& error) {
    const int fd = ::open(path.c_str(), O_RDONLY | O_NOCTTY | O_CLOEXEC);
    if (fd < 0) {
        error = path + ": cannot open: " + std::strerror(errno);
        return false;
    }
    // Read in pieces up to one byte past the limit: a file's size may be unknown (a pipe) or
    // wrong (a file of the kernel's), and an endless source must end too.
    std::string read;
    char piece[65536];
    for (;;) {
        const ssize_t n = ::read(fd, piece, sizeof piece);
        if (n < 0 && errno == EINTR) {
            continue;
        }
        if (n < 0) {
            error = path + ": cannot read: " + std::strerror(errno);
            ::close(fd);
            return false;
        }
        if (n == 0) {
            break;
        }
        read.append(piece, static_cast<size_t>(n));
        if (read.size() > kMaxFileSize) {
            error = path + ": larger than " + std::to_string(kMaxFileSize / (1024 * 1024)) +
                    " MiB; settings files and printer lists are far smaller";
            ::close(fd);
            return false;
        }
    }
    ::close(fd);
    text = std::move(read);
    return true;
}

namespace {

// Writes all of `text` into the file at `path`, opened with `flags` (never created or truncated
// here unless the flags say so); false with `error` set when the open, a write or the close fails.
bool writeInto(const std::string& path, int flags, std::string_view text, const std::string& name,
               std::string& error) {
    const int fd = ::open(path.c_str(), flags | O_WRONLY | O_NOCTTY | O_CLOEXEC);
    bool ok = fd >= 0;
    for (size_t written = 0; ok && written < text.size();) {
        const ssize_t n = ::write(fd, text.data() + written, text.size() - written);
        if (n >= 0) {
            written += static_cast<size_t>(n);
        } else if (errno != EINTR) {
            ok = false;
        }
    }
    if (!ok) {
        error = name + ": cannot write: " + std::strerror(errno);
        if (fd >= 0) {
            ::close(fd);
        }
        return false;
    }
    if (::close(fd) != 0) {
        error = name + ": cannot write: " + std::strerror(errno);
        return false;
    }
    return true;
}

}  // namespace

bool writeWholeFile(const std::string& path, std::string_view text, std::string& error) {
    VRKOutputPath target;
    if (!target.Resolve(path, error)) {
        return false;
    }
    if (target.GetKind() == VRKOutputPath::Kind::kInPlace) {
        // A device or a pipe (/dev/stdout, say) takes the text as it is: it is not replaced.
        return writeInto(path, 0, text, path, error);
    }
    VRKReplacingFile file;
    if (!file.Create(target, error)) {
        error = path + ": cannot write: " + std::strerror(errno);
        return false;
    }
    return writeInto(file.GetTemporaryPath(), O_TRUNC, text, path, error) && file.Commit(error);
}

int lineOfOffset(std::string_view text, std::ptrdiff_t offset) {
    const auto end = static_cast<size_t>(
        std::clamp<std::ptrdiff_t>(offset, 0, static_cast<std::ptrdiff_t>(text.size())));
    return 1 +
           static_cast<int>(std::count(text.begin(), text.begin() + static_cast<long>(end), '\n'));
}

}  // namespace vrk_xml

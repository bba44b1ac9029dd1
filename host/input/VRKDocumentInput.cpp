#include "host/input/VRKDocumentInput.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

#include "host/job/VRKJobSource.h"

namespace {

// Reads up to `size` bytes, retrying interrupted and short reads; the count read, or -1.
ssize_t readFully(int fd, char* data, std::size_t size) {
    std::size_t done = 0;
    while (done < size) {
        const ssize_t n = ::read(fd, data + done, size - done);
        if (n < 0 && errno == EINTR) {
            continue;
        }
        if (n < 0) {
            return -1;
        }
        if (n == 0) {
            break;
        }
        done += static_cast<std::size_t>(n);
    }
    return static_cast<ssize_t>(done);
}

// The head already read, then the rest of the descriptor, which it closes.
class HeadThenFileSource final : public VRKJobSource {
  public:
    HeadThenFileSource(std::string head, int fd) : head_(std::move(head)), fd_(fd) {}
    ~HeadThenFileSource() override {
        if (fd_ >= 0) {
            ::close(fd_);
        }
    }
    HeadThenFileSource(const HeadThenFileSource&) = delete;
    HeadThenFileSource& operator=(const HeadThenFileSource&) = delete;

    std::size_t Read(char* data, std::size_t size) override {
        if (offset_ < head_.size()) {
            const std::size_t n = std::min(size, head_.size() - offset_);
            std::memcpy(data, head_.data() + offset_, n);
            offset_ += n;
            return n;
        }
        if (fd_ < 0) {
            return 0;
        }
        const ssize_t n = readFully(fd_, data, size);
        return n > 0 ? static_cast<std::size_t>(n) : 0;
    }

  private:
    std::string head_;
    std::size_t offset_ = 0;
    int fd_;
};

// The folder of a path without its last slash ("plans/a.svg" gives "plans", "/a.svg" gives
// "/"), or empty for a name without a folder.
std::string folderOf(const std::string& path) {
    const std::size_t slash = path.find_last_of('/');
    if (slash == std::string::npos) {
        return {};
    }
    return slash == 0 ? std::string("/") : path.substr(0, slash);
}

}  // namespace

VRKDocumentInput::VRKDocumentInput() = default;

VRKDocumentInput::~VRKDocumentInput() {
    if (fd_ >= 0) {
        ::close(fd_);
    }
}

bool VRKDocumentInput::Open(const std::string& path, std::string& error) {
    path_ = path;
    if (path == "-") {
        name_ = "standard input";
        folder_.clear();
        fd_ = ::fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, 0);
    } else {
        name_ = path;
        folder_ = folderOf(path);
        struct stat info {};
        if (::stat(path.c_str(), &info) != 0) {
            error = path + ": cannot open the file: " + std::strerror(errno);
            return false;
        }
        if (S_ISDIR(info.st_mode)) {
            error = path + ": cannot open the file: it is a folder";
            return false;
        }
        fd_ = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    }
    if (fd_ < 0) {
        error = name_ + ": cannot open the file: " + std::strerror(errno);
        return false;
    }
    head_.resize(kHeadSize);
    const ssize_t n = readFully(fd_, head_.data(), head_.size());
    if (n < 0) {
        error = name_ + ": cannot read the file: " + std::strerror(errno);
        return false;
    }
    head_.resize(static_cast<std::size_t>(n));
    return true;
}

std::string VRKDocumentInput::GetExtension() const {
    const std::size_t slash = path_.find_last_of('/');
    const std::size_t start = slash == std::string::npos ? 0 : slash + 1;
    const std::size_t dot = path_.find_last_of('.');
    if (dot == std::string::npos || dot <= start) {
        return std::string();
    }
    std::string extension = path_.substr(dot);
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return extension;
}

bool VRKDocumentInput::ReadAll(std::string& text, std::size_t limit, std::string& error) {
    text = head_;
    if (fd_ < 0) {
        return true;
    }
    char block[1 << 16];
    for (;;) {
        const ssize_t n = readFully(fd_, block, sizeof block);
        if (n < 0) {
            error = name_ + ": cannot read the file: " + std::strerror(errno);
            return false;
        }
        if (n == 0) {
            break;
        }
        if (text.size() + static_cast<std::size_t>(n) > limit) {
            error = name_ + ": the file is larger than " + std::to_string(limit >> 20) +
                    " MiB, more than a drawing this program reads";
            return false;
        }
        text.append(block, static_cast<std::size_t>(n));
    }
    ::close(fd_);
    fd_ = -1;
    return true;
}

std::size_t VRKDocumentInput::Read(char* data, std::size_t size, std::size_t limit,
                                   std::string& error) {
    std::size_t count = 0;
    if (given_ < head_.size()) {
        count = std::min(size, head_.size() - given_);
        std::memcpy(data, head_.data() + given_, count);
    } else if (fd_ >= 0) {
        const ssize_t n = readFully(fd_, data, size);
        if (n < 0) {
            error = name_ + ": cannot read the file: " + std::strerror(errno);
            return 0;
        }
        count = static_cast<std::size_t>(n);
        if (count == 0) {
            ::close(fd_);
            fd_ = -1;
        }
    }
    if (count > limit - std::min(limit, given_)) {
        error = name_ + ": the file is larger than " + std::to_string(limit >> 20) +
                " MiB, more than a drawing this program reads";
        return 0;
    }
    given_ += count;
    return count;
}

std::unique_ptr<VRKJobSource> VRKDocumentInput::TakeSource() {
    auto source = std::make_unique<HeadThenFileSource>(std::move(head_), fd_);
    head_.clear();
    fd_ = -1;
    return source;
}

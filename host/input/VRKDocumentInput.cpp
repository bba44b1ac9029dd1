#include "host/input/VRKDocumentInput.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstring>

#include "host/core/VRKPathName.h"
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

// A job source reading through the input, the first bytes first. A read error ends the input
// like the end of the file, as it does for a job file: the job then lacks its End, or the rest of
// a line, and says so.
class InputSource final : public VRKJobSource {
  public:
    explicit InputSource(VRKDocumentInput& input) : input_(input) {}

    std::size_t Read(char* data, std::size_t size) override {
        return error_.empty() ? input_.Read(data, size, SIZE_MAX, error_) : 0;
    }

  private:
    VRKDocumentInput& input_;
    std::string error_;
};

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
        folder_ = VRKPathName::Folder(path);
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
    text.clear();
    char block[1 << 16];
    std::string failure;
    for (;;) {
        const std::size_t n = Read(block, sizeof block, limit, failure);
        if (!failure.empty()) {
            error = failure;
            return false;
        }
        if (n == 0) {
            return true;
        }
        text.append(block, n);
    }
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

std::unique_ptr<VRKJobSource> VRKDocumentInput::MakeJobSource() {
    return std::make_unique<InputSource>(*this);
}

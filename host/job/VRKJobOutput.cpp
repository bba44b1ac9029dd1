#include "host/job/VRKJobOutput.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "host/core/VRKEnvironment.h"

namespace {

constexpr int kSuffixLength = 4;  // ".tmp"

std::string describe(const std::string& path) {
    return path == "-" ? std::string("standard output") : "'" + path + "'";
}

}  // namespace

VRKJobOutput::~VRKJobOutput() {
    Discard();
}

bool VRKJobOutput::Open(const std::string& path, std::string& error) {
    Discard();
    path_ = path;
    std::string folder, name;
    if (path == "-") {
        folder = VRKEnvironment::TemporaryDirectory();
        name = "vrkplot";
    } else {
        const std::size_t slash = path.find_last_of('/');
        folder = slash == std::string::npos ? std::string() : path.substr(0, slash + 1);
        name = slash == std::string::npos ? path : path.substr(slash + 1);
        if (name.empty()) {
            error = "cannot write " + describe(path) + ": the output names a folder";
            return false;
        }
    }
    std::string pattern = folder + "." + name + ".XXXXXX.tmp";
    const int fd = ::mkstemps(pattern.data(), kSuffixLength);
    if (fd < 0) {
        error = "cannot create a temporary file " +
                (folder.empty() ? "here" : "in '" + folder + "'") + " for " + describe(path) +
                ": " + std::strerror(errno);
        return false;
    }
    // mkstemps makes the file private (0600); the plot gets the mode of a newly created file.
    const mode_t mask = ::umask(0);
    ::umask(mask);
    ::fchmod(fd, 0666 & ~mask);
    ::close(fd);
    temporary_ = pattern;
    stream_ = std::make_unique<VRKPrintFileStream>();
    if (!stream_->Open(temporary_)) {
        error = "cannot open the temporary file '" + temporary_ + "': " + std::strerror(errno);
        ::unlink(temporary_.c_str());
        temporary_.clear();
        return false;
    }
    return true;
}

bool VRKJobOutput::Commit(std::string& error) {
    if (temporary_.empty()) {
        error = "no plot to write";
        return false;
    }
    if (!stream_->Close()) {
        error = "cannot write the plot for " + describe(path_) + ": writing the temporary file '" +
                temporary_ + "' failed: " + stream_->GetErrorText();
        Discard();
        return false;
    }
    if (path_ == "-") {
        const bool copied = CopyToStandardOutput(error);
        Discard();
        return copied;
    }
    if (::rename(temporary_.c_str(), path_.c_str()) != 0) {
        error = "cannot write " + describe(path_) + ": " + std::strerror(errno);
        Discard();
        return false;
    }
    temporary_.clear();
    return true;
}

bool VRKJobOutput::CopyToStandardOutput(std::string& error) {
    const int fd = ::open(temporary_.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) {
        error = "cannot read back the temporary file '" + temporary_ + "': " + std::strerror(errno);
        return false;
    }
    VRKPrintFileStream out;
    out.Open("-");
    std::vector<char> block(std::size_t{1} << 16);
    bool readFailed = false;
    for (;;) {
        const ssize_t n = ::read(fd, block.data(), block.size());
        if (n < 0 && errno == EINTR) {
            continue;
        }
        if (n <= 0) {
            readFailed = n < 0;
            break;
        }
        out.WriteBytes(block.data(), static_cast<std::size_t>(n));
        if (!out.Good()) {
            break;
        }
    }
    ::close(fd);
    const bool written = out.Close();
    if (readFailed) {
        error = "cannot read back the temporary file '" + temporary_ + "'";
        return false;
    }
    if (!written) {
        error = "cannot write the plot to standard output: " + out.GetErrorText();
        return false;
    }
    return true;
}

void VRKJobOutput::Discard() {
    if (stream_ != nullptr) {
        stream_->Close();
    }
    if (!temporary_.empty()) {
        ::unlink(temporary_.c_str());
        temporary_.clear();
    }
}

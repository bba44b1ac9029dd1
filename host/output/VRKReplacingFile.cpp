#include "host/output/VRKReplacingFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

constexpr int kSuffixLength = 4;  // ".tmp"

}  // namespace

VRKReplacingFile::~VRKReplacingFile() {
    Discard();
}

bool VRKReplacingFile::Create(const VRKOutputPath& target, std::string& error) {
    Discard();
    target_ = target;
    const std::string& path = target.GetPath();
    const std::size_t slash = path.find_last_of('/');
    const std::string folder =
        slash == std::string::npos ? std::string() : path.substr(0, slash + 1);
    const std::string name = slash == std::string::npos ? path : path.substr(slash + 1);
    std::string pattern = folder + "." + name + ".XXXXXX.tmp";
    const int fd = ::mkstemps(pattern.data(), kSuffixLength);
    if (fd < 0) {
        error = target.GetGivenPath() + ": cannot create a temporary file " +
                (folder.empty() ? std::string("here") : "in '" + folder + "'") + ": " +
                std::strerror(errno);
        return false;
    }
    ::close(fd);
    temporary_ = pattern;
    return true;
}

bool VRKReplacingFile::Commit(std::string& error) {
    if (temporary_.empty()) {
        error = target_.GetGivenPath() + ": nothing to write";
        return false;
    }
    // mkstemps made the file private (0600), which let it be written whatever mode it is to
    // have; it now gets the mode of the file it replaces, or that of a newly created file.
    if (target_.GetKind() == VRKOutputPath::Kind::kExistingFile) {
        // The owner first: changing it clears the set-user and set-group bits, which the mode
        // then puts back. A process that may not give the file away keeps the group if it may.
        if (::chown(temporary_.c_str(), target_.GetOwner(), target_.GetGroup()) != 0 &&
            ::chown(temporary_.c_str(), static_cast<uid_t>(-1), target_.GetGroup()) != 0) {
            // Neither: the file stays the user's own, as any file the user writes.
        }
        ::chmod(temporary_.c_str(), target_.GetMode());
    } else {
        const mode_t mask = ::umask(0);
        ::umask(mask);
        ::chmod(temporary_.c_str(), 0666 & ~mask);
    }
    if (::rename(temporary_.c_str(), target_.GetPath().c_str()) != 0) {
        error = target_.GetGivenPath() + ": " + std::strerror(errno);
        Discard();
        return false;
    }
    temporary_.clear();
    return true;
}

void VRKReplacingFile::Discard() {
    if (!temporary_.empty()) {
        ::unlink(temporary_.c_str());
        temporary_.clear();
    }
}

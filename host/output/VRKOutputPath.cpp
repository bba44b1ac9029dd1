#include "host/output/VRKOutputPath.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <vector>

namespace {

// As many links as the kernel follows in one path before it gives ELOOP.
constexpr int kMaxLinks = 40;

std::string folderOf(const std::string& path) {
    const std::size_t slash = path.find_last_of('/');
    return slash == std::string::npos ? std::string() : path.substr(0, slash + 1);
}

std::string octal(mode_t mode) {
    char text[8];
    std::snprintf(text, sizeof text, "%04o", static_cast<unsigned>(mode & 07777));
    return text;
}

}  // namespace

bool VRKOutputPath::Resolve(const std::string& path, std::string& error) {
    given_ = path;
    path_ = path;
    kind_ = Kind::kNewFile;
    mode_ = 0;
    owner_ = 0;
    group_ = 0;
    if (path.empty()) {
        error = "the output path is empty";
        return false;
    }
    if (path.back() == '/') {
        error = path + ": names a folder, not a file";
        return false;
    }

    // What the path stands for once the kernel has followed every link.
    struct stat info {};
    const bool exists = ::stat(path.c_str(), &info) == 0;
    if (!exists && errno != ENOENT) {
        error = path + ": " + std::strerror(errno);
        return false;
    }
    if (exists) {
        if (S_ISDIR(info.st_mode)) {
            error = path + ": is a folder";
            return false;
        }
        if (S_ISBLK(info.st_mode)) {
            error = path +
                    ": is a block device; a plot goes to a file, a character device, a FIFO or "
                    "a socket";
            return false;
        }
        if (S_ISCHR(info.st_mode) || S_ISFIFO(info.st_mode) || S_ISSOCK(info.st_mode)) {
            // Opened through the path as given, so that links the kernel alone can follow
            // (/dev/stdout and the descriptors under /proc) lead to the same place.
            kind_ = Kind::kInPlace;
            if (!S_ISSOCK(info.st_mode) && ::access(path.c_str(), W_OK) != 0) {
                error = path + ": " + std::strerror(errno);
                return false;
            }
            return true;
        }
    }

    // A file, existing or new, is replaced by a rename: that needs the path of the file itself,
    // found by following the links one by one (a link to nothing names the file to create).
    for (int links = 0;; ++links) {
        if (::lstat(path_.c_str(), &info) != 0) {
            if (errno == ENOENT) {
                // A new file; its folder is checked when the temporary file is made there.
                return true;
            }
            error = path + ": " + std::strerror(errno);
            return false;
        }
        if (!S_ISLNK(info.st_mode)) {
            break;
        }
        if (links == kMaxLinks) {
            error = path + ": " + std::strerror(ELOOP);
            return false;
        }
        std::vector<char> target(static_cast<std::size_t>(info.st_size > 0 ? info.st_size : 255) +
                                 1);
        const ssize_t length = ::readlink(path_.c_str(), target.data(), target.size());
        if (length < 0) {
            error = path + ": " + std::strerror(errno);
            return false;
        }
        if (static_cast<std::size_t>(length) == target.size()) {
            // The link grew between lstat and readlink; read it again.
            --links;
            continue;
        }
        const std::string next(target.data(), static_cast<std::size_t>(length));
        if (next.empty()) {
            error = path + ": an empty symbolic link";
            return false;
        }
        path_ = next.front() == '/' ? next : folderOf(path_) + next;
    }
    if (!S_ISREG(info.st_mode)) {
        error = path + ": is neither a file nor a device";
        return false;
    }
    // A file nobody may write was made read-only on purpose; the superuser, whom access() lets
    // write anything, respects that too.
    if ((info.st_mode & 0222) == 0) {
        error = path + ": the file is read-only (mode " + octal(info.st_mode) +
                "); it is left as it is";
        return false;
    }
    if (::access(path_.c_str(), W_OK) != 0) {
        error = path + ": " + std::strerror(errno) + "; the file is left as it is";
        return false;
    }
    kind_ = Kind::kExistingFile;
    mode_ = info.st_mode & 07777;
    owner_ = info.st_uid;
    group_ = info.st_gid;
    return true;
}

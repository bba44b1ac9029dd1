#pragma once

#include <sys/types.h>

#include <string>

// What a path the user gave for a plot (or a settings file) stands for, found before any work is
// done, so that a plot that could not be put in place is not made at all.
//
// - A path that does not exist, or an existing regular file, is a file: it is written whole or
//   not at all, through a temporary file beside it that is renamed over it. An existing file
//   keeps its mode, owner and group. A file that may not be written (no write permission for the
//   user, or a file that nobody may write, which even the superuser keeps) is refused.
// - A symbolic link is followed to the file it points to, which is then written by these same
//   rules: the link stays a link. A link to nothing names the file to create.
// - A character device, a FIFO or a socket is written in place: it is never replaced, truncated
//   or removed.
// - A folder and a block device are refused.
class VRKOutputPath {
  public:
    enum class Kind { kNewFile, kExistingFile, kInPlace };

    // Finds what `path` stands for; false with `error` ("PATH: reason") when a plot cannot go
    // there.
    bool Resolve(const std::string& path, std::string& error);

    Kind GetKind() const { return kind_; }
    // The path as given, and the path that is written once links are followed.
    const std::string& GetGivenPath() const { return given_; }
    const std::string& GetPath() const { return path_; }
    // The mode, owner and group of an existing file (kExistingFile only).
    mode_t GetMode() const { return mode_; }
    uid_t GetOwner() const { return owner_; }
    gid_t GetGroup() const { return group_; }

  private:
    Kind kind_ = Kind::kNewFile;
    std::string given_;
    std::string path_;
    mode_t mode_ = 0;
    uid_t owner_ = 0;
    gid_t group_ = 0;
};

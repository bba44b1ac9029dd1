#pragma once

#include <string>

#include "host/output/VRKOutputPath.h"

// A file written whole or not at all: the bytes go to a temporary file beside the target (same
// folder, so that the rename stays on one file system), named ".NAME.XXXXXX.tmp" after the
// target's name, and Commit() renames it over the target. Until then an existing target is left
// as it was; Discard() and the destructor remove the temporary file.
//
// The new file gets the mode, owner and group of the file it replaces (owner and group as far as
// the process may set them), or the mode of any new file (0666 less the umask).
class VRKReplacingFile {
  public:
    VRKReplacingFile() = default;
    ~VRKReplacingFile();
    VRKReplacingFile(const VRKReplacingFile&) = delete;
    VRKReplacingFile& operator=(const VRKReplacingFile&) = delete;

    // Creates the temporary file for a target of kind kNewFile or kExistingFile. False with
    // `error` ("PATH: reason", PATH as the user gave it) when it cannot.
    bool Create(const VRKOutputPath& target, std::string& error);
    // The temporary file, to be written by name until Commit() or Discard().
    const std::string& GetTemporaryPath() const { return temporary_; }

    // Puts the written temporary file in place of the target.
    bool Commit(std::string& error);
    // Removes the temporary file.
    void Discard();

  private:
    VRKOutputPath target_;
    std::string temporary_;
};

#pragma once

#include <memory>
#include <string>

#include "host/core/VRKPrintFileStream.h"

// The plot file of a job, written so that it appears whole or not at all. The plot goes into a
// temporary file first: beside the output (same folder, so that the final rename stays on one
// file system), or, for standard output ("-"), in the system's temporary directory. Commit()
// renames it over the output, or copies it to standard output and removes it; Discard() and the
// destructor remove it. Until Commit() succeeds an existing file of the output's name is left as
// it was.
//
// The temporary file is named ".NAME.XXXXXX.tmp" after the output's file name; the renamed output
// gets the permissions a new file would get (0666 less the umask), not those of the file it
// replaces.
class VRKJobOutput {
  public:
    VRKJobOutput() = default;
    ~VRKJobOutput();
    VRKJobOutput(const VRKJobOutput&) = delete;
    VRKJobOutput& operator=(const VRKJobOutput&) = delete;

    // Creates the temporary file for a plot that is to end up at `path`. False with `error` set
    // when it cannot.
    bool Open(const std::string& path, std::string& error);
    // The stream the generator writes to, fresh for every Open(); valid from a successful Open()
    // to Commit() or Discard().
    VRKPrintFileStream& GetStream() { return *stream_; }
    const std::string& GetTemporaryPath() const { return temporary_; }

    // Closes the plot and puts it in place. False with `error` set when a write failed (the
    // stream's sticky error, the close, the copy to standard output) or the rename failed; the
    // temporary file is gone either way.
    bool Commit(std::string& error);
    // Closes the plot and removes the temporary file.
    void Discard();

  private:
    bool CopyToStandardOutput(std::string& error);

    std::string path_;
    std::string temporary_;
    std::unique_ptr<VRKPrintFileStream> stream_;
};

#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "host/core/VRKPrintStream.h"
#include "host/output/VRKDestination.h"
#include "host/output/VRKOutputPath.h"
#include "host/output/VRKReplacingFile.h"
#include "host/output/VRKSendOptions.h"

class VRKPrintFileStream;
class VRKSender;

// The plot of a job on its way to its destination (see VRKDestination and VRKOutputPath):
//
// - A file appears whole or not at all: it is written to a temporary file beside it and renamed
//   over it by Commit(); an existing file keeps its mode, owner and group.
// - Everything else (standard output, a character device, a FIFO, a socket file, a printer's
//   TCP port, the spooler, a serial line) gets the plot only once it is complete: it is made in
//   a temporary file in the system's temporary directory and sent by Commit(), so that a job
//   that fails sends nothing to the plotter. With `stream` set, these destinations are opened
//   by Open() and get the plot while it is made instead, for plots larger than the disk; a job
//   that fails then has sent what it made so far.
//
// Every error comes back as "WHERE: reason", WHERE being the path or destination as the user gave
// it ("/dev/full: No space left on device").
class VRKJobOutput {
  public:
    struct Options {
        bool stream = false;
        VRKSendOptions send;
        // A progress line on standard error while a send lasts (only on a terminal); a program
        // asks for it, a host that has its own window does not.
        bool progress = false;
    };

    VRKJobOutput();
    ~VRKJobOutput();
    VRKJobOutput(const VRKJobOutput&) = delete;
    VRKJobOutput& operator=(const VRKJobOutput&) = delete;

    // Prepares the output for one plot: checks that the destination can take it and opens what
    // the generator writes to. False with `error` set when it cannot; nothing is changed then.
    bool Open(const VRKDestination& destination, const Options& options, std::string& error);
    // A path or "-" for standard output, with the default options.
    bool Open(const std::string& path, std::string& error);

    // The stream the generator writes to, fresh for every Open(); valid from a successful Open()
    // to Commit() or Discard().
    VRKPrintStream& GetStream() { return *stream_; }

    // Completes the plot: puts the file in place, or sends it. False with `error` set when a
    // write, the rename or the send failed; the temporary file is gone either way.
    bool Commit(std::string& error);
    // Drops the plot: removes the temporary file, or closes a streaming send.
    void Discard();

    // The temporary file the plot is made in, empty when there is none (a plot sent while it is
    // made).
    const std::string& GetTemporaryPath() const {
        return mode_ == Mode::kSpool ? spooled_ : file_.GetTemporaryPath();
    }
    // The plot's size in bytes, once committed.
    std::uint64_t GetSize() const { return size_; }
    // Whether the plot went to a file (written) rather than to a device or printer (sent).
    bool IsFile() const { return mode_ == Mode::kReplace; }
    // What the destination said on taking the plot (the spooler's request line), or empty.
    const std::string& GetReceipt() const { return receipt_; }

  private:
    enum class Mode { kNone, kReplace, kSpool, kStream };

    bool OpenTemporary(std::string& error);
    bool CloseFileStream(std::string& error);
    bool SendSpooled(std::string& error);
    void TakeReceipt();

    Mode mode_ = Mode::kNone;
    VRKDestination destination_;
    Options options_;
    VRKReplacingFile file_;
    // The spooled plot in the temporary directory (kSpool).
    std::string spooled_;
    std::unique_ptr<VRKSender> sender_;
    std::unique_ptr<VRKPrintStream> stream_;
    VRKPrintFileStream* fileStream_ = nullptr;
    std::uint64_t size_ = 0;
    std::string receipt_;
};

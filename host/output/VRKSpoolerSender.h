#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

#include "host/output/VRKSendOptions.h"
#include "host/output/VRKSender.h"

// Sends a plot through the system spooler: runs `lp -d QUEUE -o raw [-t TITLE]` (without -d for
// the default queue), the first `lp` on PATH, and pipes the plot to its standard input. lp's
// standard output and standard error are read as it runs, so that it never blocks on them.
// Finish closes lp's input and waits for it: it has succeeded when it exits with status 0, and
// its message (its standard error, trimmed) is the error otherwise. A send fails when lp takes
// no byte for the options' timeout, and Finish when lp has not ended within the timeout after
// its input was closed; lp is then killed. Abort kills lp before its input ends, so that no job
// is submitted.
class VRKSpoolerSender final : public VRKSender {
  public:
    // `queue` empty: the spooler's default queue.
    VRKSpoolerSender(std::string queue, VRKSendOptions options);
    ~VRKSpoolerSender() override;

    bool Open(std::string& error) override;
    bool Send(const char* data, std::size_t size, std::string& error) override;
    bool Finish(std::string& error) override;
    void Abort() override;
    std::string GetReceipt() const override { return spoolerOutput_; }

    // What lp printed on its standard output, trimmed: after a successful Finish, CUPS's
    // "request id is QUEUE-12 (1 file(s))". Empty before.
    const std::string& GetSpoolerOutput() const { return spoolerOutput_; }
    // What lp printed on its standard error, trimmed (warnings of an lp that succeeded too).
    const std::string& GetSpoolerErrors() const { return spoolerErrors_; }

    // The arguments lp is run with, "lp" first.
    static std::vector<std::string> Arguments(const std::string& queue, const std::string& title);

  private:
    // Reads what lp has written on its output and error pipes so far.
    void Collect();
    // Fails the send when lp has closed its input: with lp's message, once lp has ended.
    bool LpStoppedReading(std::string& error);
    // Reads the output and error pipes until lp ends or the timeout passes (lp is then killed);
    // false with `error` when lp could not be waited for.
    bool WaitForLp(int& status, std::string& error);
    // The error of an lp that ended with `status`: its message, or its status in words.
    std::string LpFailure(int status) const;
    void Kill();
    void CloseAll();
    bool Fail(const std::string& reason, std::string& error);

    std::string queue_;
    VRKSendOptions options_;
    pid_t pid_ = -1;
    int input_ = -1;
    int output_ = -1;
    int errors_ = -1;
    std::string outputText_;
    std::string errorText_;
    std::string spoolerOutput_;
    std::string spoolerErrors_;
};

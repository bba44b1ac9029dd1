#include "tools/vrkplot/TemporaryFiles.h"

#include <limits.h>
#include <unistd.h>

#include <csignal>
#include <cstring>

namespace TemporaryFiles {

namespace {

// The path, copied where the handler can read it without allocating; `armed` says it is whole.
char path_[PATH_MAX];
volatile std::sig_atomic_t armed_ = 0;

void onSignal(int signal) {
    if (armed_ != 0) {
        ::unlink(path_);
    }
    // Ended as the signal ends a program, so that the shell sees what happened.
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

}  // namespace

void RemoveOnSignals() {
    // The signals that end a program by default and can be caught (SIGPIPE is ignored: a
    // reader gone away is a write error, reported, after which the file is removed anyway).
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGALRM, SIGUSR1, SIGUSR2, SIGXFSZ,
                             SIGXCPU, SIGVTALRM, SIGPROF}) {
        struct sigaction action {};
        action.sa_handler = onSignal;
        sigemptyset(&action.sa_mask);
        ::sigaction(signal, &action, nullptr);
    }
}

void Set(const std::string& path) {
    armed_ = 0;
    if (path.empty() || path.size() >= sizeof path_) {
        return;
    }
    std::memcpy(path_, path.c_str(), path.size() + 1);
    armed_ = 1;
}

}  // namespace TemporaryFiles

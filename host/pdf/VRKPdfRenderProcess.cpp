#include "host/pdf/VRKPdfRenderProcess.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>
#include <string>
#include <utility>

namespace {

// Each answer on the pipe: one byte of status, eight of length (in the machine's order; both
// ends are the same program), then the page's text or the message.
enum Status : unsigned char { kAnswerDone = 0, kAnswerFailed = 1, kAnswerNoMemory = 2 };
constexpr std::size_t kHeader = 9;

// How often the parent looks at the child's time and memory while it waits for a page.
constexpr int kIntervalMs = 10;

bool WriteAll(int fd, const char* data, std::size_t size) {
    while (size > 0) {
        const ssize_t written = ::write(fd, data, size);
        if (written < 0) {
            if (errno == EINTR) {
                continue;
            }
            return false;
        }
        data += written;
        size -= static_cast<std::size_t>(written);
    }
    return true;
}

bool WriteAnswer(int fd, unsigned char status, const std::string& text) {
    char header[kHeader];
    header[0] = static_cast<char>(status);
    const std::uint64_t length = text.size();
    std::memcpy(header + 1, &length, sizeof length);
    return WriteAll(fd, header, kHeader) && WriteAll(fd, text.data(), text.size());
}

// In the child: draws the pages and writes their answers, then ends without running anything of
// the parent's (no destructors of static objects, no flushing of the parent's buffered output).
[[noreturn]] void Child(int fd, const VRKPdfRenderProcess::Work& work, int first) {
    // The child ends as the default actions end a program, whatever handlers the program that
    // forked it set: those are for its own affairs (vrkplot removes its unfinished plot file on
    // a signal), and a crash inside the renderer must end the child only, with the signal for
    // the parent to see.
    struct sigaction action {};
    action.sa_handler = SIG_DFL;
    sigemptyset(&action.sa_mask);
    for (int signal = 1; signal < NSIG; ++signal) {
        if (signal != SIGKILL && signal != SIGSTOP) {
            ::sigaction(signal, &action, nullptr);
        }
    }
    sigset_t none;
    sigemptyset(&none);
    ::sigprocmask(SIG_SETMASK, &none, nullptr);
    // The opening says how many pages there are.
    int end = 0;
    for (int index = -1; index < end; index = index < 0 ? first : index + 1) {
        unsigned char status = kAnswerFailed;
        std::string output;
        std::string error;
        try {
            status = work(index, output, error) ? kAnswerDone : kAnswerFailed;
        } catch (const std::bad_alloc&) {
            status = kAnswerNoMemory;
        } catch (...) {
            error = "the page cannot be drawn";
        }
        const bool written = WriteAnswer(fd, status,
                                         status == kAnswerDone     ? output
                                         : status == kAnswerFailed ? error
                                                                   : std::string());
        if (!written || status != kAnswerDone) {
            ::_exit(written ? 0 : 1);
        }
        if (index < 0) {
            end = std::atoi(output.c_str());
        }
    }
    ::_exit(0);
}

// The resident memory of process `pid`, in bytes (0 when it cannot be read).
std::size_t ResidentBytes(pid_t pid) {
    char path[64];
    std::snprintf(path, sizeof path, "/proc/%d/statm", static_cast<int>(pid));
    std::FILE* file = std::fopen(path, "r");
    if (file == nullptr) {
        return 0;
    }
    unsigned long size = 0;
    unsigned long resident = 0;
    const int read = std::fscanf(file, "%lu %lu", &size, &resident);
    std::fclose(file);
    return read == 2 ? static_cast<std::size_t>(resident) *
                           static_cast<std::size_t>(::sysconf(_SC_PAGESIZE))
                     : 0;
}

std::string NoProcess(int cause) {
    return std::string("no process can be started to draw the pages (") + std::strerror(cause) +
           ")";
}

}  // namespace

VRKPdfRenderProcess::~VRKPdfRenderProcess() {
    Stop(true);
}

bool VRKPdfRenderProcess::Start(const Work& work, int first, const Limits& limits,
                                std::string& error) {
    Stop(true);
    int fds[2];
    if (::pipe2(fds, O_CLOEXEC) != 0) {
        error = NoProcess(errno);
        return false;
    }
    const pid_t pid = ::fork();
    if (pid < 0) {
        const int cause = errno;
        ::close(fds[0]);
        ::close(fds[1]);
        error = NoProcess(cause);
        return false;
    }
    if (pid == 0) {
        ::close(fds[0]);
        Child(fds[1], work, first);
    }
    ::close(fds[1]);
    pid_ = pid;
    fd_ = fds[0];
    next_ = -1;
    first_ = first;
    limits_ = limits;
    pending_.clear();
    startMemory_ = ResidentBytes(pid);
    return true;
}

VRKPdfRenderProcess::Outcome VRKPdfRenderProcess::Next(std::string& output, std::string& error) {
    output.clear();
    if (pid_ <= 0) {
        error = "no process draws the pages";
        return Outcome::kNoProcess;
    }
    const auto start = std::chrono::steady_clock::now();
    std::uint64_t length = 0;
    bool ended = false;
    char buffer[65536];
    for (;;) {
        if (pending_.size() >= kHeader) {
            std::memcpy(&length, pending_.data() + 1, sizeof length);
            if (length > limits_.maxOutput) {
                Stop(true);
                return Outcome::kTooLarge;
            }
            if (pending_.size() - kHeader >= length) {
                break;
            }
        }
        if (ended) {
            const int status = Stop(false);
            error = WIFSIGNALED(status) ? "the renderer stopped on the page (signal " +
                                              std::to_string(WTERMSIG(status)) + ")"
                                        : "the renderer stopped on the page without an answer";
            return Outcome::kCrashed;
        }
        pollfd wait{fd_, POLLIN, 0};
        const int ready = ::poll(&wait, 1, kIntervalMs);
        if (ready > 0) {
            const ssize_t got = ::read(fd_, buffer, sizeof buffer);
            if (got > 0) {
                pending_.append(buffer, static_cast<std::size_t>(got));
                continue;
            }
            if (got == 0 || errno != EINTR) {
                ended = true;
                continue;
            }
        } else if (ready < 0 && errno != EINTR) {
            ended = true;
            continue;
        }
        if (std::chrono::steady_clock::now() - start > limits_.maxTime) {
            Stop(true);
            return Outcome::kTime;
        }
        const std::size_t memory = ResidentBytes(pid_);
        if (memory > startMemory_ && memory - startMemory_ > limits_.maxMemoryGrowth) {
            Stop(true);
            return Outcome::kMemory;
        }
    }

    const auto status = static_cast<unsigned char>(pending_[0]);
    if (status == kAnswerDone && pending_.size() == kHeader + length) {
        // The usual case, the answer alone in the buffer: handed over without a copy.
        pending_.erase(0, kHeader);
        output = std::move(pending_);
        pending_.clear();
    } else {
        std::string text = pending_.substr(kHeader, length);
        pending_.erase(0, kHeader + length);
        if (status == kAnswerDone) {
            output = std::move(text);
        } else {
            error = std::move(text);
        }
    }
    next_ = next_ < 0 ? first_ : next_ + 1;
    if (status == kAnswerDone) {
        return Outcome::kDone;
    }
    Stop(false);
    return status == kAnswerNoMemory ? Outcome::kNoMemory : Outcome::kFailed;
}

int VRKPdfRenderProcess::Stop(bool kill) {
    if (pid_ <= 0) {
        return 0;
    }
    ::close(fd_);
    fd_ = -1;
    if (kill) {
        ::kill(pid_, SIGKILL);
    }
    int status = 0;
    while (::waitpid(pid_, &status, 0) < 0 && errno == EINTR) {
    }
    pid_ = -1;
    pending_.clear();
    return status;
}

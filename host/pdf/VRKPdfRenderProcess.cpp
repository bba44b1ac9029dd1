#include "host/pdf/VRKPdfRenderProcess.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <new>
#include <utility>

namespace {

// The child's answer on the pipe: one byte of status, eight of length (in the machine's order;
// both ends are the same program), then the output or the message.
enum Status : unsigned char { kAnswerDone = 0, kAnswerFailed = 1, kAnswerNoMemory = 2 };
constexpr std::size_t kHeader = 9;

// How often the parent looks at the child's time and memory while it waits for its text.
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

// In the child: runs the work and writes its answer, then ends without running anything of the
// parent's (no destructors of static objects, no flushing of the parent's buffered output).
[[noreturn]] void Child(int fd, const VRKPdfRenderProcess::Work& work) {
    // Interrupts are the parent's to handle; the child simply ends.
    ::signal(SIGINT, SIG_DFL);
    ::signal(SIGTERM, SIG_DFL);
    ::signal(SIGHUP, SIG_DFL);
    unsigned char status = kAnswerFailed;
    std::string output;
    std::string error;
    try {
        status = work(output, error) ? kAnswerDone : kAnswerFailed;
    } catch (const std::bad_alloc&) {
        status = kAnswerNoMemory;
    } catch (...) {
        status = kAnswerFailed;
        error = "the page cannot be drawn";
    }
    const std::string& text = status == kAnswerDone ? output : error;
    char header[kHeader];
    header[0] = static_cast<char>(status);
    const std::uint64_t length = status == kAnswerNoMemory ? 0 : text.size();
    std::memcpy(header + 1, &length, sizeof length);
    const bool written = WriteAll(fd, header, kHeader) &&
                         WriteAll(fd, text.data(), static_cast<std::size_t>(length));
    ::_exit(written ? 0 : 1);
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

}  // namespace

VRKPdfRenderProcess::Outcome VRKPdfRenderProcess::Run(const Work& work, const Limits& limits,
                                                      std::string& output, std::string& error) {
    output.clear();
    int fds[2];
    if (::pipe2(fds, O_CLOEXEC) != 0) {
        error = std::string("no process can be started to draw the page (") + std::strerror(errno) +
                ")";
        return Outcome::kNoProcess;
    }
    const pid_t pid = ::fork();
    if (pid < 0) {
        const int cause = errno;
        ::close(fds[0]);
        ::close(fds[1]);
        error = std::string("no process can be started to draw the page (") + std::strerror(cause) +
                ")";
        return Outcome::kNoProcess;
    }
    if (pid == 0) {
        ::close(fds[0]);
        Child(fds[1], work);
    }
    ::close(fds[1]);
    const int fd = fds[0];

    const auto start = std::chrono::steady_clock::now();
    const std::size_t startMemory = ResidentBytes(pid);
    std::string answer;
    Outcome stopped = Outcome::kDone;
    bool ended = false;
    char buffer[65536];
    while (!ended && stopped == Outcome::kDone) {
        pollfd wait{fd, POLLIN, 0};
        const int ready = ::poll(&wait, 1, kIntervalMs);
        if (ready > 0) {
            const ssize_t got = ::read(fd, buffer, sizeof buffer);
            if (got > 0) {
                answer.append(buffer, static_cast<std::size_t>(got));
                if (answer.size() > limits.maxOutput + kHeader) {
                    stopped = Outcome::kTooLarge;
                }
            } else if (got == 0 || errno != EINTR) {
                ended = true;
            }
        } else if (ready < 0 && errno != EINTR) {
            ended = true;
        }
        if (stopped != Outcome::kDone || ended) {
            break;
        }
        if (std::chrono::steady_clock::now() - start > limits.maxTime) {
            stopped = Outcome::kTime;
        } else {
            const std::size_t memory = ResidentBytes(pid);
            if (memory > startMemory && memory - startMemory > limits.maxMemoryGrowth) {
                stopped = Outcome::kMemory;
            }
        }
    }
    ::close(fd);
    if (stopped != Outcome::kDone) {
        ::kill(pid, SIGKILL);
    }
    int status = 0;
    while (::waitpid(pid, &status, 0) < 0 && errno == EINTR) {
    }
    if (stopped != Outcome::kDone) {
        return stopped;
    }

    std::uint64_t length = 0;
    if (answer.size() >= kHeader) {
        std::memcpy(&length, answer.data() + 1, sizeof length);
    }
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0 || answer.size() < kHeader ||
        answer.size() - kHeader != length) {
        if (WIFSIGNALED(status)) {
            error = "the renderer stopped on the page (signal " + std::to_string(WTERMSIG(status)) +
                    ")";
        } else {
            error = "the renderer stopped on the page without an answer";
        }
        return Outcome::kCrashed;
    }
    switch (static_cast<unsigned char>(answer[0])) {
        case kAnswerDone:
            answer.erase(0, kHeader);
            output = std::move(answer);
            return Outcome::kDone;
        case kAnswerNoMemory:
            return Outcome::kNoMemory;
        default:
            error = answer.substr(kHeader);
            return Outcome::kFailed;
    }
}

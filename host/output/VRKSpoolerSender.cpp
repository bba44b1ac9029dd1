#include "host/output/VRKSpoolerSender.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "host/output/VRKSendSupport.h"

extern char** environ;

namespace {

const char kWho[] = "spooler";
// What is kept of each of lp's outputs; the rest is read and dropped.
constexpr std::size_t kKeptOutput = 65536;

std::string Trim(const std::string& text) {
    const char* blanks = " \t\r\n";
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string::npos) {
        return std::string();
    }
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

// Moves `fd` to 3 or above, so that the child's dup2 onto 0, 1 and 2 never meets its own source.
int AboveStandardDescriptors(int fd) {
    if (fd > 2) {
        return fd;
    }
    const int moved = ::fcntl(fd, F_DUPFD_CLOEXEC, 3);
    ::close(fd);
    return moved;
}

bool MakePipe(int ends[2]) {
    if (::pipe2(ends, O_CLOEXEC) != 0) {
        return false;
    }
    ends[0] = AboveStandardDescriptors(ends[0]);
    ends[1] = AboveStandardDescriptors(ends[1]);
    if (ends[0] < 0 || ends[1] < 0) {
        const int reason = errno;
        if (ends[0] >= 0) {
            ::close(ends[0]);
        }
        if (ends[1] >= 0) {
            ::close(ends[1]);
        }
        errno = reason;
        return false;
    }
    return true;
}

void CloseFd(int& fd) {
    if (fd >= 0) {
        ::close(fd);
        fd = -1;
    }
}

// Reads what `fd` has now into `text` (kept up to kKeptOutput); closes it at its end.
void ReadAvailable(int& fd, std::string& text) {
    char buffer[4096];
    while (fd >= 0) {
        const ssize_t got = ::read(fd, buffer, sizeof buffer);
        if (got > 0) {
            text.append(buffer, std::min(static_cast<std::size_t>(got),
                                         kKeptOutput - std::min(kKeptOutput, text.size())));
            continue;
        }
        if (got < 0 && errno == EINTR) {
            continue;
        }
        if (got < 0 && (errno == EAGAIN || errno == EWOULDBLOCK)) {
            return;
        }
        CloseFd(fd);
    }
}

}  // namespace

VRKSpoolerSender::VRKSpoolerSender(std::string queue, VRKSendOptions options)
    : queue_(std::move(queue)), options_(std::move(options)) {}

VRKSpoolerSender::~VRKSpoolerSender() {
    Abort();
}

std::vector<std::string> VRKSpoolerSender::Arguments(const std::string& queue,
                                                     const std::string& title) {
    std::vector<std::string> arguments{"lp"};
    if (!queue.empty()) {
        arguments.insert(arguments.end(), {"-d", queue});
    }
    arguments.insert(arguments.end(), {"-o", "raw"});
    if (!title.empty()) {
        arguments.insert(arguments.end(), {"-t", title});
    }
    return arguments;
}

bool VRKSpoolerSender::Open(std::string& error) {
    Abort();
    outputText_.clear();
    errorText_.clear();
    spoolerOutput_.clear();
    spoolerErrors_.clear();
    int input[2], output[2], errors[2];
    if (!MakePipe(input)) {
        error = std::string("cannot run lp: ") + std::strerror(errno);
        return false;
    }
    if (!MakePipe(output)) {
        error = std::string("cannot run lp: ") + std::strerror(errno);
        ::close(input[0]);
        ::close(input[1]);
        return false;
    }
    if (!MakePipe(errors)) {
        error = std::string("cannot run lp: ") + std::strerror(errno);
        for (int fd : {input[0], input[1], output[0], output[1]}) {
            ::close(fd);
        }
        return false;
    }

    // The child's ends become its 0, 1 and 2; every other descriptor of ours is close-on-exec.
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, input[0], STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, output[1], STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&actions, errors[1], STDERR_FILENO);
    // lp starts with SIGPIPE at its default and no signal blocked, whatever this process does.
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    sigset_t defaults, noMask;
    sigemptyset(&defaults);
    sigaddset(&defaults, SIGPIPE);
    sigemptyset(&noMask);
    posix_spawnattr_setsigdefault(&attributes, &defaults);
    posix_spawnattr_setsigmask(&attributes, &noMask);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK);

    std::vector<std::string> arguments = Arguments(queue_, options_.title);
    std::vector<char*> argv;
    for (std::string& argument : arguments) {
        argv.push_back(argument.data());
    }
    argv.push_back(nullptr);
    pid_t pid = -1;
    const int spawned = ::posix_spawnp(&pid, "lp", &actions, &attributes, argv.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    posix_spawnattr_destroy(&attributes);
    ::close(input[0]);
    ::close(output[1]);
    ::close(errors[1]);
    if (spawned != 0) {
        ::close(input[1]);
        ::close(output[0]);
        ::close(errors[0]);
        error = std::string("cannot run lp: ") + std::strerror(spawned);
        if (spawned == ENOENT) {
            error += " (the spooler's client, Debian package cups-client)";
        }
        return false;
    }
    pid_ = pid;
    input_ = input[1];
    output_ = output[0];
    errors_ = errors[0];
    if (!VRKSetNonBlocking(input_) || !VRKSetNonBlocking(output_) || !VRKSetNonBlocking(errors_)) {
        return Fail(std::string("cannot run lp: ") + std::strerror(errno), error);
    }
    return true;
}

void VRKSpoolerSender::Collect() {
    ReadAvailable(output_, outputText_);
    ReadAvailable(errors_, errorText_);
}

bool VRKSpoolerSender::Send(const char* data, std::size_t size, std::string& error) {
    if (input_ < 0) {
        error = "lp is not running";
        return false;
    }
    VRKSendTimer timer(options_.timeoutSeconds);
    for (;;) {
        switch (VRKWriteWhatFits(input_, data, size, timer, VRKWriteWithoutSigPipe)) {
            case VRKWriteProgress::kAllWritten:
                return true;
            case VRKWriteProgress::kTookNothing:
                return Fail("lp took no byte", error);
            case VRKWriteProgress::kFailed:
                if (errno == EPIPE) {
                    return LpStoppedReading(error);
                }
                return Fail(std::strerror(errno), error);
            case VRKWriteProgress::kFull:
                break;
        }
        // Wait until lp takes more, reading what it says meanwhile.
        for (;;) {
            if (timer.Expired()) {
                return Fail(VRKStoppedTakingData(kWho, options_.timeoutSeconds), error);
            }
            pollfd waiting[3] = {{input_, POLLOUT, 0}, {output_, POLLIN, 0}, {errors_, POLLIN, 0}};
            const int ready = ::poll(waiting, 3, timer.PollMilliseconds());
            if (ready < 0 && errno != EINTR) {
                return Fail(std::strerror(errno), error);
            }
            Collect();
            if (ready > 0 && waiting[0].revents != 0) {
                break;
            }
        }
    }
}

bool VRKSpoolerSender::LpStoppedReading(std::string& error) {
    // lp has closed its input before the end of the plot: it has ended, or is ending, and says
    // why.
    CloseFd(input_);
    int status = 0;
    if (!WaitForLp(status, error)) {
        CloseAll();
        return false;
    }
    if (WIFEXITED(status) && WEXITSTATUS(status) == 0) {
        return Fail("lp stopped reading the plot before its end", error);
    }
    return Fail(LpFailure(status), error);
}

bool VRKSpoolerSender::WaitForLp(int& status, std::string& error) {
    VRKSendTimer timer(options_.timeoutSeconds);
    int pause = 1;
    for (;;) {
        Collect();
        const pid_t ended = ::waitpid(pid_, &status, WNOHANG);
        if (ended == pid_) {
            pid_ = -1;
            Collect();
            return true;
        }
        if (ended < 0 && errno != EINTR) {
            error = std::string("cannot wait for lp: ") + std::strerror(errno);
            pid_ = -1;
            return false;
        }
        if (timer.Expired()) {
            Kill();
            error = "lp did not end within " + VRKDescribeSeconds(options_.timeoutSeconds) +
                    " after the plot";
            return false;
        }
        // lp's end shows as the end of its outputs; once they are closed, it is looked at again
        // after a pause that grows from 1 to 50 ms.
        pollfd waiting[2] = {{output_, POLLIN, 0}, {errors_, POLLIN, 0}};
        if (output_ >= 0 || errors_ >= 0) {
            ::poll(waiting, 2, timer.PollMilliseconds(50));
        } else {
            ::poll(nullptr, 0, timer.PollMilliseconds(pause));
            pause = std::min(pause * 2, 50);
        }
    }
}

std::string VRKSpoolerSender::LpFailure(int status) const {
    const std::string message = Trim(errorText_);
    if (!message.empty()) {
        return message;
    }
    if (WIFEXITED(status)) {
        return "lp exited with status " + std::to_string(WEXITSTATUS(status));
    }
    if (WIFSIGNALED(status)) {
        return "lp was killed by signal " + std::to_string(WTERMSIG(status)) + " (" +
               ::strsignal(WTERMSIG(status)) + ")";
    }
    return "lp failed";
}

bool VRKSpoolerSender::Finish(std::string& error) {
    if (pid_ < 0 || input_ < 0) {
        error = "lp is not running";
        return false;
    }
    // The end of lp's input is the end of the plot: lp submits the job and ends.
    CloseFd(input_);
    int status = 0;
    if (!WaitForLp(status, error)) {
        CloseAll();
        return false;
    }
    spoolerOutput_ = Trim(outputText_);
    spoolerErrors_ = Trim(errorText_);
    CloseAll();
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) {
        error = LpFailure(status);
        return false;
    }
    return true;
}

void VRKSpoolerSender::Kill() {
    if (pid_ < 0) {
        return;
    }
    // SIGTERM first, so that lp may take back the job it has begun; SIGKILL after a second.
    ::kill(pid_, SIGTERM);
    int status = 0;
    for (int round = 0; round < 100; ++round) {
        const pid_t ended = ::waitpid(pid_, &status, WNOHANG);
        if (ended == pid_ || (ended < 0 && errno != EINTR)) {
            pid_ = -1;
            return;
        }
        ::poll(nullptr, 0, 10);
    }
    ::kill(pid_, SIGKILL);
    while (::waitpid(pid_, &status, 0) < 0 && errno == EINTR) {
    }
    pid_ = -1;
}

void VRKSpoolerSender::Abort() {
    // lp goes before its input is closed: an lp that saw the end of its input would submit.
    Kill();
    CloseAll();
}

void VRKSpoolerSender::CloseAll() {
    CloseFd(input_);
    CloseFd(output_);
    CloseFd(errors_);
}

bool VRKSpoolerSender::Fail(const std::string& reason, std::string& error) {
    error = reason;
    Abort();
    return false;
}

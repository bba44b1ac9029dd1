#include "host/output/VRKInPlaceSender.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "host/output/VRKSendSupport.h"

VRKInPlaceSender::VRKInPlaceSender(std::string path) : path_(std::move(path)) {}

VRKInPlaceSender::~VRKInPlaceSender() {
    Abort();
}

bool VRKInPlaceSender::Open(std::string& error) {
    Abort();
    if (path_ == "-") {
        fd_ = STDOUT_FILENO;
        ownsFd_ = false;
        struct stat status;
        isSocket_ = ::fstat(fd_, &status) == 0 && S_ISSOCK(status.st_mode);
        return true;
    }
    struct stat status;
    if (::stat(path_.c_str(), &status) != 0) {
        error = std::strerror(errno);
        return false;
    }
    if (S_ISSOCK(status.st_mode)) {
        return ConnectSocketFile(error);
    }
    if (!S_ISCHR(status.st_mode) && !S_ISFIFO(status.st_mode)) {
        error = S_ISDIR(status.st_mode) ? std::strerror(EISDIR)
                                        : "not a character device, a FIFO or a socket file";
        return false;
    }
    // No O_CREAT, no O_TRUNC: the device is written as it is. A FIFO's open waits for a reader.
    do {
        fd_ = ::open(path_.c_str(), O_WRONLY | O_NOCTTY | O_CLOEXEC);
    } while (fd_ < 0 && errno == EINTR);
    if (fd_ < 0) {
        error = std::strerror(errno);
        return false;
    }
    ownsFd_ = true;
    isSocket_ = false;
    // The path may have been replaced between the two looks at it.
    if (::fstat(fd_, &status) != 0 || (!S_ISCHR(status.st_mode) && !S_ISFIFO(status.st_mode))) {
        Abort();
        error = "not a character device, a FIFO or a socket file";
        return false;
    }
    return true;
}

bool VRKInPlaceSender::ConnectSocketFile(std::string& error) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path_.size() >= sizeof address.sun_path) {
        error = "the socket file's path is longer than " +
                std::to_string(sizeof address.sun_path - 1) + " bytes, which a socket cannot reach";
        return false;
    }
    std::memcpy(address.sun_path, path_.c_str(), path_.size() + 1);
    fd_ = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (fd_ < 0) {
        error = std::string("cannot connect: ") + std::strerror(errno);
        return false;
    }
    ownsFd_ = true;
    isSocket_ = true;
    if (::connect(fd_, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
        int reason = errno;
        if (reason == EINTR) {
            // The connection goes on in the background: wait for its outcome.
            pollfd waiting{fd_, POLLOUT, 0};
            while (::poll(&waiting, 1, -1) < 0 && errno == EINTR) {
            }
            socklen_t length = sizeof reason;
            if (::getsockopt(fd_, SOL_SOCKET, SO_ERROR, &reason, &length) != 0) {
                reason = errno;
            }
        }
        if (reason != 0) {
            Abort();
            error = std::string("cannot connect: ") + std::strerror(reason);
            return false;
        }
    }
    return true;
}

bool VRKInPlaceSender::Send(const char* data, std::size_t size, std::string& error) {
    if (fd_ < 0) {
        error = "the destination is not open";
        return false;
    }
    while (size > 0) {
        const ssize_t written = isSocket_ ? ::send(fd_, data, size, MSG_NOSIGNAL)
                                          : VRKWriteWithoutSigPipe(fd_, data, size);
        if (written > 0) {
            data += written;
            size -= static_cast<std::size_t>(written);
            continue;
        }
        if (written == 0) {
            return Fail("the device took no byte of the plot", error);
        }
        if (errno == EINTR) {
            continue;
        }
        if (errno == EAGAIN || errno == EWOULDBLOCK) {
            // Standard output may have been left non-blocking by another program.
            pollfd waiting{fd_, POLLOUT, 0};
            while (::poll(&waiting, 1, -1) < 0 && errno == EINTR) {
            }
            continue;
        }
        return Fail(std::strerror(errno), error);
    }
    return true;
}

bool VRKInPlaceSender::Finish(std::string& error) {
    if (fd_ < 0) {
        error = "the destination is not open";
        return false;
    }
    if (isSocket_ && ownsFd_) {
        // The reader sees the end of the plot; what was sent is already in its queue.
        ::shutdown(fd_, SHUT_WR);
    }
    if (ownsFd_ && ::close(fd_) != 0 && errno != EINTR) {
        fd_ = -1;
        error = std::strerror(errno);
        return false;
    }
    fd_ = -1;
    ownsFd_ = false;
    return true;
}

void VRKInPlaceSender::Abort() {
    if (fd_ >= 0 && ownsFd_) {
        ::close(fd_);
    }
    fd_ = -1;
    ownsFd_ = false;
}

bool VRKInPlaceSender::Fail(const std::string& reason, std::string& error) {
    error = reason;
    Abort();
    return false;
}

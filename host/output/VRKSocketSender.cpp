#include "host/output/VRKSocketSender.h"

#include <linux/sockios.h>
#include <netdb.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "host/output/VRKSendSupport.h"

namespace {

const char kWho[] = "printer";

}  // namespace

VRKSocketSender::VRKSocketSender(std::string host, int port, VRKSendOptions options)
    : host_(std::move(host)), port_(port), options_(std::move(options)) {}

VRKSocketSender::~VRKSocketSender() {
    Abort();
}

std::string VRKSocketSender::HostAndPort() const {
    const std::string host = host_.find(':') != std::string::npos ? "[" + host_ + "]" : host_;
    return host + ":" + std::to_string(port_);
}

bool VRKSocketSender::Open(std::string& error) {
    Abort();
    backChannelEnded_ = false;
    addrinfo hints{};
    hints.ai_family = AF_UNSPEC;
    hints.ai_socktype = SOCK_STREAM;
    hints.ai_flags = AI_NUMERICSERV;
    addrinfo* addresses = nullptr;
    const int found =
        ::getaddrinfo(host_.c_str(), std::to_string(port_).c_str(), &hints, &addresses);
    if (found != 0) {
        error = "cannot find the host '" + host_ +
                "': " + (found == EAI_SYSTEM ? std::strerror(errno) : ::gai_strerror(found));
        return false;
    }
    std::string reason = "the host has no address";
    for (const addrinfo* address = addresses; address != nullptr; address = address->ai_next) {
        if (Connect(*address, reason)) {
            break;
        }
    }
    ::freeaddrinfo(addresses);
    if (fd_ < 0) {
        error = "cannot connect to " + HostAndPort() + ": " + reason;
        return false;
    }
    return true;
}

bool VRKSocketSender::Connect(const addrinfo& address, std::string& reason) {
    const int fd = ::socket(address.ai_family, address.ai_socktype | SOCK_NONBLOCK | SOCK_CLOEXEC,
                            address.ai_protocol);
    if (fd < 0) {
        reason = std::strerror(errno);
        return false;
    }
    if (::connect(fd, address.ai_addr, address.ai_addrlen) != 0) {
        if (errno != EINPROGRESS && errno != EINTR) {
            reason = std::strerror(errno);
            ::close(fd);
            return false;
        }
        const VRKSendTimer timer(options_.timeoutSeconds);
        for (;;) {
            pollfd waiting{fd, POLLOUT, 0};
            const int ready = ::poll(&waiting, 1, timer.PollMilliseconds());
            if (ready > 0) {
                break;
            }
            if (ready < 0 && errno != EINTR) {
                reason = std::strerror(errno);
                ::close(fd);
                return false;
            }
            if (timer.Expired()) {
                reason = "no answer within " + VRKDescribeSeconds(options_.timeoutSeconds);
                ::close(fd);
                return false;
            }
        }
        int failure = 0;
        socklen_t length = sizeof failure;
        if (::getsockopt(fd, SOL_SOCKET, SO_ERROR, &failure, &length) != 0) {
            failure = errno;
        }
        if (failure != 0) {
            reason = std::strerror(failure);
            ::close(fd);
            return false;
        }
    }
    fd_ = fd;
    return true;
}

bool VRKSocketSender::Send(const char* data, std::size_t size, std::string& error) {
    if (fd_ < 0) {
        error = "the connection is closed";
        return false;
    }
    VRKSendTimer timer(options_.timeoutSeconds);
    bool hungUp = false;
    while (size > 0) {
        const ssize_t sent = ::send(fd_, data, size, MSG_NOSIGNAL | MSG_DONTWAIT);
        if (sent > 0) {
            data += sent;
            size -= static_cast<std::size_t>(sent);
            timer.Restart();
            continue;
        }
        if (sent < 0 && errno == EINTR) {
            continue;
        }
        if (sent == 0 || (errno != EAGAIN && errno != EWOULDBLOCK)) {
            return Fail(sent == 0 ? "the connection took no byte" : std::strerror(errno), error);
        }
        if (hungUp) {
            return Fail("the printer closed the connection", error);
        }
        // Wait until the printer takes more, reading what it sends back meanwhile.
        for (;;) {
            if (timer.Expired()) {
                return Fail(VRKStoppedTakingData(kWho, options_.timeoutSeconds), error);
            }
            pollfd waiting{fd_, static_cast<short>(POLLOUT | (backChannelEnded_ ? 0 : POLLIN)), 0};
            const int ready = ::poll(&waiting, 1, timer.PollMilliseconds());
            if (ready < 0) {
                if (errno == EINTR) {
                    continue;
                }
                return Fail(std::strerror(errno), error);
            }
            if (ready == 0) {
                continue;
            }
            if ((waiting.revents & POLLIN) != 0 && !VRKDiscardInput(fd_, backChannelEnded_) &&
                !backChannelEnded_) {
                return Fail(std::strerror(errno), error);
            }
            if ((waiting.revents & (POLLOUT | POLLERR)) != 0) {
                break;
            }
            if ((waiting.revents & POLLHUP) != 0) {
                // The next send says why, or this was the end.
                hungUp = true;
                break;
            }
        }
    }
    return true;
}

bool VRKSocketSender::Finish(std::string& error) {
    if (fd_ < 0) {
        error = "the connection is closed";
        return false;
    }
    if (::shutdown(fd_, SHUT_WR) != 0) {
        return Fail(std::strerror(errno), error);
    }
    // The kernel counts what the printer has not acknowledged yet; nothing tells when that count
    // falls, so it is looked at again after a pause that grows from 1 to 50 ms.
    VRKSendTimer timer(options_.timeoutSeconds);
    int lastUnacknowledged = -1;
    int pause = 1;
    for (;;) {
        int unacknowledged = 0;
        if (::ioctl(fd_, SIOCOUTQ, &unacknowledged) != 0) {
            return Fail(std::strerror(errno), error);
        }
        if (unacknowledged == 0) {
            break;
        }
        int failure = 0;
        socklen_t length = sizeof failure;
        if (::getsockopt(fd_, SOL_SOCKET, SO_ERROR, &failure, &length) == 0 && failure != 0) {
            return Fail(std::strerror(failure), error);
        }
        tcp_info info{};
        length = sizeof info;
        if (::getsockopt(fd_, IPPROTO_TCP, TCP_INFO, &info, &length) == 0 &&
            info.tcpi_state == TCP_CLOSE) {
            return Fail("the printer closed the connection before it took the whole plot", error);
        }
        if (lastUnacknowledged >= 0 && unacknowledged < lastUnacknowledged) {
            timer.Restart();
        }
        lastUnacknowledged = unacknowledged;
        if (timer.Expired()) {
            return Fail(VRKStoppedTakingData(kWho, options_.timeoutSeconds), error);
        }
        pollfd waiting{fd_, static_cast<short>(backChannelEnded_ ? 0 : POLLIN), 0};
        const int ready =
            ::poll(&waiting, backChannelEnded_ ? 0 : 1, timer.PollMilliseconds(pause));
        pause = std::min(pause * 2, 50);
        if (ready < 0 && errno != EINTR) {
            return Fail(std::strerror(errno), error);
        }
        if (ready > 0) {
            if ((waiting.revents & POLLIN) != 0) {
                if (!VRKDiscardInput(fd_, backChannelEnded_) && !backChannelEnded_) {
                    return Fail(std::strerror(errno), error);
                }
            } else {
                // An error or a hang-up without data: looked at on the next round; meanwhile
                // poll() would return at once.
                ::poll(nullptr, 0, pause);
            }
        }
    }
    ::close(fd_);
    fd_ = -1;
    return true;
}

void VRKSocketSender::Abort() {
    if (fd_ < 0) {
        return;
    }
    // A reset rather than an orderly close: the printer must not take a cut plot for a whole one.
    const linger reset{1, 0};
    ::setsockopt(fd_, SOL_SOCKET, SO_LINGER, &reset, sizeof reset);
    ::close(fd_);
    fd_ = -1;
}

bool VRKSocketSender::Fail(const std::string& reason, std::string& error) {
    error = reason;
    Abort();
    return false;
}

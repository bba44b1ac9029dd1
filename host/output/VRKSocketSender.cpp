#include "host/output/VRKSocketSender.h"

#include <linux/sockios.h>
#include <netdb.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "host/output/VRKSendSupport.h"

namespace {

ssize_t SendToPrinter(int fd, const void* data, std::size_t size) {
    return ::send(fd, data, size, MSG_NOSIGNAL | MSG_DONTWAIT);
}

// What the printer has not acknowledged yet, which the kernel counts; fails when the connection
// has failed, or the printer has closed it before it took everything.
bool Unacknowledged(int fd, int& unacknowledged, std::string& reason) {
    if (::ioctl(fd, SIOCOUTQ, &unacknowledged) != 0) {
        reason = std::strerror(errno);
        return false;
    }
    if (unacknowledged == 0) {
        return true;
    }
    int failure = 0;
    socklen_t length = sizeof failure;
    if (::getsockopt(fd, SOL_SOCKET, SO_ERROR, &failure, &length) == 0 && failure != 0) {
        reason = std::strerror(failure);
        return false;
    }
    tcp_info info{};
    length = sizeof info;
    if (::getsockopt(fd, IPPROTO_TCP, TCP_INFO, &info, &length) == 0 &&
        info.tcpi_state == TCP_CLOSE) {
        reason = "the printer closed the connection before it took the whole plot";
        return false;
    }
    return true;
}

}  // namespace

VRKSocketSender::VRKSocketSender(std::string host, int port, VRKSendOptions options)
    : VRKDescriptorSender(
          // What the printer sends back is dropped; a back channel that fails fails the plot.
          VRKDescriptorWriter(SendToPrinter, "printer", "the connection took no byte",
                              "the printer closed the connection",
                              VRKDescriptorWriter::UnreadableInput::kFail, options.timeoutSeconds),
          "the connection is closed"),
      host_(std::move(host)),
      port_(port),
      options_(std::move(options)) {}

VRKSocketSender::~VRKSocketSender() {
    Abort();
}

std::string VRKSocketSender::HostAndPort() const {
    const std::string host = host_.find(':') != std::string::npos ? "[" + host_ + "]" : host_;
    return host + ":" + std::to_string(port_);
}

bool VRKSocketSender::Open(std::string& error) {
    Abort();
    writer_.Reset();
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

bool VRKSocketSender::Finish(std::string& error) {
    if (!CheckOpen(error)) {
        return false;
    }
    if (::shutdown(fd_, SHUT_WR) != 0) {
        return Fail(std::strerror(errno), error);
    }
    if (!WaitUntilSent(Unacknowledged, error)) {
        return false;
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

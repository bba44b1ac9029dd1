#pragma once

// A TCP server on 127.0.0.1 at a port the kernel picks, standing in for a printer's raw port. It
// accepts one connection on a thread of its own and, depending on its behaviour, reads everything
// until the client closes, or accepts and never reads.

#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <atomic>
#include <string>
#include <thread>

#include "support/LoopbackListener.h"

class LoopbackServer {
  public:
    enum class Behaviour { kReadAll, kNeverRead };

    explicit LoopbackServer(Behaviour behaviour = Behaviour::kReadAll, int receiveBuffer = 0)
        : behaviour_(behaviour), listener_(4, receiveBuffer) {
        thread_ = std::thread([this] { Serve(); });
    }
    ~LoopbackServer() { Stop(); }
    LoopbackServer(const LoopbackServer&) = delete;
    LoopbackServer& operator=(const LoopbackServer&) = delete;

    int Port() const { return listener_.Port(); }
    std::string Url() const { return "socket://127.0.0.1:" + std::to_string(Port()); }
    // What the client sent, once it has closed (kReadAll); waits for that up to the server's end.
    const std::string& Received() {
        Stop();
        return received_;
    }
    int Connections() {
        Stop();
        return connections_;
    }
    // Ends the serving thread (a connection still open is closed).
    void Stop() {
        if (thread_.joinable()) {
            stop_ = true;
            thread_.join();
        }
    }

  private:
    // Waits up to 100 ms for `fd` to be readable; false when the server is to stop.
    bool Wait(int fd) {
        for (;;) {
            if (stop_ && !reading_) {
                return false;
            }
            pollfd entry{fd, POLLIN, 0};
            if (::poll(&entry, 1, 100) > 0) {
                return true;
            }
            if (stop_) {
                return false;
            }
        }
    }
    void Serve() {
        if (!Wait(listener_.Fd())) {
            return;
        }
        const int connection = ::accept4(listener_.Fd(), nullptr, nullptr, SOCK_CLOEXEC);
        if (connection < 0) {
            return;
        }
        ++connections_;
        if (behaviour_ == Behaviour::kReadAll) {
            reading_ = true;
            char block[65536];
            for (;;) {
                const ssize_t n = ::read(connection, block, sizeof block);
                if (n <= 0) {
                    break;
                }
                received_.append(block, static_cast<std::size_t>(n));
            }
            reading_ = false;
        } else {
            while (!stop_) {
                ::usleep(20000);
            }
        }
        ::close(connection);
    }

    Behaviour behaviour_;
    LoopbackListener listener_;
    std::thread thread_;
    std::atomic<bool> stop_{false};
    std::atomic<bool> reading_{false};
    int connections_ = 0;
    std::string received_;
};

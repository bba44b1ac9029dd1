#pragma once

// The printer's raw port as the spooler's socket backend sees it: a TCP listener on 127.0.0.1 at
// a port the kernel picks, served by a thread of its own. It accepts one connection and keeps
// every byte until the backend closes it; the test then waits, for a bounded time, for the whole
// plot.

#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <string>
#include <thread>

#include "support/LoopbackListener.h"

class PlotReceiver {
  public:
    PlotReceiver() : thread_([this] { Serve(); }) {}
    ~PlotReceiver() {
        stop_ = true;
        thread_.join();
    }
    PlotReceiver(const PlotReceiver&) = delete;
    PlotReceiver& operator=(const PlotReceiver&) = delete;

    int Port() const { return listener_.Port(); }

    // The bytes of the first connection once it is closed, or nothing when it has not been closed
    // within `timeout` or `givenUp` returns true (asked every quarter of a second: the job has
    // failed, so nothing will come).
    template <typename GivenUp>
    std::optional<std::string> Wait(std::chrono::milliseconds timeout, GivenUp givenUp) {
        const auto end = std::chrono::steady_clock::now() + timeout;
        std::unique_lock<std::mutex> lock(mutex_);
        while (!closed_) {
            const auto now = std::chrono::steady_clock::now();
            if (now >= end) {
                return std::nullopt;
            }
            const auto slice = std::min<std::chrono::steady_clock::duration>(
                end - now, std::chrono::milliseconds(250));
            if (!closed_done_.wait_for(lock, slice, [this] { return closed_; })) {
                lock.unlock();
                const bool over = givenUp();
                lock.lock();
                if (over && !closed_) {
                    return std::nullopt;
                }
            }
        }
        return received_;
    }

    // How many connections were accepted so far (0 or 1).
    int Connections() const { return connections_; }

  private:
    // Waits up to 100 ms for `fd` to be readable; false when the receiver is going away.
    bool Readable(int fd) {
        while (!stop_) {
            pollfd entry{fd, POLLIN, 0};
            if (::poll(&entry, 1, 100) > 0) {
                return true;
            }
        }
        return false;
    }

    void Serve() {
        if (!Readable(listener_.Fd())) {
            return;
        }
        const int connection = ::accept4(listener_.Fd(), nullptr, nullptr, SOCK_CLOEXEC);
        if (connection < 0) {
            return;
        }
        ++connections_;
        std::string bytes;
        char block[65536];
        while (Readable(connection)) {
            const ssize_t n = ::read(connection, block, sizeof block);
            if (n <= 0) {
                break;
            }
            bytes.append(block, static_cast<std::size_t>(n));
        }
        ::close(connection);
        std::lock_guard<std::mutex> lock(mutex_);
        received_ = std::move(bytes);
        closed_ = true;
        closed_done_.notify_all();
    }

    LoopbackListener listener_{1};
    std::atomic<bool> stop_{false};
    std::atomic<int> connections_{0};
    std::mutex mutex_;
    std::condition_variable closed_done_;
    bool closed_ = false;
    std::string received_;
    std::thread thread_;  // last: starts once everything it uses is made
};

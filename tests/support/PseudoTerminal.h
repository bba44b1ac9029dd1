#pragma once

#include <fcntl.h>
#include <poll.h>
#include <stdlib.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <chrono>
#include <string>

// A pseudo-terminal pair standing in for a serial line: the program under test opens the
// terminal by its name, the test plays the plotter on the master side.
class PseudoTerminal {
  public:
    PseudoTerminal() {
        master_ = ::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
        if (master_ < 0 || ::grantpt(master_) != 0 || ::unlockpt(master_) != 0) {
            ADD_FAILURE() << "cannot open a pseudo-terminal";
            return;
        }
        terminal_ = ::ptsname(master_);
    }
    ~PseudoTerminal() {
        if (held_ >= 0) {
            ::close(held_);
        }
        if (master_ >= 0) {
            ::close(master_);
        }
    }
    PseudoTerminal(const PseudoTerminal&) = delete;
    PseudoTerminal& operator=(const PseudoTerminal&) = delete;

    // Holds the terminal's side open too, so that the line stays up between another process's
    // opening and closing it; false when it cannot.
    bool HoldTerminal() {
        held_ = ::open(terminal_.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
        return held_ >= 0;
    }

    int Master() const { return master_; }
    const std::string& Terminal() const { return terminal_; }

    // Reads what comes within `wait` into `into`; the number of bytes read.
    std::size_t ReadFor(std::chrono::milliseconds wait, std::string& into) const {
        const auto end = std::chrono::steady_clock::now() + wait;
        std::size_t got = 0;
        for (;;) {
            const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
                                  end - std::chrono::steady_clock::now())
                                  .count();
            if (left <= 0) {
                return got;
            }
            pollfd waiting{master_, POLLIN, 0};
            if (::poll(&waiting, 1, static_cast<int>(left)) <= 0) {
                continue;
            }
            char buffer[65536];
            const ssize_t n = ::read(master_, buffer, sizeof buffer);
            if (n > 0) {
                into.append(buffer, static_cast<std::size_t>(n));
                got += static_cast<std::size_t>(n);
            }
        }
    }

    // Reads until `into` holds `size` bytes or more, or `wait` has passed; stops as soon as it
    // does.
    void ReadUntil(std::size_t size, std::chrono::milliseconds wait, std::string& into) const {
        const auto end = std::chrono::steady_clock::now() + wait;
        while (into.size() < size && std::chrono::steady_clock::now() < end) {
            pollfd waiting{master_, POLLIN, 0};
            if (::poll(&waiting, 1, 20) <= 0) {
                continue;
            }
            char buffer[4096];
            const ssize_t n = ::read(master_, buffer, sizeof buffer);
            if (n > 0) {
                into.append(buffer, static_cast<std::size_t>(n));
            }
        }
    }

  private:
    int master_ = -1;
    int held_ = -1;
    std::string terminal_;
};

#pragma once

#include <poll.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <string>

#include "host/output/VRKSender.h"

// `size` bytes in which every value occurs, in no short repeating pattern (a linear congruential
// sequence), so that a byte lost, doubled or moved shows.
inline std::string VariedBytes(std::size_t size, std::uint32_t seed = 12345) {
    std::string bytes(size, '\0');
    std::uint32_t state = seed;
    for (char& byte : bytes) {
        state = state * 1664525u + 1013904223u;
        byte = static_cast<char>(state >> 24);
    }
    return bytes;
}

// Everything `fd` gives until its end (or an error).
inline std::string ReadToEnd(int fd) {
    std::string bytes;
    char buffer[65536];
    for (;;) {
        const ssize_t got = ::read(fd, buffer, sizeof buffer);
        if (got > 0) {
            bytes.append(buffer, static_cast<std::size_t>(got));
        } else if (got < 0 && errno == EINTR) {
            continue;
        } else {
            return bytes;
        }
    }
}

// Opens `sender`, sends `bytes` in pieces of `piece` bytes and finishes; the first error, or
// empty.
inline std::string SendAll(VRKSender& sender, const std::string& bytes,
                           std::size_t piece = 100000) {
    std::string error;
    if (!sender.Open(error)) {
        return "open: " + error;
    }
    for (std::size_t at = 0; at < bytes.size(); at += piece) {
        const std::size_t size = bytes.size() - at < piece ? bytes.size() - at : piece;
        if (!sender.Send(bytes.data() + at, size, error)) {
            return "send: " + error;
        }
    }
    if (!sender.Finish(error)) {
        return "finish: " + error;
    }
    return std::string();
}

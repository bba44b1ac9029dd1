#include "host/core/VRKPrintFileStream.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

VRKPrintFileStream::~VRKPrintFileStream() {
    Close();
}

bool VRKPrintFileStream::Open(const std::string& fileName) {
    Close();
    if (fileName == "-") {
        fd_ = STDOUT_FILENO;
        ownsFd_ = false;
        return true;
    }
    fd_ = ::open(fileName.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    ownsFd_ = fd_ >= 0;
    return fd_ >= 0;
}

bool VRKPrintFileStream::Close() {
    if (fd_ < 0) {
        return Good();
    }
    Flush();
    if (ownsFd_ && ::close(fd_) != 0) {
        if (errorNumber_ == 0) {
            errorNumber_ = errno;
        }
        SetFailed();
    }
    fd_ = -1;
    ownsFd_ = false;
    return Good();
}

bool VRKPrintFileStream::Sink(const char* data, std::size_t size) {
    if (fd_ < 0) {
        return false;
    }
    while (size > 0) {
        const ssize_t n = ::write(fd_, data, size);
        if (n < 0) {
            if (errno == EINTR) {
                continue;
            }
            if (errorNumber_ == 0) {
                errorNumber_ = errno;
            }
            return false;
        }
        data += n;
        size -= static_cast<std::size_t>(n);
    }
    return true;
}

std::string VRKPrintFileStream::GetErrorText() const {
    return errorNumber_ != 0 ? std::string(std::strerror(errorNumber_)) : "unknown error";
}

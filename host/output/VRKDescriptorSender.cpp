#include "host/output/VRKDescriptorSender.h"

#include <utility>

VRKDescriptorSender::VRKDescriptorSender(VRKDescriptorWriter writer, std::string notOpen)
    : writer_(std::move(writer)), notOpen_(std::move(notOpen)) {}

bool VRKDescriptorSender::CheckOpen(std::string& error) const {
    if (fd_ < 0) {
        error = notOpen_;
        return false;
    }
    return true;
}

bool VRKDescriptorSender::Send(const char* data, std::size_t size, std::string& error) {
    if (!CheckOpen(error)) {
        return false;
    }
    std::string reason;
    if (!writer_.Write(fd_, data, size, reason)) {
        return Fail(reason, error);
    }
    return true;
}

bool VRKDescriptorSender::WaitUntilSent(VRKDescriptorWriter::QueueCount count, std::string& error) {
    std::string reason;
    if (!writer_.WaitUntilSent(fd_, count, reason)) {
        return Fail(reason, error);
    }
    return true;
}

bool VRKDescriptorSender::Fail(const std::string& reason, std::string& error) {
    error = reason;
    Abort();
    return false;
}

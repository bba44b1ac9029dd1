#include "host/job/VRKSenderStream.h"

#include "host/output/VRKSender.h"

VRKSenderStream::VRKSenderStream(VRKSender& sender, bool progress) : sender_(sender) {
    if (progress) {
        progress_ = std::make_unique<VRKSendProgress>(0);
    }
}

VRKSenderStream::~VRKSenderStream() = default;

void VRKSenderStream::FinishProgress() {
    if (progress_ != nullptr) {
        progress_->Finish();
    }
}

bool VRKSenderStream::Sink(const char* data, std::size_t size) {
    if (!error_.empty()) {
        return false;
    }
    if (!sender_.Send(data, size, error_)) {
        if (error_.empty()) {
            error_ = "the send failed";
        }
        return false;
    }
    sent_ += size;
    if (progress_ != nullptr) {
        progress_->Update(sent_);
    }
    return true;
}

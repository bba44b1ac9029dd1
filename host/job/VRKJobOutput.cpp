#include "host/job/VRKJobOutput.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "host/core/VRKEnvironment.h"
#include "host/core/VRKPrintFileStream.h"
#include "host/job/VRKSenderStream.h"
#include "host/output/VRKSendProgress.h"
#include "host/output/VRKSender.h"

namespace {

constexpr int kSuffixLength = 4;  // ".tmp"
constexpr std::size_t kSendBlock = std::size_t{1} << 16;

}  // namespace

VRKJobOutput::VRKJobOutput() = default;

VRKJobOutput::~VRKJobOutput() {
    Discard();
}

bool VRKJobOutput::Open(const std::string& path, std::string& error) {
    return Open(VRKDestination::ForPath(path), Options(), error);
}

bool VRKJobOutput::Open(const VRKDestination& destination, const Options& options,
                        std::string& error) {
    Discard();
    destination_ = destination;
    options_ = options;
    size_ = 0;
    receipt_.clear();

    // A file is written whole through a temporary file beside it; everything else takes the
    // plot in place.
    if (destination.kind == VRKDestination::Kind::kPath) {
        VRKOutputPath target;
        if (!target.Resolve(destination.path, error)) {
            return false;
        }
        if (target.GetKind() != VRKOutputPath::Kind::kInPlace) {
            if (!file_.Create(target, error)) {
                return false;
            }
            mode_ = Mode::kReplace;
            return OpenTemporary(error);
        }
    }
    if (!options.stream) {
        std::string pattern = VRKEnvironment::TemporaryDirectory() + ".vrkplot.XXXXXX.tmp";
        const int fd = ::mkstemps(pattern.data(), kSuffixLength);
        if (fd < 0) {
            error = destination_.Describe() + ": cannot create a temporary file in '" +
                    VRKEnvironment::TemporaryDirectory() +
                    "' for the plot: " + std::strerror(errno);
            return false;
        }
        ::close(fd);
        spooled_ = pattern;
        mode_ = Mode::kSpool;
        return OpenTemporary(error);
    }
    sender_ = VRKSender::Create(destination, options.send);
    if (sender_ == nullptr || !sender_->Open(error)) {
        error = destination_.Describe() + ": " +
                (sender_ == nullptr ? std::string("cannot send there") : error);
        sender_.reset();
        return false;
    }
    mode_ = Mode::kStream;
    stream_ = std::make_unique<VRKSenderStream>(*sender_, options.progress);
    return true;
}

bool VRKJobOutput::OpenTemporary(std::string& error) {
    const std::string& temporary = GetTemporaryPath();
    auto stream = std::make_unique<VRKPrintFileStream>();
    if (!stream->Open(temporary)) {
        error = destination_.Describe() + ": cannot open the temporary file '" + temporary +
                "': " + std::strerror(errno);
        Discard();
        return false;
    }
    fileStream_ = stream.get();
    stream_ = std::move(stream);
    return true;
}

bool VRKJobOutput::CloseFileStream(std::string& error) {
    size_ = stream_->BytesWritten();
    if (!fileStream_->Close()) {
        error = destination_.Describe() + ": " + fileStream_->GetErrorText() +
                " (writing the temporary file '" + GetTemporaryPath() + "')";
        return false;
    }
    return true;
}

bool VRKJobOutput::Commit(std::string& error) {
    bool done = false;
    switch (mode_) {
        case Mode::kNone:
            error = "no plot to write";
            return false;
        case Mode::kReplace:
            done = CloseFileStream(error) && file_.Commit(error);
            break;
        case Mode::kSpool:
            done = CloseFileStream(error) && SendSpooled(error);
            break;
        case Mode::kStream: {
            auto* stream = static_cast<VRKSenderStream*>(stream_.get());
            size_ = stream->BytesWritten();
            stream->Flush();
            stream->FinishProgress();
            if (!stream->GetError().empty()) {
                error = destination_.Describe() + ": " + stream->GetError();
            } else if (!sender_->Finish(error)) {
                error = destination_.Describe() + ": " + error;
            } else {
                TakeReceipt();
                done = true;
            }
            break;
        }
    }
    if (!done) {
        Discard();
        return false;
    }
    sender_.reset();
    Discard();
    return true;
}

bool VRKJobOutput::SendSpooled(std::string& error) {
    const int fd = ::open(spooled_.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) {
        error = destination_.Describe() + ": cannot read back the temporary file '" + spooled_ +
                "': " + std::strerror(errno);
        return false;
    }
    sender_ = VRKSender::Create(destination_, options_.send);
    if (sender_ == nullptr || !sender_->Open(error)) {
        error = destination_.Describe() + ": " +
                (sender_ == nullptr ? std::string("cannot send there") : error);
        ::close(fd);
        return false;
    }
    VRKSendProgress progress(size_, options_.progress ? 2 : -1);
    std::vector<char> block(kSendBlock);
    std::uint64_t sent = 0;
    bool ok = true;
    for (;;) {
        const ssize_t n = ::read(fd, block.data(), block.size());
        if (n < 0 && errno == EINTR) {
            continue;
        }
        if (n < 0) {
            error = destination_.Describe() + ": cannot read back the temporary file '" + spooled_ +
                    "': " + std::strerror(errno);
            ok = false;
            break;
        }
        if (n == 0) {
            break;
        }
        if (!sender_->Send(block.data(), static_cast<std::size_t>(n), error)) {
            error = destination_.Describe() + ": " + error;
            ok = false;
            break;
        }
        sent += static_cast<std::uint64_t>(n);
        progress.Update(sent);
    }
    ::close(fd);
    if (ok && !sender_->Finish(error)) {
        error = destination_.Describe() + ": " + error;
        ok = false;
    }
    progress.Finish();
    if (!ok) {
        sender_->Abort();
        return false;
    }
    TakeReceipt();
    return true;
}

void VRKJobOutput::TakeReceipt() {
    receipt_ = sender_->GetReceipt();
}

void VRKJobOutput::Discard() {
    if (fileStream_ != nullptr) {
        fileStream_->Close();
        fileStream_ = nullptr;
    }
    stream_.reset();
    if (sender_ != nullptr) {
        sender_->Abort();
        sender_.reset();
    }
    file_.Discard();
    if (!spooled_.empty()) {
        ::unlink(spooled_.c_str());
        spooled_.clear();
    }
    mode_ = Mode::kNone;
}

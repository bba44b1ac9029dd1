#include "host/job/VRKJobPlayer.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstring>

#include "host/core/VRKPathName.h"
#include "host/core/VRKPrintGenerator.h"
#include "host/job/VRKJobFileSource.h"
#include "host/job/VRKJobMemorySource.h"
#include "host/job/VRKJobStreamSource.h"
#include "host/job/VRKJobVerbs.h"

namespace {

std::string stateName(bool begun) {
    return begun ? "the job began on line " : "the job ended on line ";
}

}  // namespace

VRKJobPlayer::VRKJobPlayer(VRKPrintGenerator& generator)
    : generator_(generator), commonLines_(generator), arguments_{{},      nullptr, points_,
                                                                 counts_, params_, false} {}

bool VRKJobPlayer::PlayFile(const std::string& path) {
    if (path == "-") {
        // Standard input, read as a file is (the source closes its own descriptor).
        const int fd = ::fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, 0);
        if (fd < 0) {
            error_ = VRKJobError{"standard input", 0,
                                 std::string("cannot read the job: ") + std::strerror(errno)};
            return false;
        }
        VRKJobFileSource source(fd);
        return PlaySource(source, "standard input", std::string());
    }
    error_ = VRKJobError{path, 0, {}};
    struct stat info {};
    if (::stat(path.c_str(), &info) != 0) {
        error_.message = std::string("cannot open the job file: ") + std::strerror(errno);
        return false;
    }
    if (S_ISDIR(info.st_mode)) {
        error_.message = "cannot open the job file: it is a folder";
        return false;
    }
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) {
        error_.message = std::string("cannot open the job file: ") + std::strerror(errno);
        return false;
    }
    // The file is read once from start to end: the kernel may read ahead and drop what was read.
    ::posix_fadvise(fd, 0, 0, POSIX_FADV_SEQUENTIAL);
    VRKJobFileSource source(fd);
    return PlaySource(source, path, VRKPathName::Folder(path));
}

bool VRKJobPlayer::Play(std::istream& in, const std::string& fileName,
                        const std::string& baseFolder) {
    VRKJobStreamSource source(in);
    return PlaySource(source, fileName, baseFolder);
}

bool VRKJobPlayer::PlayMemory(std::string_view job, const std::string& fileName,
                              const std::string& baseFolder) {
    VRKJobMemorySource source(job);
    return PlaySource(source, fileName, baseFolder);
}

bool VRKJobPlayer::PlaySource(VRKJobSource& source, const std::string& fileName,
                              const std::string& baseFolder) {
    error_ = VRKJobError{fileName, 0, {}};
    baseFolder_ = baseFolder;
    state_ = State::kBeforeBegin;
    beginLine_ = endLine_ = 0;
    params_ = VRKPrintParameters();
    line_ = 0;
    buffer_.Reset();

    std::string_view line;
    for (;;) {
        // The common lines that stand whole in the buffer are played straight from it; the
        // line where they stop takes the general path.
        if (state_ == State::kInJob && !commonLines_.PlayRun(buffer_, line_, arguments_, verb_)) {
            return Fail(std::string("the generator failed in ") + verb_->name);
        }
        const VRKJobLineBuffer::Result read = buffer_.NextLine(source, line);
        if (read == VRKJobLineBuffer::Result::kEnd) {
            break;
        }
        if (line_ == INT_MAX) {
            return Fail("too many lines");
        }
        ++line_;
        if (read == VRKJobLineBuffer::Result::kTooLong) {
            return Fail("the line is longer than " + std::to_string(buffer_.MaxLineLength()) +
                        " bytes");
        }
        if (!line.empty() && line.back() == '\r') {
            line.remove_suffix(1);
        }
        if (!PlayLine(line, read == VRKJobLineBuffer::Result::kLineReadOn)) {
            return false;
        }
    }
    // Errors of the file as a whole are reported at its last line (line 1 for an empty file), so
    // that every message of the player carries a line.
    line_ = line_ > 0 ? line_ : 1;
    if (state_ == State::kBeforeBegin) {
        return Fail("no Begin in the file: a job runs from Begin to End");
    }
    if (state_ == State::kInJob) {
        return Fail("missing End at the end of the file (" + stateName(true) +
                    std::to_string(beginLine_) + ")");
    }
    error_.line = 0;
    return true;
}

bool VRKJobPlayer::Fail(std::string message) {
    error_.line = line_;
    error_.message = std::move(message);
    return false;
}

bool VRKJobPlayer::PlayLine(std::string_view line, bool tryCommon) {
    if (line_ == 1 && line.substr(0, 3) == "\xEF\xBB\xBF") {
        return Fail("the file starts with a byte order mark; job files are UTF-8 without one");
    }
    // Common lines were tried in the buffer already (the run of common lines): a line that comes
    // here is one they do not take, tried no more, or one that was not whole in the buffer then.
    if (tryCommon && state_ == State::kInJob &&
        commonLines_.PlayLine(buffer_, line.data(), arguments_, verb_) != nullptr) {
        if (generator_.HasFailed()) {
            return Fail(std::string("the generator failed in ") + verb_->name);
        }
        return true;
    }
    std::string lexError;
    if (!lexer_.Split(line, lexError)) {
        return Fail(std::move(lexError));
    }
    if (lexer_.Count() == 0) {
        return true;
    }
    if (!FindVerb() || !CheckState()) {
        return false;
    }
    // Begin starts from the defaults, StartNewPage from the page before.
    if (verb_->role == VRKJobVerb::Role::kBegin) {
        params_ = VRKPrintParameters();
    }
    if (!reader_.Read(*verb_, lexer_, arguments_)) {
        return Fail(reader_.Error());
    }
    if (verb_->role == VRKJobVerb::Role::kBegin) {
        state_ = State::kInJob;
        beginLine_ = line_;
    } else if (verb_->role == VRKJobVerb::Role::kEnd) {
        state_ = State::kAfterEnd;
        endLine_ = line_;
    }
    std::string callError;
    if (!verb_->call(VRKJobCall{*verb_, generator_, arguments_, baseFolder_, callError})) {
        return Fail(std::move(callError));
    }
    if (generator_.HasFailed()) {
        return Fail(std::string("the generator failed in ") + verb_->name);
    }
    return true;
}

bool VRKJobPlayer::FindVerb() {
    if (lexer_[0].isString) {
        return Fail("a line starts with a verb, not with the string " +
                    VRKJobLexer::Quote(lexer_[0].text));
    }
    const std::string_view name = lexer_[0].text;
    verb_ = VRKJobVerbs::Find(name, verb_);
    if (verb_ != nullptr) {
        return true;
    }
    std::string message = "unknown verb " + VRKJobLexer::Quote(name);
    if (const VRKJobVerb* known = VRKJobVerbs::FindIgnoringCase(name); known != nullptr) {
        message += " (verbs are case-sensitive: " + std::string(known->name) + ")";
    }
    return Fail(std::move(message));
}

bool VRKJobPlayer::CheckState() {
    const bool isBegin = verb_->role == VRKJobVerb::Role::kBegin;
    if (state_ == State::kAfterEnd) {
        return Fail(std::string(verb_->name) + " after End (" + stateName(false) +
                    std::to_string(endLine_) + ")");
    }
    if (state_ == State::kInJob && isBegin) {
        return Fail("a second Begin (" + stateName(true) + std::to_string(beginLine_) + ")");
    }
    if (state_ == State::kBeforeBegin && !isBegin) {
        return Fail(std::string(verb_->name) + " before Begin");
    }
    return true;
}

#include "tools/plotdump/PlotDecoder.h"

namespace {

constexpr int kEscape = 0x1b;
constexpr std::size_t kRunLimit = 32;
constexpr std::size_t kPjlLimit = 1024;

bool isLetter(int b) {
    return (b >= 'A' && b <= 'Z') || (b >= 'a' && b <= 'z');
}
bool isWhiteSpace(int b) {
    return b == ' ' || b == '\t' || b == '\r' || b == '\n';
}

}  // namespace

PlotDecoder::PlotDecoder(std::streambuf& plot, std::ostream& listing)
    : in_(plot), out_(listing), escapes_(in_, out_, pen_), hpgl_(in_, out_, pen_) {}

void PlotDecoder::add(Run run, char c) {
    if (run != run_ || runBytes_.size() == kRunLimit) {
        flush();
        run_ = run;
        runAt_ = in_.Offset() - 1;
    }
    runBytes_ += c;
}

void PlotDecoder::flush() {
    const std::string bytes = ListingOutput::Escaped(runBytes_, true);
    switch (run_) {
        case Run::kNone:
            break;
        case Run::kWhiteSpace:
            out_.Line("white space " + bytes);
            break;
        case Run::kText:
            out_.Line("text " + bytes);
            break;
        case Run::kUndecoded:
            out_.Anomaly(runAt_, "undecoded " + bytes);
            break;
    }
    run_ = Run::kNone;
    runBytes_.clear();
}

bool PlotDecoder::atPjl() {
    return in_.Peek() == '@' && in_.Peek(1) == 'P' && in_.Peek(2) == 'J' && in_.Peek(3) == 'L';
}

void PlotDecoder::pjlLine() {
    // Up to the line feed, which is not shown; an ESC ends the line too (the UEL that follows
    // a job's last line).
    const std::uint64_t start = in_.Offset();
    std::string line;
    std::uint64_t hidden = 0;
    while (in_.Peek() != -1 && in_.Peek() != '\n' && in_.Peek() != kEscape) {
        const char c = static_cast<char>(in_.Get());
        if (line.size() < kPjlLimit) {
            line += c;
        } else {
            ++hidden;
        }
    }
    out_.Line(ListingOutput::Escaped(line, false) +
              (hidden == 0 ? "" : " ... (" + std::to_string(hidden) + " more bytes)"));
    if (in_.Peek() == '\n') {
        in_.Get();
    } else {
        out_.Anomaly(start, "PJL line without its line feed");
    }
    // ENTER LANGUAGE names what follows.
    if (line.find("ENTER LANGUAGE") != std::string::npos) {
        pcl_ = line.find("HPGL") == std::string::npos;
    }
}

void PlotDecoder::Decode() {
    for (int b = in_.Peek(); b != -1; b = in_.Peek()) {
        if (b == kEscape) {
            flush();
            const PclEscapeDecoder::Language language = escapes_.Decode();
            if (language != PclEscapeDecoder::Language::kUnchanged) {
                pcl_ = language == PclEscapeDecoder::Language::kPcl;
            }
        } else if (atPjl()) {
            flush();
            pjlLine();
        } else if (pcl_) {
            add(Run::kText, static_cast<char>(in_.Get()));
        } else if (isLetter(b) && isLetter(in_.Peek(1))) {
            flush();
            hpgl_.Decode();
        } else if (isWhiteSpace(b)) {
            add(Run::kWhiteSpace, static_cast<char>(in_.Get()));
        } else if (b == ';') {
            flush();
            in_.Get();
            out_.Line(";");
        } else {
            add(Run::kUndecoded, static_cast<char>(in_.Get()));
        }
    }
    flush();
    const std::string digest = in_.Finish();
    out_.Line("end of plot: " + std::to_string(in_.Offset()) + " bytes, " +
              std::to_string(out_.Anomalies()) +
              (out_.Anomalies() == 1 ? " anomaly, sha256 " : " anomalies, sha256 ") + digest);
}

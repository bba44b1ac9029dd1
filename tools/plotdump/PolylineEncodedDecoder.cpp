#include "tools/plotdump/PolylineEncodedDecoder.h"

#include <cmath>

namespace {

constexpr int kEscape = 0x1b;
// Flags kept as written before one pair; a longer run is cut and marked.
constexpr std::size_t kFlagLimit = 8;
constexpr std::size_t kUndecodedLimit = 32;

std::string flagColumn(const std::string& flags) {
    return flags.size() >= 2 ? flags : flags + std::string(2 - flags.size(), ' ');
}

}  // namespace

bool PolylineEncodedDecoder::isDigit(int b) const {
    return sevenBit_ ? b >= 63 && b <= 126 : (b >= 63 && b <= 126) || (b >= 191 && b <= 254);
}

bool PolylineEncodedDecoder::number(double& value, bool scaled) {
    const std::uint64_t start = in_.Offset();
    const int bits = sevenBit_ ? 5 : 6;
    const int last = sevenBit_ ? 95 : 191;
    std::uint64_t folded = 0;
    int shift = 0;
    bool overflow = false;
    for (;;) {
        const int b = in_.Peek();
        if (!isDigit(b)) {
            out_.Anomaly(start, "PE number without its last digit");
            return false;
        }
        in_.Get();
        const bool isLast = b >= last;
        const std::uint64_t digit = static_cast<std::uint64_t>(b - (isLast ? last : 63));
        if (shift > 63 - bits) {
            overflow = overflow || digit != 0;
        } else {
            folded |= digit << shift;
            shift += bits;
        }
        if (isLast) {
            break;
        }
    }
    if (overflow) {
        value = NAN;
        return true;
    }
    const double magnitude = static_cast<double>(folded >> 1);
    value = std::ldexp((folded & 1) != 0 ? -magnitude : magnitude, scaled ? -fractionalBits_ : 0);
    return true;
}

void PolylineEncodedDecoder::pair(double x, double y) {
    if (flags_.find('=') != std::string::npos) {
        pen_.MoveTo(x, y);
    } else {
        pen_.MoveBy(x, y);
    }
    out_.Line("  " + flagColumn(flags_) + " " + ListingOutput::Number(x) + "," +
              ListingOutput::Number(y) + " -> " + pen_.Text());
    flags_.clear();
}

void PolylineEncodedDecoder::flushUndecoded() {
    if (!undecoded_.empty()) {
        out_.Anomaly(undecodedAt_, "undecoded in PE " + ListingOutput::Escaped(undecoded_, true));
        undecoded_.clear();
    }
}

void PolylineEncodedDecoder::Decode() {
    sevenBit_ = false;
    fractionalBits_ = 0;
    flags_.clear();
    bool haveX = false;
    double x = 0;
    std::uint64_t xAt = 0;
    for (;;) {
        const int b = in_.Peek();
        const bool undecodable = b != -1 && b != kEscape && b != ';' && b != '=' && b != '<' &&
                                 b != '>' && b != ':' && b != '7' && !isDigit(b);
        if (undecodable) {
            if (undecoded_.empty()) {
                undecodedAt_ = in_.Offset();
            }
            undecoded_ += static_cast<char>(in_.Get());
            if (undecoded_.size() == kUndecodedLimit) {
                flushUndecoded();
            }
            continue;
        }
        flushUndecoded();
        if (b == -1 || b == kEscape || b == ';') {
            break;
        }
        const std::uint64_t at = in_.Offset();
        if (isDigit(b)) {
            double value = 0;
            if (!number(value, true)) {
                continue;
            }
            if (haveX) {
                pair(x, value);
            } else {
                x = value;
                xAt = at;
            }
            haveX = !haveX;
            continue;
        }
        in_.Get();
        if (b == '=' || b == '<') {
            if (flags_.size() < kFlagLimit) {
                flags_ += static_cast<char>(b);
            }
        } else if (b == '7') {
            sevenBit_ = true;
            out_.Line("  7  7-bit numbers from here");
        } else if (isDigit(in_.Peek())) {
            // > and : take a number.
            double value = 0;
            if (number(value, false)) {
                const std::string text = ListingOutput::Number(value);
                if (b == '>') {
                    fractionalBits_ = std::isfinite(value) && value >= 0 && value <= 60
                                          ? static_cast<int>(value)
                                          : 0;
                    out_.Line("  >" + text + "  fractional bits: " + text);
                } else {
                    out_.Line("  :" + text + "  select pen " + text);
                }
            }
        } else {
            out_.Anomaly(at,
                         std::string("PE flag ") + static_cast<char>(b) + " without its number");
        }
    }
    if (haveX) {
        out_.Anomaly(xAt, "PE x " + ListingOutput::Number(x) + " without its y");
    }
    if (!flags_.empty()) {
        out_.Anomaly(in_.Offset(), "PE flags " + flags_ + " without a pair");
    }
    if (in_.Peek() == ';') {
        in_.Get();
        out_.Line("  ;");
    } else {
        out_.Anomaly(in_.Offset(), in_.Peek() == -1 ? "the plot ends inside PE"
                                                    : "PE ends at ESC without its ';'");
    }
}

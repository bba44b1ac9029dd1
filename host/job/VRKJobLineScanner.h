#pragma once

#include <cstddef>

#include "host/core/VRKPlotterRange.h"
#include "host/job/VRKJobArgumentKind.h"
#include "host/job/VRKJobArguments.h"
#include "host/job/VRKJobNumber.h"

// Reads the arguments of a common line straight from the read buffer, by the kinds of the verb
// table: each number stands between blanks, and anything else (a comment, a string, a word, a
// number beyond its kind's range) stops the reading, leaving the line to the general path, which
// says what is wrong with it. The reading never passes a line end (LF, or CR before LF) nor the
// mark put after the read bytes, which are neither blanks nor parts of a number, so it need not
// watch for the end of the buffer.
class VRKJobLineScanner {
  public:
    // `p` is just past the verb; `limit` is the end of the buffer.
    VRKJobLineScanner(const char* p, const char* limit) : p_(p), limit_(limit) {}

    // The argument of kind K into value `slot` of `arguments`. Only the kinds of numbers are
    // read here; a verb with other kinds is not common.
    template <VRKJobArgumentKind K>
    bool Read(VRKJobArguments& arguments, std::size_t slot) {
        using Kind = VRKJobArgumentKind;
        VRKJobArguments::Value& value = arguments.values[slot];
        if constexpr (K == Kind::kLength) {
            return Length(value.number);
        } else if constexpr (K == Kind::kNumber) {
            return Number(value.number);
        } else if constexpr (K == Kind::kInteger) {
            return Integer(value.integer);
        } else if constexpr (K == Kind::kFilled) {
            return Integer(value.integer) && (value.integer == 0 || value.integer == 1);
        } else {
            static_assert(K == Kind::kPolygons, "a kind that common lines do not hold");
            return Polygons(arguments, value.integer);
        }
    }

    // Past the trailing blanks and the line end: the start of the next line, or null when
    // anything but blanks is left.
    const char* End() {
        while (IsBlank(*p_)) {
            ++p_;
        }
        if (*p_ == '\n') {
            return p_ + 1;
        }
        return *p_ == '\r' && p_[1] == '\n' ? p_ + 2 : nullptr;
    }

  private:
    static bool IsBlank(char c) { return c == ' ' || c == '\t'; }
    static bool IsLineEnd(const char* p) { return *p == '\n' || (*p == '\r' && p[1] == '\n'); }

    bool Number(float& value) {
        if (!SkipBlanks()) {
            return false;
        }
        double v = 0.0;
        auto status = VRKJobNumber::Status::kOk;
        p_ = VRKJobNumber::ReadDecimal(p_, VRKJobNumber::Unbounded{}, VRKJobNumber::Target::kFloat,
                                       v, status);
        if (status != VRKJobNumber::Status::kOk) {
            return false;
        }
        value = static_cast<float>(v);
        return AtSeparator();
    }
    bool Length(float& value) { return Number(value) && VRKPlotterRange::FitsMillimetres(value); }
    bool Integer(int& value) {
        if (!SkipBlanks()) {
            return false;
        }
        auto status = VRKJobNumber::Status::kOk;
        p_ = VRKJobNumber::ReadInteger(p_, VRKJobNumber::Unbounded{}, value, status);
        return status == VRKJobNumber::Status::kOk && AtSeparator();
    }
    // A polygon count, the vertex counts, then the points; counts beyond what the buffer could
    // hold go to the general path before any memory is taken for them.
    bool Polygons(VRKJobArguments& arguments, int& polygons) {
        if (!Integer(polygons) || polygons < 0 || polygons > (1 << 20)) {
            return false;
        }
        arguments.counts.resize(static_cast<std::size_t>(polygons));
        long long total = 0;
        for (int& count : arguments.counts) {
            if (!Integer(count) || count < 0) {
                return false;
            }
            total += count;
        }
        // The buffer bounds the coordinates the line can hold: two bytes each at least.
        if (2 * total > static_cast<long long>(limit_ - p_)) {
            return false;
        }
        arguments.points.resize(static_cast<std::size_t>(2 * total));
        for (float& coordinate : arguments.points) {
            if (!Length(coordinate)) {
                return false;
            }
        }
        return true;
    }

    // Past at least one blank (the verb or the previous number ends there); false at the end of
    // the line.
    bool SkipBlanks() {
        if (!IsBlank(*p_)) {
            return false;
        }
        do {
            ++p_;
        } while (IsBlank(*p_));
        return !IsLineEnd(p_);
    }
    bool AtSeparator() const { return IsBlank(*p_) || IsLineEnd(p_); }

    const char* p_;
    const char* limit_;
};

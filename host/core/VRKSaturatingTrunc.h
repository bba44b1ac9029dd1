#pragma once

#include <cmath>
#include <concepts>
#include <limits>

// A real number truncated toward zero to a signed integer type, the way static_cast truncates it,
// but defined for every value: one beyond the type's largest value (or +infinity) gives the
// largest, one below its smallest (or -infinity) gives the smallest, and NaN gives 0. Every value
// that fits comes out exactly as static_cast gives it.
//
// A float argument widens to double exactly, so float arithmetic passed in truncates as before.
template <std::signed_integral T = int>
T VRKSaturatingTrunc(double value) noexcept {
    // 2^(N-1), exact in a double: every value of smaller magnitude truncates to a T. One test of
    // the magnitude keeps the common case to a compare and a branch the processor predicts.
    constexpr double kPastLargest = -static_cast<double>(std::numeric_limits<T>::min());
    if (std::fabs(value) < kPastLargest) [[likely]] {
        return static_cast<T>(value);
    }
    // Beyond either way, or exactly -2^(N-1) and the values down to -2^(N-1) - 1 that truncate to
    // it; NaN compares false both ways.
    if (value > 0) {
        return std::numeric_limits<T>::max();
    }
    if (value < 0) {
        return std::numeric_limits<T>::min();
    }
    return 0;
}

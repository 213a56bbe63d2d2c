#pragma once
// A double as a whole number where a text or a count needs one. A cast of a
// double outside the integer's range (or of NaN) is undefined behaviour in
// C++; numbers from files and settings can be anything, so every such
// conversion goes through here.
#include <cstdint>

namespace ortelix {

// The value cut toward zero and held within ±limit (limit at most 2^53);
// not a number gives 0.
inline int64_t WholeWithin(double v, int64_t limit) {
    if (!(v == v)) return 0;
    const double l = static_cast<double>(limit);
    if (v >= l) return limit;
    if (v <= -l) return -limit;
    return static_cast<int64_t>(v);
}

}  // namespace ortelix

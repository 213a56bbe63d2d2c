#pragma once
// Optional values that cost nothing beyond the value: a sentinel marks "empty".
// Floats use NaN, integers their lowest value. Empty differs from 0 everywhere.
#include <cmath>
#include <cstdint>
#include <limits>

namespace ortelix {

template <typename T>
struct Sentinel {
    static constexpr T value() { return std::numeric_limits<T>::lowest(); }
    static constexpr bool is(T v) { return v == value(); }
};
template <>
struct Sentinel<double> {
    static constexpr double value() { return std::numeric_limits<double>::quiet_NaN(); }
    static bool is(double v) { return std::isnan(v); }
};
template <>
struct Sentinel<float> {
    static constexpr float value() { return std::numeric_limits<float>::quiet_NaN(); }
    static bool is(float v) { return std::isnan(v); }
};

template <typename T>
class Opt {
public:
    constexpr Opt() : v_(Sentinel<T>::value()) {}
    constexpr Opt(T v) : v_(v) {}  // NOLINT: implicit by intent, like std::optional

    bool empty() const { return Sentinel<T>::is(v_); }
    bool has() const { return !empty(); }
    explicit operator bool() const { return has(); }
    T operator*() const { return v_; }
    T value() const { return v_; }
    T valueOr(T fallback) const { return empty() ? fallback : v_; }
    void reset() { v_ = Sentinel<T>::value(); }

    friend bool operator==(Opt a, Opt b) {
        return (a.empty() && b.empty()) || (!a.empty() && !b.empty() && a.v_ == b.v_);
    }

private:
    T v_;
};

using OptInt = Opt<int32_t>;
using OptShort = Opt<int16_t>;
using OptDouble = Opt<double>;
using OptFloat = Opt<float>;

}  // namespace ortelix

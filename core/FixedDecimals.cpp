#include "core/FixedDecimals.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>

namespace ortelix {

namespace {
constexpr int kMaxDecimals = 60;
constexpr uint64_t kPow10[] = {1,      10,      100,      1000,      10000,
                               100000, 1000000, 10000000, 100000000, 1000000000};

// The common sizes by whole-number arithmetic on the double's bits; nullptr
// when the value lies outside them or so near a half that only its shortest
// digits can tell which way a person rounds it.
char* Fast(char* p, double value, int decimals) {
    const double a = std::fabs(value);
    if (!(a < 1.0e9) || a == 0 || decimals > 9) return nullptr;
    uint64_t bits;
    std::memcpy(&bits, &a, sizeof bits);
    const int biased = static_cast<int>(bits >> 52);
    if (biased == 0) return nullptr;  // subnormal
    const uint64_t m = (bits & ((uint64_t{1} << 52) - 1)) | (uint64_t{1} << 52);
    const int shift = 1075 - biased;  // a = m / 2^shift, one unit in the last place is 2^-shift
    if (shift <= 0 || shift > 100) return nullptr;
    const unsigned __int128 scaled = static_cast<unsigned __int128>(m) * kPow10[decimals];
    unsigned __int128 q = scaled >> shift;
    const unsigned __int128 rest = scaled - (q << shift);
    const unsigned __int128 half = static_cast<unsigned __int128>(1) << (shift - 1);
    // Every decimal that reads back as this double lies within half a unit in
    // the last place of it: scaled, within w = 10^decimals / 2 of rest. When
    // the half lies farther away than w, the shortest digits and the exact
    // binary value round the same way. When it lies well inside (below w / 2,
    // which the narrower lower side at a power of two also holds) and no other
    // decimal of one digit more fits in between, the shortest digits are the
    // half itself: it goes away from zero. What lies between takes the digits.
    const unsigned __int128 off = rest > half ? rest - half : half - rest;
    const unsigned __int128 unit = kPow10[decimals];
    if (off * 2 > unit) {
        if (rest > half) ++q;
    } else if (off * 4 < unit && unit * 10 < (static_cast<unsigned __int128>(1) << shift)) {
        ++q;
    } else {
        return nullptr;
    }
    auto whole = static_cast<uint64_t>(q);
    if (value < 0 && whole != 0) *p++ = '-';
    // Digits from the right, two at a time.
    static constexpr char kPairs[] =
        "00010203040506070809101112131415161718192021222324252627282930313233343536373839"
        "40414243444546474849505152535455565758596061626364656667686970717273747576777879"
        "8081828384858687888990919293949596979899";
    char digits[24];
    int n = 0;
    while (whole >= 100) {
        const auto pair = static_cast<size_t>(whole % 100) * 2;
        whole /= 100;
        digits[n++] = kPairs[pair + 1];
        digits[n++] = kPairs[pair];
    }
    do {
        digits[n++] = static_cast<char>('0' + whole % 10);
        whole /= 10;
    } while (whole != 0);
    while (n < decimals + 1) digits[n++] = '0';  // at least one digit before the point
    for (int i = n - 1; i >= decimals; --i) *p++ = digits[i];
    if (decimals > 0) {
        *p++ = '.';
        for (int i = decimals - 1; i >= 0; --i) *p++ = digits[i];
    }
    return p;
}
}  // namespace

char* PutFixedByDigits(char* p, double value, int decimals) {
    if (!std::isfinite(value)) value = 0;
    decimals = std::clamp(decimals, 0, kMaxDecimals);
    // The shortest digits d0.d1d2... and the power of ten of d0.
    char sci[40];
    const char* end = std::to_chars(sci, sci + sizeof sci, std::fabs(value), std::chars_format::scientific).ptr;
    char digits[20];
    int count = 0;
    const char* q = sci;
    for (; q < end && *q != 'e'; ++q)
        if (*q != '.') digits[count++] = *q;
    int exponent = 0;
    std::from_chars(q + 1 + (q[1] == '+'), end, exponent);

    // The places kept run from max(exponent, 0) down to -decimals; place k
    // holds digit index exponent - k.
    const int top = std::max(exponent, 0);
    const int kept = top + decimals + 1;
    char out[400];
    for (int i = 0; i < kept; ++i) {
        const int index = exponent - (top - i);
        out[i] = index >= 0 && index < count ? digits[index] : '0';
    }
    // The first digit left out decides: 5 or more is at least a half.
    const int firstDropped = exponent + decimals + 1;
    bool carry = firstDropped >= 0 && firstDropped < count && digits[firstDropped] >= '5';
    for (int i = kept - 1; carry && i >= 0; --i) {
        carry = out[i] == '9';
        out[i] = carry ? '0' : static_cast<char>(out[i] + 1);
    }
    bool zero = !carry;
    for (int i = 0; i < kept && zero; ++i) zero = out[i] == '0';
    if (std::signbit(value) && !zero) *p++ = '-';
    if (carry) *p++ = '1';
    std::memcpy(p, out, static_cast<size_t>(top + 1));
    p += top + 1;
    if (decimals > 0) {
        *p++ = '.';
        std::memcpy(p, out + top + 1, static_cast<size_t>(decimals));
        p += decimals;
    }
    return p;
}

char* PutFixed(char* p, double value, int decimals) {
    if (!std::isfinite(value)) value = 0;
    decimals = std::clamp(decimals, 0, kMaxDecimals);
    if (char* fast = Fast(p, value, decimals)) return fast;
    return PutFixedByDigits(p, value, decimals);
}

void AppendFixed(std::string& out, double value, int decimals) {
    char buf[400];
    out.append(buf, PutFixed(buf, value, decimals));
}

}  // namespace ortelix

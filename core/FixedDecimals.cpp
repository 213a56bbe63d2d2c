#include "core/FixedDecimals.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>

namespace ortelix {

namespace {
constexpr uint64_t kPow10[] = {1,      10,      100,      1000,      10000,
                               100000, 1000000, 10000000, 100000000, 1000000000};

// The common sizes by whole-number arithmetic on the double's bits;
// nullptr when the value lies outside them.
char* Fast(char* p, double value, int decimals) {
    const double a = std::fabs(value);
    if (!(a < 1.0e9) || a == 0 || decimals < 0 || decimals > 9) return nullptr;
    uint64_t bits;
    std::memcpy(&bits, &a, sizeof bits);
    const int biased = static_cast<int>(bits >> 52);
    if (biased == 0) return nullptr;  // subnormal
    const uint64_t m = (bits & ((uint64_t{1} << 52) - 1)) | (uint64_t{1} << 52);
    const int shift = 1075 - biased;  // a = m / 2^shift
    if (shift <= 0 || shift > 100) return nullptr;
    const unsigned __int128 scaled = static_cast<unsigned __int128>(m) * kPow10[decimals];
    unsigned __int128 q = scaled >> shift;
    const unsigned __int128 rest = scaled - (q << shift);
    const unsigned __int128 half = static_cast<unsigned __int128>(1) << (shift - 1);
    if (rest > half || (rest == half && (q & 1))) ++q;
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

char* PutFixed(char* p, double value, int decimals) {
    if (!std::isfinite(value)) value = 0;
    if (char* fast = Fast(p, value, decimals)) return fast;
    char* end = std::to_chars(p, p + 400, value, std::chars_format::fixed, decimals).ptr;
    if (*p == '-') {  // a value that rounds to zero shows no sign
        bool zero = true;
        for (const char* q = p + 1; q < end && zero; ++q) zero = *q == '0' || *q == '.';
        if (zero) {
            std::memmove(p, p + 1, static_cast<size_t>(end - p - 1));
            --end;
        }
    }
    return end;
}

void AppendFixed(std::string& out, double value, int decimals) {
    char buf[400];
    out.append(buf, PutFixed(buf, value, decimals));
}

}  // namespace ortelix

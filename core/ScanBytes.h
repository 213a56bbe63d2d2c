#pragma once
// Finding the next occurrence of one byte in text where occurrences are close
// together (the "<" of markup), or the next tag of a few wanted names: inline,
// 16 bytes a step, no call per search.
#include <cstddef>
#include <cstring>
#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace ortelix {

inline const char* FindByte(const char* p, const char* end, char c) {
#if defined(__SSE2__)
    const __m128i needle = _mm_set1_epi8(c);
    while (end - p >= 16) {
        const __m128i block = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
        const int mask = _mm_movemask_epi8(_mm_cmpeq_epi8(block, needle));
        if (mask != 0) return p + __builtin_ctz(static_cast<unsigned>(mask));
        p += 16;
    }
#endif
    for (; p < end; ++p)
        if (*p == c) return p;
    return nullptr;
}

// The next "<" whose tag name, of an opening or a closing tag ("<x" or
// "</x"), begins with one of four letters (given in lower case; matched
// without regard to case). A walk that wants only a few tags passes over all
// others sixteen bytes a step instead of stopping at each.
inline const char* FindTagStart(const char* p, const char* end, const char (&letters)[4]) {
    auto wanted = [&](char c) {
        c = static_cast<char>(c | 0x20);
        return c == letters[0] || c == letters[1] || c == letters[2] || c == letters[3];
    };
#if defined(__SSE2__)
    const __m128i lt = _mm_set1_epi8('<'), slash = _mm_set1_epi8('/'), lower = _mm_set1_epi8(0x20);
    const __m128i l0 = _mm_set1_epi8(letters[0]), l1 = _mm_set1_epi8(letters[1]);
    const __m128i l2 = _mm_set1_epi8(letters[2]), l3 = _mm_set1_epi8(letters[3]);
    auto letter = [&](__m128i b) {
        b = _mm_or_si128(b, lower);
        return _mm_or_si128(_mm_or_si128(_mm_cmpeq_epi8(b, l0), _mm_cmpeq_epi8(b, l1)),
                            _mm_or_si128(_mm_cmpeq_epi8(b, l2), _mm_cmpeq_epi8(b, l3)));
    };
    while (end - p >= 18) {
        const __m128i b0 = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
        const __m128i b1 = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p + 1));
        const __m128i b2 = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p + 2));
        const __m128i named = _mm_or_si128(letter(b1), _mm_and_si128(_mm_cmpeq_epi8(b1, slash), letter(b2)));
        const int mask = _mm_movemask_epi8(_mm_and_si128(_mm_cmpeq_epi8(b0, lt), named));
        if (mask != 0) return p + __builtin_ctz(static_cast<unsigned>(mask));
        p += 16;
    }
#endif
    for (; p < end; ++p) {
        if (*p != '<' || p + 1 >= end) continue;
        if (wanted(p[1]) || (p[1] == '/' && p + 2 < end && wanted(p[2]))) return p;
    }
    return nullptr;
}

}  // namespace ortelix

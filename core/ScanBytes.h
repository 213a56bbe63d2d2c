#pragma once
// Finding the next occurrence of one byte in text where occurrences are close
// together (the "<" of markup): inline, 16 bytes a step, no call per search.
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

}  // namespace ortelix

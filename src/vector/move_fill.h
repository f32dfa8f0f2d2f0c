// Fill kernels of Zero and Set: a 32-byte pattern stored over a byte region, plain or streaming.
#pragma once
#include <immintrin.h>

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "nuvcore.h"

namespace nuv::fill {

using u8 = uint8_t;

// Regions up to this many bytes never ask for the cache size.
inline constexpr int kQueryAbove = 0x200000;

// `pat` holds one element repeated over 32 bytes, its first element at byte 0.  Every store
// below starts at a byte offset from the region start that is a multiple of the element size,
// so the pattern stays in phase: offsets are multiples of 32, 16, 8, 4 or 2, or the region
// length minus such a number, and the region length is a multiple of the element size.

[[gnu::always_inline]] inline void store16(u8* p, __m128i v) { _mm_storeu_si128(reinterpret_cast<__m128i*>(p), v); }
[[gnu::always_inline]] inline void store32(u8* p, __m256i v) { _mm256_storeu_si256(reinterpret_cast<__m256i*>(p), v); }
[[gnu::always_inline]] inline void storeA32(u8* p, __m256i v) { _mm256_store_si256(reinterpret_cast<__m256i*>(p), v); }

// Fewer than 32 bytes: two overlapping stores of the largest fitting power of two.
[[gnu::always_inline]] inline void fillBelow32(u8* d, size_t n, __m256i pat) {
    const __m128i lo = _mm256_castsi256_si128(pat);
    if (n >= 16) {
        store16(d, lo);
        store16(d + n - 16, lo);
    } else if (n >= 8) {
        const uint64_t w = uint64_t(_mm_cvtsi128_si64(lo));
        std::memcpy(d, &w, 8);
        std::memcpy(d + n - 8, &w, 8);
    } else if (n >= 4) {
        const uint32_t w = uint32_t(_mm_cvtsi128_si32(lo));
        std::memcpy(d, &w, 4);
        std::memcpy(d + n - 4, &w, 4);
    } else if (n >= 2) {
        const uint16_t w = uint16_t(_mm_cvtsi128_si32(lo));
        std::memcpy(d, &w, 2);
        std::memcpy(d + n - 2, &w, 2);
    } else if (n) {
        d[0] = u8(_mm_cvtsi128_si32(lo));
    }
}

// From this many bytes on, the plain route fills with a string store: it writes whole lines
// without reading them first, which vector stores can't, and wins once the region leaves the
// first-level cache.
inline constexpr size_t kStringFillFrom = 0x10000;

// Plain route for n bytes of elements of E bytes, above 128 bytes: four stores at the start, a
// body of four stores a step, then four stores that end exactly at the end of the region,
// overlapping what came before.  For a destination on an element boundary the body starts on a
// 64-byte boundary, so its stores go to whole lines in pairs (two such retire per cycle); any
// other runs unaligned.  Few branches keep short fills close to the store limit.
template <size_t E>
[[gnu::always_inline]] inline void ownsFillAbove128(u8* d, size_t n, __m256i pat) {
    u8* const closing = d + n - 128;
    store32(d, pat);
    store32(d + 32, pat);
    store32(d + 64, pat);
    store32(d + 96, pat);
    const uintptr_t a = reinterpret_cast<uintptr_t>(d);
    if (a % E == 0) {
        u8* p = reinterpret_cast<u8*>((a + 128) & ~uintptr_t(63));
        if constexpr (E <= 8) {
            if (closing > p && size_t(closing - p) >= kStringFillFrom) {
                // The first 8 bytes of the pattern repeat at every element boundary; the string
                // ends at most 7 bytes past `closing`.
                size_t count = (size_t(closing - p) + 7) / 8;
                const uint64_t w = uint64_t(_mm_cvtsi128_si64(_mm256_castsi256_si128(pat)));
                __asm__ volatile("rep stosq" : "+D"(p), "+c"(count) : "a"(w) : "memory");
            }
        }
        for (; p < closing; p += 128) {
            storeA32(p, pat);
            storeA32(p + 32, pat);
            storeA32(p + 64, pat);
            storeA32(p + 96, pat);
        }
    } else {
        for (u8* p = d + 128; p < closing; p += 128) {
            store32(p, pat);
            store32(p + 32, pat);
            store32(p + 64, pat);
            store32(p + 96, pat);
        }
    }
    store32(closing, pat);
    store32(closing + 32, pat);
    store32(closing + 64, pat);
    store32(closing + 96, pat);
}

template <size_t E>
[[gnu::always_inline]] inline void ownsFillPlain(u8* d, size_t n, __m256i pat) {
    if (n > 128) return ownsFillAbove128<E>(d, n, pat);
    if (n < 32) return fillBelow32(d, n, pat);
    if (n <= 64) {
        store32(d, pat);
        store32(d + n - 32, pat);
        return;
    }
    store32(d, pat);
    store32(d + 32, pat);
    store32(d + n - 64, pat);
    store32(d + n - 32, pat);
}

// Streaming route for a region larger than the largest cache (n >= 64).  A head that is not
// 64-byte aligned takes two plain stores, then non-temporal stores run from the next 64-byte
// boundary, which the caller guarantees is an element boundary; 32 and 16 remaining bytes stream
// too, 8, 4, 2, 1 are plain; the fence makes the data visible before return.
[[gnu::always_inline]] inline void ownsFillStream(u8* d, size_t n, __m256i pat) {
    u8* p = d;
    const uintptr_t a = reinterpret_cast<uintptr_t>(d);
    if (a % 64) {
        store32(d, pat);
        store32(d + 32, pat);
        p = reinterpret_cast<u8*>((a + 63) & ~uintptr_t(63));
    }
    size_t rem = n - size_t(p - d);
    for (; rem >= 64; rem -= 64, p += 64) {
        _mm256_stream_si256(reinterpret_cast<__m256i*>(p), pat);
        _mm256_stream_si256(reinterpret_cast<__m256i*>(p + 32), pat);
    }
    if (rem & 32) {
        _mm256_stream_si256(reinterpret_cast<__m256i*>(p), pat);
        p += 32;
    }
    const __m128i lo = _mm256_castsi256_si128(pat);
    if (rem & 16) {
        _mm_stream_si128(reinterpret_cast<__m128i*>(p), lo);
        p += 16;
    }
    const uint64_t w = uint64_t(_mm_cvtsi128_si64(lo));
    if (rem & 8) std::memcpy(p, &w, 8), p += 8;
    if (rem & 4) std::memcpy(p, &w, 4), p += 4;
    if (rem & 2) std::memcpy(p, &w, 2), p += 2;
    if (rem & 1) *p = u8(w);
    _mm_sfence();
}

// The cache query: true only when it answers and `count` exceeds the size it gives over
// `divisor`.  A failing query, or a size not above zero, keeps the plain route.
inline bool exceedsCache(int64_t count, int divisor) {
    int size = 0;
    if (nuvGetMaxCacheSizeB(&size) != 0 || size <= 0) return false;
    return count > int64_t(size / divisor);
}

// A region past a kernel's cut: streams if it exceeds the cache, else the plain route.  Kept out
// of line, off the path of the common small fill.
template <size_t P>
[[gnu::noinline]] void fillLarge(u8* d, size_t n, __m256i pat, int64_t count, int divisor) {
    if (exceedsCache(count, divisor)) return ownsFillStream(d, n, pat);
    ownsFillPlain<P>(d, n, pat);
}

// Zero and Set by byte size, for len elements of E bytes whose pattern repeats every P bytes (1
// for Zero).  The route is chosen on len times E in 32-bit arithmetic; the fill covers all len
// elements.  `streamable` is the destination alignment condition of the member.
template <size_t E, size_t P = E>
[[gnu::always_inline]] inline void ownsFillBytes(void* dst, int len, __m256i pat, bool streamable) {
    u8* d = static_cast<u8*>(dst);
    const int size = int(unsigned(len) * unsigned(E));
    const size_t n = size_t(len) * E;
    // The common middle range first, with one test: it never asks the cache.
    if (n - 129 < size_t(kQueryAbove) - 128) return ownsFillAbove128<P>(d, n, pat);
    if (size > kQueryAbove && streamable) return fillLarge<P>(d, n, pat, size, 1);
    ownsFillPlain<P>(d, n, pat);
}

// The 8-byte Set kernel: its cut is in elements, and it streams when the count exceeds the cache
// size over 8, for a destination on an 8-byte boundary.
inline constexpr int kSet8QueryAbove = 0x40000;
[[gnu::always_inline]] inline void ownsSet8(void* dst, int len, __m256i pat) {
    u8* d = static_cast<u8*>(dst);
    const size_t n = size_t(len) * 8;
    if (len > kSet8QueryAbove && reinterpret_cast<uintptr_t>(d) % 8 == 0) return fillLarge<8>(d, n, pat, len, 8);
    ownsFillPlain<8>(d, n, pat);
}

// The 16-byte Set kernel: above 0x10000 elements on a 16-byte boundary it streams when the count
// exceeds the cache size over 16.
inline constexpr int kSet16QueryAbove = 0x10000;
[[gnu::always_inline]] inline void ownsSet16(void* dst, int len, __m256i pat) {
    u8* d = static_cast<u8*>(dst);
    const size_t n = size_t(len) * 16;
    if (len > kSet16QueryAbove && reinterpret_cast<uintptr_t>(d) % 16 == 0) return fillLarge<16>(d, n, pat, len, 16);
    ownsFillPlain<16>(d, n, pat);
}

}  // namespace nuv::fill

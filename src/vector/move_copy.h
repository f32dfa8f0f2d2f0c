// Copy and Move kernels over bytes: every element width funnels into these.
#pragma once
#include <immintrin.h>

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace nuv::copy {

using u8 = uint8_t;

[[gnu::always_inline]] inline __m256i ld(const u8* p) { return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p)); }
[[gnu::always_inline]] inline void st(u8* p, __m256i v) { _mm256_storeu_si256(reinterpret_cast<__m256i*>(p), v); }
[[gnu::always_inline]] inline void stA(u8* p, __m256i v) { _mm256_store_si256(reinterpret_cast<__m256i*>(p), v); }
[[gnu::always_inline]] inline void stNt(u8* p, __m256i v) { _mm256_stream_si256(reinterpret_cast<__m256i*>(p), v); }

// Up to 32 bytes: the first and the last piece of the largest fitting power of two, both loaded
// before either is stored, so that this also serves overlapping moves.
template <class W>
[[gnu::always_inline]] inline void pair(const u8* s, u8* d, size_t n) {
    W a, b;
    std::memcpy(&a, s, sizeof(W));
    std::memcpy(&b, s + n - sizeof(W), sizeof(W));
    std::memcpy(d, &a, sizeof(W));
    std::memcpy(d + n - sizeof(W), &b, sizeof(W));
}
[[gnu::always_inline]] inline void upTo32(const u8* s, u8* d, size_t n) {
    if (n >= 16) {
        const __m128i a = _mm_loadu_si128(reinterpret_cast<const __m128i*>(s));
        const __m128i b = _mm_loadu_si128(reinterpret_cast<const __m128i*>(s + n - 16));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(d), a);
        _mm_storeu_si128(reinterpret_cast<__m128i*>(d + n - 16), b);
    } else if (n >= 8) {
        pair<uint64_t>(s, d, n);
    } else if (n >= 4) {
        pair<uint32_t>(s, d, n);
    } else if (n >= 2) {
        pair<uint16_t>(s, d, n);
    } else if (n) {
        d[0] = s[0];
    }
}

// 33 to 256 bytes: two, four or eight 32-byte pieces from both ends, all loaded before any is
// stored.
[[gnu::always_inline]] inline void upTo256(const u8* s, u8* d, size_t n) {
    if (n <= 64) {
        const __m256i a = ld(s), b = ld(s + n - 32);
        st(d, a);
        st(d + n - 32, b);
    } else if (n <= 128) {
        const __m256i a = ld(s), b = ld(s + 32), c = ld(s + n - 64), e = ld(s + n - 32);
        st(d, a);
        st(d + 32, b);
        st(d + n - 64, c);
        st(d + n - 32, e);
    } else {
        const __m256i a0 = ld(s), a1 = ld(s + 32), a2 = ld(s + 64), a3 = ld(s + 96);
        const __m256i b0 = ld(s + n - 128), b1 = ld(s + n - 96), b2 = ld(s + n - 64), b3 = ld(s + n - 32);
        st(d, a0);
        st(d + 32, a1);
        st(d + 64, a2);
        st(d + 96, a3);
        st(d + n - 128, b0);
        st(d + n - 96, b1);
        st(d + n - 64, b2);
        st(d + n - 32, b3);
    }
}

// Regions from this size on copy with non-temporal stores.  Source and destination together
// then outgrow a core's second-level cache, and writing around the caches is measurably faster
// than allocating the destination lines.
inline constexpr size_t kCopyStreamFrom = 0x180000;

// Non-overlapping copy, n > 256.  The first and last 32 bytes are loaded up front and stored
// last; between them 32-byte aligned destination blocks of 256 bytes, then single vectors.
inline void ownsCopyLarge(const u8* s, u8* d, size_t n) {
    const __m256i head = ld(s), tail = ld(s + n - 32);
    size_t i = 32 - (reinterpret_cast<uintptr_t>(d) & 31);
    const size_t end = n - 32;
    if (n >= kCopyStreamFrom) {
        // Align to 64 so that every non-temporal pair fills one whole line.
        if ((reinterpret_cast<uintptr_t>(d + i) & 32) != 0) {
            stA(d + i, ld(s + i));
            i += 32;
        }
        for (; i + 64 <= end; i += 64) {
            const __m256i a = ld(s + i), b = ld(s + i + 32);
            stNt(d + i, a);
            stNt(d + i + 32, b);
        }
        _mm_sfence();
    }
    for (; i + 256 <= end; i += 256) {
#pragma GCC unroll 8
        for (size_t k = 0; k < 256; k += 32) stA(d + i + k, ld(s + i + k));
    }
    for (; i < end; i += 32) stA(d + i, ld(s + i));
    st(d + end, tail);
    st(d, head);
}

// The byte copy behind every Copy member.
inline void ownsCopy_8u(const u8* s, u8* d, size_t n) {
    if (n <= 32) return upTo32(s, d, n);
    if (n <= 256) return upTo256(s, d, n);
    ownsCopyLarge(s, d, n);
}

// Move forward (destination below source) over n > 256 bytes.  Every vector is loaded before it
// is stored, and a store lands below the source of every later load, so no unread source byte is
// overwritten.  The first and
// last 32 bytes are loaded before anything is stored and stored last.
inline void moveForward(const u8* s, u8* d, size_t n) {
    const __m256i head = ld(s), tail = ld(s + n - 32);
    size_t i = 32 - (reinterpret_cast<uintptr_t>(d) & 31);
    const size_t end = n - 32;
    for (; i + 128 <= end; i += 128) {
#pragma GCC unroll 4
        for (size_t k = 0; k < 128; k += 32) stA(d + i + k, ld(s + i + k));
    }
    for (; i < end; i += 32) stA(d + i, ld(s + i));
    st(d + end, tail);
    st(d, head);
}

// Move backward (destination above source), from the last byte down, mirror of moveForward.
inline void moveBackward(const u8* s, u8* d, size_t n) {
    const __m256i head = ld(s), tail = ld(s + n - 32);
    size_t j = size_t((reinterpret_cast<uintptr_t>(d + n) & ~uintptr_t(31)) - reinterpret_cast<uintptr_t>(d));
    for (; j >= 32 + 128; j -= 128) {
#pragma GCC unroll 4
        for (size_t k = 32; k <= 128; k += 32) stA(d + j - k, ld(s + j - k));
    }
    for (; j > 32; j -= 32) stA(d + j - 32, ld(s + j - 32));
    st(d + n - 32, tail);
    st(d, head);
}

// Move over n > 256 bytes, overlapping by any amount.
[[gnu::noinline]] inline void moveLarge(const u8* s, u8* d, size_t n) {
    const uintptr_t a = reinterpret_cast<uintptr_t>(s), b = reinterpret_cast<uintptr_t>(d);
    if (b + n <= a || a + n <= b) return ownsCopyLarge(s, d, n);  // disjoint
    if (b < a) return moveForward(s, d, n);
    if (b > a) return moveBackward(s, d, n);
}

// The byte move behind every Move member: overlapping regions by any amount.  Short moves are
// inlined into the exports; at a few nanoseconds a call and return are a tenth of their time.
[[gnu::always_inline]] inline void ownsMove_8u(const u8* s, u8* d, size_t n) {
    if (n <= 32) return upTo32(s, d, n);
    if (n <= 256) return upTo256(s, d, n);
    moveLarge(s, d, n);
}

}  // namespace nuv::copy

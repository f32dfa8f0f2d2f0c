// Reorder kernels: Flip (element order reversed) and SwapBytes (byte order within each element).
#pragma once
#include <immintrin.h>

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace nuv::reorder {

using u8 = uint8_t;

[[gnu::always_inline]] inline __m256i ld(const u8* p) { return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p)); }
[[gnu::always_inline]] inline void st(u8* p, __m256i v) { _mm256_storeu_si256(reinterpret_cast<__m256i*>(p), v); }

// One element of E bytes as an opaque value.
template <size_t E>
struct Elem {
    u8 b[E];
};
template <size_t E>
[[gnu::always_inline]] inline Elem<E> get(const u8* p, size_t i) {
    Elem<E> e;
    std::memcpy(&e, p + i * E, E);
    return e;
}
template <size_t E>
[[gnu::always_inline]] inline void put(u8* p, size_t i, Elem<E> e) {
    std::memcpy(p + i * E, &e, E);
}

// Element order of one 32-byte register reversed, for elements of E bytes.
template <size_t E>
[[gnu::always_inline]] inline __m256i reverse(__m256i v) {
    if constexpr (E == 1) {
        const __m256i m = _mm256_setr_epi8(15, 14, 13, 12, 11, 10, 9, 8, 7, 6, 5, 4, 3, 2, 1, 0,
                                           15, 14, 13, 12, 11, 10, 9, 8, 7, 6, 5, 4, 3, 2, 1, 0);
        return _mm256_permute4x64_epi64(_mm256_shuffle_epi8(v, m), 0x4E);
    } else if constexpr (E == 2) {
        const __m256i m = _mm256_setr_epi8(14, 15, 12, 13, 10, 11, 8, 9, 6, 7, 4, 5, 2, 3, 0, 1,
                                           14, 15, 12, 13, 10, 11, 8, 9, 6, 7, 4, 5, 2, 3, 0, 1);
        return _mm256_permute4x64_epi64(_mm256_shuffle_epi8(v, m), 0x4E);
    } else if constexpr (E == 4) {
        return _mm256_permutevar8x32_epi32(v, _mm256_setr_epi32(7, 6, 5, 4, 3, 2, 1, 0));
    } else if constexpr (E == 8) {
        return _mm256_permute4x64_epi64(v, 0x1B);
    } else {
        static_assert(E == 16);
        return _mm256_permute4x64_epi64(v, 0x4E);
    }
}

// dst[i] = src[n-1-i].  Whole registers read from the end of the source; a short remainder is
// one register that overlaps the last one written, or, below one register, single elements.
template <size_t E>
inline void ownsFlip(const u8* s, u8* d, size_t n) {
    constexpr size_t K = 32 / E;
    const u8* const se = s + n * E;
    size_t i = 0;
    for (; i + 4 * K <= n; i += 4 * K) {
        const __m256i a0 = ld(se - (i + K) * E), a1 = ld(se - (i + 2 * K) * E);
        const __m256i a2 = ld(se - (i + 3 * K) * E), a3 = ld(se - (i + 4 * K) * E);
        st(d + i * E, reverse<E>(a0));
        st(d + (i + K) * E, reverse<E>(a1));
        st(d + (i + 2 * K) * E, reverse<E>(a2));
        st(d + (i + 3 * K) * E, reverse<E>(a3));
    }
    for (; i + K <= n; i += K) st(d + i * E, reverse<E>(ld(se - (i + K) * E)));
    if (i == n) return;
    if (n >= K) {
        st(d + (n - K) * E, reverse<E>(ld(s)));
        return;
    }
    for (; i < n; ++i) put<E>(d, i, get<E>(s, n - 1 - i));
}

// In place: registers from both ends swap until fewer than two registers' worth remain in the
// middle; one register's worth or more is then reversed by two overlapping registers, both
// loaded before either is stored; less is swapped pairwise, an odd middle element staying.
template <size_t E>
inline void ownsFlipInPlace(u8* p, size_t n) {
    constexpr size_t K = 32 / E;
    size_t i = 0, j = n;  // [i, j) still to reverse
    for (; j - i >= 4 * K; i += 2 * K, j -= 2 * K) {
        const __m256i a0 = ld(p + i * E), a1 = ld(p + (i + K) * E);
        const __m256i b0 = ld(p + (j - K) * E), b1 = ld(p + (j - 2 * K) * E);
        st(p + i * E, reverse<E>(b0));
        st(p + (i + K) * E, reverse<E>(b1));
        st(p + (j - K) * E, reverse<E>(a0));
        st(p + (j - 2 * K) * E, reverse<E>(a1));
    }
    for (; j - i >= 2 * K; i += K, j -= K) {
        const __m256i a = ld(p + i * E), b = ld(p + (j - K) * E);
        st(p + i * E, reverse<E>(b));
        st(p + (j - K) * E, reverse<E>(a));
    }
    if (j - i >= K) {
        const __m256i a = ld(p + i * E), b = ld(p + (j - K) * E);
        st(p + i * E, reverse<E>(b));
        st(p + (j - K) * E, reverse<E>(a));
        return;
    }
    for (; j - i >= 2; ++i, --j) {
        const Elem<E> a = get<E>(p, i), b = get<E>(p, j - 1);
        put<E>(p, i, b);
        put<E>(p, j - 1, a);
    }
}

// Byte order of each element of E = 2, 4, 8 bytes reversed.
template <size_t E>
[[gnu::always_inline]] inline __m256i swapMask() {
    if constexpr (E == 2)
        return _mm256_setr_epi8(1, 0, 3, 2, 5, 4, 7, 6, 9, 8, 11, 10, 13, 12, 15, 14,
                                1, 0, 3, 2, 5, 4, 7, 6, 9, 8, 11, 10, 13, 12, 15, 14);
    else if constexpr (E == 4)
        return _mm256_setr_epi8(3, 2, 1, 0, 7, 6, 5, 4, 11, 10, 9, 8, 15, 14, 13, 12,
                                3, 2, 1, 0, 7, 6, 5, 4, 11, 10, 9, 8, 15, 14, 13, 12);
    else
        return _mm256_setr_epi8(7, 6, 5, 4, 3, 2, 1, 0, 15, 14, 13, 12, 11, 10, 9, 8,
                                7, 6, 5, 4, 3, 2, 1, 0, 15, 14, 13, 12, 11, 10, 9, 8);
}

template <size_t E>
[[gnu::always_inline]] inline void swapOne(const u8* s, u8* d) {
    u8 t[E];
    for (size_t k = 0; k < E; ++k) t[k] = s[E - 1 - k];
    std::memcpy(d, t, E);
}

// Serves in place (s == d) as well: the last register is loaded before anything is stored and
// stored last, so the overlap with the blocks before it gets the swapped original bytes.
template <size_t E>
inline void ownsSwapBytes(const u8* s, u8* d, size_t n) {
    const size_t bytes = n * E;
    if (bytes < 32) {
        for (size_t i = 0; i < n; ++i) swapOne<E>(s + i * E, d + i * E);
        return;
    }
    const __m256i m = swapMask<E>();
    const __m256i last = _mm256_shuffle_epi8(ld(s + bytes - 32), m);
    size_t i = 0;
    for (; i + 128 <= bytes; i += 128) {
        const __m256i a0 = ld(s + i), a1 = ld(s + i + 32), a2 = ld(s + i + 64), a3 = ld(s + i + 96);
        st(d + i, _mm256_shuffle_epi8(a0, m));
        st(d + i + 32, _mm256_shuffle_epi8(a1, m));
        st(d + i + 64, _mm256_shuffle_epi8(a2, m));
        st(d + i + 96, _mm256_shuffle_epi8(a3, m));
    }
    for (; i + 32 <= bytes; i += 32) st(d + i, _mm256_shuffle_epi8(ld(s + i), m));
    st(d + bytes - 32, last);
}

// Packed 24-bit elements: bytes 0 and 2 of each swap, byte 1 stays.  A turn reads 32 bytes and
// turns the first 24 (eight elements): the dwords are spread so that each 128-bit lane holds
// twelve whole bytes, the triples are reversed within lanes, gathered back, and bytes 24..31 go
// out as they came in, to be rewritten by the next turn or by the single elements after the loop.
inline void ownsSwapBytes24(const u8* s, u8* d, size_t n) {
    const size_t bytes = n * 3;
    const __m256i spread = _mm256_setr_epi32(0, 1, 2, 3, 3, 4, 5, 6);
    const __m256i tri = _mm256_setr_epi8(2, 1, 0, 5, 4, 3, 8, 7, 6, 11, 10, 9, 12, 13, 14, 15,
                                         2, 1, 0, 5, 4, 3, 8, 7, 6, 11, 10, 9, 12, 13, 14, 15);
    const __m256i gather = _mm256_setr_epi32(0, 1, 2, 4, 5, 6, 7, 7);
    auto turn = [&](__m256i x) {
        const __m256i y = _mm256_permutevar8x32_epi32(_mm256_shuffle_epi8(_mm256_permutevar8x32_epi32(x, spread), tri), gather);
        return _mm256_blend_epi32(y, x, 0xC0);
    };
    size_t i = 0;
    // Sixteen elements a step, both loads before the stores, and the stores end where the next
    // step's loads begin: in place, no load waits on a store that covers it only in part.
    for (; i + 56 <= bytes; i += 48) {
        const __m256i a = turn(ld(s + i)), b = turn(ld(s + i + 24));
        st(d + i, a);
        _mm_storeu_si128(reinterpret_cast<__m128i*>(d + i + 24), _mm256_castsi256_si128(b));
        _mm_storel_epi64(reinterpret_cast<__m128i*>(d + i + 40), _mm256_extracti128_si256(b, 1));
    }
    for (; i + 32 <= bytes; i += 24) st(d + i, turn(ld(s + i)));
    for (; i < bytes; i += 3) {
        const u8 a = s[i], b = s[i + 1], c = s[i + 2];
        d[i] = c;
        d[i + 1] = b;
        d[i + 2] = a;
    }
}

}  // namespace nuv::reorder

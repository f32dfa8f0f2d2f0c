// Floating add, subtract, multiply: element-wise kernels generic over float and double, real and complex.
#pragma once
#include <immintrin.h>

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

#include "frame/block.h"
#include "frame/simd.h"

namespace nuv::arith {

// ---------------------------------------------------------------- 128-bit twins for one complex element
// The single-element step of a complex kernel runs the same instruction sequence as the vector
// step on one pair, so an element's bits (NaN signs included) never depend on its route.
template <class T> struct Half;

template <> struct Half<float> {
    using V = __m128;
    // Both words of a pair move as one 8-byte access; memcpy keeps the float array's type intact.
    NUV_INLINE static V loadPair(const float* p) {
        double t;
        std::memcpy(&t, p, sizeof t);
        return _mm_castpd_ps(_mm_set_sd(t));
    }
    NUV_INLINE static void storePair(float* p, V v) {
        const double t = _mm_cvtsd_f64(_mm_castps_pd(v));
        std::memcpy(p, &t, sizeof t);
    }
    NUV_INLINE static V pair(float re, float im) { return _mm_setr_ps(re, im, re, im); }
    NUV_INLINE static V set1(float x) { return _mm_set1_ps(x); }
    NUV_INLINE static V add(V a, V b) { return _mm_add_ps(a, b); }
    NUV_INLINE static V mul(V a, V b) { return _mm_mul_ps(a, b); }
    NUV_INLINE static V fmaddsub(V a, V b, V c) { return _mm_fmaddsub_ps(a, b, c); }
    NUV_INLINE static V swapPairs(V a) { return _mm_permute_ps(a, 0xB1); }
    NUV_INLINE static V dupEven(V a) { return _mm_moveldup_ps(a); }
    NUV_INLINE static V dupOdd(V a) { return _mm_movehdup_ps(a); }
};

template <> struct Half<double> {
    using V = __m128d;
    NUV_INLINE static V loadPair(const double* p) { return _mm_loadu_pd(p); }
    NUV_INLINE static void storePair(double* p, V v) { _mm_storeu_pd(p, v); }
    NUV_INLINE static V pair(double re, double im) { return _mm_setr_pd(re, im); }
    NUV_INLINE static V set1(double x) { return _mm_set1_pd(x); }
    NUV_INLINE static V add(V a, V b) { return _mm_add_pd(a, b); }
    NUV_INLINE static V mul(V a, V b) { return _mm_mul_pd(a, b); }
    NUV_INLINE static V fmaddsub(V a, V b, V c) { return _mm_fmaddsub_pd(a, b, c); }
    NUV_INLINE static V swapPairs(V a) { return _mm_permute_pd(a, 0x1); }
    NUV_INLINE static V dupEven(V a) { return _mm_movedup_pd(a); }
    NUV_INLINE static V dupOdd(V a) { return _mm_permute_pd(a, 0x3); }
};

// The vocabulary that goes with a register type (declarations only, for overload resolution).
Simd<float> vocabOf(__m256);
Simd<double> vocabOf(__m256d);
Half<float> vocabOf(__m128);
Half<double> vocabOf(__m128d);
template <class V> using Vocab = decltype(vocabOf(V{}));

// ---------------------------------------------------------------- operations
// Each works on scalars and registers alike (the compiler never fuses `*` and `+` here).
struct Add {
    template <class X> NUV_INLINE X operator()(X x, X y) const { return x + y; }
};
struct Sub {
    template <class X> NUV_INLINE X operator()(X x, X y) const { return x - y; }
};
struct Mul {
    template <class X> NUV_INLINE X operator()(X x, X y) const { return x * y; }
};
// The operands of Op swapped: Sub's second source minus its first, constant minus element.
template <class Op> struct Flip {
    template <class X> NUV_INLINE X operator()(X x, X y) const { return Op{}(y, x); }
};
struct Sqr {
    template <class X> NUV_INLINE X operator()(X x) const { return x * x; }
};
// Clears the sign bit: NaN payloads survive and -0 becomes +0.
struct Abs {
    NUV_INLINE float operator()(float x) const { return std::bit_cast<float>(std::bit_cast<uint32_t>(x) & 0x7FFFFFFFu); }
    NUV_INLINE double operator()(double x) const {
        return std::bit_cast<double>(std::bit_cast<uint64_t>(x) & 0x7FFFFFFFFFFFFFFFull);
    }
    template <class V> NUV_INLINE V operator()(V x) const { return Vocab<V>::abs(x); }
};
// x * y + z, rounded once.
struct Fma {
    NUV_INLINE float operator()(float x, float y, float z) const { return __builtin_fmaf(x, y, z); }
    NUV_INLINE double operator()(double x, double y, double z) const { return __builtin_fma(x, y, z); }
    template <class V> NUV_INLINE V operator()(V x, V y, V z) const { return Vocab<V>::fma(x, y, z); }
};

// Complex products on interleaved registers (re, im, re, im, ...).
// a * b with a from the first source: re = fused b.re*a.re minus rounded b.im*a.im,
//                                      im = fused b.re*a.im plus rounded b.im*a.re.
struct CMul {
    template <class V> NUV_INLINE V operator()(V a, V b) const {
        using S = Vocab<V>;
        const V t = S::mul(S::swapPairs(a), S::dupOdd(b));  // (a.im*b.im, a.re*b.im), rounded
        return S::fmaddsub(a, S::dupEven(b), t);           // (a.re*b.re - t.re, a.im*b.re + t.im), fused
    }
};
// x * c with c a constant: re = fused c.re*x.re minus rounded x.im*c.im,
//                          im = fused c.im*x.re plus rounded x.im*c.re.
struct CMulC {
    template <class V> NUV_INLINE V operator()(V x, V c) const {
        using S = Vocab<V>;
        const V t = S::mul(S::dupOdd(x), S::swapPairs(c));  // (x.im*c.im, x.im*c.re), rounded
        return S::fmaddsub(S::dupEven(x), c, t);           // (x.re*c.re - t.re, x.re*c.im + t.im), fused
    }
};
// x * x: re = fused x.re*x.re minus rounded x.im*x.im, im = fused x.im*x.re plus rounded x.im*x.re.
struct CSqr {
    template <class V> NUV_INLINE V operator()(V x) const {
        using S = Vocab<V>;
        const V t = S::mul(S::dupOdd(x), S::swapPairs(x));  // (x.im*x.im, x.im*x.re), rounded
        return S::fmaddsub(x, S::dupEven(x), t);           // (x.re*x.re - t.re, x.im*x.re + t.im), fused
    }
};
// d + a * b: the product exactly as CMul, then one rounded addition.
struct CAddProduct {
    template <class V> NUV_INLINE V operator()(V a, V b, V d) const { return Vocab<V>::add(d, CMul{}(a, b)); }
};

// ---------------------------------------------------------------- sources
// An array of real words.
template <class T>
struct Arr {
    const T* p;
    NUV_INLINE typename Simd<T>::V vec(int w) const { return Simd<T>::load(p + w); }
    NUV_INLINE T one(int i) const { return p[i]; }
    NUV_INLINE bool reads(const void* d) const { return p == d; }
};
// One real constant for every element.
template <class T>
struct Bcast {
    typename Simd<T>::V v;
    T c;
    explicit Bcast(T x) : v(Simd<T>::set1(x)), c(x) {}
    NUV_INLINE typename Simd<T>::V vec(int) const { return v; }
    NUV_INLINE T one(int) const { return c; }
    NUV_INLINE bool reads(const void*) const { return false; }
};
// An array of complex elements as interleaved words.
template <class T>
struct ArrC {
    const T* p;
    NUV_INLINE typename Simd<T>::V vec(int w) const { return Simd<T>::load(p + w); }
    NUV_INLINE typename Half<T>::V half(int i) const { return Half<T>::loadPair(p + 2 * i); }
    NUV_INLINE bool reads(const void* d) const { return p == d; }
};
// One complex constant for every element.
template <class T>
struct BcastC {
    typename Simd<T>::V v;
    typename Half<T>::V h;
    BcastC(T re, T im) : h(Half<T>::pair(re, im)) {
        if constexpr (std::is_same_v<T, float>) v = _mm256_setr_ps(re, im, re, im, re, im, re, im);
        else v = _mm256_setr_pd(re, im, re, im);
    }
    NUV_INLINE typename Simd<T>::V vec(int) const { return v; }
    NUV_INLINE typename Half<T>::V half(int) const { return h; }
    NUV_INLINE bool reads(const void*) const { return false; }
};
// Real floats, each widened to a (x, x) pair, so a real array multiplies a complex one word by word.
struct ArrRealAsPairs {
    const float* p;
    NUV_INLINE __m256 vec(int w) const {
        const __m256 four = _mm256_castps128_ps256(_mm_loadu_ps(p + w / 2));
        return _mm256_permutevar8x32_ps(four, _mm256_setr_epi32(0, 0, 1, 1, 2, 2, 3, 3));
    }
    NUV_INLINE __m128 half(int i) const { return _mm_set1_ps(p[i]); }
    NUV_INLINE bool reads(const void* d) const { return p == d; }
};

// ---------------------------------------------------------------- loop shapes
// Element-wise map under plan P with the destination `d` in words: `vec(i, put)` computes the
// registers of step i and hands each to `put`, `one(i)` does element i alone.  `peelAt` is the
// address whose alignment decides the peel (the destination, except where a member peels on its
// source).
//
// A destination of kStreamFrom bytes or more that no source reads is written around the caches:
// that saves reading each destination line before it is written.  An array that is also a source
// is in the cache already, and streaming it back would cost.  A streaming run peels on the
// destination, so that every register store is aligned.
template <BlockPlan P, size_t ElemSize, class T, class Vec, class One, class... Src>
NUV_INLINE void ownsMapRun(const void* peelAt, T* d, int len, Vec vec, One one, const Src&... s) {
    using V = typename Simd<T>::V;
    if (len >= int(kStreamFrom / ElemSize)) [[unlikely]] {
        if (!(s.reads(d) || ...)) {
            blocked<P, ElemSize>(d, len, [&](int i) { vec(i, [](T* p, V v) { Simd<T>::stream(p, v); }); }, one);
            _mm_sfence();
            return;
        }
    }
    blocked<P, ElemSize>(peelAt, len, [&](int i) { vec(i, [](T* p, V v) { Simd<T>::store(p, v); }); }, one);
}

// Real element-wise map d[i] = op(s[i]...) under plan P.
template <BlockPlan P, class T, class Op, class... Src>
NUV_INLINE void ownsMap(const void* peelAt, T* d, int len, Op op, Src... s) {
    using S = Simd<T>;
    static_assert(P.tail % S::N == 0);
    ownsMapRun<P, sizeof(T)>(
        peelAt, d, len,
        [&](int i, auto put) {
            for (int r = 0; r < P.tail; r += S::N) put(d + i + r, op(s.vec(i + r)...));
        },
        [&](int i) { d[i] = op(s.one(i)...); }, s...);
}

// One complex element: every source pair is read before either part of the result is written.
template <class T, class Op, class... Src>
NUV_INLINE void ownsOnePair(T* d, int i, Op op, Src... s) {
    Half<T>::storePair(d + 2 * i, op(s.half(i)...));
}

// Complex element-wise map under plan P (counts in complex elements).
template <BlockPlan P, class T, class Op, class... Src>
NUV_INLINE void ownsMapC(const void* peelAt, T* d, int len, Op op, Src... s) {
    using S = Simd<T>;
    static_assert((2 * P.tail) % S::N == 0);
    ownsMapRun<P, 2 * sizeof(T)>(
        peelAt, d, len,
        [&](int i, auto put) {
            for (int r = 0; r < 2 * P.tail; r += S::N) put(d + 2 * i + r, op(s.vec(2 * i + r)...));
        },
        [&](int i) { ownsOnePair(d, i, op, s...); }, s...);
}

// Plain ascending run, one element at a time: the result of element-by-element processing for
// arrays that overlap in any way.
template <class T, class Op, class... Src>
void ownsPairsAscending(T* d, int len, Op op, Src... s) {
    for (int i = 0; i < len; ++i) ownsOnePair(d, i, op, s...);
}

// True when [d, d+bytes) lies wholly above or wholly below [s, s+bytes).
inline bool separate(const void* d, const void* s, int len, size_t elemSize) {
    const intptr_t diff = reinterpret_cast<intptr_t>(d) - reinterpret_cast<intptr_t>(s);
    const intptr_t bytes = intptr_t(len) * intptr_t(elemSize);
    return diff >= bytes || -diff >= bytes;
}

// ---------------------------------------------------------------- AddProduct
// Lane mask for the first `n` words of a register.
template <class T> NUV_INLINE __m256i firstWords(int n) {
    if constexpr (sizeof(T) == 4) return _mm256_cmpgt_epi32(_mm256_set1_epi32(n), _mm256_setr_epi32(0, 1, 2, 3, 4, 5, 6, 7));
    else return _mm256_cmpgt_epi64(_mm256_set1_epi64x(n), _mm256_setr_epi64x(0, 1, 2, 3));
}
NUV_INLINE __m256 loadAligned(const float* p) { return _mm256_load_ps(p); }
NUV_INLINE __m256d loadAligned(const double* p) { return _mm256_load_pd(p); }
NUV_INLINE __m256 maskLoad(const float* p, __m256i m) { return _mm256_maskload_ps(p, m); }
NUV_INLINE __m256d maskLoad(const double* p, __m256i m) { return _mm256_maskload_pd(p, m); }
NUV_INLINE void maskStore(float* p, __m256i m, __m256 v) { _mm256_maskstore_ps(p, m, v); }
NUV_INLINE void maskStore(double* p, __m256i m, __m256d v) { _mm256_maskstore_pd(p, m, v); }

// d[w] = op(a[w], b[w], d[w]) over `words` words of elements of `Wpe` words each: peel to a 64-byte
// boundary of d (one register if the peel holds one, the rest masked), then 4 registers a step
// with aligned loads when both sources are 32-byte aligned there (and one step of 2 after), else
// 2 registers a step with unaligned loads; then one register and a masked rest.  With Prefetch,
// every step asks for the lines `kDist` bytes ahead on all three arrays.
template <class T, int Wpe, bool Prefetch, class Op>
void ownsAddProduct(const T* a, const T* b, T* d, int len, Op op) {
    using S = Simd<T>;
    constexpr int N = S::N;
    constexpr size_t kElem = sizeof(T) * Wpe;
    constexpr int kPerLine = int(64 / kElem);
    constexpr int kDist = 256;
    const ptrdiff_t words = ptrdiff_t(len) * Wpe;   // complex counts past 2^30 overflow int
    ptrdiff_t peel = ptrdiff_t((kPerLine - (reinterpret_cast<uintptr_t>(d) / kElem) % kPerLine) % kPerLine) * Wpe;
    if (peel > words) peel = words;

    auto stepU = [&](ptrdiff_t w) { S::store(d + w, op(S::load(a + w), S::load(b + w), S::load(d + w))); };
    auto stepA = [&](ptrdiff_t w) {
        S::store(d + w, op(loadAligned(a + w), loadAligned(b + w), S::load(d + w)));
    };
    auto masked = [&](ptrdiff_t w, ptrdiff_t n) {
        const __m256i m = firstWords<T>(int(n));
        maskStore(d + w, m, op(maskLoad(a + w, m), maskLoad(b + w, m), maskLoad(d + w, m)));
    };
    auto prefetch = [&](ptrdiff_t w, int nWords) {
        if constexpr (Prefetch) {
            for (int off = 0; off < nWords; off += int(64 / sizeof(T))) {
                _mm_prefetch(reinterpret_cast<const char*>(a + w + off) + kDist, _MM_HINT_T0);
                _mm_prefetch(reinterpret_cast<const char*>(b + w + off) + kDist, _MM_HINT_T0);
                _mm_prefetch(reinterpret_cast<const char*>(d + w + off) + kDist, _MM_HINT_T0);
            }
        }
    };

    ptrdiff_t w = 0;
    if (peel >= N) stepU(w), w += N;
    if (peel > w) masked(w, peel - w), w = peel;
    const bool aligned = ((reinterpret_cast<uintptr_t>(a + w) | reinterpret_cast<uintptr_t>(b + w)) & 31) == 0;
    if (aligned) {
        for (; words - w >= 4 * N; w += 4 * N) {
            prefetch(w, 4 * N);
            stepA(w), stepA(w + N), stepA(w + 2 * N), stepA(w + 3 * N);
        }
        if (words - w >= 2 * N) stepA(w), stepA(w + N), w += 2 * N;
    } else {
        for (; words - w >= 2 * N; w += 2 * N) {
            prefetch(w, 2 * N);
            stepU(w), stepU(w + N);
        }
    }
    if (words - w >= N) stepU(w), w += N;
    if (words > w) masked(w, words - w);
}

}  // namespace nuv::arith

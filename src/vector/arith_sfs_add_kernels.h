// Kernels of fixed-point add and subtract with scale factor: one loop per scale route.
//
// Every kernel forms p + q or p - q exactly, scales it by 2^-k, rounds to nearest with ties to
// even and saturates.  8- and 16-bit elements are widened to lanes of twice their width, where the
// exact value always fits, and packed back with saturation.  32-bit elements stay in 32-bit lanes
// and use the split form: both operands are cut into a high part (x >> s) and the low s bits, so
// that the high parts can be added without overflow and the low bits go into the rounding term.
#pragma once
#include <immintrin.h>

#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "frame/round.h"
#include "nuvs.h"

#define NUV_SFS_INLINE [[gnu::always_inline]] inline

namespace nuv::sfsadd {

enum class Op { Plus, Minus };  // p + q, p - q

// Routes by scale.  Sat: scale 0.  One, Two: scales 1 and 2.  Right: a larger right shift.
// Left: a left shift that saturates.  BySign: a left shift so large that only the sign remains.
enum class Route { Sat, One, Two, Right, Left, BySign };

NUV_SFS_INLINE __m256i loadv(const void* p) { return _mm256_loadu_si256(static_cast<const __m256i*>(p)); }
NUV_SFS_INLINE void storev(void* p, __m256i v) { _mm256_storeu_si256(static_cast<__m256i*>(p), v); }

// A constant of period two (re, im words of a complex constant; both equal for a real one),
// broadcast over a register.  Vector steps always start at an even word, so the phase holds.
template <class T>
NUV_SFS_INLINE __m256i pairVec(T c0, T c1) {
    if constexpr (sizeof(T) == 1) {
        return _mm256_set1_epi16(int16_t(uint16_t(uint8_t(c0)) | uint16_t(uint8_t(c1)) << 8));
    } else if constexpr (sizeof(T) == 2) {
        return _mm256_set1_epi32(int32_t(uint32_t(uint16_t(c0)) | uint32_t(uint16_t(c1)) << 16));
    } else if constexpr (sizeof(T) == 4) {
        return _mm256_set1_epi64x(int64_t(uint64_t(uint32_t(c0)) | uint64_t(uint32_t(c1)) << 32));
    } else {
        (void)c1;
        return _mm256_set1_epi64x(int64_t(c0));
    }
}

// ---- operand sources: where p and q of element i come from -------------------------------------

template <class T>
struct TwoArrays {
    const T* a;
    const T* b;
    NUV_SFS_INLINE __m256i vp(size_t i) const { return loadv(a + i); }
    NUV_SFS_INLINE __m256i vq(size_t i) const { return loadv(b + i); }
    NUV_SFS_INLINE T p(size_t i) const { return a[i]; }
    NUV_SFS_INLINE T q(size_t i) const { return b[i]; }
};

template <class T>
struct ArrayConst {  // p from the array, q the constant
    const T* a;
    T c0, c1;
    __m256i cv = pairVec(c0, c1);
    NUV_SFS_INLINE __m256i vp(size_t i) const { return loadv(a + i); }
    NUV_SFS_INLINE __m256i vq(size_t) const { return cv; }
    NUV_SFS_INLINE T p(size_t i) const { return a[i]; }
    NUV_SFS_INLINE T q(size_t i) const { return (i & 1) ? c1 : c0; }
};

template <class T>
struct ConstArray {  // p the constant, q from the array
    const T* b;
    T c0, c1;
    __m256i cv = pairVec(c0, c1);
    NUV_SFS_INLINE __m256i vp(size_t) const { return cv; }
    NUV_SFS_INLINE __m256i vq(size_t i) const { return loadv(b + i); }
    NUV_SFS_INLINE T p(size_t i) const { return (i & 1) ? c1 : c0; }
    NUV_SFS_INLINE T q(size_t i) const { return b[i]; }
};

// ---- one element, any route: the exact value in 64 bits ----------------------------------------

template <class T, Op O, Route R>
NUV_SFS_INLINE T single(int64_t p, int64_t q, int k) {
    const int64_t e = O == Op::Plus ? p + q : p - q;
    if constexpr (R == Route::Sat) return sat<T>(e);
    else if constexpr (R == Route::One) return sat<T>(rshiftRne<int64_t>(e, 1));
    else if constexpr (R == Route::Two) return sat<T>(rshiftRne<int64_t>(e, 2));
    else if constexpr (R == Route::Right) return sat<T>(rshiftRne<int64_t>(e, k));
    // |e| < 2^33, and a shift by 30 already saturates every nonzero value of a narrow type.
    else if constexpr (R == Route::Left) return sat<T>(e * (int64_t(1) << (k < 30 ? k : 30)));
    else return e > 0 ? T(highest<T>) : (e < 0 ? T(lowest<T>) : T(0));
}

// ---- 8- and 16-bit elements in lanes of twice the width -----------------------------------------

template <class T> struct Narrow;

template <> struct Narrow<uint8_t> {
    static constexpr size_t kStep = 32;  // elements per register load
    static constexpr int kBits = 8;
    static constexpr bool kUnsigned = true;
    NUV_SFS_INLINE static __m256i lo(__m256i v) { return _mm256_cvtepu8_epi16(_mm256_castsi256_si128(v)); }
    NUV_SFS_INLINE static __m256i hi(__m256i v) { return _mm256_cvtepu8_epi16(_mm256_extracti128_si256(v, 1)); }
    NUV_SFS_INLINE static __m256i pack(__m256i l, __m256i h) {
        return _mm256_permute4x64_epi64(_mm256_packus_epi16(l, h), 0xD8);
    }
    NUV_SFS_INLINE static __m256i adds(__m256i a, __m256i b) { return _mm256_adds_epu8(a, b); }
    NUV_SFS_INLINE static __m256i subs(__m256i a, __m256i b) { return _mm256_subs_epu8(a, b); }
    NUV_SFS_INLINE static __m256i add(__m256i a, __m256i b) { return _mm256_add_epi16(a, b); }
    NUV_SFS_INLINE static __m256i sub(__m256i a, __m256i b) { return _mm256_sub_epi16(a, b); }
    NUV_SFS_INLINE static __m256i sra(__m256i a, __m128i k) { return _mm256_sra_epi16(a, k); }
    NUV_SFS_INLINE static __m256i sll(__m256i a, __m128i k) { return _mm256_sll_epi16(a, k); }
    template <int K> NUV_SFS_INLINE static __m256i srai(__m256i a) { return _mm256_srai_epi16(a, K); }
    template <int K> NUV_SFS_INLINE static __m256i slli(__m256i a) { return _mm256_slli_epi16(a, K); }
    NUV_SFS_INLINE static __m256i min(__m256i a, __m256i b) { return _mm256_min_epi16(a, b); }
    NUV_SFS_INLINE static __m256i max(__m256i a, __m256i b) { return _mm256_max_epi16(a, b); }
    NUV_SFS_INLINE static __m256i set1(int x) { return _mm256_set1_epi16(int16_t(x)); }
};

template <class T> struct Narrow16 {
    static constexpr size_t kStep = 16;
    static constexpr int kBits = 16;
    static constexpr bool kUnsigned = std::is_unsigned_v<T>;
    NUV_SFS_INLINE static __m256i widen(__m128i v) {
        if constexpr (kUnsigned) return _mm256_cvtepu16_epi32(v);
        else return _mm256_cvtepi16_epi32(v);
    }
    NUV_SFS_INLINE static __m256i lo(__m256i v) { return widen(_mm256_castsi256_si128(v)); }
    NUV_SFS_INLINE static __m256i hi(__m256i v) { return widen(_mm256_extracti128_si256(v, 1)); }
    NUV_SFS_INLINE static __m256i pack(__m256i l, __m256i h) {
        if constexpr (kUnsigned) return _mm256_permute4x64_epi64(_mm256_packus_epi32(l, h), 0xD8);
        else return _mm256_permute4x64_epi64(_mm256_packs_epi32(l, h), 0xD8);
    }
    NUV_SFS_INLINE static __m256i adds(__m256i a, __m256i b) {
        if constexpr (kUnsigned) return _mm256_adds_epu16(a, b);
        else return _mm256_adds_epi16(a, b);
    }
    NUV_SFS_INLINE static __m256i subs(__m256i a, __m256i b) {
        if constexpr (kUnsigned) return _mm256_subs_epu16(a, b);
        else return _mm256_subs_epi16(a, b);
    }
    NUV_SFS_INLINE static __m256i add(__m256i a, __m256i b) { return _mm256_add_epi32(a, b); }
    NUV_SFS_INLINE static __m256i sub(__m256i a, __m256i b) { return _mm256_sub_epi32(a, b); }
    NUV_SFS_INLINE static __m256i sra(__m256i a, __m128i k) { return _mm256_sra_epi32(a, k); }
    NUV_SFS_INLINE static __m256i sll(__m256i a, __m128i k) { return _mm256_sll_epi32(a, k); }
    template <int K> NUV_SFS_INLINE static __m256i srai(__m256i a) { return _mm256_srai_epi32(a, K); }
    template <int K> NUV_SFS_INLINE static __m256i slli(__m256i a) { return _mm256_slli_epi32(a, K); }
    NUV_SFS_INLINE static __m256i min(__m256i a, __m256i b) { return _mm256_min_epi32(a, b); }
    NUV_SFS_INLINE static __m256i max(__m256i a, __m256i b) { return _mm256_max_epi32(a, b); }
    NUV_SFS_INLINE static __m256i set1(int x) { return _mm256_set1_epi32(x); }
};
template <> struct Narrow<int16_t> : Narrow16<int16_t> {};
template <> struct Narrow<uint16_t> : Narrow16<uint16_t> {};

// Per-call constants of a narrow route, made once before the loop.
template <class L>
struct NarrowParams {
    __m128i cnt;   // shift count
    __m256i bias;  // 2^(k-1) - 1 of the integer bias rule
    __m256i cap;   // left shifts of unsigned types: values above cap saturate whatever the shift
    __m256i one = L::set1(1);
    __m256i minusOne = L::set1(-1);

    NarrowParams(Route r, int k) {
        if (r == Route::Left && L::kUnsigned && k > L::kBits) k = L::kBits;
        cnt = _mm_cvtsi32_si128(k);
        bias = L::set1(r == Route::Right ? (1 << (k - 1)) - 1 : 0);
        // cap << k is exactly 2^kBits, the first value that saturates; it still fits the lane.
        cap = L::set1(r == Route::Left ? (1 << L::kBits) >> k : 0);
    }
};

// The route applied to exact values in wide lanes (right shifts only from the lane width on; the
// shorter ones take the split kernel below).
template <class L, Route R>
NUV_SFS_INLINE __m256i narrowRoute(__m256i e, const NarrowParams<L>& c) {
    static_assert(R != Route::One && R != Route::Sat);
    if constexpr (R == Route::Right) {
        const __m256i odd = _mm256_and_si256(L::sra(e, c.cnt), c.one);
        return L::sra(L::add(L::add(e, c.bias), odd), c.cnt);
    } else if constexpr (R == Route::Left) {
        // Signed 16-bit values shift by at most 15 and never overflow a 32-bit lane; unsigned
        // ones may shift by any amount, so they are held within [-1, cap] first.
        if constexpr (L::kUnsigned) e = L::min(L::max(e, c.minusOne), c.cap);
        return L::sll(e, c.cnt);
    } else {
        // Sign as -1, 0 or 1, shifted to just outside the destination's range.
        return L::template slli<L::kBits>(L::min(L::max(e, c.minusOne), c.one));
    }
}

// Right shifts by k below the lane width without widening (8-bit lanes up to 7, 16-bit up to 15):
// with x = (x >> k) 2^k + (x & m), m = 2^k - 1, the exact e = p op q is h 2^k + low with
// h = (p >> k) op (q >> k) and low = (p & m) op (q & m), low within (-2^k, 2^(k+1)); its floor
// quotient joins h, its remainder r decides the rounding: up when r is above half of 2^k, or
// equal to it with an odd quotient.  Every step fits the lane; only the final step up can pass
// the top, and it saturates there.
template <size_t Bytes> struct SplitLanes;
template <> struct SplitLanes<1> {
    NUV_SFS_INLINE static __m256i set1(int x) { return _mm256_set1_epi8(int8_t(x)); }
    NUV_SFS_INLINE static __m256i add(__m256i a, __m256i b) { return _mm256_add_epi8(a, b); }
    NUV_SFS_INLINE static __m256i sub(__m256i a, __m256i b) { return _mm256_sub_epi8(a, b); }
    NUV_SFS_INLINE static __m256i cmpgt(__m256i a, __m256i b) { return _mm256_cmpgt_epi8(a, b); }
    NUV_SFS_INLINE static __m256i cmpeq(__m256i a, __m256i b) { return _mm256_cmpeq_epi8(a, b); }
    NUV_SFS_INLINE static __m256i addsU(__m256i a, __m256i b) { return _mm256_adds_epu8(a, b); }
};
template <> struct SplitLanes<2> {
    NUV_SFS_INLINE static __m256i set1(int x) { return _mm256_set1_epi16(int16_t(x)); }
    NUV_SFS_INLINE static __m256i add(__m256i a, __m256i b) { return _mm256_add_epi16(a, b); }
    NUV_SFS_INLINE static __m256i sub(__m256i a, __m256i b) { return _mm256_sub_epi16(a, b); }
    NUV_SFS_INLINE static __m256i cmpgt(__m256i a, __m256i b) { return _mm256_cmpgt_epi16(a, b); }
    NUV_SFS_INLINE static __m256i cmpeq(__m256i a, __m256i b) { return _mm256_cmpeq_epi16(a, b); }
    NUV_SFS_INLINE static __m256i addsU(__m256i a, __m256i b) { return _mm256_adds_epu16(a, b); }
    NUV_SFS_INLINE static __m256i addsS(__m256i a, __m256i b) { return _mm256_adds_epi16(a, b); }
};

template <class T>
struct Split {
    using W = SplitLanes<sizeof(T)>;
    static constexpr int kMaxShift = 8 * int(sizeof(T)) - 1;
    __m128i cnt;
    __m256i mask, half, one = W::set1(1);
    __m256i keep;   // bytes: the bits a 16-bit shift leaves within each byte
    explicit Split(int k)
        : cnt(_mm_cvtsi32_si128(k)), mask(W::set1((1 << k) - 1)), half(W::set1(1 << (k - 1))), keep(W::set1(0xFF >> k)) {}
    // x >> k in every lane, logical or (16-bit lanes) arithmetic.
    template <bool Signed>
    NUV_SFS_INLINE __m256i shr(__m256i x) const {
        if constexpr (sizeof(T) == 1) return _mm256_and_si256(_mm256_srl_epi16(x, cnt), keep);
        else if constexpr (Signed) return _mm256_sra_epi16(x, cnt);
        else return _mm256_srl_epi16(x, cnt);
    }
};

template <class T, Op O>
NUV_SFS_INLINE __m256i splitRight(__m256i p, __m256i q, const Split<T>& c) {
    using W = SplitLanes<sizeof(T)>;
    constexpr bool kSigned = std::is_signed_v<T>;
    const __m256i zero = _mm256_setzero_si256();
    const __m256i pl = _mm256_and_si256(p, c.mask), ql = _mm256_and_si256(q, c.mask);
    const __m256i h = O == Op::Plus ? W::add(c.template shr<kSigned>(p), c.template shr<kSigned>(q))
                                    : W::sub(c.template shr<kSigned>(p), c.template shr<kSigned>(q));
    const __m256i low = O == Op::Plus ? W::add(pl, ql) : W::sub(pl, ql);
    // The floor quotient: low / 2^k is 0 or 1 for a sum (low read unsigned), -1 or 0 for a difference.
    const __m256i t = W::add(h, O == Op::Plus ? c.template shr<false>(low) : W::cmpgt(zero, low));
    const __m256i r = _mm256_and_si256(low, c.mask);
    const __m256i odd = W::cmpeq(_mm256_and_si256(t, c.one), c.one);
    const __m256i up = _mm256_and_si256(_mm256_or_si256(W::cmpgt(r, c.half), _mm256_and_si256(W::cmpeq(r, c.half), odd)), c.one);
    if constexpr (kSigned) return W::addsS(t, up);
    else if constexpr (O == Op::Plus) return W::addsU(t, up);
    else return _mm256_andnot_si256(W::cmpgt(zero, t), W::add(t, up));   // a negative quotient: 0
}

template <class T, Op O, Route R, class Src>
void splitLoop(const Src& s, T* d, size_t n, int k) {
    const Split<T> c(k);
    constexpr size_t kPer = 32 / sizeof(T);
    size_t i = 0;
    for (; i + kPer <= n; i += kPer) storev(d + i, splitRight<T, O>(s.vp(i), s.vq(i), c));
    for (; i < n; ++i) d[i] = single<T, O, R>(s.p(i), s.q(i), k);
}

template <class T, Op O, Route R, class Src>
void narrowLoop(const Src& s, T* d, size_t n, int k) {
    using L = Narrow<T>;
    if constexpr (R == Route::One) {
        splitLoop<T, O, R>(s, d, n, k);
    } else {
        if constexpr (R == Route::Right)
            if (k <= Split<T>::kMaxShift) return splitLoop<T, O, R>(s, d, n, k);
        const NarrowParams<L> c(R, k);
        size_t i = 0;
        for (; i + L::kStep <= n; i += L::kStep) {
            const __m256i p = s.vp(i), q = s.vq(i);
            __m256i r;
            if constexpr (R == Route::Sat) {
                r = O == Op::Plus ? L::adds(p, q) : L::subs(p, q);
            } else {
                const __m256i el = O == Op::Plus ? L::add(L::lo(p), L::lo(q)) : L::sub(L::lo(p), L::lo(q));
                const __m256i eh = O == Op::Plus ? L::add(L::hi(p), L::hi(q)) : L::sub(L::hi(p), L::hi(q));
                r = L::pack(narrowRoute<L, R>(el, c), narrowRoute<L, R>(eh, c));
            }
            storev(d + i, r);
        }
        for (; i < n; ++i) d[i] = single<T, O, R>(s.p(i), s.q(i), k);
    }
}

// ---- 32-bit elements ---------------------------------------------------------------------------

NUV_SFS_INLINE __m256i addOrSub(Op o, __m256i a, __m256i b) {
    return o == Op::Plus ? _mm256_add_epi32(a, b) : _mm256_sub_epi32(a, b);
}

// Sign bit set where the wrapped 32-bit p op q overflowed; the exact value then has the sign of p.
template <Op O>
NUV_SFS_INLINE __m256i overflow32(__m256i p, __m256i q, __m256i s) {
    if constexpr (O == Op::Plus) return _mm256_and_si256(_mm256_xor_si256(s, p), _mm256_xor_si256(s, q));
    else return _mm256_and_si256(_mm256_xor_si256(p, q), _mm256_xor_si256(p, s));
}

NUV_SFS_INLINE __m256i blendSign(__m256i a, __m256i b, __m256i m) {  // m < 0 ? b : a
    return _mm256_castps_si256(
        _mm256_blendv_ps(_mm256_castsi256_ps(a), _mm256_castsi256_ps(b), _mm256_castsi256_ps(m)));
}

template <Op O, Route R>
NUV_SFS_INLINE __m256i wordRoute(__m256i p, __m256i q, int k, __m128i cnt, __m256i biasHi) {
    const __m256i one1 = _mm256_set1_epi32(1), max32 = _mm256_set1_epi32(INT32_MAX);
    if constexpr (R == Route::Sat || R == Route::Left || R == Route::BySign) {
        const __m256i s = addOrSub(O, p, q);
        const __m256i ovf = overflow32<O>(p, q, s);
        // Saturated value by the sign of the exact result: p's sign on overflow, else the sum's.
        const __m256i sat = _mm256_xor_si256(_mm256_srai_epi32(blendSign(s, p, ovf), 31), max32);
        if constexpr (R == Route::Sat) {
            return blendSign(s, sat, ovf);
        } else if constexpr (R == Route::Left) {
            // The shift loses nothing exactly when shifting back restores the wrapped sum, and the
            // wrapped sum is the exact one.
            const __m256i sh = _mm256_sll_epi32(s, cnt);
            const __m256i fits = _mm256_andnot_si256(_mm256_srai_epi32(ovf, 31),
                                                     _mm256_cmpeq_epi32(_mm256_sra_epi32(sh, cnt), s));
            return _mm256_blendv_epi8(sat, sh, fits);
        } else {
            const __m256i zero = _mm256_andnot_si256(_mm256_srai_epi32(ovf, 31),
                                                     _mm256_cmpeq_epi32(s, _mm256_setzero_si256()));
            return _mm256_andnot_si256(zero, sat);
        }
    } else if constexpr (R == Route::One) {
        // e = 2h + m with h = (p >> 1) op (q >> 1) and m = (p & 1) op (q & 1).
        const __m256i h = addOrSub(O, _mm256_srai_epi32(p, 1), _mm256_srai_epi32(q, 1));
        const __m256i m = addOrSub(O, _mm256_and_si256(p, one1), _mm256_and_si256(q, one1));
        if constexpr (O == Op::Plus) {  // m in 0..2: the tie bit is bit 0 of h
            return _mm256_add_epi32(h, _mm256_srai_epi32(_mm256_add_epi32(m, _mm256_and_si256(h, one1)), 1));
        } else {  // m in -1..1: the tie bit is bit 0 of h + (m >> 1)
            const __m256i t = _mm256_and_si256(_mm256_add_epi32(h, _mm256_srai_epi32(m, 1)), one1);
            const __m256i r = _mm256_add_epi32(h, _mm256_srai_epi32(_mm256_add_epi32(m, t), 1));
            // A difference of 2^32 - 1 halves to a tie that rounds up to 2^31: the one value
            // that saturates at scale 1, seen as h >= 0 with r < 0.
            return blendSign(r, max32, _mm256_andnot_si256(h, r));
        }
    } else {
        // e = 4h + m with h = (p >> 2) op (q >> 2) and m = (p & 3) op (q & 3), m in -3..6.
        const __m256i three = _mm256_set1_epi32(3);
        const __m256i h = addOrSub(O, _mm256_srai_epi32(p, 2), _mm256_srai_epi32(q, 2));
        const __m256i m = addOrSub(O, _mm256_and_si256(p, three), _mm256_and_si256(q, three));
        const __m256i hm = _mm256_add_epi32(h, _mm256_srai_epi32(m, 2));  // e >> 2
        if constexpr (R == Route::Two) {
            const __m256i t = _mm256_and_si256(hm, one1);
            return _mm256_add_epi32(h, _mm256_srai_epi32(_mm256_add_epi32(_mm256_add_epi32(m, one1), t), 2));
        } else {
            // Bias 2^(k-1) - 1 = 4 * biasHi + 3, so (e + bias + t) >> k =
            // (h + biasHi + ((m + t + 3) >> 2)) >> (k - 2), and every term stays in 32 bits.
            (void)k;
            const __m256i t = _mm256_and_si256(_mm256_sra_epi32(hm, cnt), one1);
            const __m256i low = _mm256_srai_epi32(_mm256_add_epi32(_mm256_add_epi32(m, t), three), 2);
            return _mm256_sra_epi32(_mm256_add_epi32(_mm256_add_epi32(h, biasHi), low), cnt);
        }
    }
}

template <Op O, Route R, class Src>
void wordLoop(const Src& s, int32_t* d, size_t n, int k) {
    // Right shifts run on e >> 2, so their count is k - 2; Left and Right keep their count in cnt.
    const __m128i cnt = _mm_cvtsi32_si128(R == Route::Right ? k - 2 : k);
    const __m256i biasHi = _mm256_set1_epi32(R == Route::Right ? (1 << (k - 3)) - 1 : 0);
    size_t i = 0;
    for (; i + 16 <= n; i += 16) {
        storev(d + i, wordRoute<O, R>(s.vp(i), s.vq(i), k, cnt, biasHi));
        storev(d + i + 8, wordRoute<O, R>(s.vp(i + 8), s.vq(i + 8), k, cnt, biasHi));
    }
    for (; i + 8 <= n; i += 8) storev(d + i, wordRoute<O, R>(s.vp(i), s.vq(i), k, cnt, biasHi));
    for (; i < n; ++i) d[i] = single<int32_t, O, R>(s.p(i), s.q(i), k);
}

template <class T, Op O, Route R, class Src>
NUV_SFS_INLINE void runRoute(const Src& s, T* d, size_t n, int k) {
    if constexpr (sizeof(T) == 4) wordLoop<O, R>(s, d, n, k);
    else narrowLoop<T, O, R>(s, d, n, k);
}

// ---- the route by scale ------------------------------------------------------------------------

// Above `right` the destination is zeroed; below -left only the sign of the exact value is left
// (left 0: every negative scale takes the shifting route).
struct Cut {
    int right;
    int left;
};

// One test of the scale per call, one loop per route, in the order: scale 0, by sign, left
// shift, zeroing, scale 1, larger right shifts.  `zero` is the zeroing exit.
template <class T, Op O, class Src, class ZeroFn>
NuvStatus byScale(const Src& s, T* d, size_t n, int sf, Cut cut, ZeroFn&& zero) {
    if (sf == 0) runRoute<T, O, Route::Sat>(s, d, n, 0);
    else if (cut.left && sf < -cut.left) runRoute<T, O, Route::BySign>(s, d, n, 0);
    // Members without a sign route come here at any negative scale: a shift by 30 saturates every
    // nonzero value already, and the limit keeps -sf from overflowing.
    else if (sf < 0) runRoute<T, O, Route::Left>(s, d, n, sf < -30 ? 30 : -sf);
    else if (sf > cut.right) return zero();
    else if (sf == 1) runRoute<T, O, Route::One>(s, d, n, 1);
    else if constexpr (sizeof(T) == 4) {
        if (sf == 2) runRoute<T, O, Route::Two>(s, d, n, 2);
        else runRoute<T, O, Route::Right>(s, d, n, sf);
    } else {
        runRoute<T, O, Route::Right>(s, d, n, sf);
    }
    return nuvStsOk;
}

}  // namespace nuv::sfsadd

// Fixed-point add and subtract with scale factor: Add, Sub, AddC, SubC, SubCRev on 8u, 16s, 16u,
// 16sc, 32s, 32sc, the 64-bit Add and AddC members, and the scale-0 forms of 16s.
#include <immintrin.h>

#include <algorithm>
#include <climits>
#include <cstdint>
#include <type_traits>

#include "frame/check.h"
#include "frame/round.h"
#include "nuvs.h"
#include "vector/arith_sfs_add_kernels.h"

namespace {

using nuv::i128;
using nuv::sfsadd::ArrayConst;
using nuv::sfsadd::byScale;
using nuv::sfsadd::ConstArray;
using nuv::sfsadd::Cut;
using nuv::sfsadd::Op;
using nuv::sfsadd::TwoArrays;

enum Kind { kAdd, kSub, kAddC, kSubC, kSubCRev };

// Cut-off scales: above `right` the destination is zeroed, below -left the result goes by sign
// (0: no such route).  Each is the first scale where the exact rule has nothing left to compute,
// except AddC_8u, which zeroes one scale early (at 9 a sum of 510 would still round to 1).
//                                 Add        Sub        AddC       SubC       SubCRev
constexpr Cut kCut8u[5]  = {{9, 7},   {9, 7},   {8, 7},   {8, 7},   {8, 7}};
constexpr Cut kCut16s[5] = {{16, 15}, {16, 15}, {16, 15}, {16, 15}, {16, 15}};
constexpr Cut kCut16u[5] = {{17, 0},  {16, 0},  {17, 15}, {16, 0},  {16, 15}};
constexpr Cut kCut32s[5] = {{32, 30}, {32, 30}, {32, 30}, {32, 30}, {32, 30}};
// Add_64s zeroes from 64 on, one scale before sums beyond +-2^63 stop rounding to +-1.
constexpr Cut kCutAdd64s = {63, 62};
// AddC_64s and AddC_64u take every scale through their kernels.
constexpr Cut kCutAddC64 = {INT_MAX, 0};

template <class T>
constexpr Cut cutOf(Kind k) {
    if constexpr (std::is_same_v<T, uint8_t>) return kCut8u[k];
    else if constexpr (std::is_same_v<T, int16_t>) return kCut16s[k];
    else if constexpr (std::is_same_v<T, uint16_t>) return kCut16u[k];
    else return kCut32s[k];
}

// ---- exits through the fill and copy members ---------------------------------------------------

NuvStatus zeroOf(Nuv8u* p, int len) { return nuvsZero_8u(p, len); }
NuvStatus zeroOf(Nuv16s* p, int len) { return nuvsZero_16s(p, len); }
NuvStatus zeroOf(Nuv16u* p, int len) { return nuvsZero_16s(reinterpret_cast<Nuv16s*>(p), len); }
NuvStatus zeroOf(Nuv32s* p, int len) { return nuvsZero_32s(p, len); }
NuvStatus zeroOf(Nuv16sc* p, int len) { return nuvsZero_16sc(p, len); }
NuvStatus zeroOf(Nuv32sc* p, int len) { return nuvsZero_32sc(p, len); }
NuvStatus zeroOf(Nuv64s* p, int len) { return nuvsZero_64s(p, len); }

NuvStatus copyOf(const Nuv8u* s, Nuv8u* d, int len) { return nuvsCopy_8u(s, d, len); }
NuvStatus copyOf(const Nuv16s* s, Nuv16s* d, int len) { return nuvsCopy_16s(s, d, len); }
NuvStatus copyOf(const Nuv16u* s, Nuv16u* d, int len) {
    return nuvsCopy_16s(reinterpret_cast<const Nuv16s*>(s), reinterpret_cast<Nuv16s*>(d), len);
}

NuvStatus setHighest(Nuv8u* d, int len) { return nuvsSet_8u(255, d, len); }
NuvStatus setHighest(Nuv16u* d, int len) { return nuvsSet_16s(-1, reinterpret_cast<Nuv16s*>(d), len); }

// ---- 8-, 16- and 32-bit members ----------------------------------------------------------------

template <class T>
NuvStatus ownsAdd(const T* pSrc1, const T* pSrc2, T* pDst, int len, int sf) {
    if (NuvStatus st = nuv::check(len, pSrc1, pSrc2, pDst)) return st;
    return byScale<T, Op::Plus>(TwoArrays<T>{pSrc1, pSrc2}, pDst, size_t(len), sf, cutOf<T>(kAdd),
                                [=] { return zeroOf(pDst, len); });
}

// Second source minus first.
template <class T>
NuvStatus ownsSub(const T* pSrc1, const T* pSrc2, T* pDst, int len, int sf) {
    if (NuvStatus st = nuv::check(len, pSrc1, pSrc2, pDst)) return st;
    return byScale<T, Op::Minus>(TwoArrays<T>{pSrc2, pSrc1}, pDst, size_t(len), sf, cutOf<T>(kSub),
                                 [=] { return zeroOf(pDst, len); });
}

// The constant forms over words, with a constant of period two so that complex constants run on
// their re and im words.  D is the caller's element type, for the zeroing exit.
template <Kind K, class T, class D>
NuvStatus constByScale(const T* s, T c0, T c1, T* d, size_t n, int sf, Cut cut, D* pDst, int len) {
    auto zero = [=] { return zeroOf(pDst, len); };
    if constexpr (K == kAddC) return byScale<T, Op::Plus>(ArrayConst<T>{s, c0, c1}, d, n, sf, cut, zero);
    else if constexpr (K == kSubC) return byScale<T, Op::Minus>(ArrayConst<T>{s, c0, c1}, d, n, sf, cut, zero);
    else return byScale<T, Op::Minus>(ConstArray<T>{s, c0, c1}, d, n, sf, cut, zero);
}

template <class T>
NuvStatus ownsAddC(const T* pSrc, T val, T* pDst, int len, int sf) {
    if (NuvStatus st = nuv::check(len, pSrc, pDst)) return st;
    Cut cut = cutOf<T>(kAddC);
    if constexpr (sizeof(T) < 4) {
        if (sf == 0 && val == 0) return copyOf(pSrc, pDst, len);
    }
    if constexpr (std::is_unsigned_v<T>) {
        // Beyond the left limit every sum with a nonzero constant saturates to the highest value.
        if (val != 0 && sf < -cut.left) return setHighest(pDst, len);
        // 16u: with constant 0 every negative scale is a saturating shift of the element.
        if (sizeof(T) == 2 && val == 0) cut.left = 0;
    }
    return constByScale<kAddC>(pSrc, val, val, pDst, size_t(len), sf, cut, pDst, len);
}

template <class T>
NuvStatus ownsSubC(const T* pSrc, T val, T* pDst, int len, int sf) {
    if (NuvStatus st = nuv::check(len, pSrc, pDst)) return st;
    Cut cut = cutOf<T>(kSubC);
    if constexpr (sizeof(T) < 4) {
        if (sf == 0 && val == 0) return copyOf(pSrc, pDst, len);
    }
    // 8u: with constant 0 every negative scale is a saturating shift of the element.
    if (std::is_same_v<T, uint8_t> && val == 0) cut.left = 0;
    return constByScale<kSubC>(pSrc, val, val, pDst, size_t(len), sf, cut, pDst, len);
}

template <class T>
NuvStatus ownsSubCRev(const T* pSrc, T val, T* pDst, int len, int sf) {
    if (NuvStatus st = nuv::check(len, pSrc, pDst)) return st;
    return constByScale<kSubCRev>(pSrc, val, val, pDst, size_t(len), sf, cutOf<T>(kSubCRev), pDst, len);
}

// Complex constants: the real member's kernels on 2 * len words, the constant alternating re, im.
template <Kind K, class C>
NuvStatus ownsConstCplx(const C* pSrc, C val, C* pDst, int len, int sf) {
    using T = decltype(val.re);
    if (NuvStatus st = nuv::check(len, pSrc, pDst)) return st;
    return constByScale<K>(reinterpret_cast<const T*>(pSrc), val.re, val.im, reinterpret_cast<T*>(pDst),
                           2 * size_t(len), sf, cutOf<T>(K), pDst, len);
}

// Complex Add and Sub are the real member on 2 * len words.  Length comes first; from 0x3FFFFFFF
// elements on the doubled count would overflow, so the words go in pieces of 0x7FFFFFFC.
template <class T, class C>
NuvStatus ownsCplxWords(NuvStatus (*real)(const T*, const T*, T*, int, int), const C* pSrc1, const C* pSrc2,
                        C* pDst, int len, int sf) {
    if (len < 1) return nuvStsSize;
    const T* a = reinterpret_cast<const T*>(pSrc1);
    const T* b = reinterpret_cast<const T*>(pSrc2);
    T* d = reinterpret_cast<T*>(pDst);
    if (len < 0x3FFFFFFF) return real(a, b, d, 2 * len, sf);
    constexpr int64_t kPiece = 0x7FFFFFFC;
    const int64_t words = 2 * int64_t(len);
    for (int64_t off = 0; off < words; off += kPiece) {
        const int piece = int(std::min(kPiece, words - off));
        if (NuvStatus st = real(a + off, b + off, d + off, piece, sf)) return st;
    }
    return nuvStsOk;
}

// ---- 64-bit members: exact sums in 128 bits ----------------------------------------------------

template <class T> constexpr i128 kLo64 = std::is_signed_v<T> ? i128(INT64_MIN) : i128(0);
template <class T> constexpr i128 kHi64 = std::is_signed_v<T> ? i128(INT64_MAX) : i128(UINT64_MAX);

template <class T>
[[gnu::always_inline]] inline T sat64(i128 v) {
    return T(v < kLo64<T> ? kLo64<T> : (v > kHi64<T> ? kHi64<T> : v));
}

// e * 2^k saturated, k from 1 to 100: the bounds are compared before the shift, which then fits.
template <class T>
[[gnu::always_inline]] inline T lshiftSat(i128 e, int k) {
    if (e > (kHi64<T> >> k)) return T(kHi64<T>);
    if (e < -((-kLo64<T>) >> k)) return T(kLo64<T>);
    return T(e * (i128(1) << k));
}

// Right shift by k from 1 to 100 in rounding mode M: 0 toward zero, 1 to nearest with ties to
// even, 2 to nearest with ties away from zero.
template <int M>
[[gnu::always_inline]] inline i128 rshiftMode(i128 e, int k) {
    const i128 half = i128(1) << (k - 1);
    if constexpr (M == 1) return nuv::rshiftRne<i128>(e, k);
    else if constexpr (M == 0) return e >= 0 ? e >> k : -((-e) >> k);
    else return e >= 0 ? (e + half) >> k : -((-e + half) >> k);
}

template <class T, class Src, class F>
void each64(const Src& s, T* d, size_t n, F f) {
    for (size_t i = 0; i < n; ++i) d[i] = f(i128(s.p(i)) + i128(s.q(i)));
}

// Scale 0: saturating 64-bit add, four lanes a step.
template <class T>
[[gnu::always_inline]] inline __m256i satAdd64(__m256i p, __m256i q) {
    const __m256i s = _mm256_add_epi64(p, q);
    if constexpr (std::is_signed_v<T>) {
        // Overflow where both operands have the sign that the wrapped sum lacks.
        const __m256i ovf = _mm256_and_si256(_mm256_xor_si256(s, p), _mm256_xor_si256(s, q));
        const __m256i sat = _mm256_xor_si256(_mm256_cmpgt_epi64(_mm256_setzero_si256(), p),
                                             _mm256_set1_epi64x(INT64_MAX));
        return _mm256_castpd_si256(_mm256_blendv_pd(_mm256_castsi256_pd(s), _mm256_castsi256_pd(sat),
                                                    _mm256_castsi256_pd(ovf)));
    } else {
        // Carry where the wrapped sum is below an operand, unsigned.
        const __m256i bias = _mm256_set1_epi64x(INT64_MIN);
        const __m256i carry = _mm256_cmpgt_epi64(_mm256_xor_si256(p, bias), _mm256_xor_si256(s, bias));
        return _mm256_or_si256(s, carry);
    }
}

template <class T, class Src>
void satLoop64(const Src& s, T* d, size_t n) {
    size_t i = 0;
    for (; i + 8 <= n; i += 8) {
        nuv::sfsadd::storev(d + i, satAdd64<T>(s.vp(i), s.vq(i)));
        nuv::sfsadd::storev(d + i + 4, satAdd64<T>(s.vp(i + 4), s.vq(i + 4)));
    }
    for (; i < n; ++i) d[i] = sat64<T>(i128(s.p(i)) + i128(s.q(i)));
}

// Right shift by k from 1 to 63 of the 65-bit sum p + q, four lanes a step, in rounding mode M
// (as rshiftMode).  Bit 64 of the sum comes from the overflow (signed) or the carry
// (unsigned) of the wrapped 64-bit add.
struct RightShift64 {
    __m128i cnt, fillCnt;   // k, and 64 - k where bit 64 of the sum lands
    __m256i low, half;      // 2^k - 1 and 2^(k-1)
    explicit RightShift64(int k)
        : cnt(_mm_cvtsi32_si128(k)), fillCnt(_mm_cvtsi32_si128(64 - k)),
          low(_mm256_set1_epi64x(int64_t((uint64_t(1) << k) - 1))), half(_mm256_set1_epi64x(int64_t(uint64_t(1) << (k - 1)))) {}
};

// Bit 64 of the exact sum p + q whose low 64 bits are s, as all ones or zero: the sign of a signed
// sum (the sign of p where the add overflowed), the carry of an unsigned one.
template <class T>
[[gnu::always_inline]] inline __m256i bit64Of(__m256i p, __m256i q, __m256i s) {
    if constexpr (std::is_signed_v<T>) {
        const __m256i ovf = _mm256_and_si256(_mm256_xor_si256(s, p), _mm256_xor_si256(s, q));
        const __m256d signOf = _mm256_blendv_pd(_mm256_castsi256_pd(s), _mm256_castsi256_pd(p), _mm256_castsi256_pd(ovf));
        return _mm256_cmpgt_epi64(_mm256_setzero_si256(), _mm256_castpd_si256(signOf));
    } else {
        const __m256i bias = _mm256_set1_epi64x(INT64_MIN);
        return _mm256_cmpgt_epi64(_mm256_xor_si256(p, bias), _mm256_xor_si256(s, bias));
    }
}

template <class T, int M>
[[gnu::always_inline]] inline __m256i shiftSum64(__m256i p, __m256i q, const RightShift64& sh) {
    const __m256i zero = _mm256_setzero_si256(), ones = _mm256_set1_epi64x(-1);
    const __m256i s = _mm256_add_epi64(p, q);
    const __m256i top = bit64Of<T>(p, q, s);
    // Bit 64 lands on bit 64 - k; a signed sum repeats it above, as its sign.
    const __m256i bit64 = _mm256_sll_epi64(std::is_signed_v<T> ? ones : _mm256_set1_epi64x(1), sh.fillCnt);
    const __m256i floorQ = _mm256_or_si256(_mm256_srl_epi64(s, sh.cnt), _mm256_and_si256(top, bit64));
    const __m256i r = _mm256_and_si256(s, sh.low);   // the remainder, below 2^63: signed compares hold
    const __m256i above = _mm256_cmpgt_epi64(r, sh.half), tie = _mm256_cmpeq_epi64(r, sh.half);
    __m256i up;
    if constexpr (M == 1) {
        const __m256i odd = _mm256_cmpeq_epi64(_mm256_and_si256(floorQ, _mm256_set1_epi64x(1)), _mm256_set1_epi64x(1));
        up = _mm256_or_si256(above, _mm256_and_si256(tie, odd));
    } else if constexpr (M == 0) {
        // toward zero: a negative sum with a remainder goes up from its floor
        up = std::is_signed_v<T> ? _mm256_andnot_si256(_mm256_cmpeq_epi64(r, zero), top) : zero;
    } else {
        // ties away from zero: up on a tie unless the sum is negative
        up = std::is_signed_v<T> ? _mm256_or_si256(above, _mm256_andnot_si256(top, tie)) : _mm256_or_si256(above, tie);
    }
    // No sum rounds past the type's range: the largest, 2^64 - 2 (signed) or 2^65 - 2 (unsigned),
    // shifts without a remainder at k = 1 and stays below the top from k = 2.
    return _mm256_sub_epi64(floorQ, up);
}

template <class T, int M, class Src>
void rightLoop64(const Src& s, T* d, size_t n, int k) {
    const RightShift64 sh(k);
    size_t i = 0;
    for (; i + 8 <= n; i += 8) {
        nuv::sfsadd::storev(d + i, shiftSum64<T, M>(s.vp(i), s.vq(i), sh));
        nuv::sfsadd::storev(d + i + 4, shiftSum64<T, M>(s.vp(i + 4), s.vq(i + 4), sh));
    }
    for (; i < n; ++i) d[i] = sat64<T>(rshiftMode<M>(i128(s.p(i)) + i128(s.q(i)), k));
}

// Left shift by k of the 65-bit sum, saturated, four lanes a step: k from 1 to 62, where the sum
// fits when bits 63-k to 64 agree (signed) or are all zero (unsigned).  k of 0 is the sign route:
// only the sign of the sum is left.
template <class T>
[[gnu::always_inline]] inline __m256i leftSum64(__m256i p, __m256i q, int k) {
    const __m256i zero = _mm256_setzero_si256();
    const __m256i s = _mm256_add_epi64(p, q);
    const __m256i top = bit64Of<T>(p, q, s);
    // the saturated value: the highest for a positive sum, the lowest for a negative one
    const __m256i sat = std::is_signed_v<T> ? _mm256_xor_si256(top, _mm256_set1_epi64x(INT64_MAX)) : _mm256_set1_epi64x(-1);
    if (k == 0) {
        const __m256i isZero = _mm256_andnot_si256(top, _mm256_cmpeq_epi64(s, zero));
        return _mm256_andnot_si256(isZero, sat);
    }
    const __m256i fits = std::is_signed_v<T>
        ? _mm256_cmpeq_epi64(_mm256_srl_epi64(_mm256_xor_si256(s, top), _mm_cvtsi32_si128(63 - k)), zero)
        : _mm256_andnot_si256(top, _mm256_cmpeq_epi64(_mm256_srl_epi64(s, _mm_cvtsi32_si128(64 - k)), zero));
    const __m256i shifted = _mm256_sll_epi64(s, _mm_cvtsi32_si128(k));
    return _mm256_castpd_si256(_mm256_blendv_pd(_mm256_castsi256_pd(sat), _mm256_castsi256_pd(shifted), _mm256_castsi256_pd(fits)));
}

template <class T, class Src, class One>
void leftLoop64(const Src& s, T* d, size_t n, int k, One one) {
    size_t i = 0;
    for (; i + 8 <= n; i += 8) {
        nuv::sfsadd::storev(d + i, leftSum64<T>(s.vp(i), s.vq(i), k));
        nuv::sfsadd::storev(d + i + 4, leftSum64<T>(s.vp(i + 4), s.vq(i + 4), k));
    }
    for (; i < n; ++i) d[i] = one(i128(s.p(i)) + i128(s.q(i)));
}

// Route by scale of the 64-bit sums; the mode is tested once, before the right-shift loop.
template <class T, class Src, class ZeroFn>
NuvStatus add64(const Src& s, T* d, size_t n, int sf, int mode, Cut cut, ZeroFn zero) {
    if (sf == 0) {
        satLoop64(s, d, n);
    } else if (cut.left && sf < -cut.left) {
        leftLoop64(s, d, n, 0, [](i128 e) { return e > 0 ? T(kHi64<T>) : (e < 0 ? T(kLo64<T>) : T(0)); });
    } else if (sf < 0) {
        const int k = sf < -100 ? 100 : -sf;  // a shift by 100 leaves only the sign already
        auto one = [k](i128 e) { return e == 0 ? T(0) : lshiftSat<T>(e, k); };
        if (k <= 62) leftLoop64(s, d, n, k, one);
        else each64(s, d, n, one);
    } else if (sf > cut.right) {
        return zero();
    } else {
        const int k = sf > 100 ? 100 : sf;  // a sum below 2^66 rounds to 0 in every mode from 67 on
        if (k < 64) {
            if (mode == 1) rightLoop64<T, 1>(s, d, n, k);
            else if (mode == 0) rightLoop64<T, 0>(s, d, n, k);
            else rightLoop64<T, 2>(s, d, n, k);
        } else if (mode == 1) each64(s, d, n, [k](i128 e) { return sat64<T>(rshiftMode<1>(e, k)); });
        else if (mode == 0) each64(s, d, n, [k](i128 e) { return sat64<T>(rshiftMode<0>(e, k)); });
        else each64(s, d, n, [k](i128 e) { return sat64<T>(rshiftMode<2>(e, k)); });
    }
    return nuvStsOk;
}

NuvStatus ownsAdd64s(const Nuv64s* pSrc1, const Nuv64s* pSrc2, Nuv64s* pDst, int len, int sf) {
    if (NuvStatus st = nuv::check(len, pSrc1, pSrc2, pDst)) return st;
    return add64(TwoArrays<Nuv64s>{pSrc1, pSrc2}, pDst, size_t(len), sf, 1, kCutAdd64s,
                 [=] { return zeroOf(pDst, len); });
}

// The length counts as unsigned: only 0 is refused, and a negative one runs as a huge count.
// Rounding mode 1 is ties to even, 0 toward zero, any other value ties away from zero.
template <class T>
NuvStatus ownsAddC64(const T* pSrc, T val, T* pDst, int len, int sf, int rndMode) {
    if (nuv::anyNull(pSrc, pDst)) return nuvStsNullPtr;
    if (len == 0) return nuvStsSize;
    return add64(ArrayConst<T>{pSrc, val, val}, pDst, size_t(unsigned(len)), sf, rndMode, kCutAddC64,
                 [] { return nuvStsOk; });
}

}  // namespace

extern "C" {
NuvStatus nuvsAdd_8u_Sfs(const Nuv8u* pSrc1, const Nuv8u* pSrc2, Nuv8u* pDst, int len, int scaleFactor) { return ownsAdd(pSrc1, pSrc2, pDst, len, scaleFactor); }
NuvStatus nuvsAdd_8u_ISfs(const Nuv8u* pSrc, Nuv8u* pSrcDst, int len, int scaleFactor) { return nuvsAdd_8u_Sfs(pSrc, pSrcDst, pSrcDst, len, scaleFactor); }
NuvStatus nuvsAdd_16s_Sfs(const Nuv16s* pSrc1, const Nuv16s* pSrc2, Nuv16s* pDst, int len, int scaleFactor) { return ownsAdd(pSrc1, pSrc2, pDst, len, scaleFactor); }
NuvStatus nuvsAdd_16s_ISfs(const Nuv16s* pSrc, Nuv16s* pSrcDst, int len, int scaleFactor) { return nuvsAdd_16s_Sfs(pSrc, pSrcDst, pSrcDst, len, scaleFactor); }
NuvStatus nuvsAdd_16u_Sfs(const Nuv16u* pSrc1, const Nuv16u* pSrc2, Nuv16u* pDst, int len, int scaleFactor) { return ownsAdd(pSrc1, pSrc2, pDst, len, scaleFactor); }
NuvStatus nuvsAdd_16u_ISfs(const Nuv16u* pSrc, Nuv16u* pSrcDst, int len, int scaleFactor) { return nuvsAdd_16u_Sfs(pSrc, pSrcDst, pSrcDst, len, scaleFactor); }
NuvStatus nuvsAdd_32s_Sfs(const Nuv32s* pSrc1, const Nuv32s* pSrc2, Nuv32s* pDst, int len, int scaleFactor) { return ownsAdd(pSrc1, pSrc2, pDst, len, scaleFactor); }
NuvStatus nuvsAdd_32s_ISfs(const Nuv32s* pSrc, Nuv32s* pSrcDst, int len, int scaleFactor) { return nuvsAdd_32s_Sfs(pSrc, pSrcDst, pSrcDst, len, scaleFactor); }
NuvStatus nuvsAdd_16sc_Sfs(const Nuv16sc* pSrc1, const Nuv16sc* pSrc2, Nuv16sc* pDst, int len, int scaleFactor) { return ownsCplxWords(&nuvsAdd_16s_Sfs, pSrc1, pSrc2, pDst, len, scaleFactor); }
NuvStatus nuvsAdd_16sc_ISfs(const Nuv16sc* pSrc, Nuv16sc* pSrcDst, int len, int scaleFactor) { return nuvsAdd_16sc_Sfs(pSrc, pSrcDst, pSrcDst, len, scaleFactor); }
NuvStatus nuvsAdd_32sc_Sfs(const Nuv32sc* pSrc1, const Nuv32sc* pSrc2, Nuv32sc* pDst, int len, int scaleFactor) { return ownsCplxWords(&nuvsAdd_32s_Sfs, pSrc1, pSrc2, pDst, len, scaleFactor); }
NuvStatus nuvsAdd_32sc_ISfs(const Nuv32sc* pSrc, Nuv32sc* pSrcDst, int len, int scaleFactor) { return nuvsAdd_32sc_Sfs(pSrc, pSrcDst, pSrcDst, len, scaleFactor); }
NuvStatus nuvsAdd_64s_Sfs(const Nuv64s* pSrc1, const Nuv64s* pSrc2, Nuv64s* pDst, int len, int scaleFactor) { return ownsAdd64s(pSrc1, pSrc2, pDst, len, scaleFactor); }
NuvStatus nuvsSub_8u_Sfs(const Nuv8u* pSrc1, const Nuv8u* pSrc2, Nuv8u* pDst, int len, int scaleFactor) { return ownsSub(pSrc1, pSrc2, pDst, len, scaleFactor); }
NuvStatus nuvsSub_8u_ISfs(const Nuv8u* pSrc, Nuv8u* pSrcDst, int len, int scaleFactor) { return nuvsSub_8u_Sfs(pSrc, pSrcDst, pSrcDst, len, scaleFactor); }
NuvStatus nuvsSub_16s_Sfs(const Nuv16s* pSrc1, const Nuv16s* pSrc2, Nuv16s* pDst, int len, int scaleFactor) { return ownsSub(pSrc1, pSrc2, pDst, len, scaleFactor); }
NuvStatus nuvsSub_16s_ISfs(const Nuv16s* pSrc, Nuv16s* pSrcDst, int len, int scaleFactor) { return nuvsSub_16s_Sfs(pSrc, pSrcDst, pSrcDst, len, scaleFactor); }
NuvStatus nuvsSub_16u_Sfs(const Nuv16u* pSrc1, const Nuv16u* pSrc2, Nuv16u* pDst, int len, int scaleFactor) { return ownsSub(pSrc1, pSrc2, pDst, len, scaleFactor); }
NuvStatus nuvsSub_16u_ISfs(const Nuv16u* pSrc, Nuv16u* pSrcDst, int len, int scaleFactor) { return nuvsSub_16u_Sfs(pSrc, pSrcDst, pSrcDst, len, scaleFactor); }
NuvStatus nuvsSub_32s_Sfs(const Nuv32s* pSrc1, const Nuv32s* pSrc2, Nuv32s* pDst, int len, int scaleFactor) { return ownsSub(pSrc1, pSrc2, pDst, len, scaleFactor); }
NuvStatus nuvsSub_32s_ISfs(const Nuv32s* pSrc, Nuv32s* pSrcDst, int len, int scaleFactor) { return nuvsSub_32s_Sfs(pSrc, pSrcDst, pSrcDst, len, scaleFactor); }
NuvStatus nuvsSub_16sc_Sfs(const Nuv16sc* pSrc1, const Nuv16sc* pSrc2, Nuv16sc* pDst, int len, int scaleFactor) { return ownsCplxWords(&nuvsSub_16s_Sfs, pSrc1, pSrc2, pDst, len, scaleFactor); }
NuvStatus nuvsSub_16sc_ISfs(const Nuv16sc* pSrc, Nuv16sc* pSrcDst, int len, int scaleFactor) { return nuvsSub_16sc_Sfs(pSrc, pSrcDst, pSrcDst, len, scaleFactor); }
NuvStatus nuvsSub_32sc_Sfs(const Nuv32sc* pSrc1, const Nuv32sc* pSrc2, Nuv32sc* pDst, int len, int scaleFactor) { return ownsCplxWords(&nuvsSub_32s_Sfs, pSrc1, pSrc2, pDst, len, scaleFactor); }
NuvStatus nuvsSub_32sc_ISfs(const Nuv32sc* pSrc, Nuv32sc* pSrcDst, int len, int scaleFactor) { return nuvsSub_32sc_Sfs(pSrc, pSrcDst, pSrcDst, len, scaleFactor); }
NuvStatus nuvsAddC_8u_Sfs(const Nuv8u* pSrc, Nuv8u val, Nuv8u* pDst, int len, int scaleFactor) { return ownsAddC(pSrc, val, pDst, len, scaleFactor); }
NuvStatus nuvsAddC_8u_ISfs(Nuv8u val, Nuv8u* pSrcDst, int len, int scaleFactor) { return nuvsAddC_8u_Sfs(pSrcDst, val, pSrcDst, len, scaleFactor); }
NuvStatus nuvsAddC_16s_Sfs(const Nuv16s* pSrc, Nuv16s val, Nuv16s* pDst, int len, int scaleFactor) { return ownsAddC(pSrc, val, pDst, len, scaleFactor); }
NuvStatus nuvsAddC_16s_ISfs(Nuv16s val, Nuv16s* pSrcDst, int len, int scaleFactor) { return nuvsAddC_16s_Sfs(pSrcDst, val, pSrcDst, len, scaleFactor); }
NuvStatus nuvsAddC_16u_Sfs(const Nuv16u* pSrc, Nuv16u val, Nuv16u* pDst, int len, int scaleFactor) { return ownsAddC(pSrc, val, pDst, len, scaleFactor); }
NuvStatus nuvsAddC_16u_ISfs(Nuv16u val, Nuv16u* pSrcDst, int len, int scaleFactor) { return nuvsAddC_16u_Sfs(pSrcDst, val, pSrcDst, len, scaleFactor); }
NuvStatus nuvsAddC_32s_Sfs(const Nuv32s* pSrc, Nuv32s val, Nuv32s* pDst, int len, int scaleFactor) { return ownsAddC(pSrc, val, pDst, len, scaleFactor); }
NuvStatus nuvsAddC_32s_ISfs(Nuv32s val, Nuv32s* pSrcDst, int len, int scaleFactor) { return nuvsAddC_32s_Sfs(pSrcDst, val, pSrcDst, len, scaleFactor); }
NuvStatus nuvsAddC_16sc_Sfs(const Nuv16sc* pSrc, Nuv16sc val, Nuv16sc* pDst, int len, int scaleFactor) { return ownsConstCplx<kAddC>(pSrc, val, pDst, len, scaleFactor); }
NuvStatus nuvsAddC_16sc_ISfs(Nuv16sc val, Nuv16sc* pSrcDst, int len, int scaleFactor) { return nuvsAddC_16sc_Sfs(pSrcDst, val, pSrcDst, len, scaleFactor); }
NuvStatus nuvsAddC_32sc_Sfs(const Nuv32sc* pSrc, Nuv32sc val, Nuv32sc* pDst, int len, int scaleFactor) { return ownsConstCplx<kAddC>(pSrc, val, pDst, len, scaleFactor); }
NuvStatus nuvsAddC_32sc_ISfs(Nuv32sc val, Nuv32sc* pSrcDst, int len, int scaleFactor) { return nuvsAddC_32sc_Sfs(pSrcDst, val, pSrcDst, len, scaleFactor); }
NuvStatus nuvsAddC_64s_Sfs(const Nuv64s* pSrc, Nuv64s val, Nuv64s* pDst, int len, int scaleFactor, int rndMode) { return ownsAddC64(pSrc, val, pDst, len, scaleFactor, rndMode); }
NuvStatus nuvsAddC_64u_Sfs(const Nuv64u* pSrc, Nuv64u val, Nuv64u* pDst, int len, int scaleFactor, int rndMode) { return ownsAddC64(pSrc, val, pDst, len, scaleFactor, rndMode); }
NuvStatus nuvsSubC_8u_Sfs(const Nuv8u* pSrc, Nuv8u val, Nuv8u* pDst, int len, int scaleFactor) { return ownsSubC(pSrc, val, pDst, len, scaleFactor); }
NuvStatus nuvsSubC_8u_ISfs(Nuv8u val, Nuv8u* pSrcDst, int len, int scaleFactor) { return nuvsSubC_8u_Sfs(pSrcDst, val, pSrcDst, len, scaleFactor); }
NuvStatus nuvsSubC_16s_Sfs(const Nuv16s* pSrc, Nuv16s val, Nuv16s* pDst, int len, int scaleFactor) { return ownsSubC(pSrc, val, pDst, len, scaleFactor); }
NuvStatus nuvsSubC_16s_ISfs(Nuv16s val, Nuv16s* pSrcDst, int len, int scaleFactor) { return nuvsSubC_16s_Sfs(pSrcDst, val, pSrcDst, len, scaleFactor); }
NuvStatus nuvsSubC_16u_Sfs(const Nuv16u* pSrc, Nuv16u val, Nuv16u* pDst, int len, int scaleFactor) { return ownsSubC(pSrc, val, pDst, len, scaleFactor); }
NuvStatus nuvsSubC_16u_ISfs(Nuv16u val, Nuv16u* pSrcDst, int len, int scaleFactor) { return nuvsSubC_16u_Sfs(pSrcDst, val, pSrcDst, len, scaleFactor); }
NuvStatus nuvsSubC_32s_Sfs(const Nuv32s* pSrc, Nuv32s val, Nuv32s* pDst, int len, int scaleFactor) { return ownsSubC(pSrc, val, pDst, len, scaleFactor); }
NuvStatus nuvsSubC_32s_ISfs(Nuv32s val, Nuv32s* pSrcDst, int len, int scaleFactor) { return nuvsSubC_32s_Sfs(pSrcDst, val, pSrcDst, len, scaleFactor); }
NuvStatus nuvsSubC_16sc_Sfs(const Nuv16sc* pSrc, Nuv16sc val, Nuv16sc* pDst, int len, int scaleFactor) { return ownsConstCplx<kSubC>(pSrc, val, pDst, len, scaleFactor); }
NuvStatus nuvsSubC_16sc_ISfs(Nuv16sc val, Nuv16sc* pSrcDst, int len, int scaleFactor) { return nuvsSubC_16sc_Sfs(pSrcDst, val, pSrcDst, len, scaleFactor); }
NuvStatus nuvsSubC_32sc_Sfs(const Nuv32sc* pSrc, Nuv32sc val, Nuv32sc* pDst, int len, int scaleFactor) { return ownsConstCplx<kSubC>(pSrc, val, pDst, len, scaleFactor); }
NuvStatus nuvsSubC_32sc_ISfs(Nuv32sc val, Nuv32sc* pSrcDst, int len, int scaleFactor) { return nuvsSubC_32sc_Sfs(pSrcDst, val, pSrcDst, len, scaleFactor); }
NuvStatus nuvsSubCRev_8u_Sfs(const Nuv8u* pSrc, Nuv8u val, Nuv8u* pDst, int len, int scaleFactor) { return ownsSubCRev(pSrc, val, pDst, len, scaleFactor); }
NuvStatus nuvsSubCRev_8u_ISfs(Nuv8u val, Nuv8u* pSrcDst, int len, int scaleFactor) { return nuvsSubCRev_8u_Sfs(pSrcDst, val, pSrcDst, len, scaleFactor); }
NuvStatus nuvsSubCRev_16s_Sfs(const Nuv16s* pSrc, Nuv16s val, Nuv16s* pDst, int len, int scaleFactor) { return ownsSubCRev(pSrc, val, pDst, len, scaleFactor); }
NuvStatus nuvsSubCRev_16s_ISfs(Nuv16s val, Nuv16s* pSrcDst, int len, int scaleFactor) { return nuvsSubCRev_16s_Sfs(pSrcDst, val, pSrcDst, len, scaleFactor); }
NuvStatus nuvsSubCRev_16u_Sfs(const Nuv16u* pSrc, Nuv16u val, Nuv16u* pDst, int len, int scaleFactor) { return ownsSubCRev(pSrc, val, pDst, len, scaleFactor); }
NuvStatus nuvsSubCRev_16u_ISfs(Nuv16u val, Nuv16u* pSrcDst, int len, int scaleFactor) { return nuvsSubCRev_16u_Sfs(pSrcDst, val, pSrcDst, len, scaleFactor); }
NuvStatus nuvsSubCRev_32s_Sfs(const Nuv32s* pSrc, Nuv32s val, Nuv32s* pDst, int len, int scaleFactor) { return ownsSubCRev(pSrc, val, pDst, len, scaleFactor); }
NuvStatus nuvsSubCRev_32s_ISfs(Nuv32s val, Nuv32s* pSrcDst, int len, int scaleFactor) { return nuvsSubCRev_32s_Sfs(pSrcDst, val, pSrcDst, len, scaleFactor); }
NuvStatus nuvsSubCRev_16sc_Sfs(const Nuv16sc* pSrc, Nuv16sc val, Nuv16sc* pDst, int len, int scaleFactor) { return ownsConstCplx<kSubCRev>(pSrc, val, pDst, len, scaleFactor); }
NuvStatus nuvsSubCRev_16sc_ISfs(Nuv16sc val, Nuv16sc* pSrcDst, int len, int scaleFactor) { return nuvsSubCRev_16sc_Sfs(pSrcDst, val, pSrcDst, len, scaleFactor); }
NuvStatus nuvsSubCRev_32sc_Sfs(const Nuv32sc* pSrc, Nuv32sc val, Nuv32sc* pDst, int len, int scaleFactor) { return ownsConstCplx<kSubCRev>(pSrc, val, pDst, len, scaleFactor); }
NuvStatus nuvsSubCRev_32sc_ISfs(Nuv32sc val, Nuv32sc* pSrcDst, int len, int scaleFactor) { return nuvsSubCRev_32sc_Sfs(pSrcDst, val, pSrcDst, len, scaleFactor); }
NuvStatus nuvsAdd_16s(const Nuv16s* pSrc1, const Nuv16s* pSrc2, Nuv16s* pDst, int len) { return nuvsAdd_16s_Sfs(pSrc1, pSrc2, pDst, len, 0); }
NuvStatus nuvsAdd_16s_I(const Nuv16s* pSrc, Nuv16s* pSrcDst, int len) { return nuvsAdd_16s_Sfs(pSrc, pSrcDst, pSrcDst, len, 0); }
NuvStatus nuvsAddC_16s_I(Nuv16s val, Nuv16s* pSrcDst, int len) { return nuvsAddC_16s_Sfs(pSrcDst, val, pSrcDst, len, 0); }
NuvStatus nuvsSub_16s(const Nuv16s* pSrc1, const Nuv16s* pSrc2, Nuv16s* pDst, int len) { return nuvsSub_16s_Sfs(pSrc1, pSrc2, pDst, len, 0); }
NuvStatus nuvsSub_16s_I(const Nuv16s* pSrc, Nuv16s* pSrcDst, int len) { return nuvsSub_16s_Sfs(pSrc, pSrcDst, pSrcDst, len, 0); }
NuvStatus nuvsSubC_16s_I(Nuv16s val, Nuv16s* pSrcDst, int len) { return nuvsSubC_16s_Sfs(pSrcDst, val, pSrcDst, len, 0); }
}

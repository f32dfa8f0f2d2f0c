// Kernels of the scaled integer multiply, add-product and square family.
//
// Every 8-bit and 16-bit member forms its exact value in 32-bit lanes, eight per register, two
// registers per step, then runs one scale route over both registers and packs with saturation.
// The routes are chosen once per call; each route is a loop of its own.
#pragma once
#include <immintrin.h>

#include <cstdint>
#include <cstring>
#include <type_traits>

#include "frame/round.h"
#include "frame/simd.h"

namespace nuv::sfsmul {

// How a 32-bit lane holds the exact value.
enum class Kind {
    Signed,    // the exact value, |x| < 2^31
    Unsigned,  // the exact value, 0 <= x < 2^32
    Wrapped,   // the exact value in (-2^31, 2^31]; 2^31 shows as -2^31, which can't occur otherwise
};

// The destination the lanes are packed to.
enum class Dst { S16, U16, U8, S32 };

// Scale routes: 0 saturates, 1 and above round to nearest even, -1 and below shift left, beyond
// the left limit only the sign is left.  Beyond the right limit the destination is zeroed before
// any kernel runs.
enum class Route { Sat0, Rne1, Rne, Left, Sign };

// Cut-off scales of a member: zero above `right`, sign only below `left`.
struct Limits {
    int right, left;
};

template <Limits L, class Kernel, class Zero>
NUV_INLINE NuvStatus byScale(int sf, Kernel&& kernel, Zero&& zero) {
    if (sf == 0) kernel.template operator()<Route::Sat0>(0);
    else if (sf > L.right) return zero();
    else if (sf < L.left) kernel.template operator()<Route::Sign>(0);
    else if (sf < 0) kernel.template operator()<Route::Left>(-sf);
    else if (sf == 1) kernel.template operator()<Route::Rne1>(1);
    else kernel.template operator()<Route::Rne>(sf);
    return nuvStsOk;
}

// ---------------------------------------------------------------- partial loads and stores
// A tail step reads and writes through a small zero-filled buffer, so it runs the same code.
template <bool Full>
NUV_INLINE __m256i ld256(const void* p, int bytes) {
    if constexpr (Full) {
        return _mm256_loadu_si256(static_cast<const __m256i*>(p));
    } else {
        alignas(32) uint8_t t[32] = {};
        std::memcpy(t, p, size_t(bytes));
        return _mm256_load_si256(reinterpret_cast<const __m256i*>(t));
    }
}
template <bool Full>
NUV_INLINE __m128i ld128(const void* p, int bytes) {
    if constexpr (Full) {
        return _mm_loadu_si128(static_cast<const __m128i*>(p));
    } else {
        alignas(16) uint8_t t[16] = {};
        std::memcpy(t, p, size_t(bytes));
        return _mm_load_si128(reinterpret_cast<const __m128i*>(t));
    }
}
template <bool Full>
NUV_INLINE void st256(void* p, __m256i v, int bytes) {
    if constexpr (Full) {
        _mm256_storeu_si256(static_cast<__m256i*>(p), v);
    } else {
        alignas(32) uint8_t t[32];
        _mm256_store_si256(reinterpret_cast<__m256i*>(t), v);
        std::memcpy(p, t, size_t(bytes));
    }
}
template <bool Full>
NUV_INLINE void st128(void* p, __m128i v, int bytes) {
    if constexpr (Full) {
        _mm_storeu_si128(static_cast<__m128i*>(p), v);
    } else {
        alignas(16) uint8_t t[16];
        _mm_store_si128(reinterpret_cast<__m128i*>(t), v);
        std::memcpy(p, t, size_t(bytes));
    }
}

// ---------------------------------------------------------------- scale routes on 32-bit lanes
NUV_INLINE __m128i cnt(int k) { return _mm_cvtsi32_si128(k); }

template <Kind K>
NUV_INLINE __m256i shr(__m256i x, __m128i k) {
    if constexpr (K == Kind::Unsigned) return _mm256_srl_epi32(x, k);
    else return _mm256_sra_epi32(x, k);
}

// The lone value 2^31 of a wrapped lane becomes 2^31 - 1, which saturates the same way.
template <Kind K>
NUV_INLINE __m256i unwrap(__m256i x) {
    if constexpr (K == Kind::Wrapped) return _mm256_add_epi32(x, _mm256_cmpeq_epi32(x, _mm256_set1_epi32(INT32_MIN)));
    else return x;
}

// floor(x / 2), exact for every kind.
template <Kind K>
NUV_INLINE __m256i half(__m256i x) {
    if constexpr (K == Kind::Unsigned) return _mm256_srli_epi32(x, 1);
    __m256i y = _mm256_srai_epi32(x, 1);
    if constexpr (K == Kind::Wrapped)
        y = _mm256_xor_si256(y, _mm256_slli_epi32(_mm256_cmpeq_epi32(x, _mm256_set1_epi32(INT32_MIN)), 31));
    return y;
}

template <Kind K, Dst D, Route R>
struct Scaler;

template <Kind K, Dst D>
struct Scaler<K, D, Route::Sat0> {
    explicit Scaler(int) {}
    NUV_INLINE __m256i operator()(__m256i x) const { return unwrap<K>(x); }
};

// Scale 1: half the value, plus one where the dropped bit and the kept low bit are both set.
template <Kind K, Dst D>
struct Scaler<K, D, Route::Rne1> {
    explicit Scaler(int) {}
    NUV_INLINE __m256i operator()(__m256i x) const {
        const __m256i y = half<K>(x);
        return _mm256_add_epi32(y, _mm256_and_si256(_mm256_and_si256(x, y), _mm256_set1_epi32(1)));
    }
};

// Scale k >= 2, the integer bias rule taken on y = floor(x / 2) so that the biased value can't
// leave the lane: with b the dropped bit 0 and q the bit that becomes the result's low bit,
// (x + 2^(k-1) - 1 + q) >> k equals (y + 2^(k-2) - 1 + (b | q)) >> (k-1).
template <Kind K, Dst D>
struct Scaler<K, D, Route::Rne> {
    __m128i s;
    __m256i bias;
    explicit Scaler(int k) : s(cnt(k - 1)), bias(_mm256_set1_epi32(int32_t((1u << (k - 2)) - 1))) {}
    NUV_INLINE __m256i operator()(__m256i x) const {
        const __m256i one = _mm256_set1_epi32(1);
        const __m256i y = half<K>(x);
        const __m256i q = _mm256_or_si256(_mm256_and_si256(x, one), _mm256_and_si256(shr<K>(y, s), one));
        return shr<K>(_mm256_add_epi32(_mm256_add_epi32(y, bias), q), s);
    }
};

// Negative scale: the value saturated to the destination first, then shifted; the pack
// saturates again.  A 32-bit destination detects overflow by the bits shifted out.
template <Kind K, Dst D>
struct Scaler<K, D, Route::Left> {
    __m128i s;
    explicit Scaler(int k) : s(cnt(k)) {}
    NUV_INLINE __m256i operator()(__m256i x) const {
        x = unwrap<K>(x);
        if constexpr (D == Dst::S32) {
            const __m256i y = _mm256_sll_epi32(x, s);
            const __m256i ovf = _mm256_xor_si256(_mm256_cmpeq_epi32(_mm256_sra_epi32(y, s), x), _mm256_set1_epi32(-1));
            const __m256i bySign = _mm256_xor_si256(_mm256_srai_epi32(x, 31), _mm256_set1_epi32(INT32_MAX));
            return _mm256_blendv_epi8(y, bySign, ovf);
        } else if constexpr (D == Dst::S16) {
            x = _mm256_max_epi32(_mm256_min_epi32(x, _mm256_set1_epi32(32767)), _mm256_set1_epi32(-32768));
        } else {
            x = _mm256_min_epu32(x, _mm256_set1_epi32(D == Dst::U16 ? 65535 : 255));
        }
        return _mm256_sll_epi32(x, s);
    }
};

// Beyond the left limit: the highest value for a positive exact value, the lowest for a
// negative one, zero for zero.
template <Kind K, Dst D>
struct Scaler<K, D, Route::Sign> {
    explicit Scaler(int) {}
    NUV_INLINE __m256i operator()(__m256i x) const {
        if constexpr (K == Kind::Unsigned) {
            return _mm256_xor_si256(_mm256_cmpeq_epi32(x, _mm256_setzero_si256()), _mm256_set1_epi32(-1));
        } else {
            x = unwrap<K>(x);
            const __m256i pos = _mm256_and_si256(_mm256_cmpgt_epi32(x, _mm256_setzero_si256()), _mm256_set1_epi32(INT32_MAX));
            const __m256i neg = _mm256_and_si256(_mm256_srai_epi32(x, 31), _mm256_set1_epi32(INT32_MIN));
            return _mm256_or_si256(pos, neg);
        }
    }
};

// ---------------------------------------------------------------- sources
// A second operand is either an array or one constant broadcast once per call.
struct Arr16 {
    const int16_t* p;
    template <bool F> NUV_INLINE __m256i get(int i, int n) const { return ld256<F>(p + i, 2 * n); }
};
struct Const16 {
    __m256i v;
    template <bool F> NUV_INLINE __m256i get(int, int) const { return v; }
};
struct Arr8 {
    const uint8_t* p;
    template <bool F> NUV_INLINE __m256i get(int i, int n) const { return _mm256_cvtepu8_epi16(ld128<F>(p + i, n)); }
};
struct Const8 {
    __m256i v;  // the constant widened to 16-bit words
    template <bool F> NUV_INLINE __m256i get(int, int) const { return v; }
};

// 32-bit products of sixteen 16-bit pairs: lanes 0-3 and 8-11 in the first register, 4-7 and
// 12-15 in the second, which is the order the 32-to-16-bit packs restore.
NUV_INLINE void widen(__m256i lo, __m256i hi, __m256i& x0, __m256i& x1) {
    x0 = _mm256_unpacklo_epi16(lo, hi);
    x1 = _mm256_unpackhi_epi16(lo, hi);
}

NUV_INLINE __m256i sat16(__m256i x) {
    return _mm256_max_epi32(_mm256_min_epi32(x, _mm256_set1_epi32(32767)), _mm256_set1_epi32(-32768));
}

// ---------------------------------------------------------------- members
// Each step handles kStep elements; `step<Full>(i, n, scaler)` with n < kStep on the tail.

// 16s times 16s (or a constant), optionally plus the 16-bit destination, into 16s.
template <class B, bool Acc>
struct MulS16 {
    static constexpr Kind kKind = Kind::Signed;
    static constexpr Dst kDst = Dst::S16;
    static constexpr int kStep = 16;
    const int16_t* a;
    B b;
    int16_t* d;
    template <bool F, class S>
    NUV_INLINE void step(int i, int n, const S& sc) const {
        const __m256i va = ld256<F>(a + i, 2 * n), vb = b.template get<F>(i, n);
        __m256i x0, x1;
        widen(_mm256_mullo_epi16(va, vb), _mm256_mulhi_epi16(va, vb), x0, x1);
        if constexpr (Acc) {
            const __m256i vd = ld256<F>(d + i, 2 * n), sd = _mm256_srai_epi16(vd, 15);
            x0 = _mm256_add_epi32(x0, _mm256_unpacklo_epi16(vd, sd));
            x1 = _mm256_add_epi32(x1, _mm256_unpackhi_epi16(vd, sd));
        }
        st256<F>(d + i, _mm256_packs_epi32(sc(x0), sc(x1)), 2 * n);
    }
};

// 16u times 16u (or a constant) into 16u.
template <class B>
struct MulU16 {
    static constexpr Kind kKind = Kind::Unsigned;
    static constexpr Dst kDst = Dst::U16;
    static constexpr int kStep = 16;
    const int16_t* a;
    B b;
    int16_t* d;
    template <bool F, class S>
    NUV_INLINE void step(int i, int n, const S& sc) const {
        const __m256i va = ld256<F>(a + i, 2 * n), vb = b.template get<F>(i, n);
        __m256i x0, x1;
        widen(_mm256_mullo_epi16(va, vb), _mm256_mulhi_epu16(va, vb), x0, x1);
        const __m256i m = _mm256_set1_epi32(65535);
        st256<F>(d + i, _mm256_packus_epi32(_mm256_min_epu32(sc(x0), m), _mm256_min_epu32(sc(x1), m)), 2 * n);
    }
};

// 16u times 16s into 16s: the signed product of the words, plus b * 2^16 where a's top bit is set.
struct MulU16S16 {
    static constexpr Kind kKind = Kind::Signed;
    static constexpr Dst kDst = Dst::S16;
    static constexpr int kStep = 16;
    const int16_t* a;
    const int16_t* b;
    int16_t* d;
    template <bool F, class S>
    NUV_INLINE void step(int i, int n, const S& sc) const {
        const __m256i va = ld256<F>(a + i, 2 * n), vb = ld256<F>(b + i, 2 * n);
        __m256i x0, x1;
        widen(_mm256_mullo_epi16(va, vb), _mm256_mulhi_epi16(va, vb), x0, x1);
        const __m256i top = _mm256_srai_epi16(va, 15), z = _mm256_setzero_si256();
        x0 = _mm256_add_epi32(x0, _mm256_and_si256(_mm256_unpacklo_epi16(z, vb), _mm256_unpacklo_epi16(top, top)));
        x1 = _mm256_add_epi32(x1, _mm256_and_si256(_mm256_unpackhi_epi16(z, vb), _mm256_unpackhi_epi16(top, top)));
        st256<F>(d + i, _mm256_packs_epi32(sc(x0), sc(x1)), 2 * n);
    }
};

// 16s times 16s into 32s.
struct MulS16S32 {
    static constexpr Kind kKind = Kind::Signed;
    static constexpr Dst kDst = Dst::S32;
    static constexpr int kStep = 16;
    const int16_t* a;
    const int16_t* b;
    int32_t* d;
    template <bool F, class S>
    NUV_INLINE void step(int i, int n, const S& sc) const {
        const __m256i va = ld256<F>(a + i, 2 * n), vb = ld256<F>(b + i, 2 * n);
        __m256i x0, x1;
        widen(_mm256_mullo_epi16(va, vb), _mm256_mulhi_epi16(va, vb), x0, x1);
        x0 = sc(x0);
        x1 = sc(x1);
        if constexpr (F) {
            st256<true>(d + i, _mm256_permute2x128_si256(x0, x1, 0x20), 32);
            st256<true>(d + i + 8, _mm256_permute2x128_si256(x0, x1, 0x31), 32);
        } else {
            alignas(32) int32_t t[16];
            _mm256_store_si256(reinterpret_cast<__m256i*>(t), _mm256_permute2x128_si256(x0, x1, 0x20));
            _mm256_store_si256(reinterpret_cast<__m256i*>(t + 8), _mm256_permute2x128_si256(x0, x1, 0x31));
            std::memcpy(d + i, t, size_t(n) * 4);
        }
    }
};

// 8u times 8u (or a constant) into 8u: 16 bytes a step, products in 16-bit words.
template <class B>
struct MulU8 {
    static constexpr Kind kKind = Kind::Unsigned;
    static constexpr Dst kDst = Dst::U8;
    static constexpr int kStep = 16;
    const uint8_t* a;
    B b;
    uint8_t* d;
    template <bool F, class S>
    NUV_INLINE void step(int i, int n, const S& sc) const {
        const __m256i p = _mm256_mullo_epi16(_mm256_cvtepu8_epi16(ld128<F>(a + i, n)), b.template get<F>(i, n));
        const __m256i z = _mm256_setzero_si256(), m = _mm256_set1_epi32(255);
        const __m256i w = _mm256_packus_epi32(_mm256_min_epu32(sc(_mm256_unpacklo_epi16(p, z)), m),
                                              _mm256_min_epu32(sc(_mm256_unpackhi_epi16(p, z)), m));
        const __m256i bytes = _mm256_permute4x64_epi64(_mm256_packus_epi16(w, w), 0x08);
        st128<F>(d + i, _mm256_castsi256_si128(bytes), n);
    }
};

// 16sc times 16sc (or a constant), 8 complex elements a step.  With a word pair (re, im) per
// 32-bit lane: re = a.re b.re - a.im b.im fits 32 bits; im = a.re b.im + a.im b.re comes from one
// multiply-add of a with b's swapped pair and wraps only for 2^31.
NUV_INLINE __m256i swapWords(__m256i v) { return _mm256_or_si256(_mm256_slli_epi32(v, 16), _mm256_srli_epi32(v, 16)); }

struct ArrC16 {
    const int16_t* p;  // word pairs
    template <bool F> NUV_INLINE void get(int i, int n, __m256i& b, __m256i& bs) const {
        b = ld256<F>(p + 2 * i, 4 * n);
        bs = swapWords(b);
    }
};
struct ConstC16 {
    __m256i b, bs;
    template <bool F> NUV_INLINE void get(int, int, __m256i& vb, __m256i& vbs) const {
        vb = b;
        vbs = bs;
    }
};

template <class B>
struct MulSC16 {
    static constexpr Kind kKind = Kind::Wrapped;
    static constexpr Dst kDst = Dst::S16;
    static constexpr int kStep = 8;
    const int16_t* a;  // word pairs
    B b;
    int16_t* d;
    template <bool F, class S>
    NUV_INLINE void step(int i, int n, const S& sc) const {
        const __m256i va = ld256<F>(a + 2 * i, 4 * n);
        __m256i vb, vbs;
        b.template get<F>(i, n, vb, vbs);
        const __m256i aRe = _mm256_and_si256(va, _mm256_set1_epi32(0xFFFF)), aIm = _mm256_srli_epi32(va, 16);
        const __m256i re = _mm256_sub_epi32(_mm256_madd_epi16(aRe, vb), _mm256_madd_epi16(aIm, vbs));
        const __m256i im = _mm256_madd_epi16(va, vbs);
        const __m256i r = sat16(sc(re)), m = sat16(sc(im));
        st256<F>(d + 2 * i, _mm256_blend_epi16(r, _mm256_slli_epi32(m, 16), 0xAA), 4 * n);
    }
};

// Runs one member over [0, len): full steps, then one partial step.
template <Route R, class Op>
NUV_INLINE void drive(const Op& op, int len, int k) {
    const Scaler<Op::kKind, Op::kDst, R> sc(k);
    int i = 0;
    for (; i <= len - Op::kStep; i += Op::kStep) op.template step<true>(i, Op::kStep, sc);
    if (i < len) op.template step<false>(i, len - i, sc);
}

// ---------------------------------------------------------------- 32-bit results from 64-bit lanes
// Members with 32-bit results form their exact values in 64-bit lanes: the even-numbered 32-bit
// elements of a register in one vector of four, the odd-numbered ones in another, so that the
// results blend back into place without a permute.
NUV_INLINE __m256i sra64(__m256i x, __m128i k) {
    const __m256i s = _mm256_cmpgt_epi64(_mm256_setzero_si256(), x);
    return _mm256_xor_si256(_mm256_srl_epi64(_mm256_xor_si256(x, s), k), s);
}
// The even (Odd = false) or odd 32-bit elements sign-extended to 64 bits.
template <bool Odd>
NUV_INLINE __m256i sext64(__m256i v) {
    if constexpr (Odd) v = _mm256_srli_epi64(v, 32);
    const __m256i m = _mm256_set1_epi64x(0x80000000);
    return _mm256_sub_epi64(_mm256_xor_si256(_mm256_and_si256(v, _mm256_set1_epi64x(0xFFFFFFFF)), m), m);
}
NUV_INLINE __m256i sat32of64(__m256i x) {
    const __m256i hi = _mm256_set1_epi64x(INT32_MAX), lo = _mm256_set1_epi64x(INT32_MIN);
    x = _mm256_blendv_epi8(x, hi, _mm256_cmpgt_epi64(x, hi));
    return _mm256_blendv_epi8(x, lo, _mm256_cmpgt_epi64(lo, x));
}
NUV_INLINE __m256i join64(__m256i even, __m256i odd) { return _mm256_blend_epi32(even, _mm256_slli_epi64(odd, 32), 0xAA); }

// Scalers on exact values in 64-bit lanes (|x| < 2^63 - 2^61), results in the 32-bit range.
template <Route R>
struct Scaler64;
template <>
struct Scaler64<Route::Sat0> {
    explicit Scaler64(int) {}
    NUV_INLINE __m256i operator()(__m256i x) const { return sat32of64(x); }
};
template <>
struct Scaler64<Route::Rne> {
    __m128i s;
    __m256i bias;
    explicit Scaler64(int k) : s(cnt(k)), bias(_mm256_set1_epi64x((int64_t(1) << (k - 1)) - 1)) {}
    NUV_INLINE __m256i operator()(__m256i x) const {
        const __m256i q = _mm256_and_si256(_mm256_srl_epi64(x, s), _mm256_set1_epi64x(1));
        return sat32of64(sra64(_mm256_add_epi64(_mm256_add_epi64(x, bias), q), s));
    }
};
template <>
struct Scaler64<Route::Rne1> : Scaler64<Route::Rne> {
    using Scaler64<Route::Rne>::Scaler64;
};
template <>
struct Scaler64<Route::Left> {
    __m128i s;
    explicit Scaler64(int k) : s(cnt(k)) {}
    NUV_INLINE __m256i operator()(__m256i x) const { return sat32of64(_mm256_sll_epi64(sat32of64(x), s)); }
};
template <>
struct Scaler64<Route::Sign> {
    explicit Scaler64(int) {}
    NUV_INLINE __m256i operator()(__m256i x) const {
        const __m256i z = _mm256_setzero_si256();
        return _mm256_or_si256(_mm256_and_si256(_mm256_cmpgt_epi64(x, z), _mm256_set1_epi64x(INT32_MAX)),
                               _mm256_and_si256(_mm256_cmpgt_epi64(z, x), _mm256_set1_epi64x(INT32_MIN)));
    }
};

// 32s times 32s (16s times 16s when Narrow) plus the 32-bit destination, 8 elements a step.
template <bool Narrow>
struct AddProd32 {
    using Src = std::conditional_t<Narrow, int16_t, int32_t>;
    static constexpr int kStep = 8;
    const Src* a;
    const Src* b;
    int32_t* d;
    template <bool F, class S>
    NUV_INLINE void step(int i, int n, const S& sc) const {
        __m256i va, vb;
        if constexpr (Narrow) {
            va = _mm256_mullo_epi32(_mm256_cvtepi16_epi32(ld128<F>(a + i, 2 * n)), _mm256_cvtepi16_epi32(ld128<F>(b + i, 2 * n)));
            vb = _mm256_set1_epi32(1);  // the 32-bit product times one
        } else {
            va = ld256<F>(a + i, 4 * n);
            vb = ld256<F>(b + i, 4 * n);
        }
        const __m256i vd = ld256<F>(d + i, 4 * n);
        const __m256i even = _mm256_add_epi64(_mm256_mul_epi32(va, vb), sext64<false>(vd));
        const __m256i odd = _mm256_add_epi64(_mm256_mul_epi32(_mm256_srli_epi64(va, 32), _mm256_srli_epi64(vb, 32)), sext64<true>(vd));
        st256<F>(d + i, join64(sc(even), sc(odd)), 4 * n);
    }
};

// Real 32s times complex 32s, 4 complex elements a step: the real factor duplicated onto both words.
struct MulS32SC32 {
    static constexpr int kStep = 4;
    const int32_t* a;
    const int32_t* b;  // word pairs
    int32_t* d;        // word pairs
    template <bool F, class S>
    NUV_INLINE void step(int i, int n, const S& sc) const {
        const __m256i va = _mm256_cvtepu32_epi64(ld128<F>(a + i, 4 * n));  // a[j] in the low word of lane j
        const __m256i vb = ld256<F>(b + 2 * i, 8 * n);
        const __m256i re = _mm256_mul_epi32(va, vb), im = _mm256_mul_epi32(va, _mm256_srli_epi64(vb, 32));
        st256<F>(d + 2 * i, join64(sc(re), sc(im)), 8 * n);
    }
};

// The reduced 32-bit product: shifted in 64 bits and cut to the low word, no rounding and no
// saturation.  Left is a left shift by k, otherwise an arithmetic right shift by k.
template <bool Left>
struct LowShift {
    __m128i s;
    explicit LowShift(int k) : s(cnt(k)) {}
    NUV_INLINE __m256i operator()(__m256i x) const { return Left ? _mm256_sll_epi64(x, s) : sra64(x, s); }
};
struct MulLow32 {
    static constexpr int kStep = 8;
    const int32_t* a;
    const int32_t* b;
    int32_t* d;
    template <bool F, class S>
    NUV_INLINE void step(int i, int n, const S& sc) const {
        const __m256i va = ld256<F>(a + i, 4 * n), vb = ld256<F>(b + i, 4 * n);
        const __m256i even = _mm256_mul_epi32(va, vb);
        const __m256i odd = _mm256_mul_epi32(_mm256_srli_epi64(va, 32), _mm256_srli_epi64(vb, 32));
        st256<F>(d + i, join64(sc(even), sc(odd)), 4 * n);
    }
};

// Complex 32s times complex 32s (or a constant), 4 complex elements a step.  The real part fits
// 64 bits; the imaginary part wraps only for 2^63, which shows as -2^63 and is recognised.
template <Route R>
struct ScalerW64 {
    Scaler64<R> inner;
    explicit ScalerW64(int k) : inner(k) {}
    NUV_INLINE __m256i operator()(__m256i x) const {
        return inner(_mm256_add_epi64(x, _mm256_cmpeq_epi64(x, _mm256_set1_epi64x(INT64_MIN))));
    }
};
// Rounding on y = floor(x / 2) with the dropped bit b, as in the 32-bit lanes.
template <>
struct ScalerW64<Route::Rne> {
    __m128i s;
    __m256i bias;
    explicit ScalerW64(int k) : s(cnt(k - 1)), bias(_mm256_set1_epi64x((int64_t(1) << (k - 1)) / 2 - 1)) {}
    NUV_INLINE __m256i operator()(__m256i x) const {
        const __m256i one = _mm256_set1_epi64x(1), top = _mm256_set1_epi64x(INT64_MIN);
        const __m256i y = _mm256_xor_si256(sra64(x, _mm_cvtsi32_si128(1)), _mm256_and_si256(_mm256_cmpeq_epi64(x, top), top));
        const __m256i q = _mm256_or_si256(_mm256_and_si256(x, one), _mm256_and_si256(_mm256_srl_epi64(y, s), one));
        return sat32of64(sra64(_mm256_add_epi64(_mm256_add_epi64(y, bias), q), s));
    }
};
template <>
struct ScalerW64<Route::Rne1> {
    explicit ScalerW64(int) {}
    NUV_INLINE __m256i operator()(__m256i x) const {
        const __m256i top = _mm256_set1_epi64x(INT64_MIN);
        const __m256i y = _mm256_xor_si256(sra64(x, _mm_cvtsi32_si128(1)), _mm256_and_si256(_mm256_cmpeq_epi64(x, top), top));
        return sat32of64(_mm256_add_epi64(y, _mm256_and_si256(_mm256_and_si256(x, y), _mm256_set1_epi64x(1))));
    }
};

struct ArrC32 {
    const int32_t* p;  // word pairs
    template <bool F> NUV_INLINE __m256i get(int i, int n) const { return ld256<F>(p + 2 * i, 8 * n); }
};
struct ConstC32 {
    __m256i v;
    template <bool F> NUV_INLINE __m256i get(int, int) const { return v; }
};

template <class B>
struct MulSC32 {
    static constexpr int kStep = 4;
    const int32_t* a;  // word pairs
    B b;
    int32_t* d;
    template <bool F, class S>
    NUV_INLINE void step(int i, int n, const S& sc) const {
        const __m256i va = ld256<F>(a + 2 * i, 8 * n), vb = b.template get<F>(i, n);
        const __m256i aIm = _mm256_srli_epi64(va, 32), bIm = _mm256_srli_epi64(vb, 32);
        const __m256i re = _mm256_sub_epi64(_mm256_mul_epi32(va, vb), _mm256_mul_epi32(aIm, bIm));
        const __m256i im = _mm256_add_epi64(_mm256_mul_epi32(va, bIm), _mm256_mul_epi32(aIm, vb));
        st256<F>(d + 2 * i, join64(sc(re), sc(im)), 8 * n);
    }
};

template <class Sc, class Op>
NUV_INLINE void driveWith(const Op& op, int len, const Sc& sc) {
    int i = 0;
    for (; i <= len - Op::kStep; i += Op::kStep) op.template step<true>(i, Op::kStep, sc);
    if (i < len) op.template step<false>(i, len - i, sc);
}

template <Route R, class Op>
NUV_INLINE void drive64(const Op& op, int len, int k) {
    driveWith(op, len, Scaler64<R>(k));
}

}  // namespace nuv::sfsmul

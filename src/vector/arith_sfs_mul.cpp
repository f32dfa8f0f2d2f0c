// Scaled integer multiply, add-product and square: Mul, MulC, AddProduct and Sqr with scale factor.
#include <bit>
#include <cmath>
#include <cstdint>

#include "frame/check.h"
#include "frame/fpstate.h"
#include "frame/round.h"
#include "frame/simd.h"
#include "nuvs.h"
#include "vector/arith_sfs_mul.h"

namespace {

using namespace nuv::sfsmul;

// Cut-off scales by member: zero above the first number, sign only below the second.
constexpr Limits kMul16s{30, -15};      // Mul_16s, MulC_16s
constexpr Limits kMul16u{31, -16};      // Mul_16u, MulC_16u: zero from 32 although a product above 2^31 would round to 1
constexpr Limits kMul16u16s{31, -14};
constexpr Limits kMul16s32s{30, -30};
constexpr Limits kMul8u{16, -7};        // Mul_8u, MulC_8u
constexpr Limits kMul16sc{31, -15};     // Mul_16sc, MulC_16sc
constexpr Limits kMul32s{62, -31};      // Mul_32s, MulC_32s, Mul_Low_32s, Mul_32s32sc
constexpr Limits kMul32sc{63, -31};     // Mul_32sc, MulC_32sc
constexpr Limits kAddProd16s{31, -14};
constexpr Limits kAddProd16s32s{32, -30};
constexpr Limits kAddProd32s{62, -30};  // zero from 63 although dst + 2^62 would round to 1 there
constexpr Limits kSqr16s{30, -14};      // Sqr_16s and Sqr_16sc
constexpr Limits kSqr16u{32, -16};      // Sqr_16u takes every scale; these are its exact cuts
constexpr Limits kSqr8u{16, -8};

template <class T>
const int16_t* w16(const T* p) { return reinterpret_cast<const int16_t*>(p); }
template <class T>
int16_t* w16(T* p) { return reinterpret_cast<int16_t*>(p); }

template <Limits L, class Op, class Zero>
NuvStatus run(const Op& op, int len, int sf, Zero&& zero) {
    return byScale<L>(sf, [&]<Route R>(int k) { drive<R>(op, len, k); }, zero);
}

// ---------------------------------------------------------------- 16-bit and 8-bit members
NuvStatus mul16s(const Nuv16s* a, const Nuv16s* b, Nuv16s* d, int len, int sf) {
    return run<kMul16s>(MulS16<Arr16, false>{a, {b}, d}, len, sf, [&] { return nuvsZero_16s(d, len); });
}
NuvStatus mulC16s(const Nuv16s* a, Nuv16s v, Nuv16s* d, int len, int sf) {
    if (v == 0) return nuvsZero_16s(d, len);
    if (v == 1 && sf == 0) return a == d ? nuvStsOk : nuvsCopy_16s(a, d, len);
    return run<kMul16s>(MulS16<Const16, false>{a, {_mm256_set1_epi16(v)}, d}, len, sf, [&] { return nuvsZero_16s(d, len); });
}
NuvStatus addProduct16s(const Nuv16s* a, const Nuv16s* b, Nuv16s* d, int len, int sf) {
    return run<kAddProd16s>(MulS16<Arr16, true>{a, {b}, d}, len, sf, [&] { return nuvsZero_16s(d, len); });
}
NuvStatus sqr16s(const Nuv16s* a, Nuv16s* d, int len, int sf) {
    return run<kSqr16s>(MulS16<Arr16, false>{a, {a}, d}, len, sf, [&] { return nuvsZero_16s(d, len); });
}

template <Limits L>
NuvStatus mul16u(const Nuv16u* a, const Nuv16u* b, Nuv16u* d, int len, int sf) {
    return run<L>(MulU16<Arr16>{w16(a), {w16(b)}, w16(d)}, len, sf, [&] { return nuvsZero_16s(w16(d), len); });
}
NuvStatus mulC16u(const Nuv16u* a, Nuv16u v, Nuv16u* d, int len, int sf) {
    if (v == 0) return nuvsZero_16s(w16(d), len);
    if (v == 1 && sf == 0) return a == d ? nuvStsOk : nuvsCopy_16s(w16(a), w16(d), len);
    return run<kMul16u>(MulU16<Const16>{w16(a), {_mm256_set1_epi16(int16_t(v))}, w16(d)}, len, sf,
                        [&] { return nuvsZero_16s(w16(d), len); });
}

template <Limits L>
NuvStatus mul8u(const Nuv8u* a, const Nuv8u* b, Nuv8u* d, int len, int sf) {
    return run<L>(MulU8<Arr8>{a, {b}, d}, len, sf, [&] { return nuvsZero_8u(d, len); });
}
NuvStatus mulC8u(const Nuv8u* a, Nuv8u v, Nuv8u* d, int len, int sf) {
    if (v == 0) return nuvsZero_8u(d, len);
    if (v == 1 && sf == 0) return a == d ? nuvStsOk : nuvsCopy_8u(a, d, len);
    return run<kMul8u>(MulU8<Const8>{a, {_mm256_set1_epi16(v)}, d}, len, sf, [&] { return nuvsZero_8u(d, len); });
}

template <Limits L>
NuvStatus mul16sc(const Nuv16sc* a, const Nuv16sc* b, Nuv16sc* d, int len, int sf) {
    return run<L>(MulSC16<ArrC16>{w16(a), {w16(b)}, w16(d)}, len, sf, [&] { return nuvsZero_16sc(d, len); });
}
NuvStatus mulC16sc(const Nuv16sc* a, Nuv16sc v, Nuv16sc* d, int len, int sf) {
    const __m256i b = _mm256_set1_epi32(int32_t(uint16_t(v.re) | uint32_t(uint16_t(v.im)) << 16));
    return run<kMul16sc>(MulSC16<ConstC16>{w16(a), {b, swapWords(b)}, w16(d)}, len, sf,
                         [&] { return nuvsZero_16sc(d, len); });
}

// ---------------------------------------------------------------- 32-bit members
NuvStatus mul16s32s(const Nuv16s* a, const Nuv16s* b, Nuv32s* d, int len, int sf) {
    return run<kMul16s32s>(MulS16S32{a, b, d}, len, sf, [&] { return nuvsZero_32s(d, len); });
}

template <Limits L, class Op>
NuvStatus run64(const Op& op, int len, int sf, int32_t* d, int zeroLen) {
    return byScale<L>(sf, [&]<Route R>(int k) { drive64<R>(op, len, k); }, [&] { return nuvsZero_32s(d, zeroLen); });
}
NuvStatus addProduct16s32s(const Nuv16s* a, const Nuv16s* b, Nuv32s* d, int len, int sf) {
    return run64<kAddProd16s32s>(AddProd32<true>{a, b, d}, len, sf, d, len);
}
NuvStatus addProduct32s(const Nuv32s* a, const Nuv32s* b, Nuv32s* d, int len, int sf) {
    return run64<kAddProd32s>(AddProd32<false>{a, b, d}, len, sf, d, len);
}
NuvStatus mul32s32sc(const Nuv32s* a, const Nuv32sc* b, Nuv32sc* d, int len, int sf) {
    const auto op = MulS32SC32{a, reinterpret_cast<const int32_t*>(b), reinterpret_cast<int32_t*>(d)};
    return byScale<kMul32s>(sf, [&]<Route R>(int k) { drive64<R>(op, len, k); }, [&] { return nuvsZero_32sc(d, len); });
}

// Complex 32-bit products: 64-bit products, their sum wrapped to 64 bits.
template <class B>
NuvStatus mul32scWith(const Nuv32sc* a, B b, Nuv32sc* d, int len, int sf) {
    const MulSC32<B> op{reinterpret_cast<const int32_t*>(a), b, reinterpret_cast<int32_t*>(d)};
    return byScale<kMul32sc>(sf, [&]<Route R>(int k) { driveWith(op, len, ScalerW64<R>(k)); },
                             [&] { return nuvsZero_32sc(d, len); });
}

ConstC32 constC32(Nuv32sc v) { return ConstC32{_mm256_set1_epi64x(int64_t(uint32_t(v.re)) | int64_t(uint64_t(uint32_t(v.im)) << 32))}; }

// Mul_32s through double: each operand to double, the product rounded to 53 bits, scaled by the
// exact power of two, limited to the 32-bit range and rounded to nearest even.  Beyond the left
// limit the scale is held at -32, where every nonzero product is limited: that is the sign route.
template <class B>
NuvStatus mul32sWith(const Nuv32s* a, B&& b, Nuv32s* d, int len, int sf) {
    if (sf > kMul32s.right) return nuvsZero_32s(d, len);
    const nuv::ScopedMxcsr nearest(nuv::kMxcsrRcNear, nuv::kMxcsrRcMask);   // the product rounds to nearest
    const __m256d p2 = _mm256_set1_pd(nuv::pow2d(sf < kMul32s.left ? -32 : sf));
    const __m256d hi = _mm256_set1_pd(2147483647.0), lo = _mm256_set1_pd(-2147483648.0);
    auto four = [&]<bool F>(int i, int n) {
        const __m256d x = _mm256_cvtepi32_pd(ld128<F>(a + i, 4 * n));
        const __m256d y = b.template get<F>(i, n);
        __m256d r = _mm256_mul_pd(_mm256_mul_pd(x, y), p2);
        r = _mm256_round_pd(_mm256_max_pd(_mm256_min_pd(r, hi), lo), _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC);
        st128<F>(d + i, _mm256_cvtpd_epi32(r), 4 * n);
    };
    int i = 0;
    for (; i <= len - 8; i += 8) {
        four.template operator()<true>(i, 4);
        four.template operator()<true>(i + 4, 4);
    }
    for (; i < len; i += 4) {
        if (len - i >= 4) four.template operator()<true>(i, 4);
        else four.template operator()<false>(i, len - i);
    }
    return nuvStsOk;
}
struct ArrD32 {
    const int32_t* p;
    template <bool F> NUV_INLINE __m256d get(int i, int n) const { return _mm256_cvtepi32_pd(ld128<F>(p + i, 4 * n)); }
};
struct ConstD {
    __m256d v;
    template <bool F> NUV_INLINE __m256d get(int, int) const { return v; }
};

NuvStatus mulC32s(const Nuv32s* a, Nuv32s v, Nuv32s* d, int len, int sf) {
    if (v == 0) return nuvsZero_32s(d, len);
    if (v == 1 && sf == 0) return a == d ? nuvStsOk : nuvsCopy_32s(a, d, len);
    return mul32sWith(a, ConstD{_mm256_set1_pd(double(v))}, d, len, sf);
}

// The reduced form: the 64-bit product shifted arithmetically and cut to 32 bits, no rounding and
// no saturation; a left shift wraps the same way.  Beyond the left limit the sign route.
NuvStatus mulLow32s(const Nuv32s* a, const Nuv32s* b, Nuv32s* d, int len, int sf) {
    if (sf > kMul32s.right) return nuvsZero_32s(d, len);
    const MulLow32 op{a, b, d};
    if (sf < kMul32s.left) driveWith(op, len, Scaler64<Route::Sign>(0));
    else if (sf >= 0) driveWith(op, len, LowShift<false>(sf));
    else driveWith(op, len, LowShift<true>(-sf));
    return nuvStsOk;
}

// ---------------------------------------------------------------- float and extended routes
// Element times constant in single precision, limited above to 32767 by a minimum operation
// (a NaN product takes the limit), converted to nearest; the pack saturates the low end.
NuvStatus mulC32f16s(const Nuv32f* a, float c, Nuv16s* d, int len) {
    const __m256 cv = _mm256_set1_ps(c), hi = _mm256_set1_ps(32767.0f);
    auto eight = [&]<bool F>(int i, int n) {
        const __m256 x = _mm256_castsi256_ps(ld256<F>(a + i, 4 * n));
        const __m256 r = _mm256_round_ps(_mm256_min_ps(_mm256_mul_ps(x, cv), hi), _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC);
        const __m256i q = _mm256_cvtps_epi32(r);
        st128<F>(d + i, _mm_packs_epi32(_mm256_castsi256_si128(q), _mm256_extracti128_si256(q, 1)), 2 * n);
    };
    int i = 0;
    for (; i <= len - 8; i += 8) eight.template operator()<true>(i, 8);
    if (i < len) eight.template operator()<false>(i, len - i);
    return nuvStsOk;
}

// Extended precision: the product rounded to a 64-bit significand, scaled by an exact power of
// two, rounded to nearest even and saturated to 64 bits.  A NaN gives the lowest value, as the
// processor's conversion does.
// The conversion is the store of the x87 unit, which rounds by its control word: to nearest
// within the kernel's scope.
inline int64_t satRound64(long double x) {
    if (x != x) return INT64_MIN;
    if (x >= 0x1p63L) return INT64_MAX;
    if (x <= -0x1p63L) return INT64_MIN;
    return nuv::x87StoreInt64(x);
}
NuvStatus mulCExt64(long double c, Nuv64s* d, int len, int sf) {
    const nuv::ScopedX87Nearest x87;   // the caller's precision or rounding setting must not enter
    // A nonzero product lies between 2^-1074 and 2^1087 in magnitude: from 2^16000 up every one
    // saturates, from 2^-16000 down every one rounds to 0, so the power is held there, where it is
    // a normal extended number and the scaling stays exact.
    const int e = sf > 16000 ? -16000 : (sf < -16000 ? 16000 : -sf);
    const long double p2 = __builtin_ldexpl(1.0L, e);
    for (int n = 0; n < len; ++n) d[n] = satRound64(static_cast<long double>(d[n]) * c * p2);
    return nuvStsOk;
}

}  // namespace

extern "C" {
// ---------------------------------------------------------------- Mul
NuvStatus nuvsMul_16s(const Nuv16s* pSrc1, const Nuv16s* pSrc2, Nuv16s* pDst, int len) {
    return nuvsMul_16s_Sfs(pSrc1, pSrc2, pDst, len, 0);
}
NuvStatus nuvsMul_16s_I(const Nuv16s* pSrc, Nuv16s* pSrcDst, int len) { return nuvsMul_16s_ISfs(pSrc, pSrcDst, len, 0); }

NuvStatus nuvsMul_8u_Sfs(const Nuv8u* pSrc1, const Nuv8u* pSrc2, Nuv8u* pDst, int len, int scaleFactor) {
    if (NuvStatus s = nuv::check(len, pSrc1, pSrc2, pDst)) return s;
    return mul8u<kMul8u>(pSrc1, pSrc2, pDst, len, scaleFactor);
}
NuvStatus nuvsMul_8u_ISfs(const Nuv8u* pSrc, Nuv8u* pSrcDst, int len, int scaleFactor) {
    if (NuvStatus s = nuv::check(len, pSrc, pSrcDst)) return s;
    return mul8u<kMul8u>(pSrcDst, pSrc, pSrcDst, len, scaleFactor);
}
NuvStatus nuvsMul_16s_Sfs(const Nuv16s* pSrc1, const Nuv16s* pSrc2, Nuv16s* pDst, int len, int scaleFactor) {
    if (NuvStatus s = nuv::check(len, pSrc1, pSrc2, pDst)) return s;
    return mul16s(pSrc1, pSrc2, pDst, len, scaleFactor);
}
NuvStatus nuvsMul_16s_ISfs(const Nuv16s* pSrc, Nuv16s* pSrcDst, int len, int scaleFactor) {
    if (NuvStatus s = nuv::check(len, pSrc, pSrcDst)) return s;
    return mul16s(pSrcDst, pSrc, pSrcDst, len, scaleFactor);
}
NuvStatus nuvsMul_16u_Sfs(const Nuv16u* pSrc1, const Nuv16u* pSrc2, Nuv16u* pDst, int len, int scaleFactor) {
    if (NuvStatus s = nuv::check(len, pSrc1, pSrc2, pDst)) return s;
    return mul16u<kMul16u>(pSrc1, pSrc2, pDst, len, scaleFactor);
}
NuvStatus nuvsMul_16u_ISfs(const Nuv16u* pSrc, Nuv16u* pSrcDst, int len, int scaleFactor) {
    if (NuvStatus s = nuv::check(len, pSrc, pSrcDst)) return s;
    return mul16u<kMul16u>(pSrcDst, pSrc, pSrcDst, len, scaleFactor);
}
NuvStatus nuvsMul_16u16s_Sfs(const Nuv16u* pSrc1, const Nuv16s* pSrc2, Nuv16s* pDst, int len, int scaleFactor) {
    if (NuvStatus s = nuv::check(len, pSrc1, pSrc2, pDst)) return s;
    return run<kMul16u16s>(MulU16S16{w16(pSrc1), pSrc2, pDst}, len, scaleFactor, [&] { return nuvsZero_16s(pDst, len); });
}
NuvStatus nuvsMul_16s32s_Sfs(const Nuv16s* pSrc1, const Nuv16s* pSrc2, Nuv32s* pDst, int len, int scaleFactor) {
    if (NuvStatus s = nuv::check(len, pSrc1, pSrc2, pDst)) return s;
    return mul16s32s(pSrc1, pSrc2, pDst, len, scaleFactor);
}
NuvStatus nuvsMul_16sc_Sfs(const Nuv16sc* pSrc1, const Nuv16sc* pSrc2, Nuv16sc* pDst, int len, int scaleFactor) {
    if (NuvStatus s = nuv::check(len, pSrc1, pSrc2, pDst)) return s;
    if (pDst == pSrc1) return nuvsMul_16sc_ISfs(pSrc2, pDst, len, scaleFactor);
    if (pDst == pSrc2) return nuvsMul_16sc_ISfs(pSrc1, pDst, len, scaleFactor);
    return mul16sc<kMul16sc>(pSrc1, pSrc2, pDst, len, scaleFactor);
}
NuvStatus nuvsMul_16sc_ISfs(const Nuv16sc* pSrc, Nuv16sc* pSrcDst, int len, int scaleFactor) {
    if (NuvStatus s = nuv::check(len, pSrc, pSrcDst)) return s;
    return mul16sc<kMul16sc>(pSrcDst, pSrc, pSrcDst, len, scaleFactor);
}
NuvStatus nuvsMul_32s_Sfs(const Nuv32s* pSrc1, const Nuv32s* pSrc2, Nuv32s* pDst, int len, int scaleFactor) {
    if (NuvStatus s = nuv::check(len, pSrc1, pSrc2, pDst)) return s;
    return mul32sWith(pSrc1, ArrD32{pSrc2}, pDst, len, scaleFactor);
}
NuvStatus nuvsMul_32s_ISfs(const Nuv32s* pSrc, Nuv32s* pSrcDst, int len, int scaleFactor) {
    if (NuvStatus s = nuv::check(len, pSrc, pSrcDst)) return s;
    return mul32sWith(pSrcDst, ArrD32{pSrc}, pSrcDst, len, scaleFactor);
}
NuvStatus nuvsMul_32sc_Sfs(const Nuv32sc* pSrc1, const Nuv32sc* pSrc2, Nuv32sc* pDst, int len, int scaleFactor) {
    if (NuvStatus s = nuv::check(len, pSrc1, pSrc2, pDst)) return s;
    if (pDst == pSrc1) return nuvsMul_32sc_ISfs(pSrc2, pDst, len, scaleFactor);
    if (pDst == pSrc2) return nuvsMul_32sc_ISfs(pSrc1, pDst, len, scaleFactor);
    return mul32scWith(pSrc1, ArrC32{reinterpret_cast<const int32_t*>(pSrc2)}, pDst, len, scaleFactor);
}
NuvStatus nuvsMul_32sc_ISfs(const Nuv32sc* pSrc, Nuv32sc* pSrcDst, int len, int scaleFactor) {
    if (NuvStatus s = nuv::check(len, pSrc, pSrcDst)) return s;
    return mul32scWith(pSrcDst, ArrC32{reinterpret_cast<const int32_t*>(pSrc)}, pSrcDst, len, scaleFactor);
}
NuvStatus nuvsMul_32s32sc_Sfs(const Nuv32s* pSrc1, const Nuv32sc* pSrc2, Nuv32sc* pDst, int len, int scaleFactor) {
    if (NuvStatus s = nuv::check(len, pSrc1, pSrc2, pDst)) return s;
    return mul32s32sc(pSrc1, pSrc2, pDst, len, scaleFactor);
}
NuvStatus nuvsMul_32s32sc_ISfs(const Nuv32s* pSrc, Nuv32sc* pSrcDst, int len, int scaleFactor) {
    if (NuvStatus s = nuv::check(len, pSrc, pSrcDst)) return s;
    return mul32s32sc(pSrc, pSrcDst, pSrcDst, len, scaleFactor);
}
NuvStatus nuvsMul_Low_32s_Sfs(const Nuv32s* pSrc1, const Nuv32s* pSrc2, Nuv32s* pDst, int len, int scaleFactor) {
    if (NuvStatus s = nuv::check(len, pSrc1, pSrc2, pDst)) return s;
    return mulLow32s(pSrc1, pSrc2, pDst, len, scaleFactor);
}

// ---------------------------------------------------------------- MulC
NuvStatus nuvsMulC_8u_Sfs(const Nuv8u* pSrc, Nuv8u val, Nuv8u* pDst, int len, int scaleFactor) {
    if (NuvStatus s = nuv::check(len, pSrc, pDst)) return s;
    return mulC8u(pSrc, val, pDst, len, scaleFactor);
}
NuvStatus nuvsMulC_8u_ISfs(Nuv8u val, Nuv8u* pSrcDst, int len, int scaleFactor) {
    if (NuvStatus s = nuv::check(len, pSrcDst)) return s;
    return mulC8u(pSrcDst, val, pSrcDst, len, scaleFactor);
}
NuvStatus nuvsMulC_16s_Sfs(const Nuv16s* pSrc, Nuv16s val, Nuv16s* pDst, int len, int scaleFactor) {
    if (NuvStatus s = nuv::check(len, pSrc, pDst)) return s;
    return mulC16s(pSrc, val, pDst, len, scaleFactor);
}
NuvStatus nuvsMulC_16s_ISfs(Nuv16s val, Nuv16s* pSrcDst, int len, int scaleFactor) {
    if (NuvStatus s = nuv::check(len, pSrcDst)) return s;
    return mulC16s(pSrcDst, val, pSrcDst, len, scaleFactor);
}
NuvStatus nuvsMulC_16u_Sfs(const Nuv16u* pSrc, Nuv16u val, Nuv16u* pDst, int len, int scaleFactor) {
    if (NuvStatus s = nuv::check(len, pSrc, pDst)) return s;
    return mulC16u(pSrc, val, pDst, len, scaleFactor);
}
NuvStatus nuvsMulC_16u_ISfs(Nuv16u val, Nuv16u* pSrcDst, int len, int scaleFactor) {
    if (NuvStatus s = nuv::check(len, pSrcDst)) return s;
    return mulC16u(pSrcDst, val, pSrcDst, len, scaleFactor);
}
NuvStatus nuvsMulC_16sc_Sfs(const Nuv16sc* pSrc, Nuv16sc val, Nuv16sc* pDst, int len, int scaleFactor) {
    if (NuvStatus s = nuv::check(len, pSrc, pDst)) return s;
    return mulC16sc(pSrc, val, pDst, len, scaleFactor);
}
NuvStatus nuvsMulC_16sc_ISfs(Nuv16sc val, Nuv16sc* pSrcDst, int len, int scaleFactor) {
    if (NuvStatus s = nuv::check(len, pSrcDst)) return s;
    return mulC16sc(pSrcDst, val, pSrcDst, len, scaleFactor);
}
NuvStatus nuvsMulC_32s_Sfs(const Nuv32s* pSrc, Nuv32s val, Nuv32s* pDst, int len, int scaleFactor) {
    if (NuvStatus s = nuv::check(len, pSrc, pDst)) return s;
    return mulC32s(pSrc, val, pDst, len, scaleFactor);
}
NuvStatus nuvsMulC_32s_ISfs(Nuv32s val, Nuv32s* pSrcDst, int len, int scaleFactor) {
    if (NuvStatus s = nuv::check(len, pSrcDst)) return s;
    return mulC32s(pSrcDst, val, pSrcDst, len, scaleFactor);
}
NuvStatus nuvsMulC_32sc_Sfs(const Nuv32sc* pSrc, Nuv32sc val, Nuv32sc* pDst, int len, int scaleFactor) {
    if (NuvStatus s = nuv::check(len, pSrc, pDst)) return s;
    return mul32scWith(pSrc, constC32(val), pDst, len, scaleFactor);
}
NuvStatus nuvsMulC_32sc_ISfs(Nuv32sc val, Nuv32sc* pSrcDst, int len, int scaleFactor) {
    if (NuvStatus s = nuv::check(len, pSrcDst)) return s;
    return mul32scWith(pSrcDst, constC32(val), pSrcDst, len, scaleFactor);
}
NuvStatus nuvsMulC_32f16s_Sfs(const Nuv32f* pSrc, Nuv32f val, Nuv16s* pDst, int len, int scaleFactor) {
    if (NuvStatus s = nuv::check(len, pSrc, pDst)) return s;
    // The power is built over the whole exponent field: from scale 127 on it is 0, from -128 down infinity.
    return mulC32f16s(pSrc, val * nuv::pow2f(scaleFactor, -128, 127), pDst, len);
}
NuvStatus nuvsMulC_Low_32f16s(const Nuv32f* pSrc, Nuv32f val, Nuv16s* pDst, int len) {
    if (NuvStatus s = nuv::check(len, pSrc, pDst)) return s;
    return mulC32f16s(pSrc, val, pDst, len);
}
NuvStatus nuvsMulC_64f64s_ISfs(Nuv64f val, Nuv64s* pSrcDst, int len, int scaleFactor) {
    if (NuvStatus s = nuv::check(len, pSrcDst)) return s;
    return mulCExt64(val, pSrcDst, len, scaleFactor);
}
NuvStatus nuvsMulC_64s_ISfs(Nuv64s val, Nuv64s* pSrcDst, int len, int scaleFactor) {
    if (NuvStatus s = nuv::check(len, pSrcDst)) return s;
    return mulCExt64(static_cast<long double>(val), pSrcDst, len, scaleFactor);
}

// ---------------------------------------------------------------- AddProduct
NuvStatus nuvsAddProduct_16s_Sfs(const Nuv16s* pSrc1, const Nuv16s* pSrc2, Nuv16s* pSrcDst, int len, int scaleFactor) {
    if (NuvStatus s = nuv::check(len, pSrc1, pSrc2, pSrcDst)) return s;
    return addProduct16s(pSrc1, pSrc2, pSrcDst, len, scaleFactor);
}
NuvStatus nuvsAddProduct_16s32s_Sfs(const Nuv16s* pSrc1, const Nuv16s* pSrc2, Nuv32s* pSrcDst, int len, int scaleFactor) {
    if (NuvStatus s = nuv::check(len, pSrc1, pSrc2, pSrcDst)) return s;
    return addProduct16s32s(pSrc1, pSrc2, pSrcDst, len, scaleFactor);
}
NuvStatus nuvsAddProduct_32s_Sfs(const Nuv32s* pSrc1, const Nuv32s* pSrc2, Nuv32s* pSrcDst, int len, int scaleFactor) {
    if (NuvStatus s = nuv::check(len, pSrc1, pSrc2, pSrcDst)) return s;
    return addProduct32s(pSrc1, pSrc2, pSrcDst, len, scaleFactor);
}

// ---------------------------------------------------------------- Sqr
NuvStatus nuvsSqr_8u_Sfs(const Nuv8u* pSrc, Nuv8u* pDst, int len, int scaleFactor) {
    if (NuvStatus s = nuv::check(len, pSrc, pDst)) return s;
    return mul8u<kSqr8u>(pSrc, pSrc, pDst, len, scaleFactor);
}
NuvStatus nuvsSqr_8u_ISfs(Nuv8u* pSrcDst, int len, int scaleFactor) {
    if (NuvStatus s = nuv::check(len, pSrcDst)) return s;
    return mul8u<kSqr8u>(pSrcDst, pSrcDst, pSrcDst, len, scaleFactor);
}
NuvStatus nuvsSqr_16s_Sfs(const Nuv16s* pSrc, Nuv16s* pDst, int len, int scaleFactor) {
    if (NuvStatus s = nuv::check(len, pSrc, pDst)) return s;
    return sqr16s(pSrc, pDst, len, scaleFactor);
}
NuvStatus nuvsSqr_16s_ISfs(Nuv16s* pSrcDst, int len, int scaleFactor) {
    if (NuvStatus s = nuv::check(len, pSrcDst)) return s;
    return sqr16s(pSrcDst, pSrcDst, len, scaleFactor);
}
NuvStatus nuvsSqr_16u_Sfs(const Nuv16u* pSrc, Nuv16u* pDst, int len, int scaleFactor) {
    if (NuvStatus s = nuv::check(len, pSrc, pDst)) return s;
    return mul16u<kSqr16u>(pSrc, pSrc, pDst, len, scaleFactor);
}
NuvStatus nuvsSqr_16u_ISfs(Nuv16u* pSrcDst, int len, int scaleFactor) {
    if (NuvStatus s = nuv::check(len, pSrcDst)) return s;
    return mul16u<kSqr16u>(pSrcDst, pSrcDst, pSrcDst, len, scaleFactor);
}
NuvStatus nuvsSqr_16sc_Sfs(const Nuv16sc* pSrc, Nuv16sc* pDst, int len, int scaleFactor) {
    if (NuvStatus s = nuv::check(len, pSrc, pDst)) return s;
    return mul16sc<kSqr16s>(pSrc, pSrc, pDst, len, scaleFactor);
}
NuvStatus nuvsSqr_16sc_ISfs(Nuv16sc* pSrcDst, int len, int scaleFactor) {
    if (NuvStatus s = nuv::check(len, pSrcDst)) return s;
    return mul16sc<kSqr16s>(pSrcDst, pSrcDst, pSrcDst, len, scaleFactor);
}
}  // extern "C"

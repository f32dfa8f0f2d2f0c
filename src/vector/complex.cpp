// Complex and polar: Real, Imag, RealToCplx, CplxToReal, Conj, ConjFlip, Magnitude, MagSquared,
// PowerSpectr, Phase, CartToPolar, PolarToCart.
#include <immintrin.h>

#include <cmath>

#include "frame/check.h"
#include "frame/round.h"
#include "nuvs.h"
#include "vector/complex_kern.h"

namespace {

using namespace nuv::cplx;

NUV_INLINE __m256 vmul(__m256 a, __m256 b) { return _mm256_mul_ps(a, b); }
NUV_INLINE __m256d vmul(__m256d a, __m256d b) { return _mm256_mul_pd(a, b); }
NUV_INLINE __m256 vfma(__m256 a, __m256 b, __m256 c) { return _mm256_fmadd_ps(a, b, c); }
NUV_INLINE __m256d vfma(__m256d a, __m256d b, __m256d c) { return _mm256_fmadd_pd(a, b, c); }
NUV_INLINE __m256 vsqrt(__m256 a) { return _mm256_sqrt_ps(a); }
NUV_INLINE __m256d vsqrt(__m256d a) { return _mm256_sqrt_pd(a); }
NUV_INLINE void vstore(float* p, __m256 v) { _mm256_storeu_ps(p, v); }
NUV_INLINE void vstore(double* p, __m256d v) { _mm256_storeu_pd(p, v); }
NUV_INLINE __m256 vload(const float* p) { return _mm256_loadu_ps(p); }
NUV_INLINE __m256d vload(const double* p) { return _mm256_loadu_pd(p); }
NUV_INLINE __m256i vload(const Nuv16s* p) { return i256(p); }
template <class V> NUV_INLINE V vzero() { return V{}; }

// ================================================================ parts and assembly

// One register of real or imaginary parts (Which 0 or 1).
template <int Which> NUV_INLINE void partStep(const Nuv32fc* s, Nuv32f* d) {
    const Parts8 p = parts(s);
    vstore(d, unperm(Which ? p.im : p.re));
}
template <int Which> NUV_INLINE void partStep(const Nuv64fc* s, Nuv64f* d) {
    const Parts4 p = parts(s);
    vstore(d, unperm(Which ? p.im : p.re));
}
template <int Which> NUV_INLINE void partStep(const Nuv16sc* s, Nuv16s* d) {
    auto half = [](__m256i v) { return Which ? _mm256_srai_epi32(v, 16) : _mm256_srai_epi32(_mm256_slli_epi32(v, 16), 16); };
    put(d, unperm(_mm256_packs_epi32(half(i256(s)), half(i256(s + 8)))));
}

template <int Which, class C, class T>
void ownsPart(const C* pSrc, T* pDst, int len) {
    runBlocks<32 / sizeof(T), 2>(len, [](const C* s, T* d) { partStep<Which>(s, d); }, pSrc, pDst);
}

template <int Which, class C, class T>
NuvStatus part(const C* pSrc, T* pDst, int len) {
    if (NuvStatus s = nuv::check(len, pSrc, pDst)) return s;
    ownsPart<Which>(pSrc, pDst, len);
    return nuvStsOk;
}

// Both parts, by the two part kernels in turn.
template <class C, class T>
NuvStatus cplxToReal(const C* pSrc, T* pDstRe, T* pDstIm, int len) {
    if (NuvStatus s = nuv::check(len, pSrc, pDstRe, pDstIm)) return s;
    ownsPart<0>(pSrc, pDstRe, len);
    ownsPart<1>(pSrc, pDstIm, len);
    return nuvStsOk;
}

// One register of real parts and one of imaginary parts interleaved into complex elements.
NUV_INLINE void join(__m256 re, __m256 im, Nuv32fc* d) {
    const __m256 lo = _mm256_unpacklo_ps(re, im), hi = _mm256_unpackhi_ps(re, im);
    _mm256_storeu_ps(&d[0].re, _mm256_permute2f128_ps(lo, hi, 0x20));
    _mm256_storeu_ps(&d[4].re, _mm256_permute2f128_ps(lo, hi, 0x31));
}
NUV_INLINE void join(__m256d re, __m256d im, Nuv64fc* d) {
    const __m256d lo = _mm256_unpacklo_pd(re, im), hi = _mm256_unpackhi_pd(re, im);
    _mm256_storeu_pd(&d[0].re, _mm256_permute2f128_pd(lo, hi, 0x20));
    _mm256_storeu_pd(&d[2].re, _mm256_permute2f128_pd(lo, hi, 0x31));
}
NUV_INLINE void join(__m256i re, __m256i im, Nuv16sc* d) {
    const __m256i lo = _mm256_unpacklo_epi16(re, im), hi = _mm256_unpackhi_epi16(re, im);
    put(d, _mm256_permute2x128_si256(lo, hi, 0x20));
    put(d + 8, _mm256_permute2x128_si256(lo, hi, 0x31));
}

// Either source may be null (its part becomes 0), each case with a kernel of its own.
template <class T, class C>
NuvStatus realToCplx(const T* pSrcRe, const T* pSrcIm, C* pDst, int len) {
    if (!pSrcRe && !pSrcIm) return nuvStsNullPtr;
    if (NuvStatus s = nuv::check(len, pDst)) return s;
    constexpr int N = 32 / sizeof(T);
    using V = decltype(vload(pSrcRe));
    if (pSrcRe && pSrcIm)
        runBlocks<N, 2>(len, [](const T* r, const T* i, C* d) { join(vload(r), vload(i), d); }, pSrcRe, pSrcIm, pDst);
    else if (pSrcRe)
        runBlocks<N, 2>(len, [](const T* r, C* d) { join(vload(r), vzero<V>(), d); }, pSrcRe, pDst);
    else
        runBlocks<N, 2>(len, [](const T* i, C* d) { join(vzero<V>(), vload(i), d); }, pSrcIm, pDst);
    return nuvStsOk;
}

// ================================================================ conjugation

// Negating the imaginary part flips its sign bit; the 16-bit form saturates, so -32768 gives 32767.
NUV_INLINE __m256i conjV(__m256i v) {
    return _mm256_blend_epi16(v, _mm256_subs_epi16(_mm256_setzero_si256(), v), 0xAA);
}
NUV_INLINE __m256 conjV(__m256 v) { return _mm256_xor_ps(v, _mm256_setr_ps(0, -0.f, 0, -0.f, 0, -0.f, 0, -0.f)); }
NUV_INLINE __m256d conjV(__m256d v) { return _mm256_xor_pd(v, _mm256_setr_pd(0, -0.0, 0, -0.0)); }
NUV_INLINE __m256i ld(const Nuv16sc* p) { return i256(p); }
NUV_INLINE __m256 ld(const Nuv32fc* p) { return f32(&p->re); }
NUV_INLINE __m256d ld(const Nuv64fc* p) { return f64(&p->re); }
NUV_INLINE void st(Nuv16sc* p, __m256i v) { put(p, v); }
NUV_INLINE void st(Nuv32fc* p, __m256 v) { _mm256_storeu_ps(&p->re, v); }
NUV_INLINE void st(Nuv64fc* p, __m256d v) { _mm256_storeu_pd(&p->re, v); }
// Element order reversed within one register.
NUV_INLINE __m256i reverse(__m256i v) { return _mm256_permutevar8x32_epi32(v, _mm256_setr_epi32(7, 6, 5, 4, 3, 2, 1, 0)); }
NUV_INLINE __m256 reverse(__m256 v) { return _mm256_castpd_ps(_mm256_permute4x64_pd(_mm256_castps_pd(v), 0x1B)); }
NUV_INLINE __m256d reverse(__m256d v) { return _mm256_permute2f128_pd(v, v, 0x01); }
NUV_INLINE Nuv16sc conj1(Nuv16sc c) { return {c.re, Nuv16s(c.im == -32768 ? 32767 : -c.im)}; }
NUV_INLINE Nuv32fc conj1(Nuv32fc c) { return {c.re, -c.im}; }
NUV_INLINE Nuv64fc conj1(Nuv64fc c) { return {c.re, -c.im}; }

template <class C>
NuvStatus conj(const C* pSrc, C* pDst, int len) {
    if (NuvStatus s = nuv::check(len, pSrc, pDst)) return s;
    runBlocks<32 / sizeof(C), 4>(len, [](const C* s, C* d) { st(d, conjV(ld(s))); }, pSrc, pDst);
    return nuvStsOk;
}
template <class C>
NuvStatus conjI(C* pSrcDst, int len) {
    if (NuvStatus s = nuv::check(len, pSrcDst)) return s;
    runBlocks<32 / sizeof(C), 4>(len, [](C* d) { st(d, conjV(ld(d))); }, pSrcDst);
    return nuvStsOk;
}

// In place: registers from both ends trade places, each reversed and conjugated; the middle
// element, if any, is conjugated where it stands.
template <class C>
void conjFlipInPlace(C* p, int len) {
    constexpr int N = 32 / sizeof(C);
    int i = 0, j = len;  // [i, j) still to do
    for (; j - i >= 2 * N; i += N, j -= N) {
        const auto a = ld(p + i), b = ld(p + j - N);
        st(p + i, conjV(reverse(b)));
        st(p + j - N, conjV(reverse(a)));
    }
    for (; j - i >= 2; ++i, --j) {
        const C a = p[i], b = p[j - 1];
        p[i] = conj1(b);
        p[j - 1] = conj1(a);
    }
    if (j > i) p[i] = conj1(p[i]);
}

// pDst[n] = conj(pSrc[len-1-n]): registers read from the end, reversed and conjugated.  Equal
// pointers reverse in place, as Flip does.
template <class C>
NuvStatus conjFlip(const C* pSrc, C* pDst, int len) {
    if (NuvStatus s = nuv::check(len, pSrc, pDst)) return s;
    if (pSrc == pDst) {
        conjFlipInPlace(pDst, len);
        return nuvStsOk;
    }
    constexpr int N = 32 / sizeof(C);
    int i = 0;
    for (; i + N <= len; i += N) st(pDst + i, conjV(reverse(ld(pSrc + len - i - N))));
    for (; i < len; ++i) pDst[i] = conj1(pSrc[len - 1 - i]);
    return nuvStsOk;
}

// ================================================================ modulus, power, phase to float

// re fused with itself plus the rounded im*im.
struct OpPower {
    template <class P> NUV_INLINE static auto f(P p) { return vfma(p.re, p.re, vmul(p.im, p.im)); }
};
// Square root of the same sum.  The single-precision root equals the double root of the widened
// sum narrowed to float: a double root of a float is never close enough to a float midpoint to
// round twice.
struct OpMagnitude {
    template <class P> NUV_INLINE static auto f(P p) { return vsqrt(OpPower::f(p)); }
};
struct OpPhase {
    template <class P> NUV_INLINE static auto f(P p) { return phase(p.re, p.im); }
};

// Float or double results of an element-wise operation over a complex or split source.
template <class Op, class T, class... S>
void ownsMap(T* pDst, int len, const S*... pSrc) {
    runBlocks<32 / sizeof(T), 4>(
        len, [](T* d, const S*... s) { vstore(d, inOrder<S...>(Op::f(parts(s...)))); }, pDst, pSrc...);
}

template <class Op, class T, class... S>
NuvStatus map(T* pDst, int len, const S*... pSrc) {
    if (NuvStatus s = nuv::check(len, pSrc..., pDst)) return s;
    ownsMap<Op>(pDst, len, pSrc...);
    return nuvStsOk;
}

// 16-bit complex sums of squares formed exactly in integers.
template <class... S>
NuvStatus magnitude16To32f(Nuv32f* pDst, int len, const S*... pSrc) {
    if (NuvStatus s = nuv::check(len, pSrc..., pDst)) return s;
    runBlocks<8, 2>(len, [](Nuv32f* d, const S*... s) {
        const __m256i n = sumSq(s...);
        vstore(d, _mm256_set_m128(_mm256_cvtpd_ps(vsqrt(u32hi(n))), _mm256_cvtpd_ps(vsqrt(u32lo(n)))));
    }, pDst, pSrc...);
    return nuvStsOk;
}
template <class... S>
NuvStatus power16To32f(Nuv32f* pDst, int len, const S*... pSrc) {
    if (NuvStatus s = nuv::check(len, pSrc..., pDst)) return s;
    runBlocks<8, 2>(len, [](Nuv32f* d, const S*... s) { vstore(d, u32f(sumSq(s...))); }, pDst, pSrc...);
    return nuvStsOk;
}

// ================================================================ 16-bit scaled results

// Scale cases, each with a loop of its own.
enum class Sc { Zero, One, Right, Left, Scaled, Sign };

// Nonzero elements give 32767, zero elements 0: what is left of a huge left shift.
template <class... S>
void ownsSign16(Nuv16s* pDst, int len, const S*... pSrc) {
    runBlocks<8>(len, [](Nuv16s* d, const S*... s) {
        const __m256i z = _mm256_cmpeq_epi32(sumSq(s...), _mm256_setzero_si256());
        put(d, pack16(_mm256_andnot_si256(z, _mm256_set1_epi32(32767))));
    }, pDst, pSrc...);
}

// Square root in double of the exact sum, scaled, rounded to nearest even, limited to 32767.
template <Sc K, class... S>
void ownsMagnitude16(Nuv16s* pDst, int len, double f, const S*... pSrc) {
    runBlocks<8>(len, [=](Nuv16s* d, const S*... s) {
        const __m256i n = sumSq(s...);
        __m256d a = vsqrt(u32lo(n)), b = vsqrt(u32hi(n));
        if constexpr (K == Sc::Scaled) a = vmul(a, _mm256_set1_pd(f)), b = vmul(b, _mm256_set1_pd(f));
        put(d, _mm_packs_epi32(cvtRneClamp(a, 0.0, 32767.0), cvtRneClamp(b, 0.0, 32767.0)));
    }, pDst, pSrc...);
}

template <class... S>
NuvStatus magnitude16(Nuv16s* pDst, int len, int sf, const S*... pSrc) {
    if (NuvStatus s = nuv::check(len, pSrc..., pDst)) return s;
    if (sf > 16) return nuvsZero_16s(pDst, len);   // the largest modulus, 46341, rounds to 0 from here
    if (sf < -14) ownsSign16(pDst, len, pSrc...);  // a modulus of 1 already saturates
    else if (sf == 0) ownsMagnitude16<Sc::One>(pDst, len, 1.0, pSrc...);
    else ownsMagnitude16<Sc::Scaled>(pDst, len, nuv::pow2d(sf), pSrc...);
    return nuvStsOk;
}

// The exact 32-bit sum (at most 2^31, unsigned) rounded and shifted, limited to 32767.
template <Sc K, class... S>
void ownsPower16(Nuv16s* pDst, int len, int k, const S*... pSrc) {
    runBlocks<8>(len, [k](Nuv16s* d, const S*... s) {
        __m256i n = sumSq(s...);
        const __m128i kk = _mm_cvtsi32_si128(k);
        if constexpr (K == Sc::Right) {
            // bias 2^(k-1) - 1 plus bit k: ties go to even; the sum stays below 2^32
            const __m256i odd = _mm256_and_si256(_mm256_srl_epi32(n, kk), _mm256_set1_epi32(1));
            n = _mm256_add_epi32(n, _mm256_add_epi32(_mm256_set1_epi32(int((1u << (k - 1)) - 1)), odd));
            n = _mm256_srl_epi32(n, kk);
        } else if constexpr (K == Sc::Left) {
            n = _mm256_sll_epi32(_mm256_min_epu32(n, _mm256_set1_epi32((32767 >> k) + 1)), kk);
        }
        put(d, pack16(_mm256_min_epu32(n, _mm256_set1_epi32(32767))));
    }, pDst, pSrc...);
}

template <class... S>
NuvStatus power16(Nuv16s* pDst, int len, int sf, const S*... pSrc) {
    if (NuvStatus s = nuv::check(len, pSrc..., pDst)) return s;
    if (sf > 31) return nuvsZero_16s(pDst, len);  // 2^31 / 2^32 is a tie that goes to 0
    if (sf < -14) ownsSign16(pDst, len, pSrc...);
    else if (sf == 0) ownsPower16<Sc::One>(pDst, len, 0, pSrc...);
    else if (sf > 0) ownsPower16<Sc::Right>(pDst, len, sf, pSrc...);
    else ownsPower16<Sc::Left>(pDst, len, -sf, pSrc...);
    return nuvStsOk;
}

// Float phase, times 2^-sf in single precision, rounded to nearest even, saturated.
template <Sc K, class... S>
void ownsPhase16(Nuv16s* pDst, int len, float f, const S*... pSrc) {
    runBlocks<8>(len, [=](Nuv16s* d, const S*... s) {
        const Parts8 p = parts(s...);
        __m256 a = phase(p.re, p.im);
        if constexpr (K == Sc::Scaled) a = vmul(a, _mm256_set1_ps(f));
        put(d, pack16(cvtRneClamp(a, -32768.0f, 32767.0f)));
    }, pDst, pSrc...);
}

template <class... S>
void phase16(Nuv16s* pDst, int len, int sf, const S*... pSrc) {
    if (sf == 0) ownsPhase16<Sc::One>(pDst, len, 1.0f, pSrc...);
    else ownsPhase16<Sc::Scaled>(pDst, len, nuv::pow2f(sf), pSrc...);
}

// Far left scales of the complex 16-bit phase: each element through the arctangent, times 2^-sf in
// single precision, and 0.5 with the sign added before truncation, so ties round away from zero.
void ownsPhase16scFarLeft(const Nuv16sc* pSrc, Nuv16s* pDst, int len, int sf) {
    const float f = nuv::pow2f(sf);
    for (int i = 0; i < len; ++i) {
        const float v = float(std::atan2(double(pSrc[i].im), double(pSrc[i].re))) * f;
        float t = v + std::copysign(0.5f, v);
        t = t < -32768.0f ? -32768.0f : (t > 32767.0f ? 32767.0f : t);
        pDst[i] = Nuv16s(int(t));
    }
}

// ================================================================ 32-bit scaled results

// Four complex 32-bit elements as doubles.
NUV_INLINE Parts4 parts4(const Nuv32sc* p) {
    const __m256i v = _mm256_permutevar8x32_epi32(i256(p), _mm256_setr_epi32(0, 2, 4, 6, 1, 3, 5, 7));
    return {_mm256_cvtepi32_pd(_mm256_castsi256_si128(v)), _mm256_cvtepi32_pd(_mm256_extracti128_si256(v, 1))};
}

// Nonzero elements give the highest value.
void ownsSign32(const Nuv32sc* pSrc, Nuv32s* pDst, int len) {
    runBlocks<4>(len, [](const Nuv32sc* s, Nuv32s* d) {
        const __m256i nz = _mm256_xor_si256(_mm256_cmpeq_epi64(i256(s), _mm256_setzero_si256()), _mm256_set1_epi32(-1));
        const __m256i w = _mm256_permutevar8x32_epi32(_mm256_srli_epi64(nz, 33), _mm256_setr_epi32(0, 2, 4, 6, 0, 2, 4, 6));
        put(d, _mm256_castsi256_si128(w));
    }, pSrc, pDst);
}

// Fused sum of squares in double, square root, then m * 2^-sf + 0.5 fused, truncated; an odd
// integer equal to that sum was a tie and steps down to even.
void ownsMagnitude32sc(const Nuv32sc* pSrc, Nuv32s* pDst, int len, double f) {
    runBlocks<4>(len, [f](const Nuv32sc* s, Nuv32s* d) {
        const Parts4 p = parts4(s);
        const __m256d m = vsqrt(vfma(p.re, p.re, vmul(p.im, p.im)));
        const __m256d t = vfma(m, _mm256_set1_pd(f), _mm256_set1_pd(0.5));
        const __m128i i = _mm256_cvttpd_epi32(_mm256_min_pd(t, _mm256_set1_pd(2147483647.0)));
        const __m256i eq = _mm256_castpd_si256(_mm256_cmp_pd(_mm256_cvtepi32_pd(i), t, _CMP_EQ_OQ));
        const __m128i eq32 = _mm256_castsi256_si128(_mm256_permutevar8x32_epi32(eq, _mm256_setr_epi32(0, 2, 4, 6, 0, 2, 4, 6)));
        const __m128i odd = _mm_srai_epi32(_mm_slli_epi32(i, 31), 31);
        put(d, _mm_add_epi32(i, _mm_and_si128(eq32, odd)));
    }, pSrc, pDst);
}

// Fused sum of squares in double times 2^-sf, rounded to nearest even, limited to the highest value.
void ownsMagSquared32sc(const Nuv32sc* pSrc, Nuv32s* pDst, int len, double f) {
    runBlocks<4>(len, [f](const Nuv32sc* s, Nuv32s* d) {
        const Parts4 p = parts4(s);
        const __m256d v = vmul(vfma(p.re, p.re, vmul(p.im, p.im)), _mm256_set1_pd(f));
        put(d, cvtRneClamp(v, 0.0, 2147483647.0));
    }, pSrc, pDst);
}

template <Sc K>
void ownsPhase32sc(const Nuv32sc* pSrc, Nuv32s* pDst, int len, float f) {
    runBlocks<8>(len, [=](const Nuv32sc* s, Nuv32s* d) {
        const Parts8 p = parts(s);
        __m256 a = phase(p.re, p.im);
        if constexpr (K == Sc::Scaled) a = vmul(a, _mm256_set1_ps(f));
        put(d, unperm(cvtRne32(a)));
    }, pSrc, pDst);
}

// ================================================================ polar to Cartesian

NUV_INLINE void polar(__m256 m, __m256 ph, __m256& re, __m256& im) {
    __m256 s, c;
    sinCos(ph, s, c);
    re = vmul(m, c), im = vmul(m, s);
}
NUV_INLINE void polar(__m256d m, __m256d ph, __m256d& re, __m256d& im) {
    __m256d s, c;
    sinCos(ph, s, c);
    re = vmul(m, c), im = vmul(m, s);
}

template <class T>
NuvStatus polarSplit(const T* pSrcMagn, const T* pSrcPhase, T* pDstRe, T* pDstIm, int len) {
    if (NuvStatus s = nuv::check(len, pSrcMagn, pSrcPhase, pDstRe, pDstIm)) return s;
    runBlocks<32 / sizeof(T)>(len, [](const T* m, const T* ph, T* re, T* im) {
        decltype(vload(m)) r, i;
        polar(vload(m), vload(ph), r, i);
        vstore(re, r), vstore(im, i);
    }, pSrcMagn, pSrcPhase, pDstRe, pDstIm);
    return nuvStsOk;
}

template <class T, class C>
NuvStatus polarCplx(const T* pSrcMagn, const T* pSrcPhase, C* pDst, int len) {
    if (NuvStatus s = nuv::check(len, pSrcMagn, pSrcPhase, pDst)) return s;
    runBlocks<32 / sizeof(T)>(len, [](const T* m, const T* ph, C* d) {
        decltype(vload(m)) r, i;
        polar(vload(m), vload(ph), r, i);
        join(r, i, d);
    }, pSrcMagn, pSrcPhase, pDst);
    return nuvStsOk;
}

// Fixed-point phases with phaseFixedPoint fraction bits; results rounded to nearest even and
// saturated.  16-bit elements run in single precision, 32-bit ones in double.
NuvStatus polarFixed16(const Nuv16s* pSrcMagn, const Nuv16s* pSrcPhase, Nuv16sc* pDst, int len, int pfp) {
    if (NuvStatus s = nuv::check(len, pSrcMagn, pSrcPhase, pDst)) return s;
    if (pfp < 0 || pfp > 15) return nuvStsSize;
    const float f = 1.0f / float(1 << pfp);
    runBlocks<8>(len, [f](const Nuv16s* m, const Nuv16s* ph, Nuv16sc* d) {
        __m256 re, im;
        const __m256 phase = vmul(_mm256_cvtepi32_ps(_mm256_cvtepi16_epi32(i128(ph))), _mm256_set1_ps(f));
        polar(_mm256_cvtepi32_ps(_mm256_cvtepi16_epi32(i128(m))), phase, re, im);
        const __m256i r = cvtRneClamp(re, -32768.0f, 32767.0f), i = cvtRneClamp(im, -32768.0f, 32767.0f);
        put(d, _mm256_packs_epi32(_mm256_unpacklo_epi32(r, i), _mm256_unpackhi_epi32(r, i)));
    }, pSrcMagn, pSrcPhase, pDst);
    return nuvStsOk;
}

NuvStatus polarFixed32(const Nuv32s* pSrcMagn, const Nuv32s* pSrcPhase, Nuv32sc* pDst, int len, int pfp) {
    if (NuvStatus s = nuv::check(len, pSrcMagn, pSrcPhase, pDst)) return s;
    if (pfp < 0 || pfp > 31) return nuvStsSize;
    const double f = 1.0 / double(int64_t(1) << pfp);
    runBlocks<4>(len, [f](const Nuv32s* m, const Nuv32s* ph, Nuv32sc* d) {
        __m256d re, im;
        const __m256d phase = vmul(_mm256_cvtepi32_pd(i128(ph)), _mm256_set1_pd(f));
        polar(_mm256_cvtepi32_pd(i128(m)), phase, re, im);
        const __m128i r = cvtRneClamp(re, -2147483648.0, 2147483647.0), i = cvtRneClamp(im, -2147483648.0, 2147483647.0);
        put(d, _mm_unpacklo_epi32(r, i));
        put(d + 2, _mm_unpackhi_epi32(r, i));
    }, pSrcMagn, pSrcPhase, pDst);
    return nuvStsOk;
}

// Integer phase in radians; magnitude times cosine and sine in double, times 2^-sf, rounded to
// nearest even and saturated, element by element.
NUV_INLINE Nuv16s rneSat16(double v) {
    v = _mm_cvtsd_f64(_mm_round_sd(_mm_setzero_pd(), _mm_set_sd(v), _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC));
    return Nuv16s(v < -32768.0 ? -32768 : (v > 32767.0 ? 32767 : int(v)));
}

NuvStatus polarSfs16(const Nuv16s* pSrcMagn, const Nuv16s* pSrcPhase, Nuv16sc* pDst, int len, int sf) {
    if (NuvStatus s = nuv::check(len, pSrcMagn, pSrcPhase, pDst)) return s;
    // 2^64 already saturates any nonzero product, 2^-1023 rounds every product to 0
    const double f = nuv::pow2d(sf, -64, 1023);
    for (int i = 0; i < len; ++i) {
        const double m = pSrcMagn[i], ph = pSrcPhase[i];
        pDst[i] = {rneSat16(m * std::cos(ph) * f), rneSat16(m * std::sin(ph) * f)};
    }
    return nuvStsOk;
}

}  // namespace

extern "C" {
// ---------------------------------------------------------------- parts, assembly, conjugation
NuvStatus nuvsReal_16sc(const Nuv16sc* pSrc, Nuv16s* pDst, int len) { return part<0>(pSrc, pDst, len); }
NuvStatus nuvsReal_32fc(const Nuv32fc* pSrc, Nuv32f* pDst, int len) { return part<0>(pSrc, pDst, len); }
NuvStatus nuvsReal_64fc(const Nuv64fc* pSrc, Nuv64f* pDst, int len) { return part<0>(pSrc, pDst, len); }
NuvStatus nuvsImag_16sc(const Nuv16sc* pSrc, Nuv16s* pDst, int len) { return part<1>(pSrc, pDst, len); }
NuvStatus nuvsImag_32fc(const Nuv32fc* pSrc, Nuv32f* pDst, int len) { return part<1>(pSrc, pDst, len); }
NuvStatus nuvsImag_64fc(const Nuv64fc* pSrc, Nuv64f* pDst, int len) { return part<1>(pSrc, pDst, len); }
NuvStatus nuvsRealToCplx_16s(const Nuv16s* pSrcRe, const Nuv16s* pSrcIm, Nuv16sc* pDst, int len) { return realToCplx(pSrcRe, pSrcIm, pDst, len); }
NuvStatus nuvsRealToCplx_32f(const Nuv32f* pSrcRe, const Nuv32f* pSrcIm, Nuv32fc* pDst, int len) { return realToCplx(pSrcRe, pSrcIm, pDst, len); }
NuvStatus nuvsRealToCplx_64f(const Nuv64f* pSrcRe, const Nuv64f* pSrcIm, Nuv64fc* pDst, int len) { return realToCplx(pSrcRe, pSrcIm, pDst, len); }
NuvStatus nuvsCplxToReal_16sc(const Nuv16sc* pSrc, Nuv16s* pDstRe, Nuv16s* pDstIm, int len) { return cplxToReal(pSrc, pDstRe, pDstIm, len); }
NuvStatus nuvsCplxToReal_32fc(const Nuv32fc* pSrc, Nuv32f* pDstRe, Nuv32f* pDstIm, int len) { return cplxToReal(pSrc, pDstRe, pDstIm, len); }
NuvStatus nuvsCplxToReal_64fc(const Nuv64fc* pSrc, Nuv64f* pDstRe, Nuv64f* pDstIm, int len) { return cplxToReal(pSrc, pDstRe, pDstIm, len); }
NuvStatus nuvsConj_16sc(const Nuv16sc* pSrc, Nuv16sc* pDst, int len) { return conj(pSrc, pDst, len); }
NuvStatus nuvsConj_16sc_I(Nuv16sc* pSrcDst, int len) { return conjI(pSrcDst, len); }
NuvStatus nuvsConj_32fc(const Nuv32fc* pSrc, Nuv32fc* pDst, int len) { return conj(pSrc, pDst, len); }
NuvStatus nuvsConj_32fc_I(Nuv32fc* pSrcDst, int len) { return conjI(pSrcDst, len); }
NuvStatus nuvsConj_64fc(const Nuv64fc* pSrc, Nuv64fc* pDst, int len) { return conj(pSrc, pDst, len); }
NuvStatus nuvsConj_64fc_I(Nuv64fc* pSrcDst, int len) { return conjI(pSrcDst, len); }
NuvStatus nuvsConjFlip_16sc(const Nuv16sc* pSrc, Nuv16sc* pDst, int len) { return conjFlip(pSrc, pDst, len); }
NuvStatus nuvsConjFlip_32fc(const Nuv32fc* pSrc, Nuv32fc* pDst, int len) { return conjFlip(pSrc, pDst, len); }
NuvStatus nuvsConjFlip_64fc(const Nuv64fc* pSrc, Nuv64fc* pDst, int len) { return conjFlip(pSrc, pDst, len); }

// ---------------------------------------------------------------- modulus and power
NuvStatus nuvsMagnitude_16s32f(const Nuv16s* pSrcRe, const Nuv16s* pSrcIm, Nuv32f* pDst, int len) { return map<OpMagnitude>(pDst, len, pSrcRe, pSrcIm); }
NuvStatus nuvsMagnitude_16s_Sfs(const Nuv16s* pSrcRe, const Nuv16s* pSrcIm, Nuv16s* pDst, int len, int scaleFactor) { return magnitude16(pDst, len, scaleFactor, pSrcRe, pSrcIm); }
NuvStatus nuvsMagnitude_16sc32f(const Nuv16sc* pSrc, Nuv32f* pDst, int len) { return magnitude16To32f(pDst, len, pSrc); }
NuvStatus nuvsMagnitude_16sc_Sfs(const Nuv16sc* pSrc, Nuv16s* pDst, int len, int scaleFactor) { return magnitude16(pDst, len, scaleFactor, pSrc); }
NuvStatus nuvsMagnitude_32f(const Nuv32f* pSrcRe, const Nuv32f* pSrcIm, Nuv32f* pDst, int len) { return map<OpMagnitude>(pDst, len, pSrcRe, pSrcIm); }
NuvStatus nuvsMagnitude_32fc(const Nuv32fc* pSrc, Nuv32f* pDst, int len) { return map<OpMagnitude>(pDst, len, pSrc); }
NuvStatus nuvsMagnitude_64f(const Nuv64f* pSrcRe, const Nuv64f* pSrcIm, Nuv64f* pDst, int len) { return map<OpMagnitude>(pDst, len, pSrcRe, pSrcIm); }
NuvStatus nuvsMagnitude_64fc(const Nuv64fc* pSrc, Nuv64f* pDst, int len) { return map<OpMagnitude>(pDst, len, pSrc); }

NuvStatus nuvsMagnitude_32sc_Sfs(const Nuv32sc* pSrc, Nuv32s* pDst, int len, int scaleFactor) {
    if (NuvStatus s = nuv::check(len, pSrc, pDst)) return s;
    if (scaleFactor < -30) ownsSign32(pSrc, pDst, len);  // a modulus of 1 already saturates
    else ownsMagnitude32sc(pSrc, pDst, len, nuv::pow2d(scaleFactor));
    return nuvStsOk;
}

// Both parts widened to double: fused re*re plus the rounded im*im.
NuvStatus nuvsMagSquared_32fc64f(const Nuv32fc* pSrc, Nuv64f* pDst, int len) {
    if (NuvStatus s = nuv::check(len, pSrc, pDst)) return s;
    runBlocks<4, 2>(len, [](const Nuv32fc* s, Nuv64f* d) {
        const __m256 v = f32(&s->re);
        const __m256d a = _mm256_cvtps_pd(_mm256_castps256_ps128(v)), b = _mm256_cvtps_pd(_mm256_extractf128_ps(v, 1));
        const Parts4 p{_mm256_unpacklo_pd(a, b), _mm256_unpackhi_pd(a, b)};
        vstore(d, unperm(OpPower::f(p)));
    }, pSrc, pDst);
    return nuvStsOk;
}

NuvStatus nuvsMagSquared_32sc32s_Sfs(const Nuv32sc* pSrc, Nuv32s* pDst, int len, int scaleFactor) {
    if (NuvStatus s = nuv::check(len, pSrc, pDst)) return s;
    if (scaleFactor > 63) return nuvsZero_32s(pDst, len);  // the largest sum, 2^63, rounds to 0 from here
    if (scaleFactor < -30) ownsSign32(pSrc, pDst, len);
    else ownsMagSquared32sc(pSrc, pDst, len, nuv::pow2d(scaleFactor));
    return nuvStsOk;
}

NuvStatus nuvsPowerSpectr_16s32f(const Nuv16s* pSrcRe, const Nuv16s* pSrcIm, Nuv32f* pDst, int len) { return map<OpPower>(pDst, len, pSrcRe, pSrcIm); }
NuvStatus nuvsPowerSpectr_16s_Sfs(const Nuv16s* pSrcRe, const Nuv16s* pSrcIm, Nuv16s* pDst, int len, int scaleFactor) { return power16(pDst, len, scaleFactor, pSrcRe, pSrcIm); }
NuvStatus nuvsPowerSpectr_16sc32f(const Nuv16sc* pSrc, Nuv32f* pDst, int len) { return power16To32f(pDst, len, pSrc); }
NuvStatus nuvsPowerSpectr_16sc_Sfs(const Nuv16sc* pSrc, Nuv16s* pDst, int len, int scaleFactor) { return power16(pDst, len, scaleFactor, pSrc); }
NuvStatus nuvsPowerSpectr_32f(const Nuv32f* pSrcRe, const Nuv32f* pSrcIm, Nuv32f* pDst, int len) { return map<OpPower>(pDst, len, pSrcRe, pSrcIm); }
NuvStatus nuvsPowerSpectr_32fc(const Nuv32fc* pSrc, Nuv32f* pDst, int len) { return map<OpPower>(pDst, len, pSrc); }
NuvStatus nuvsPowerSpectr_64f(const Nuv64f* pSrcRe, const Nuv64f* pSrcIm, Nuv64f* pDst, int len) { return map<OpPower>(pDst, len, pSrcRe, pSrcIm); }
NuvStatus nuvsPowerSpectr_64fc(const Nuv64fc* pSrc, Nuv64f* pDst, int len) { return map<OpPower>(pDst, len, pSrc); }

// ---------------------------------------------------------------- phase
NuvStatus nuvsPhase_16s32f(const Nuv16s* pSrcRe, const Nuv16s* pSrcIm, Nuv32f* pDst, int len) { return map<OpPhase>(pDst, len, pSrcRe, pSrcIm); }
NuvStatus nuvsPhase_16sc32f(const Nuv16sc* pSrc, Nuv32f* pDst, int len) { return map<OpPhase>(pDst, len, pSrc); }
NuvStatus nuvsPhase_32f(const Nuv32f* pSrcRe, const Nuv32f* pSrcIm, Nuv32f* pDst, int len) { return map<OpPhase>(pDst, len, pSrcRe, pSrcIm); }
NuvStatus nuvsPhase_32fc(const Nuv32fc* pSrc, Nuv32f* pDst, int len) { return map<OpPhase>(pDst, len, pSrc); }
NuvStatus nuvsPhase_64f(const Nuv64f* pSrcRe, const Nuv64f* pSrcIm, Nuv64f* pDst, int len) { return map<OpPhase>(pDst, len, pSrcRe, pSrcIm); }
NuvStatus nuvsPhase_64fc(const Nuv64fc* pSrc, Nuv64f* pDst, int len) { return map<OpPhase>(pDst, len, pSrc); }

NuvStatus nuvsPhase_16s_Sfs(const Nuv16s* pSrcRe, const Nuv16s* pSrcIm, Nuv16s* pDst, int len, int scaleFactor) {
    if (NuvStatus s = nuv::check(len, pSrcRe, pSrcIm, pDst)) return s;
    phase16(pDst, len, scaleFactor, pSrcRe, pSrcIm);
    return nuvStsOk;
}

// Scales from 2 up zero the output; below -28 the elements run singly with ties away from zero.
NuvStatus nuvsPhase_16sc_Sfs(const Nuv16sc* pSrc, Nuv16s* pDst, int len, int scaleFactor) {
    if (NuvStatus s = nuv::check(len, pSrc, pDst)) return s;
    if (scaleFactor >= 2) return nuvsZero_16s(pDst, len);
    if (scaleFactor < -28) ownsPhase16scFarLeft(pSrc, pDst, len, scaleFactor);
    else phase16(pDst, len, scaleFactor, pSrc);
    return nuvStsOk;
}

NuvStatus nuvsPhase_32sc_Sfs(const Nuv32sc* pSrc, Nuv32s* pDst, int len, int scaleFactor) {
    if (NuvStatus s = nuv::check(len, pSrc, pDst)) return s;
    if (scaleFactor == 0) ownsPhase32sc<Sc::One>(pSrc, pDst, len, 1.0f);
    else ownsPhase32sc<Sc::Scaled>(pSrc, pDst, len, nuv::pow2f(scaleFactor));
    return nuvStsOk;
}

// ---------------------------------------------------------------- Cartesian and polar form
// Magnitude, then Phase on the same sources.  The float forms make both calls and return the first
// nonzero status; the scaled 16-bit form stops after a failed Magnitude.
NuvStatus nuvsCartToPolar_16sc_Sfs(const Nuv16sc* pSrc, Nuv16s* pDstMagn, Nuv16s* pDstPhase, int len, int magnScaleFactor, int phaseScaleFactor) {
    if (NuvStatus s = nuvsMagnitude_16sc_Sfs(pSrc, pDstMagn, len, magnScaleFactor)) return s;
    return nuvsPhase_16sc_Sfs(pSrc, pDstPhase, len, phaseScaleFactor);
}
NuvStatus nuvsCartToPolar_32f(const Nuv32f* pSrcRe, const Nuv32f* pSrcIm, Nuv32f* pDstMagn, Nuv32f* pDstPhase, int len) {
    const NuvStatus m = nuvsMagnitude_32f(pSrcRe, pSrcIm, pDstMagn, len);
    const NuvStatus p = nuvsPhase_32f(pSrcRe, pSrcIm, pDstPhase, len);
    return m ? m : p;
}
NuvStatus nuvsCartToPolar_32fc(const Nuv32fc* pSrc, Nuv32f* pDstMagn, Nuv32f* pDstPhase, int len) {
    const NuvStatus m = nuvsMagnitude_32fc(pSrc, pDstMagn, len);
    const NuvStatus p = nuvsPhase_32fc(pSrc, pDstPhase, len);
    return m ? m : p;
}
NuvStatus nuvsCartToPolar_64f(const Nuv64f* pSrcRe, const Nuv64f* pSrcIm, Nuv64f* pDstMagn, Nuv64f* pDstPhase, int len) {
    const NuvStatus m = nuvsMagnitude_64f(pSrcRe, pSrcIm, pDstMagn, len);
    const NuvStatus p = nuvsPhase_64f(pSrcRe, pSrcIm, pDstPhase, len);
    return m ? m : p;
}
NuvStatus nuvsCartToPolar_64fc(const Nuv64fc* pSrc, Nuv64f* pDstMagn, Nuv64f* pDstPhase, int len) {
    const NuvStatus m = nuvsMagnitude_64fc(pSrc, pDstMagn, len);
    const NuvStatus p = nuvsPhase_64fc(pSrc, pDstPhase, len);
    return m ? m : p;
}

NuvStatus nuvsPolarToCart_16sc(const Nuv16s* pSrcMagn, const Nuv16s* pSrcPhase, Nuv16sc* pDst, int len, int phaseFixedPoint) { return polarFixed16(pSrcMagn, pSrcPhase, pDst, len, phaseFixedPoint); }
NuvStatus nuvsPolarToCart_16sc_Sfs(const Nuv16s* pSrcMagn, const Nuv16s* pSrcPhase, Nuv16sc* pDst, int len, int scaleFactor) { return polarSfs16(pSrcMagn, pSrcPhase, pDst, len, scaleFactor); }
NuvStatus nuvsPolarToCart_32f(const Nuv32f* pSrcMagn, const Nuv32f* pSrcPhase, Nuv32f* pDstRe, Nuv32f* pDstIm, int len) { return polarSplit(pSrcMagn, pSrcPhase, pDstRe, pDstIm, len); }
NuvStatus nuvsPolarToCart_32fc(const Nuv32f* pSrcMagn, const Nuv32f* pSrcPhase, Nuv32fc* pDst, int len) { return polarCplx(pSrcMagn, pSrcPhase, pDst, len); }
NuvStatus nuvsPolarToCart_32sc(const Nuv32s* pSrcMagn, const Nuv32s* pSrcPhase, Nuv32sc* pDst, int len, int phaseFixedPoint) { return polarFixed32(pSrcMagn, pSrcPhase, pDst, len, phaseFixedPoint); }
NuvStatus nuvsPolarToCart_64f(const Nuv64f* pSrcMagn, const Nuv64f* pSrcPhase, Nuv64f* pDstRe, Nuv64f* pDstIm, int len) { return polarSplit(pSrcMagn, pSrcPhase, pDstRe, pDstIm, len); }
NuvStatus nuvsPolarToCart_64fc(const Nuv64f* pSrcMagn, const Nuv64f* pSrcPhase, Nuv64fc* pDst, int len) { return polarCplx(pSrcMagn, pSrcPhase, pDst, len); }
}

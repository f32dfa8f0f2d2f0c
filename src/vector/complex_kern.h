// Complex and polar: the loop driver, the complex layouts and the per-register element steps.
#pragma once
#include <immintrin.h>

#include <cmath>
#include <cstddef>
#include <cstring>
#include <tuple>
#include <type_traits>
#include <utility>

#include "frame/simd.h"
#include "nuvs.h"

namespace nuv::cplx {

// ---------------------------------------------------------------- loop driver
// Runs `f(p + i...)` on every full step of N elements (U steps per turn of the main loop).  The
// last partial step runs the same `f` on zero-padded copies, so a remainder element gets exactly
// the bits that a vector lane would give it; arrays that are not const are copied back.
template <class T, int N>
struct alignas(32) Pad {
    T v[N];
};

template <int N, class F, class... P, size_t... I>
[[gnu::noinline]] void tailPadded(int n, F& f, std::index_sequence<I...>, P*... p) {
    std::tuple<Pad<std::remove_const_t<P>, N>...> t{};
    (std::memcpy(static_cast<void*>(std::get<I>(t).v), p, size_t(n) * sizeof(P)), ...);
    f(static_cast<P*>(std::get<I>(t).v)...);
    auto out = [&]<size_t K, class Q>(Q* q) {
        if constexpr (!std::is_const_v<Q>) std::memcpy(static_cast<void*>(q), std::get<K>(t).v, size_t(n) * sizeof(Q));
    };
    (out.template operator()<I>(p), ...);
}

template <int N, int U = 1, class F, class... P>
NUV_INLINE void runBlocks(int len, F&& f, P*... p) {
    int i = 0;
    if constexpr (U > 1) {
        for (; i + N * U <= len; i += N * U) {
#pragma GCC unroll 4
            for (int u = 0; u < U; ++u) f((p + i + u * N)...);
        }
    }
    for (; i + N <= len; i += N) f((p + i)...);
    if (i < len) tailPadded<N>(len - i, f, std::index_sequence_for<P...>{}, (p + i)...);
}

// ---------------------------------------------------------------- layouts
NUV_INLINE __m256 f32(const float* p) { return _mm256_loadu_ps(p); }
NUV_INLINE __m256d f64(const double* p) { return _mm256_loadu_pd(p); }
NUV_INLINE __m256i i256(const void* p) { return _mm256_loadu_si256(static_cast<const __m256i*>(p)); }
NUV_INLINE __m128i i128(const void* p) { return _mm_loadu_si128(static_cast<const __m128i*>(p)); }
NUV_INLINE void put(void* p, __m256i v) { _mm256_storeu_si256(static_cast<__m256i*>(p), v); }
NUV_INLINE void put(void* p, __m128i v) { _mm_storeu_si128(static_cast<__m128i*>(p), v); }

// 64-bit quarters (0, 2, 1, 3) back to (0, 1, 2, 3): undoes the in-lane deinterleave order.
NUV_INLINE __m256 unperm(__m256 v) { return _mm256_castpd_ps(_mm256_permute4x64_pd(_mm256_castps_pd(v), 0xD8)); }
NUV_INLINE __m256d unperm(__m256d v) { return _mm256_permute4x64_pd(v, 0xD8); }
NUV_INLINE __m256i unperm(__m256i v) { return _mm256_permute4x64_epi64(v, 0xD8); }

// Real and imaginary parts of a step of complex elements.  Interleaved sources come out in the
// lane order 0 1 4 5 2 3 6 7 (floats) or 0 2 1 3 (doubles), which `Permuted` marks: element-wise
// work runs in that order and the result is put back in order once, by `unperm`.
struct Parts8 {
    __m256 re, im;
};
struct Parts4 {
    __m256d re, im;
};

NUV_INLINE Parts8 parts(const Nuv32fc* p) {
    const __m256 a = f32(&p[0].re), b = f32(&p[4].re);
    return {_mm256_shuffle_ps(a, b, 0x88), _mm256_shuffle_ps(a, b, 0xDD)};
}
NUV_INLINE Parts8 parts(const Nuv32f* re, const Nuv32f* im) { return {f32(re), f32(im)}; }
NUV_INLINE Parts4 parts(const Nuv64fc* p) {
    const __m256d a = f64(&p[0].re), b = f64(&p[2].re);
    return {_mm256_unpacklo_pd(a, b), _mm256_unpackhi_pd(a, b)};
}
NUV_INLINE Parts4 parts(const Nuv64f* re, const Nuv64f* im) { return {f64(re), f64(im)}; }
// 16-bit sources convert exactly to float.
NUV_INLINE Parts8 parts(const Nuv16sc* p) {
    const __m256i v = i256(p);
    return {_mm256_cvtepi32_ps(_mm256_srai_epi32(_mm256_slli_epi32(v, 16), 16)),
            _mm256_cvtepi32_ps(_mm256_srai_epi32(v, 16))};
}
NUV_INLINE Parts8 parts(const Nuv16s* re, const Nuv16s* im) {
    return {_mm256_cvtepi32_ps(_mm256_cvtepi16_epi32(i128(re))), _mm256_cvtepi32_ps(_mm256_cvtepi16_epi32(i128(im)))};
}
// 32-bit integer parts round to the nearest float.
NUV_INLINE Parts8 parts(const Nuv32sc* p) {
    const __m256 a = _mm256_castsi256_ps(i256(&p[0])), b = _mm256_castsi256_ps(i256(&p[4]));
    return {_mm256_cvtepi32_ps(_mm256_castps_si256(_mm256_shuffle_ps(a, b, 0x88))),
            _mm256_cvtepi32_ps(_mm256_castps_si256(_mm256_shuffle_ps(a, b, 0xDD)))};
}

template <class... S> inline constexpr bool Permuted = false;
template <> inline constexpr bool Permuted<Nuv32fc> = true;
template <> inline constexpr bool Permuted<Nuv64fc> = true;
template <> inline constexpr bool Permuted<Nuv32sc> = true;
template <class... S> inline constexpr int StepOf = 8;
template <> inline constexpr int StepOf<Nuv64fc> = 4;
template <> inline constexpr int StepOf<Nuv64f, Nuv64f> = 4;

template <class... S, class V>
NUV_INLINE V inOrder(V v) {
    if constexpr (Permuted<S...>) return unperm(v);
    else return v;
}

// Exact sums re*re + im*im of 16-bit parts, eight at a time, as unsigned 32-bit words (only
// -32768 and -32768 reach 2^31).
NUV_INLINE __m256i sumSq(const Nuv16sc* p) {
    const __m256i v = i256(p);
    return _mm256_madd_epi16(v, v);
}
NUV_INLINE __m256i sumSq(const Nuv16s* re, const Nuv16s* im) {
    const __m128i r = i128(re), i = i128(im);
    const __m256i v = _mm256_set_m128i(_mm_unpackhi_epi16(r, i), _mm_unpacklo_epi16(r, i));
    return _mm256_madd_epi16(v, v);
}
// Unsigned 32-bit words to double, four each half: 2^31 comes out of the signed conversion as
// -2^31, the only negative value, so clearing the sign bit is the whole correction.
NUV_INLINE __m256d u32lo(__m256i v) {
    return _mm256_andnot_pd(_mm256_set1_pd(-0.0), _mm256_cvtepi32_pd(_mm256_castsi256_si128(v)));
}
NUV_INLINE __m256d u32hi(__m256i v) {
    return _mm256_andnot_pd(_mm256_set1_pd(-0.0), _mm256_cvtepi32_pd(_mm256_extracti128_si256(v, 1)));
}
NUV_INLINE __m256 u32f(__m256i v) { return _mm256_andnot_ps(_mm256_set1_ps(-0.0f), _mm256_cvtepi32_ps(v)); }

// Rounds to nearest even and converts, saturating at the 32-bit limits: the conversion gives
// 0x80000000 for anything out of range, which the mask turns into 0x7FFFFFFF above the range.
NUV_INLINE __m256i cvtRne32(__m256 v) {
    const __m256i r = _mm256_cvttps_epi32(_mm256_round_ps(v, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC));
    return _mm256_xor_si256(r, _mm256_castps_si256(_mm256_cmp_ps(v, _mm256_set1_ps(2147483648.0f), _CMP_GE_OQ)));
}
// Rounds to nearest even within [lo, hi], which are integers the destination holds.
NUV_INLINE __m256i cvtRneClamp(__m256 v, float lo, float hi) {
    v = _mm256_min_ps(_mm256_max_ps(v, _mm256_set1_ps(lo)), _mm256_set1_ps(hi));
    return _mm256_cvttps_epi32(_mm256_round_ps(v, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC));
}
NUV_INLINE __m128i cvtRneClamp(__m256d v, double lo, double hi) {
    v = _mm256_min_pd(_mm256_max_pd(v, _mm256_set1_pd(lo)), _mm256_set1_pd(hi));
    return _mm256_cvttpd_epi32(_mm256_round_pd(v, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC));
}
// Eight 32-bit words to eight 16-bit words with signed saturation.
NUV_INLINE __m128i pack16(__m256i v) {
    return _mm_packs_epi32(_mm256_castsi256_si128(v), _mm256_extracti128_si256(v, 1));
}

// ---------------------------------------------------------------- phase, single precision
// Rational arctangent on [0, 1] with the quadrant fix-ups.  Magnitudes are compared as integers;
// a zero larger part becomes 2.0 so that 0/0 gives 0.  Reciprocals are the approximate ones,
// refined once by r * (2 - h*r).  Every step is rounded on its own.
NUV_INLINE __m256 refinedRcp(__m256 h) {
    const __m256 r = _mm256_rcp_ps(h);
    return _mm256_mul_ps(r, _mm256_sub_ps(_mm256_set1_ps(2.0f), _mm256_mul_ps(h, r)));
}

NUV_INLINE __m256 phase(__m256 x, __m256 y) {
    using S = Simd<float>;
    const __m256i absMask = _mm256_set1_epi32(0x7FFFFFFF);
    const __m256i ax = _mm256_and_si256(_mm256_castps_si256(x), absMask);
    const __m256i ay = _mm256_and_si256(_mm256_castps_si256(y), absMask);
    const __m256i yLarger = _mm256_cmpgt_epi32(ay, ax);
    const __m256i hiBits = _mm256_blendv_epi8(ax, ay, yLarger);
    const __m256 lo = _mm256_castsi256_ps(_mm256_blendv_epi8(ay, ax, yLarger));
    const __m256 hiZero = _mm256_castsi256_ps(_mm256_cmpeq_epi32(hiBits, _mm256_setzero_si256()));
    const __m256 hi = S::blendv(_mm256_castsi256_ps(hiBits), S::set1(2.0f), hiZero);

    const __m256 t = S::mul(lo, refinedRcp(hi));
    const __m256 u = S::mul(t, t);
    const __m256 one = S::set1(1.0f);
    __m256 n = S::add(S::mul(S::set1(0.008561189f), u), S::set1(0.28050455f));
    n = S::add(S::mul(n, u), S::set1(1.1202340f));
    n = S::mul(t, S::add(S::mul(n, u), one));
    __m256 d = S::add(S::mul(S::set1(0.049017590f), u), S::set1(0.56503099f));
    d = S::add(S::mul(d, u), S::set1(1.4535671f));
    d = S::add(S::mul(d, u), one);
    __m256 a = S::mul(n, refinedRcp(d));

    a = S::blendv(a, S::sub(S::set1(1.5707964f), a), _mm256_castsi256_ps(yLarger));
    a = S::blendv(a, S::sub(S::set1(3.1415927f), a), x);  // sign bit of the real part
    return S::or_(a, S::and_(y, S::signMask()));
}

// ---------------------------------------------------------------- phase, double precision
// Same shape with a division and an accurate arctangent on [0, 1]: t is moved to the nearest
// quarter c, atan t = atan c + atan((t - c) / (1 + t c)), and |v| <= 1/8 leaves an odd series
// whose remainder is below 2^-63.
inline constexpr double kAtanQuarter[5] = {0.0, 0.24497866312686415417, 0.46364760900080611621,
                                           0.64350110879328438680, 0.78539816339744830962};

NUV_INLINE __m256d phase(__m256d x, __m256d y) {
    using D = Simd<double>;
    const __m256i absMask = _mm256_set1_epi64x(0x7FFFFFFFFFFFFFFF);
    const __m256i ax = _mm256_and_si256(_mm256_castpd_si256(x), absMask);
    const __m256i ay = _mm256_and_si256(_mm256_castpd_si256(y), absMask);
    const __m256i yLarger = _mm256_cmpgt_epi64(ay, ax);
    const __m256i hiBits = _mm256_blendv_epi8(ax, ay, yLarger);
    const __m256d lo = _mm256_castsi256_pd(_mm256_blendv_epi8(ay, ax, yLarger));
    const __m256d hiZero = _mm256_castsi256_pd(_mm256_cmpeq_epi64(hiBits, _mm256_setzero_si256()));
    const __m256d hi = D::blendv(_mm256_castsi256_pd(hiBits), D::set1(2.0), hiZero);
    const __m256d t = D::div(lo, hi);

    const __m256d j = _mm256_round_pd(D::mul(t, D::set1(4.0)), _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC);
    __m128i idx = _mm256_cvttpd_epi32(j);  // NaN gives 0x80000000: kept inside the table
    idx = _mm_min_epi32(_mm_max_epi32(idx, _mm_setzero_si128()), _mm_set1_epi32(4));
    const __m256d atanC = _mm256_mask_i32gather_pd(D::zero(), kAtanQuarter, idx, _mm256_castsi256_pd(_mm256_set1_epi64x(-1)), 8);
    const __m256d c = D::mul(j, D::set1(0.25));
    const __m256d v = D::div(D::sub(t, c), D::fma(t, c, D::set1(1.0)));
    const __m256d w = D::mul(v, v);
    __m256d p = D::set1(1.0 / 19);
    p = D::fma(p, w, D::set1(-1.0 / 17));
    p = D::fma(p, w, D::set1(1.0 / 15));
    p = D::fma(p, w, D::set1(-1.0 / 13));
    p = D::fma(p, w, D::set1(1.0 / 11));
    p = D::fma(p, w, D::set1(-1.0 / 9));
    p = D::fma(p, w, D::set1(1.0 / 7));
    p = D::fma(p, w, D::set1(-1.0 / 5));
    p = D::fma(p, w, D::set1(1.0 / 3));
    __m256d a = D::add(atanC, D::fnma(D::mul(v, w), p, v));

    a = D::blendv(a, D::sub(D::set1(1.5707963267948966), a), _mm256_castsi256_pd(yLarger));
    a = D::blendv(a, D::sub(D::set1(3.141592653589793), a), x);
    return D::or_(a, D::and_(y, D::signMask()));
}

// ---------------------------------------------------------------- sine and cosine, single precision
// k = phase/pi to nearest for the sine; for the cosine the nearest half-integer, trunc(phase/pi)
// plus 0.5 with the sign of the phase, since cos x = sin(x + pi/2).  Both reduce in five steps
// by pieces of pi (each product exact for moderate k), run the same odd polynomial, and take the
// sign from the parity of their integer.
NUV_INLINE __m256 reducePi(__m256 x, __m256 k) {
    using S = Simd<float>;
    __m256 r = S::sub(x, S::mul(k, S::set1(3.140625f)));
    r = S::sub(r, S::mul(k, S::set1(0.00096750259f)));
    r = S::sub(r, S::mul(k, S::set1(1.5099067e-07f)));
    r = S::sub(r, S::mul(k, _mm256_castsi256_ps(_mm256_set1_epi32(0x2CB40000))));
    return S::sub(r, S::mul(k, _mm256_castsi256_ps(_mm256_set1_epi32(0x284234C4))));
}
NUV_INLINE __m256 sinPoly(__m256 r) {
    using S = Simd<float>;
    const __m256 s = S::mul(r, r);
    __m256 p = S::sub(S::mul(S::set1(2.6300338e-06f), s), S::set1(0.00019820665f));
    p = S::add(S::mul(p, s), S::set1(0.0083332155f));
    p = S::sub(S::mul(p, s), S::set1(0.16666666f));
    return S::add(r, S::mul(S::mul(s, r), p));
}
NUV_INLINE void sinCos(__m256 x, __m256& sn, __m256& cs) {
    using S = Simd<float>;
    const __m256 y = S::mul(x, S::set1(0.31830987f));
    const __m256 ks = _mm256_round_ps(y, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC);
    const __m256 half = S::or_(S::and_(x, S::signMask()), S::set1(0.5f));
    const __m256 kc = S::add(_mm256_round_ps(y, _MM_FROUND_TO_ZERO | _MM_FROUND_NO_EXC), half);
    const __m256i ps = _mm256_slli_epi32(_mm256_cvttps_epi32(ks), 31);
    const __m256i pc = _mm256_slli_epi32(_mm256_cvttps_epi32(S::add(kc, S::set1(0.5f))), 31);
    sn = S::xor_(sinPoly(reducePi(x, ks)), _mm256_castsi256_ps(ps));
    cs = S::xor_(sinPoly(reducePi(x, kc)), _mm256_castsi256_ps(pc));
}

// ---------------------------------------------------------------- sine and cosine, double precision
// Angles from this size on leave the three-piece reduction below (it keeps full precision while
// k stays well inside 2^31, which also bounds the quadrant conversion); their lanes are redone
// with the C library's sine and cosine, which reduce exactly.
inline constexpr double kReduceLimit = 2147483648.0;

[[gnu::noinline]] inline void sinCosWide(__m256d x, __m256d& sn, __m256d& cs, int lanes) {
    alignas(32) double xs[4], s[4], c[4];
    _mm256_store_pd(xs, x);
    _mm256_store_pd(s, sn);
    _mm256_store_pd(c, cs);
    for (int i = 0; i < 4; ++i)
        if (lanes >> i & 1) s[i] = std::sin(xs[i]), c[i] = std::cos(xs[i]);
    sn = _mm256_load_pd(s);
    cs = _mm256_load_pd(c);
}

// k = x * 2/pi to nearest, r = x - k pi/2 in three fused steps, Taylor polynomials on |r| <= pi/4
// (remainders below 2^-62), quadrant k mod 4 picks and signs them.
NUV_INLINE void sinCos(__m256d x, __m256d& sn, __m256d& cs) {
    using D = Simd<double>;
    const __m256d k = _mm256_round_pd(D::mul(x, D::set1(0.63661977236758134308)),
                                      _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC);
    __m256d r = D::fnma(k, D::set1(1.5707963267948966), x);
    r = D::fnma(k, D::set1(6.123233995736766e-17), r);
    r = D::fnma(k, D::set1(-1.4973849048591698e-33), r);
    const __m256d w = D::mul(r, r);
    constexpr double f3 = 6, f5 = f3 * 20, f7 = f5 * 42, f9 = f7 * 72, f11 = f9 * 110, f13 = f11 * 156,
                     f15 = f13 * 210, f17 = f15 * 272;
    __m256d ps = D::set1(1 / f17);
    ps = D::fma(ps, w, D::set1(-1 / f15));
    ps = D::fma(ps, w, D::set1(1 / f13));
    ps = D::fma(ps, w, D::set1(-1 / f11));
    ps = D::fma(ps, w, D::set1(1 / f9));
    ps = D::fma(ps, w, D::set1(-1 / f7));
    ps = D::fma(ps, w, D::set1(1 / f5));
    ps = D::fma(ps, w, D::set1(-1 / f3));
    const __m256d s = D::fma(D::mul(r, w), ps, r);
    constexpr double f2 = 2, f4 = 24, f6 = f4 * 30, f8 = f6 * 56, f10 = f8 * 90, f12 = f10 * 132, f14 = f12 * 182,
                     f16 = f14 * 240, f18 = f16 * 306;
    __m256d pc = D::set1(-1 / f18);
    pc = D::fma(pc, w, D::set1(1 / f16));
    pc = D::fma(pc, w, D::set1(-1 / f14));
    pc = D::fma(pc, w, D::set1(1 / f12));
    pc = D::fma(pc, w, D::set1(-1 / f10));
    pc = D::fma(pc, w, D::set1(1 / f8));
    pc = D::fma(pc, w, D::set1(-1 / f6));
    pc = D::fma(pc, w, D::set1(1 / f4));
    pc = D::fma(pc, w, D::set1(-1 / f2));
    const __m256d c = D::fma(w, pc, D::set1(1.0));

    const __m256i q = _mm256_cvtepi32_epi64(_mm256_cvttpd_epi32(k));
    const __m256d odd = _mm256_castsi256_pd(_mm256_slli_epi64(q, 63));
    const __m256d sinSign = _mm256_castsi256_pd(_mm256_slli_epi64(_mm256_srli_epi64(q, 1), 63));
    const __m256d cosSign =
        _mm256_castsi256_pd(_mm256_slli_epi64(_mm256_srli_epi64(_mm256_add_epi64(q, _mm256_set1_epi64x(1)), 1), 63));
    sn = D::xor_(D::blendv(s, c, odd), sinSign);
    cs = D::xor_(D::blendv(c, s, odd), cosSign);
    const int wide = _mm256_movemask_pd(D::template cmp<_CMP_GE_OQ>(D::abs(x), D::set1(kReduceLimit)));
    if (__builtin_expect(wide != 0, 0)) sinCosWide(x, sn, cs, wide);
}

}  // namespace nuv::cplx

// Threshold family kernels: lane vocabularies, the per-element rules, and the real and complex loops.
//
// Every rule is written once against a vocabulary `O` and instantiated twice: over AVX2 lanes for the
// vector part and over single elements for peels and tails.  The two vocabularies give identical bits
// per element (`max(a, b)` is `a > b ? a : b` in both, the instruction's own operand rule), so the
// split between vector and single elements never shows in a result.
#pragma once
#include <immintrin.h>

#include <cfloat>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <type_traits>

#include "frame/block.h"
#include "frame/simd.h"
#include "nuvs.h"

namespace nuv::thr {

// ------------------------------------------------------------------------------------------------
// Vocabularies.  Masks are whole lanes (vectors) or bool (single elements); blend(a, b, m) is m ? b : a.

template <class T>
struct One {
    using V = T;
    using M = bool;
    NUV_INLINE static V set1(T x) { return x; }
    NUV_INLINE static V max(V a, V b) { return a > b ? a : b; }
    NUV_INLINE static V min(V a, V b) { return a < b ? a : b; }
    NUV_INLINE static V blend(V a, V b, M m) { return m ? b : a; }
    NUV_INLINE static M lt(V a, V b) { return a < b; }
    NUV_INLINE static M gt(V a, V b) { return a > b; }
    NUV_INLINE static M notGe(V a, V b) { return !(a >= b); }   // true for NaN
    NUV_INLINE static M notLe(V a, V b) { return !(a <= b); }   // true for NaN
    NUV_INLINE static M nonNeg(V x) { return x >= T(0); }         // -0.0 counts as not below 0
    NUV_INLINE static M absLt(V x, V level) {
        if constexpr (std::is_integral_v<T>) return std::abs(int64_t(x)) < int64_t(level);
        else return std::fabs(x) < level;
    }
    NUV_INLINE static V abs(V x) { return std::fabs(x); }
    NUV_INLINE static V withSignOf(V mag, V x) { return std::copysign(mag, x); }
    NUV_INLINE static V recip(V d) { return T(1) / d; }
};

template <class F>
struct FloatLanes {
    using S = Simd<F>;
    using V = typename S::V;
    using M = V;
    static constexpr int N = S::N;
    NUV_INLINE static V load(const F* p) { return S::load(p); }
    NUV_INLINE static void store(F* p, V v) { S::store(p, v); }
    NUV_INLINE static V set1(F x) { return S::set1(x); }
    NUV_INLINE static V max(V a, V b) { return S::max(a, b); }
    NUV_INLINE static V min(V a, V b) { return S::min(a, b); }
    NUV_INLINE static V blend(V a, V b, M m) { return S::blendv(a, b, m); }
    NUV_INLINE static M lt(V a, V b) { return S::template cmp<_CMP_LT_OQ>(a, b); }
    NUV_INLINE static M gt(V a, V b) { return S::template cmp<_CMP_GT_OQ>(a, b); }
    NUV_INLINE static M notGe(V a, V b) { return S::template cmp<_CMP_NGE_UQ>(a, b); }
    NUV_INLINE static M notLe(V a, V b) { return S::template cmp<_CMP_NLE_UQ>(a, b); }
    NUV_INLINE static M nonNeg(V x) { return S::template cmp<_CMP_GE_OQ>(x, S::zero()); }
    NUV_INLINE static M absLt(V x, V level) { return lt(S::abs(x), level); }
    NUV_INLINE static V abs(V x) { return S::abs(x); }
    NUV_INLINE static V withSignOf(V mag, V x) { return S::or_(mag, S::and_(x, S::signMask())); }
    NUV_INLINE static V recip(V d) { return S::div(S::set1(F(1)), d); }
};

template <class T> struct Lanes;
template <> struct Lanes<float> : FloatLanes<float> {};
template <> struct Lanes<double> : FloatLanes<double> {};

// Four floats in an SSE register: the block and tail of the LTAbs_32f loop.
struct Lanes4f {
    using V = __m128;
    using M = __m128;
    static constexpr int N = 4;
    NUV_INLINE static V load(const float* p) { return _mm_loadu_ps(p); }
    NUV_INLINE static void store(float* p, V v) { _mm_storeu_ps(p, v); }
    NUV_INLINE static V set1(float x) { return _mm_set1_ps(x); }
    NUV_INLINE static V blend(V a, V b, M m) { return _mm_blendv_ps(a, b, m); }
    NUV_INLINE static M nonNeg(V x) { return _mm_cmp_ps(x, _mm_setzero_ps(), _CMP_GE_OQ); }
    NUV_INLINE static M absLt(V x, V level) {
        return _mm_cmp_ps(_mm_andnot_ps(_mm_set1_ps(-0.0f), x), level, _CMP_LT_OQ);
    }
};

// Signed integer lanes.  The absolute value of the most negative element wraps to itself in the
// instruction; taken as unsigned and limited to the type's maximum it is never below a level, which
// is the exact answer since every accepted level fits the type.
template <class I, class Ops>
struct IntLanes {
    using V = __m256i;
    using M = __m256i;
    static constexpr int N = 32 / int(sizeof(I));
    NUV_INLINE static V load(const I* p) { return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p)); }
    NUV_INLINE static void store(I* p, V v) { _mm256_storeu_si256(reinterpret_cast<__m256i*>(p), v); }
    NUV_INLINE static V set1(I x) { return Ops::set1(x); }
    NUV_INLINE static V max(V a, V b) { return Ops::max(a, b); }
    NUV_INLINE static V min(V a, V b) { return Ops::min(a, b); }
    NUV_INLINE static V blend(V a, V b, M m) { return _mm256_blendv_epi8(a, b, m); }
    NUV_INLINE static M lt(V a, V b) { return Ops::gt(b, a); }
    NUV_INLINE static M gt(V a, V b) { return Ops::gt(a, b); }
    NUV_INLINE static M notGe(V a, V b) { return Ops::gt(b, a); }
    NUV_INLINE static M notLe(V a, V b) { return Ops::gt(a, b); }
    NUV_INLINE static M nonNeg(V x) { return Ops::gt(x, Ops::set1(I(-1))); }
    NUV_INLINE static M absLt(V x, V level) {
        V a = Ops::minu(Ops::abs(x), Ops::set1(std::numeric_limits<I>::max()));
        return Ops::gt(level, a);
    }
};

struct Ops16 {
    NUV_INLINE static __m256i set1(int16_t x) { return _mm256_set1_epi16(x); }
    NUV_INLINE static __m256i max(__m256i a, __m256i b) { return _mm256_max_epi16(a, b); }
    NUV_INLINE static __m256i min(__m256i a, __m256i b) { return _mm256_min_epi16(a, b); }
    NUV_INLINE static __m256i minu(__m256i a, __m256i b) { return _mm256_min_epu16(a, b); }
    NUV_INLINE static __m256i gt(__m256i a, __m256i b) { return _mm256_cmpgt_epi16(a, b); }
    NUV_INLINE static __m256i abs(__m256i a) { return _mm256_abs_epi16(a); }
};
struct Ops32 {
    NUV_INLINE static __m256i set1(int32_t x) { return _mm256_set1_epi32(x); }
    NUV_INLINE static __m256i max(__m256i a, __m256i b) { return _mm256_max_epi32(a, b); }
    NUV_INLINE static __m256i min(__m256i a, __m256i b) { return _mm256_min_epi32(a, b); }
    NUV_INLINE static __m256i minu(__m256i a, __m256i b) { return _mm256_min_epu32(a, b); }
    NUV_INLINE static __m256i gt(__m256i a, __m256i b) { return _mm256_cmpgt_epi32(a, b); }
    NUV_INLINE static __m256i abs(__m256i a) { return _mm256_abs_epi32(a); }
};
template <> struct Lanes<int16_t> : IntLanes<int16_t, Ops16> {};
template <> struct Lanes<int32_t> : IntLanes<int32_t, Ops32> {};

// ------------------------------------------------------------------------------------------------
// Rules for real elements.  k[] holds the rule's constants, broadcast for vectors:
//   LT, GT, LTInv: k0 = level;  LTVal, GTVal: k0 = level, k1 = value;
//   LTAbs, GTAbs: k0 = level, k1 = -level;  LTValGTVal: k0 = levelLT, k1 = valueLT, k2 = levelGT, k3 = valueGT.

template <class O> using Vof = typename O::V;

// The larger of x and level; max keeps its second operand on NaN, so NaN gives level.
struct RuleLT {
    template <class O> NUV_INLINE static Vof<O> apply(Vof<O> x, const Vof<O>* k) { return O::max(x, k[0]); }
};
// The smaller of x and level; NaN gives level.
struct RuleGT {
    template <class O> NUV_INLINE static Vof<O> apply(Vof<O> x, const Vof<O>* k) { return O::min(x, k[0]); }
};
// x where level <= x (equal elements are kept), else value; NaN gives value.
struct RuleLTVal {
    template <class O> NUV_INLINE static Vof<O> apply(Vof<O> x, const Vof<O>* k) {
        return O::blend(x, k[1], O::notGe(x, k[0]));
    }
};
// x where x <= level, else value; NaN gives value.
struct RuleGTVal {
    template <class O> NUV_INLINE static Vof<O> apply(Vof<O> x, const Vof<O>* k) {
        return O::blend(x, k[1], O::notLe(x, k[0]));
    }
};
// |x| below level: level for x >= 0 (so -0.0 gives +level), -level for x < 0; else x; NaN stays NaN.
struct RuleLTAbs {
    template <class O> NUV_INLINE static Vof<O> apply(Vof<O> x, const Vof<O>* k) {
        Vof<O> raised = O::blend(k[1], k[0], O::nonNeg(x));
        return O::blend(x, raised, O::absLt(x, k[0]));
    }
};
// min(x, level) then the larger of -level and that; NaN gives level.  -level goes first so that a
// tie keeps the clipped value: at level 0 a NaN or positive element gives +0, not -0.
struct RuleGTAbs {
    template <class O> NUV_INLINE static Vof<O> apply(Vof<O> x, const Vof<O>* k) {
        return O::max(k[1], O::min(x, k[0]));
    }
};
// Below levelLT: valueLT; above levelGT: valueGT; else x.  Both tests are false for NaN, so a NaN
// element passes through unchanged.
struct RuleLTValGTVal {
    template <class O> NUV_INLINE static Vof<O> apply(Vof<O> x, const Vof<O>* k) {
        Vof<O> r = O::blend(x, k[1], O::lt(x, k[0]));
        return O::blend(r, k[3], O::gt(x, k[2]));
    }
};
// 1 / (sign(x) * max(level, |x|)): the magnitude goes first in max only where it is NaN, so NaN stays
// NaN.  The sign is restored from the sign bit, so -0.0 gives -1/level (and -inf for level 0).
struct RuleLTInv {
    template <class O> NUV_INLINE static Vof<O> apply(Vof<O> x, const Vof<O>* k) {
        return O::recip(O::withSignOf(O::max(k[0], O::abs(x)), x));
    }
};

// Blocking per element type.  32f follows the loop of Add_32f; the others are this family's own.
template <class T> struct RealPlan;
template <> struct RealPlan<float> { static constexpr BlockPlan plan = kPlan4B; };
template <> struct RealPlan<double> { static constexpr BlockPlan plan = kPlan8B; };
template <> struct RealPlan<int16_t> { static constexpr BlockPlan plan{16, 97, 32, 16}; };
template <> struct RealPlan<int32_t> { static constexpr BlockPlan plan{8, 57, 16, 8}; };
// LTAbs_32f: singly below 8, no peel below 1200, blocks of 8, tails of 4.
inline constexpr BlockPlan kPlanLTAbs4B{8, 1200, 8, 4};

template <class Rule, class L, BlockPlan P, class T>
NUV_INLINE void runRealWith(const T* src, T* dst, int len, const T (&k)[4]) {
    const typename L::V kv[4] = {L::set1(k[0]), L::set1(k[1]), L::set1(k[2]), L::set1(k[3])};
    blocked<P, sizeof(T)>(
        dst, len, [&](int i) { L::store(dst + i, Rule::template apply<L>(L::load(src + i), kv)); },
        [&](int i) { dst[i] = Rule::template apply<One<T>>(src[i], k); });
}

template <class Rule, class T>
void runReal(const T* src, T* dst, int len, const T (&k)[4]) {
    runRealWith<Rule, Lanes<T>, RealPlan<T>::plan>(src, dst, len, k);
}

// ------------------------------------------------------------------------------------------------
// Complex elements, compared by squared magnitude m = re*re + im*im against level*level.

template <class F> struct CplxOf;
template <> struct CplxOf<float> { using type = Nuv32fc; };
template <> struct CplxOf<double> { using type = Nuv64fc; };

// The reciprocal-square-root estimate.  Double elements take it from the single-precision
// instruction too; lanes and single elements give the same bits (rsqrtss equals rsqrtps per lane).
NUV_INLINE __m256 rsqrtEst(__m256 m) { return _mm256_rsqrt_ps(m); }
NUV_INLINE __m256d rsqrtEst(__m256d m) { return _mm256_cvtps_pd(_mm_rsqrt_ps(_mm256_cvtpd_ps(m))); }
NUV_INLINE float rsqrtEst(float m) { return _mm_cvtss_f32(_mm_rsqrt_ss(_mm_set_ss(m))); }
NUV_INLINE double rsqrtEst(double m) { return double(rsqrtEst(float(m))); }

// Bits of a lane mask, one per lane.
NUV_INLINE int laneBits(__m256 m) { return _mm256_movemask_ps(m); }
NUV_INLINE int laneBits(__m256d m) { return _mm256_movemask_pd(m); }

template <class F>
NUV_INLINE typename Simd<F>::V squaredMagnitude(typename Simd<F>::V x) {
    using S = Simd<F>;
    typename S::V sq = S::mul(x, x);
    return S::add(sq, S::swapPairs(sq));   // re*re + im*im in both words of a pair
}

// Replaced elements keep their direction and take the magnitude `level`: z * s with
// s = 0.5*level*y*(3 - m*y*y), y the estimate of 1/sqrt(m), one refinement step.  Where the estimate
// has no usable value (m outside the normal single-precision range: a zero, a tiny or a huge element)
// the element goes to `exact`: a zero becomes (level, 0), any other is scaled by level/|z| in long
// double, infinite parts counting as the unit direction they point to.
template <class F, bool Floor>
struct Rescale {
    using S = Simd<F>;
    using V = typename S::V;
    using C = typename CplxOf<F>::type;
    F level, l2, hl;
    V vl2, vhl;

    explicit Rescale(F lev) : level(lev), l2(lev * lev), hl(F(0.5) * lev), vl2(S::set1(l2)), vhl(S::set1(hl)) {}

    NUV_INLINE V vec(V x, int& bad) const {
        V m = squaredMagnitude<F>(x);
        V rep = Floor ? S::template cmp<_CMP_LT_OQ>(m, vl2) : S::template cmp<_CMP_GT_OQ>(m, vl2);
        V y = rsqrtEst(m);
        V s = S::mul(S::mul(vhl, y), S::sub(S::set1(F(3)), S::mul(S::mul(m, y), y)));
        V off = S::or_(S::template cmp<_CMP_LT_OQ>(m, S::set1(F(FLT_MIN))),
                       S::template cmp<_CMP_GT_OQ>(m, S::set1(F(FLT_MAX))));
        bad |= laneBits(S::and_(rep, off));
        return S::blendv(x, S::mul(x, s), rep);
    }

    NUV_INLINE C one(C z) const {
        F m = z.re * z.re + z.im * z.im;
        bool rep = Floor ? m < l2 : m > l2;
        if (!rep) return z;
        if (m < F(FLT_MIN) || m > F(FLT_MAX)) return exact(z);
        F y = rsqrtEst(m);
        F s = (hl * y) * (F(3) - (m * y) * y);
        return C{z.re * s, z.im * s};
    }

    [[gnu::noinline]] C exact(C z) const {
        long double a = z.re, b = z.im;
        if (std::isinf(a) || std::isinf(b)) {
            a = std::isinf(a) ? std::copysign(1.0L, a) : std::copysign(0.0L, a);
            b = std::isinf(b) ? std::copysign(1.0L, b) : std::copysign(0.0L, b);
        }
        long double m = a * a + b * b;
        if (m == 0) return C{level, F(0)};
        long double s = (long double)level / std::sqrt(m);
        return C{F(a * s), F(b * s)};
    }
};

// LTInv on complex elements: the reciprocal of z with its magnitude first raised to `level`.  With
// m = |z|^2 and r = |z|, 1/z is conj(z) / den, den = m where r is at least `level`, and r * level
// where it is below (z scaled to magnitude `level` has that reciprocal).  Worked in double: squares
// of single-precision parts are exact there, and for them neither m nor r * level leaves the range;
// double elements divide each part by den, so that results are the division's.  Lanes with m
// outside the normal double range (zeros, infinite parts, tiny or huge double elements) and lanes
// whose den overflows are redone by `edge`, in long double.  No lane divides by zero on the vector
// path, so with `level` 0 the zero-divide flag reports true zero elements only.
template <bool Raise>
struct Recip {
    double level;

    NUV_INLINE __m256d den(__m256d m, int& bad) const {
        using S = Simd<double>;
        __m256d d = m;
        if constexpr (Raise) {
            const __m256d r = _mm256_sqrt_pd(m), lv = S::set1(level);
            d = S::blendv(m, S::mul(r, lv), S::template cmp<_CMP_LT_OQ>(r, lv));
        }
        // max keeps a NaN where m is NaN; the lanes it lifts are redone singly.
        bad |= laneBits(S::or_(S::or_(S::template cmp<_CMP_LT_OQ>(m, S::set1(DBL_MIN)),
                                      S::template cmp<_CMP_GT_OQ>(m, S::set1(DBL_MAX))),
                               S::template cmp<_CMP_GT_OQ>(d, S::set1(DBL_MAX))));
        return S::max(S::set1(DBL_MIN), d);
    }

    // Two double elements.
    NUV_INLINE __m256d vec(__m256d w, int& bad) const {
        using S = Simd<double>;
        const __m256d d = den(squaredMagnitude<double>(w), bad);
        return S::xor_(S::div(w, d), _mm256_setr_pd(0.0, -0.0, 0.0, -0.0));
    }

    // Four single-precision elements widened into two registers, one division: den of all four in
    // one register as (d0 d2 d1 d3).
    NUV_INLINE void vec2(__m256d& lo, __m256d& hi, int& bad) const {
        using S = Simd<double>;
        const __m256d d = den(_mm256_hadd_pd(S::mul(lo, lo), S::mul(hi, hi)), bad);
        const __m256d q = S::div(S::set1(1.0), d);
        const __m256d conj = _mm256_setr_pd(0.0, -0.0, 0.0, -0.0);
        lo = S::xor_(S::mul(lo, _mm256_permute4x64_pd(q, 0xA0)), conj);
        hi = S::xor_(S::mul(hi, _mm256_permute4x64_pd(q, 0xF5)), conj);
    }

    // One element, as a lane of `vec` (Div) or of `vec2` (!Div).
    template <bool Div>
    NUV_INLINE void one(double a, double b, double& re, double& im) const {
        const double m = a * a + b * b;
        double d = m;
        if constexpr (Raise) {
            const double r = std::sqrt(m);
            if (r < level) d = r * level;
        }
        if (!(m >= DBL_MIN) || m > DBL_MAX || d > DBL_MAX) {
            if (!std::isnan(m)) return edge(a, b, re, im);
        }
        if constexpr (Div) {
            re = a / d;
            im = -(b / d);
        } else {
            const double q = 1.0 / d;
            re = a * q;
            im = -(b * q);
        }
    }

    [[gnu::noinline]] void edge(double a, double b, double& re, double& im) const {
        if (a == 0 && b == 0) {
            if (Raise) {   // no direction: the element becomes (level, 0)
                re = 1.0 / level;
                im = -b;
                return;
            }
            double m = 0.0;
            asm("" : "+x"(m));   // a real division, so that the zero-divide flag is raised
            re = std::copysign(1.0 / m, a);
            im = -b;
        } else if (std::isinf(a) || std::isinf(b)) {
            re = std::copysign(0.0, a);
            im = std::copysign(0.0, -b);
        } else {
            const long double la = a, lb = b, m = la * la + lb * lb, r = std::sqrt(m);
            const long double d = Raise && r < level ? r * level : m;
            re = double(la / d);
            im = double(-lb / d);
        }
    }
};

template <class F, bool Raise>
struct CplxInv {
    using S = Simd<F>;
    using V = typename S::V;
    using C = typename CplxOf<F>::type;
    Recip<Raise> recip;

    explicit CplxInv(F level) : recip{double(level)} {}

    NUV_INLINE V vec(V x, int& bad) const {
        if constexpr (std::is_same_v<F, float>) {
            __m256d lo = _mm256_cvtps_pd(_mm256_castps256_ps128(x));
            __m256d hi = _mm256_cvtps_pd(_mm256_extractf128_ps(x, 1));
            recip.vec2(lo, hi, bad);
            return _mm256_set_m128(_mm256_cvtpd_ps(hi), _mm256_cvtpd_ps(lo));
        } else {
            return recip.vec(x, bad);
        }
    }

    NUV_INLINE C one(C z) const {
        double re, im;
        recip.template one<!std::is_same_v<F, float>>(double(z.re), double(z.im), re, im);
        return C{F(re), F(im)};
    }
};

// LTVal / GTVal on complex elements: the whole `value` replaces an element whose squared magnitude is
// below (LTVal) or above (GTVal) level*level; NaN magnitudes are replaced as in the real rules.
template <class F, bool Below>
struct CplxVal {
    using S = Simd<F>;
    using V = typename S::V;
    using C = typename CplxOf<F>::type;
    F l2;
    C value;
    V vl2, vv;

    CplxVal(F level, C val) : l2(level * level), value(val), vl2(S::set1(l2)) {
        F pairs[S::N];
        for (int j = 0; j < S::N; j += 2) pairs[j] = val.re, pairs[j + 1] = val.im;
        vv = S::load(pairs);
    }

    NUV_INLINE V vec(V x, int&) const {
        V m = squaredMagnitude<F>(x);
        V rep = Below ? S::template cmp<_CMP_NGE_UQ>(m, vl2) : S::template cmp<_CMP_NLE_UQ>(m, vl2);
        return S::blendv(x, vv, rep);
    }

    NUV_INLINE C one(C z) const {
        F m = z.re * z.re + z.im * z.im;
        bool rep = Below ? !(m >= l2) : !(m <= l2);
        return rep ? value : z;
    }
};

// Complex 16-bit elements, element by element: the squared magnitude and its comparison are exact in
// 64 bits; a rescaled part is rounded to nearest even and saturated.  A zero below the floor becomes
// (level, 0), as in the float members.
template <bool Floor>
struct Rescale16 {
    Nuv16s level;
    int64_t l2;
    float hl;
    explicit Rescale16(Nuv16s lev) : level(lev), l2(int64_t(lev) * lev), hl(0.5f * float(lev)) {}

    static Nuv16s round16(float v) {
        float r = _mm_cvtss_f32(_mm_round_ss(_mm_setzero_ps(), _mm_set_ss(v), _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC));
        return Nuv16s(r > 32767.0f ? 32767.0f : r < -32768.0f ? -32768.0f : r);
    }

    NUV_INLINE Nuv16sc one(Nuv16sc z) const {
        int64_t m = int64_t(z.re) * z.re + int64_t(z.im) * z.im;
        if (!(Floor ? m < l2 : m > l2)) return z;
        if (m == 0) return Nuv16sc{level, 0};
        float mf = float(m);
        float y = rsqrtEst(mf);
        float s = (hl * y) * (3.0f - (mf * y) * y);
        return Nuv16sc{round16(float(z.re) * s), round16(float(z.im) * s)};
    }

    // Eight elements, one to a 32-bit lane, each as `one`: the squared magnitude is exact as an
    // unsigned 32-bit sum (2^31 at most), and the float steps are those of `one`, lane by lane.
    NUV_INLINE __m256i vec16(__m256i x) const {
        const __m256i bias = _mm256_set1_epi32(INT32_MIN);
        const __m256i m = _mm256_madd_epi16(x, x);
        const __m256i mb = _mm256_xor_si256(m, bias), lb = _mm256_set1_epi32(int32_t(uint32_t(l2) ^ 0x80000000u));
        const __m256i rep = Floor ? _mm256_cmpgt_epi32(lb, mb) : _mm256_cmpgt_epi32(mb, lb);
        // 2^31 converts as -2^31: its magnitude is the value
        const __m256 mf = _mm256_andnot_ps(_mm256_set1_ps(-0.0f), _mm256_cvtepi32_ps(m));
        const __m256 y = _mm256_rsqrt_ps(mf);
        const __m256 s = _mm256_mul_ps(_mm256_mul_ps(_mm256_set1_ps(hl), y),
                                       _mm256_sub_ps(_mm256_set1_ps(3.0f), _mm256_mul_ps(_mm256_mul_ps(mf, y), y)));
        auto part = [&](__m256i v) {
            const __m256 r = _mm256_round_ps(_mm256_mul_ps(_mm256_cvtepi32_ps(v), s), _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC);
            return _mm256_cvtps_epi32(_mm256_max_ps(_mm256_min_ps(r, _mm256_set1_ps(32767.0f)), _mm256_set1_ps(-32768.0f)));
        };
        const __m256i re = part(_mm256_srai_epi32(_mm256_slli_epi32(x, 16), 16)), im = part(_mm256_srai_epi32(x, 16));
        __m256i out = _mm256_or_si256(_mm256_and_si256(re, _mm256_set1_epi32(0xFFFF)), _mm256_slli_epi32(im, 16));
        if (Floor) {   // a zero below the floor has no direction: it becomes (level, 0)
            const __m256i zero = _mm256_cmpeq_epi32(m, _mm256_setzero_si256());
            out = _mm256_blendv_epi8(out, _mm256_set1_epi32(int32_t(uint16_t(level))), zero);
        }
        return _mm256_blendv_epi8(x, out, rep);
    }
};

template <bool Below>
struct CplxVal16 {
    int64_t l2;
    Nuv16sc value;
    CplxVal16(Nuv16s level, Nuv16sc val) : l2(int64_t(level) * level), value(val) {}
    NUV_INLINE Nuv16sc one(Nuv16sc z) const {
        int64_t m = int64_t(z.re) * z.re + int64_t(z.im) * z.im;
        return (Below ? m < l2 : m > l2) ? value : z;
    }
    // Eight elements, one to a 32-bit lane; the squared magnitude compared as an unsigned sum.
    NUV_INLINE __m256i vec16(__m256i x) const {
        const __m256i bias = _mm256_set1_epi32(INT32_MIN);
        const __m256i mb = _mm256_xor_si256(_mm256_madd_epi16(x, x), bias);
        const __m256i lb = _mm256_set1_epi32(int32_t(uint32_t(l2) ^ 0x80000000u));
        const __m256i rep = Below ? _mm256_cmpgt_epi32(lb, mb) : _mm256_cmpgt_epi32(mb, lb);
        uint32_t v;
        std::memcpy(&v, &value, 4);
        return _mm256_blendv_epi8(x, _mm256_set1_epi32(int32_t(v)), rep);
    }
};

template <class C, bool Floor> struct RescaleOf { using type = Rescale<decltype(C::re), Floor>; };
template <bool Floor> struct RescaleOf<Nuv16sc, Floor> { using type = Rescale16<Floor>; };
template <class C, bool Below> struct CplxValOf { using type = CplxVal<decltype(C::re), Below>; };
template <bool Below> struct CplxValOf<Nuv16sc, Below> { using type = CplxVal16<Below>; };

// The complex loop: a lone leading element when the destination is on 8 but not on 16 bytes, then one
// register of elements a step, then single elements.  A register with any lane the vector formula can't
// serve is redone element by element (before anything of it is stored, so in-place runs are safe).
template <class C, class Step>
void runCplx(const C* src, C* dst, int len, const Step& st) {
    using F = decltype(C::re);
    int i = 0;
    if constexpr (std::is_floating_point_v<F>) {
        using S = Simd<F>;
        constexpr int kPer = S::N / 2;
        if (sizeof(F) == 4 && (reinterpret_cast<uintptr_t>(dst) & 15) == 8) {
            dst[0] = st.one(src[0]);
            i = 1;
        }
        for (; i + kPer <= len; i += kPer) {
            int bad = 0;
            typename S::V out = st.vec(S::load(reinterpret_cast<const F*>(src + i)), bad);
            if (__builtin_expect(bad != 0, 0)) {
                for (int j = 0; j < kPer; ++j) dst[i + j] = st.one(src[i + j]);
            } else {
                S::store(reinterpret_cast<F*>(dst + i), out);
            }
        }
    } else if constexpr (requires { st.vec16(__m256i{}); }) {
        for (; i + 8 <= len; i += 8)
            _mm256_storeu_si256(reinterpret_cast<__m256i*>(dst + i), st.vec16(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(src + i))));
    }
    for (; i < len; ++i) dst[i] = st.one(src[i]);
}

}  // namespace nuv::thr

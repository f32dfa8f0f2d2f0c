// Complex and polar: scalar models of the fixed operation orders compared bit for bit over sweep
// lengths and misalignments, exact integer models for the scaled forms, accuracy against long double.
#include <immintrin.h>

#include <bit>
#include <algorithm>
#include <cmath>
#include <functional>
#include <sstream>

#include "support/generic.h"
#include "support/support.h"

NT_GENERIC_RULE(nuvsRealToCplx_16s, nt::NullableSources);
NT_GENERIC_RULE(nuvsRealToCplx_32f, nt::NullableSources);
NT_GENERIC_RULE(nuvsRealToCplx_64f, nt::NullableSources);
// CartToPolar runs Magnitude and Phase in turn, so one may write before the other fails.
NT_GENERIC_RULE(nuvsCartToPolar_16sc_Sfs, nt::SkipGeneric);
NT_GENERIC_RULE(nuvsCartToPolar_32f, nt::SkipGeneric);
NT_GENERIC_RULE(nuvsCartToPolar_32fc, nt::SkipGeneric);
NT_GENERIC_RULE(nuvsCartToPolar_64f, nt::SkipGeneric);
NT_GENERIC_RULE(nuvsCartToPolar_64fc, nt::SkipGeneric);

namespace {

using i128 = __int128;
using ld = long double;

// ---------------------------------------------------------------- models
uint32_t bits(float x) { return std::bit_cast<uint32_t>(x); }
float fbits(uint32_t b) { return std::bit_cast<float>(b); }

float refinedRcp(float h) {
    const float r = _mm_cvtss_f32(_mm_rcp_ss(_mm_set_ss(h)));
    return r * (2.0f - h * r);
}

float phaseModel(float x, float y) {
    const uint32_t ax = bits(x) & 0x7FFFFFFF, ay = bits(y) & 0x7FFFFFFF;
    const bool yLarger = ay > ax;
    float hi = fbits(yLarger ? ay : ax), lo = fbits(yLarger ? ax : ay);
    if (bits(hi) == 0) hi = 2.0f;
    const float t = lo * refinedRcp(hi), u = t * t;
    const float n = t * (((0.008561189f * u + 0.28050455f) * u + 1.1202340f) * u + 1.0f);
    const float d = ((0.049017590f * u + 0.56503099f) * u + 1.4535671f) * u + 1.0f;
    float a = n * refinedRcp(d);
    if (yLarger) a = 1.5707964f - a;
    if (bits(x) >> 31) a = 3.1415927f - a;
    return fbits(bits(a) | (bits(y) & 0x80000000u));
}

float reducePi(float x, float k) {
    float r = x - k * 3.140625f;
    r = r - k * 0.00096750259f;
    r = r - k * 1.5099067e-07f;
    r = r - k * fbits(0x2CB40000);
    return r - k * fbits(0x284234C4);
}
float oddPoly(float r) {
    const float s = r * r;
    const float p = ((2.6300338e-06f * s - 0.00019820665f) * s + 0.0083332155f) * s - 0.16666666f;
    return r + s * r * p;
}
void sinCosModel(float x, float& sn, float& cs) {
    const float y = x * 0.31830987f;
    const float ks = std::nearbyint(y), kc = std::trunc(y) + std::copysign(0.5f, x);
    sn = oddPoly(reducePi(x, ks));
    cs = oddPoly(reducePi(x, kc));
    if (int64_t(ks) & 1) sn = -sn;
    if (int64_t(kc + 0.5f) & 1) cs = -cs;
}

// Exact rounding of x / 2^s to nearest even, x >= 0.
i128 rneShift(i128 x, int s) {
    if (s <= 0) return x << -s;
    if (s > 120) return 0;
    const i128 q = x >> s, rem = x - (q << s), half = i128(1) << (s - 1);
    return q + ((rem > half || (rem == half && (q & 1))) ? 1 : 0);
}
i128 isqrt(i128 n) {
    i128 r = i128(std::sqrt(ld(n)));
    while (r * r > n) --r;
    while ((r + 1) * (r + 1) <= n) ++r;
    return r;
}
// sqrt(n) * 2^-sf rounded to nearest even (ties only for perfect squares), exactly.
i128 rneSqrtScaled(i128 n, int sf) {
    if (sf > 40) return 0;
    const int s = sf > 0 ? sf : 0;
    const i128 N = n << (2 * (sf < 0 ? -sf : 0));
    const i128 m = isqrt(N >> (2 * s));
    const i128 lhs = 4 * N, rhs = (2 * m + 1) * (2 * m + 1) << (2 * s);
    return m + ((lhs > rhs || (lhs == rhs && (m & 1))) ? 1 : 0);
}
template <class T> T satTo(ld v) {
    constexpr ld lo = ld(std::numeric_limits<T>::min()), hi = ld(std::numeric_limits<T>::max());
    return T(v < lo ? lo : (v > hi ? hi : v));
}
template <class T> T rneSat(ld v) { return std::isnan(v) ? T(0) : satTo<T>(std::nearbyint(v)); }

// ---------------------------------------------------------------- data and comparison
std::mt19937_64& g() { return nt::rng(); }

// Values over a wide exponent range, with zeros of both signs.
template <class T> T wide() {
    const uint64_t r = g()();
    if (r % 16 == 0) return (r & 16) ? T(-0.0) : T(0.0);
    const T m = T(1) + T((r >> 8) % 1000003) / T(1000003);
    return std::ldexp((r & 32) ? -m : m, int((r >> 40) % 41) - 20);
}
// Complex values with equal magnitudes, zero parts and axes mixed in.
template <class T> std::pair<T, T> widePair() {
    T a = wide<T>(), b = wide<T>();
    switch (g()() % 6) {
        case 0: b = (g()() & 1) ? a : -a; break;
        case 1: b = T(0) * b; break;
        case 2: a = T(0) * a; break;
        default: break;
    }
    return {a, b};
}
template <class T> std::pair<T, T> intPair() {
    std::uniform_int_distribution<int64_t> d(std::numeric_limits<T>::min(), std::numeric_limits<T>::max());
    T a = T(d(g())), b = T(d(g()));
    if (g()() % 8 == 0) a = std::numeric_limits<T>::min();
    if (g()() % 8 == 0) b = T(int(g()() % 3) - 1);
    return {a, b};
}

template <class T> bool same(const T& a, const T& b) {
    if constexpr (std::is_floating_point_v<T>) return nt::sameBits(a, b);
    else if constexpr (std::is_integral_v<T>) return a == b;
    else return same(a.re, b.re) && same(a.im, b.im);
}
template <class T> std::string show(const T& a) {
    if constexpr (std::is_arithmetic_v<T>) return (std::ostringstream() << std::hexfloat << +a).str();
    else return "{" + show(a.re) + ", " + show(a.im) + "}";
}

const size_t kOffsets[] = {0, 4, 20};

// Runs a call over sweep lengths and misalignments; `fill(i, src...)` makes element i,
// `expect(i, src...)` gives its exact result.
template <class D, class... S, class Call, class Fill, class Expect>
void sweep(Call call, Fill fill, Expect expect) {
    for (int len : nt::sweepLengths())
        for (size_t off : kOffsets) {
            std::tuple<nt::Buf<S>...> src{nt::Buf<S>(len, off + 8 * sizeof(S))...};
            nt::Buf<D> dst(len, off);
            for (int i = 0; i < len; ++i) std::apply([&](auto&... s) { fill(s[i]...); }, src);
            const NuvStatus st = std::apply([&](auto&... s) { return call(s.data()..., dst.data(), len); }, src);
            ASSERT_EQ(st, nuvStsOk) << "len " << len;
            for (int i = 0; i < len; ++i) {
                const D want = std::apply([&](auto&... s) { return expect(s[i]...); }, src);
                ASSERT_TRUE(same(dst[i], want)) << "len " << len << " off " << off << " i " << i << ": " << show(dst[i]) << " want " << show(want);
            }
            ASSERT_TRUE(dst.intact());
        }
}
// The same for a complex source and its split twin.
template <class D, class C, class T, class CallC, class CallS, class Gen, class Model>
void sweepBoth(CallC callC, CallS callS, Gen gen, Model model) {
    sweep<D, C>(callC, [&](C& c) { auto [a, b] = gen(); c = {a, b}; }, [&](const C& c) { return model(c.re, c.im); });
    sweep<D, T, T>(callS, [&](T& a, T& b) { std::tie(a, b) = gen(); }, model);
}

// ---------------------------------------------------------------- moves and conjugation
template <class C> struct Moves : ::testing::Test {};
using CplxTypes = ::testing::Types<Nuv16sc, Nuv32fc, Nuv64fc>;
TYPED_TEST_SUITE(Moves, CplxTypes);

template <class C> struct Api;
template <> struct Api<Nuv16sc> {
    using Part = Nuv16s;
    static constexpr auto real = nuvsReal_16sc, imag = nuvsImag_16sc;
    static constexpr auto conj = nuvsConj_16sc, flip = nuvsConjFlip_16sc;
    static constexpr auto conjI = nuvsConj_16sc_I;
    static constexpr auto toReal = nuvsCplxToReal_16sc;
};
template <> struct Api<Nuv32fc> {
    using Part = Nuv32f;
    static constexpr auto real = nuvsReal_32fc, imag = nuvsImag_32fc;
    static constexpr auto conj = nuvsConj_32fc, flip = nuvsConjFlip_32fc;
    static constexpr auto conjI = nuvsConj_32fc_I;
    static constexpr auto toReal = nuvsCplxToReal_32fc;
};
template <> struct Api<Nuv64fc> {
    using Part = Nuv64f;
    static constexpr auto real = nuvsReal_64fc, imag = nuvsImag_64fc;
    static constexpr auto conj = nuvsConj_64fc, flip = nuvsConjFlip_64fc;
    static constexpr auto conjI = nuvsConj_64fc_I;
    static constexpr auto toReal = nuvsCplxToReal_64fc;
};
auto toCplx(const Nuv16s* a, const Nuv16s* b, Nuv16sc* d, int n) { return nuvsRealToCplx_16s(a, b, d, n); }
auto toCplx(const Nuv32f* a, const Nuv32f* b, Nuv32fc* d, int n) { return nuvsRealToCplx_32f(a, b, d, n); }
auto toCplx(const Nuv64f* a, const Nuv64f* b, Nuv64fc* d, int n) { return nuvsRealToCplx_64f(a, b, d, n); }

template <class T> T anyVal() {
    if constexpr (std::is_integral_v<T>) return intPair<T>().first;
    else return wide<T>();
}
template <class T> T neg(T v) {
    if constexpr (std::is_integral_v<T>) return v == std::numeric_limits<T>::min() ? std::numeric_limits<T>::max() : T(-v);
    else return -v;
}

TYPED_TEST(Moves, PartsAssemblyAndConjugation) {
    using C = TypeParam;
    using T = typename Api<C>::Part;
    auto fill = [](C& c) { c = {anyVal<T>(), anyVal<T>()}; };
    auto conjOf = [](const C& c) { return C{c.re, neg(c.im)}; };
    sweep<T, C>(Api<C>::real, fill, [](const C& c) { return c.re; });
    sweep<T, C>(Api<C>::imag, fill, [](const C& c) { return c.im; });
    sweep<C, C>(Api<C>::conj, fill, conjOf);
    sweep<C, T, T>([](const T* a, const T* b, C* d, int n) { return toCplx(a, b, d, n); },
                   [](T& a, T& b) { a = anyVal<T>(), b = anyVal<T>(); }, [](T a, T b) { return C{a, b}; });
    for (int len : nt::sweepLengths()) {
        nt::Buf<C> src(len, 8), dst(len, 4), inpl(len, 12);
        nt::Buf<T> re(len, 4), im(len);
        nt::Buf<C> flipInpl(len, 8);
        for (int i = 0; i < len; ++i) fill(src[i]), inpl[i] = flipInpl[i] = src[i];
        ASSERT_EQ(Api<C>::flip(src.data(), dst.data(), len), nuvStsOk);
        ASSERT_EQ(Api<C>::flip(flipInpl.data(), flipInpl.data(), len), nuvStsOk);
        ASSERT_EQ(Api<C>::conjI(inpl.data(), len), nuvStsOk);
        ASSERT_EQ(Api<C>::toReal(src.data(), re.data(), im.data(), len), nuvStsOk);
        for (int i = 0; i < len; ++i) {
            ASSERT_TRUE(same(dst[i], conjOf(src[len - 1 - i]))) << len << " " << i;
            ASSERT_TRUE(same(flipInpl[i], dst[i])) << len << " " << i;
            ASSERT_TRUE(same(inpl[i], conjOf(src[i])));
            ASSERT_TRUE(same(re[i], src[i].re) && same(im[i], src[i].im));
        }
        ASSERT_TRUE(dst.intact() && inpl.intact() && flipInpl.intact() && re.intact() && im.intact());
        // one missing source gives 0 in that part; both missing is refused
        ASSERT_EQ(toCplx(re.data(), nullptr, dst.data(), len), nuvStsOk);
        for (int i = 0; i < len; ++i) ASSERT_TRUE(same(dst[i], C{re[i], T(0)}));
        ASSERT_EQ(toCplx(nullptr, im.data(), dst.data(), len), nuvStsOk);
        for (int i = 0; i < len; ++i) ASSERT_TRUE(same(dst[i], C{T(0), im[i]}));
    }
    nt::Buf<C> d(4);
    EXPECT_EQ(toCplx((const T*)nullptr, nullptr, d.data(), 4), nuvStsNullPtr);
    EXPECT_EQ(toCplx((const T*)nullptr, nullptr, d.data(), 0), nuvStsNullPtr);
    EXPECT_TRUE(d.untouched());
}

// ---------------------------------------------------------------- float modulus, power, phase
TEST(ComplexFloat, ModulusPowerAndPhaseFollowTheirOperationOrder) {
    auto p32 = [] { return widePair<float>(); };
    auto p64 = [] { return widePair<double>(); };
    auto mag32 = [](float re, float im) { return float(std::sqrt(double(std::fma(re, re, im * im)))); };
    auto pow32 = [](float re, float im) { return std::fma(re, re, im * im); };
    auto mag64 = [](double re, double im) { return std::sqrt(std::fma(re, re, im * im)); };
    auto pow64 = [](double re, double im) { return std::fma(re, re, im * im); };
    sweepBoth<Nuv32f, Nuv32fc, Nuv32f>(nuvsMagnitude_32fc, nuvsMagnitude_32f, p32, mag32);
    sweepBoth<Nuv32f, Nuv32fc, Nuv32f>(nuvsPowerSpectr_32fc, nuvsPowerSpectr_32f, p32, pow32);
    sweepBoth<Nuv32f, Nuv32fc, Nuv32f>(nuvsPhase_32fc, nuvsPhase_32f, p32, phaseModel);
    sweepBoth<Nuv64f, Nuv64fc, Nuv64f>(nuvsMagnitude_64fc, nuvsMagnitude_64f, p64, mag64);
    sweepBoth<Nuv64f, Nuv64fc, Nuv64f>(nuvsPowerSpectr_64fc, nuvsPowerSpectr_64f, p64, pow64);
    sweep<Nuv64f, Nuv32fc>(nuvsMagSquared_32fc64f, [&](Nuv32fc& c) { auto [a, b] = p32(); c = {a, b}; },
                           [](const Nuv32fc& c) { return std::fma(double(c.re), double(c.re), double(c.im) * double(c.im)); });
    // 16-bit sources: parts converted to float, or (complex modulus and power) the exact integer sum
    auto i16 = [] { return intPair<Nuv16s>(); };
    auto sum = [](int a, int b) { return double(int64_t(a) * a + int64_t(b) * b); };
    sweepBoth<Nuv32f, Nuv16sc, Nuv16s>(nuvsPhase_16sc32f, nuvsPhase_16s32f, i16, [](int a, int b) { return phaseModel(float(a), float(b)); });
    sweep<Nuv32f, Nuv16s, Nuv16s>(nuvsMagnitude_16s32f, [&](Nuv16s& a, Nuv16s& b) { std::tie(a, b) = i16(); },
                                  [&](Nuv16s a, Nuv16s b) { return mag32(float(a), float(b)); });
    sweep<Nuv32f, Nuv16s, Nuv16s>(nuvsPowerSpectr_16s32f, [&](Nuv16s& a, Nuv16s& b) { std::tie(a, b) = i16(); },
                                  [&](Nuv16s a, Nuv16s b) { return pow32(float(a), float(b)); });
    sweep<Nuv32f, Nuv16sc>(nuvsMagnitude_16sc32f, [&](Nuv16sc& c) { auto [a, b] = i16(); c = {a, b}; },
                           [&](const Nuv16sc& c) { return float(std::sqrt(sum(c.re, c.im))); });
    sweep<Nuv32f, Nuv16sc>(nuvsPowerSpectr_16sc32f, [&](Nuv16sc& c) { auto [a, b] = i16(); c = {a, b}; },
                           [&](const Nuv16sc& c) { return float(sum(c.re, c.im)); });
}

// Phase and its double twin: the stated special values, and the error of the approximations.
TEST(ComplexFloat, PhaseValuesAndAccuracy) {
    const float inf = INFINITY, nan = NAN;
    const struct { float re, im, want; } rows[] = {
        {1, 0, 0}, {-1, 0, 3.1415927f}, {-1, -0.0f, -3.1415927f}, {0, 0, 0}, {0, 1, 1.5707964f},
        {0, -1, -1.5707964f}, {-0.0f, 0, 3.1415927f}, {5, 5, 0.78539819f}, {1e-30f, 1e30f, 1.5707964f}};
    for (const auto& r : rows) {
        const Nuv32fc c{r.re, r.im};
        const Nuv64fc z{r.re, r.im};
        float f;
        double d;
        ASSERT_EQ(nuvsPhase_32fc(&c, &f, 1), nuvStsOk);
        ASSERT_EQ(nuvsPhase_64fc(&z, &d, 1), nuvStsOk);
        EXPECT_NEAR(f, r.want, 2e-7) << r.re << " " << r.im;
        EXPECT_NEAR(d, r.want, 5e-7) << r.re << " " << r.im;
        EXPECT_EQ(std::signbit(f), std::signbit(r.want));
        EXPECT_EQ(std::signbit(d), std::signbit(r.want));
    }
    for (Nuv32fc c : {Nuv32fc{nan, 1}, Nuv32fc{1, nan}, Nuv32fc{nan, nan}, Nuv32fc{inf, 1}}) {
        float f;
        nuvsPhase_32fc(&c, &f, 1);
        EXPECT_TRUE(std::isnan(f)) << c.re << " " << c.im;
    }
    const int n = 4099;
    std::vector<Nuv64fc> z(n);
    std::vector<Nuv32fc> c(n);
    for (int i = 0; i < n; ++i) {
        auto [a, b] = widePair<double>();
        z[i] = {a, b}, c[i] = {float(a), float(b)};
    }
    std::vector<Nuv64f> d(n), one(1);
    std::vector<Nuv32f> f(n);
    nuvsPhase_64fc(z.data(), d.data(), n);
    nuvsPhase_32fc(c.data(), f.data(), n);
    for (int i = 0; i < n; ++i) {
        const ld want = std::atan2(ld(z[i].im), ld(z[i].re)), want32 = std::atan2(ld(c[i].im), ld(c[i].re));
        ASSERT_LE(std::fabs(d[i] - want), 3 * std::ldexp(ld(1), std::max(std::ilogb(double(want)), -1022) - 52) + 1e-300L) << i;
        ASSERT_LE(std::fabs(f[i] - want32), 4e-7L) << i;
        nuvsPhase_64fc(&z[i], one.data(), 1);  // the same bits at every position of a run
        ASSERT_TRUE(nt::sameBits(one[0], d[i]));
    }
}

// Worked values: the phase on the axes is exact to the bit, the conjugate of the most negative
// imaginary part saturates, and 3 + 4i has modulus 5 to within one unit in the last place.
TEST(ComplexWorked, AxesConjugateAndModulus) {
    const struct { float re, im, want; } phases[] = {{1, 0, 0.0f}, {-1, 0, 3.1415927f}, {0, 0, 0.0f}, {0, 1, 1.5707964f}};
    for (const auto& r : phases) {
        const Nuv32fc c{r.re, r.im};
        float f = -1;
        ASSERT_EQ(nuvsPhase_32fc(&c, &f, 1), nuvStsOk);
        EXPECT_TRUE(nt::sameBits(f, r.want)) << r.re << " + " << r.im << "i: " << std::hexfloat << f;
    }
    const Nuv16sc z[3] = {{5, -32768}, {-32768, -32768}, {7, 32767}};
    Nuv16sc d[3], flipped[3], inPlace[3] = {z[0], z[1], z[2]};
    ASSERT_EQ(nuvsConj_16sc(z, d, 3), nuvStsOk);
    ASSERT_EQ(nuvsConj_16sc_I(inPlace, 3), nuvStsOk);
    ASSERT_EQ(nuvsConjFlip_16sc(z, flipped, 3), nuvStsOk);
    const Nuv16sc want[3] = {{5, 32767}, {-32768, 32767}, {7, -32767}};
    for (int i = 0; i < 3; ++i) {
        EXPECT_TRUE(same(d[i], want[i])) << i << ": " << show(d[i]);
        EXPECT_TRUE(same(inPlace[i], want[i])) << i << ": " << show(inPlace[i]);
        EXPECT_TRUE(same(flipped[2 - i], want[i])) << i << ": " << show(flipped[2 - i]);
    }
    for (int len : {1, 8, 9, 33}) {  // the single path and the blocks
        const std::vector<Nuv32fc> c(size_t(len), Nuv32fc{3, 4});
        nt::Buf<Nuv32f> m(len);
        ASSERT_EQ(nuvsMagnitude_32fc(c.data(), m.data(), len), nuvStsOk);
        for (int i = 0; i < len; ++i)
            EXPECT_LE(std::fabs(m[i] - 5.0f), 5.0f - std::nextafter(5.0f, 0.0f)) << "len " << len << " at " << i;
    }
}

// ---------------------------------------------------------------- polar to Cartesian
TEST(ComplexPolar, SingleFollowsTheReductionAndDoubleIsAccurate) {
    auto ph = [] { return float(std::uniform_real_distribution<double>(-2000, 2000)(g())); };
    auto mg = [] { return float(std::uniform_real_distribution<double>(-10, 10)(g())); };
    auto model = [](float m, float p) {
        float s, c;
        sinCosModel(p, s, c);
        return Nuv32fc{m * c, m * s};
    };
    sweep<Nuv32fc, Nuv32f, Nuv32f>(nuvsPolarToCart_32fc, [&](Nuv32f& m, Nuv32f& p) { m = mg(), p = ph(); }, model);
    const int n = 4099;
    nt::Buf<Nuv32f> m(n), p(n), re(n, 4), im(n, 8);
    nt::Buf<Nuv64f> md(n), pd(n), red(n, 8), imd(n, 16);
    // Every fifth double phase is far out, from 2^29 to 1e300: past the short reduction, lanes take
    // the exact one.
    auto far = [] { return std::copysign(std::pow(10.0, std::uniform_real_distribution<double>(8.7, 300)(g())), double(int(g()() & 1)) - 0.5); };
    for (int i = 0; i < n; ++i) m[i] = mg(), p[i] = i < 40 ? float(i - 20) * 0.78539819f : ph(), md[i] = m[i], pd[i] = i % 5 == 4 ? far() : p[i] * 3.1;
    pd[9] = 2147483648.0, pd[14] = -2147483647.5, pd[19] = 3.38e9, pd[24] = 1e16;
    ASSERT_EQ(nuvsPolarToCart_32f(m.data(), p.data(), re.data(), im.data(), n), nuvStsOk);
    ASSERT_EQ(nuvsPolarToCart_64f(md.data(), pd.data(), red.data(), imd.data(), n), nuvStsOk);
    for (int i = 0; i < n; ++i) {
        ASSERT_TRUE(same(Nuv32fc{re[i], im[i]}, model(m[i], p[i]))) << i;
        ASSERT_LE(std::fabs(re[i] - m[i] * std::cos(ld(p[i]))), 4e-7L * std::fabs(m[i])) << p[i];
        ASSERT_LE(std::fabs(im[i] - m[i] * std::sin(ld(p[i]))), 4e-7L * std::fabs(m[i])) << p[i];
        const ld ulp = std::ldexp(ld(std::fabs(md[i])), -52);
        ASSERT_LE(std::fabs(red[i] - md[i] * std::cos(ld(pd[i]))), 2 * ulp) << pd[i];
        ASSERT_LE(std::fabs(imd[i] - md[i] * std::sin(ld(pd[i]))), 2 * ulp) << pd[i];
    }
    ASSERT_TRUE(re.intact() && im.intact() && red.intact() && imd.intact());
    std::vector<Nuv64fc> z(n);
    ASSERT_EQ(nuvsPolarToCart_64fc(md.data(), pd.data(), z.data(), n), nuvStsOk);
    for (int i = 0; i < n; ++i) ASSERT_TRUE(same(z[i], Nuv64fc{red[i], imd[i]}));
}

TEST(ComplexPolar, FixedPointPhases) {
    for (int pfp : {0, 3, 15}) {
        auto model = [pfp](Nuv16s m, Nuv16s p) {
            float s, c;
            sinCosModel(float(p) * (1.0f / float(1 << pfp)), s, c);
            return Nuv16sc{rneSat<Nuv16s>(float(m) * c), rneSat<Nuv16s>(float(m) * s)};
        };
        sweep<Nuv16sc, Nuv16s, Nuv16s>([pfp](const Nuv16s* a, const Nuv16s* b, Nuv16sc* d, int n) { return nuvsPolarToCart_16sc(a, b, d, n, pfp); },
                                       [](Nuv16s& a, Nuv16s& b) { std::tie(a, b) = intPair<Nuv16s>(); }, model);
    }
    for (int pfp : {0, 20, 31}) {
        auto model = [pfp](Nuv32s m, Nuv32s p) {
            const ld ph = std::ldexp(ld(p), -pfp);
            return Nuv32sc{rneSat<Nuv32s>(m * std::cos(ph)), rneSat<Nuv32s>(m * std::sin(ph))};
        };
        nt::Buf<Nuv32s> m(257), p(257);
        nt::Buf<Nuv32sc> d(257);
        for (int i = 0; i < 257; ++i) std::tie(m[i], p[i]) = intPair<Nuv32s>();
        ASSERT_EQ(nuvsPolarToCart_32sc(m.data(), p.data(), d.data(), 257, pfp), nuvStsOk);
        for (int i = 0; i < 257; ++i) {
            const Nuv32sc w = model(m[i], p[i]);
            ASSERT_LE(std::abs(int64_t(d[i].re) - w.re) + std::abs(int64_t(d[i].im) - w.im), 1) << m[i] << " " << p[i];
        }
    }
    // the fraction bits are refused together with a bad length, after the pointers
    Nuv16s s16[1] = {1};
    Nuv32s s32[1] = {1};
    Nuv16sc d16[1];
    Nuv32sc d32[1];
    EXPECT_EQ(nuvsPolarToCart_16sc(s16, s16, d16, 1, 16), nuvStsSize);
    EXPECT_EQ(nuvsPolarToCart_16sc(s16, s16, d16, 1, -1), nuvStsSize);
    EXPECT_EQ(nuvsPolarToCart_16sc(s16, nullptr, d16, 1, 16), nuvStsNullPtr);
    EXPECT_EQ(nuvsPolarToCart_32sc(s32, s32, d32, 1, 32), nuvStsSize);
    EXPECT_EQ(nuvsPolarToCart_32sc(s32, s32, d32, 0, 31), nuvStsSize);
    for (int sf = -40; sf <= 70; sf += 5) {
        sweep<Nuv16sc, Nuv16s, Nuv16s>([sf](const Nuv16s* a, const Nuv16s* b, Nuv16sc* d, int n) { return nuvsPolarToCart_16sc_Sfs(a, b, d, n, sf); },
                                       [](Nuv16s& a, Nuv16s& b) { std::tie(a, b) = intPair<Nuv16s>(); },
                                       [sf](Nuv16s m, Nuv16s p) {
                                           return Nuv16sc{rneSat<Nuv16s>(std::ldexp(m * std::cos(double(p)), -sf)),
                                                          rneSat<Nuv16s>(std::ldexp(m * std::sin(double(p)), -sf))};
                                       });
    }
}

// ---------------------------------------------------------------- scaled integer results
TEST(ComplexScaled, SixteenBitModulusPowerAndPhaseOverScales) {
    auto i16 = [] { return intPair<Nuv16s>(); };
    auto n2 = [](int a, int b) { return i128(a) * a + i128(b) * b; };
    for (int sf = -40; sf <= 70; ++sf) {
        auto mag = [&](Nuv16s a, Nuv16s b) { return Nuv16s(std::min<i128>(rneSqrtScaled(n2(a, b), sf), 32767)); };
        auto pow = [&](Nuv16s a, Nuv16s b) { return Nuv16s(std::min<i128>(rneShift(n2(a, b), sf), 32767)); };
        auto phs = [&](Nuv16s a, Nuv16s b) { return rneSat<Nuv16s>(std::ldexp(ld(phaseModel(a, b)), -sf)); };
        // the complex phase zeroes from scale 2 on and rounds ties away below -28
        auto phc = [&](Nuv16s a, Nuv16s b) {
            if (sf >= 2) return Nuv16s(0);
            if (sf >= -28) return phs(a, b);
            const float v = float(std::ldexp(double(float(std::atan2(double(b), double(a)))), -sf));
            return satTo<Nuv16s>(std::trunc(v + std::copysign(0.5f, v)));
        };
        auto bind = [sf](auto fn) { return [sf, fn](auto... a) { return fn(a..., sf); }; };
        sweepBoth<Nuv16s, Nuv16sc, Nuv16s>(bind(nuvsMagnitude_16sc_Sfs), bind(nuvsMagnitude_16s_Sfs), i16, mag);
        sweepBoth<Nuv16s, Nuv16sc, Nuv16s>(bind(nuvsPowerSpectr_16sc_Sfs), bind(nuvsPowerSpectr_16s_Sfs), i16, pow);
        sweep<Nuv16s, Nuv16s, Nuv16s>(bind(nuvsPhase_16s_Sfs), [&](Nuv16s& a, Nuv16s& b) { std::tie(a, b) = i16(); }, phs);
        sweep<Nuv16s, Nuv16sc>(bind(nuvsPhase_16sc_Sfs), [&](Nuv16sc& c) { auto [a, b] = i16(); c = {a, b}; },
                               [&](const Nuv16sc& c) { return phc(c.re, c.im); });
    }
    // the stated values: 1 at -15 saturates; a tie of the power rounds to even
    const Nuv16s one = 1, zero = 0, three = 3;
    Nuv16s out;
    nuvsPowerSpectr_16s_Sfs(&one, &zero, &out, 1, -15);
    EXPECT_EQ(out, 32767);
    nuvsPowerSpectr_16s_Sfs(&one, &zero, &out, 1, 1);
    EXPECT_EQ(out, 0);
    nuvsPowerSpectr_16s_Sfs(&three, &zero, &out, 1, 1);  // 9/2
    EXPECT_EQ(out, 4);
    const Nuv16sc far{32767, 1};  // atan(1/32767) * 2^29 is near 16384
    nuvsPhase_16sc_Sfs(&far, &out, 1, -29);
    EXPECT_NEAR(out, 16384, 1);
}

TEST(ComplexScaled, ThirtyTwoBitForms) {
    for (int sf = -40; sf <= 70; ++sf) {
        // fused sum of squares in double; the modulus adds 0.5 fused and steps odd ties down to even
        auto magModel = [sf](const Nuv32sc& c) {
            if (sf < -30) return Nuv32s((c.re | c.im) ? INT32_MAX : 0);
            const double re = c.re, im = c.im, m = std::sqrt(std::fma(re, re, im * im));
            const double t = std::fma(m, std::ldexp(1.0, -sf), 0.5);
            if (t >= 2147483648.0) return Nuv32s(INT32_MAX);
            int64_t i = int64_t(t);
            if ((i & 1) && double(i) == t) --i;
            return Nuv32s(i);
        };
        auto sqModel = [sf](const Nuv32sc& c) {
            if (sf > 63) return Nuv32s(0);
            if (sf < -30) return Nuv32s((c.re | c.im) ? INT32_MAX : 0);
            const double re = c.re, im = c.im;
            return rneSat<Nuv32s>(std::fma(re, re, im * im) * std::ldexp(1.0, -sf));
        };
        auto phModel = [sf](const Nuv32sc& c) { return rneSat<Nuv32s>(std::ldexp(ld(phaseModel(float(c.re), float(c.im))), -sf)); };
        auto fill = [](Nuv32sc& c) {
            auto [a, b] = intPair<Nuv32s>();
            const int sh = int(g()() % 32);  // small parts too, so scaled results stay in range
            c = {a >> sh, b >> sh};
        };
        auto bind = [sf](auto fn) { return [sf, fn](auto... a) { return fn(a..., sf); }; };
        sweep<Nuv32s, Nuv32sc>(bind(nuvsMagnitude_32sc_Sfs), fill, magModel);
        sweep<Nuv32s, Nuv32sc>(bind(nuvsMagSquared_32sc32s_Sfs), fill, sqModel);
        sweep<Nuv32s, Nuv32sc>(bind(nuvsPhase_32sc_Sfs), fill, phModel);
        // and both stay within one of the exact value
        for (int i = 0; i < 200 && sf >= -30; ++i) {
            Nuv32sc c;
            fill(c);
            const i128 n = i128(c.re) * c.re + i128(c.im) * c.im;
            EXPECT_LE(std::abs(int64_t(magModel(c)) - int64_t(std::min<i128>(rneSqrtScaled(n, sf), INT32_MAX))), 1);
            EXPECT_LE(std::abs(int64_t(sqModel(c)) - int64_t(std::min<i128>(rneShift(n, sf), INT32_MAX))), 1);
        }
    }
}

// ---------------------------------------------------------------- CartToPolar status combination
TEST(ComplexPolar, CartToPolarRunsBothCalls) {
    const int n = 37;
    nt::Buf<Nuv32fc> src(n);
    nt::Buf<Nuv32f> mag(n), ph(n), m2(n), p2(n);
    for (int i = 0; i < n; ++i) src[i] = {wide<float>(), wide<float>()};
    ASSERT_EQ(nuvsCartToPolar_32fc(src.data(), mag.data(), ph.data(), n), nuvStsOk);
    nuvsMagnitude_32fc(src.data(), m2.data(), n);
    nuvsPhase_32fc(src.data(), p2.data(), n);
    for (int i = 0; i < n; ++i) ASSERT_TRUE(same(mag[i], m2[i]) && same(ph[i], p2[i]));
    // a failed Magnitude does not stop the float forms: the phase is still written
    nt::Buf<Nuv32f> ph3(n), mag3(n);
    EXPECT_EQ(nuvsCartToPolar_32fc(src.data(), nullptr, ph3.data(), n), nuvStsNullPtr);
    for (int i = 0; i < n; ++i) ASSERT_TRUE(same(ph3[i], p2[i]));
    EXPECT_EQ(nuvsCartToPolar_32fc(src.data(), mag3.data(), nullptr, n), nuvStsNullPtr);
    for (int i = 0; i < n; ++i) ASSERT_TRUE(same(mag3[i], m2[i]));
    EXPECT_EQ(nuvsCartToPolar_32fc(src.data(), mag3.data(), ph3.data(), 0), nuvStsSize);
    std::vector<Nuv64f> re(n, 1.0), im(n, 1.0), m64(n);
    EXPECT_EQ(nuvsCartToPolar_64f(re.data(), im.data(), m64.data(), nullptr, n), nuvStsNullPtr);
    EXPECT_NEAR(m64[0], std::sqrt(2.0), 1e-15);
    // the scaled form stops after a failed Magnitude
    nt::Buf<Nuv16sc> s16(n);
    nt::Buf<Nuv16s> p16(n);
    EXPECT_EQ(nuvsCartToPolar_16sc_Sfs(s16.data(), nullptr, p16.data(), n, 0, 0), nuvStsNullPtr);
    EXPECT_TRUE(p16.untouched());
    for (int i = 0; i < n; ++i) s16[i] = {Nuv16s(i - 18), Nuv16s(3 * i)};
    nt::Buf<Nuv16s> m16(n), pp(n);
    EXPECT_EQ(nuvsCartToPolar_16sc_Sfs(s16.data(), m16.data(), p16.data(), n, 1, -12), nuvStsOk);
    nuvsMagnitude_16sc_Sfs(s16.data(), pp.data(), n, 1);
    for (int i = 0; i < n; ++i) ASSERT_EQ(m16[i], pp[i]);
    nuvsPhase_16sc_Sfs(s16.data(), pp.data(), n, -12);
    for (int i = 0; i < n; ++i) ASSERT_EQ(p16[i], pp[i]);
}

}  // namespace

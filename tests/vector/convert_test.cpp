// Conversion: every member against an independent model in long double or exact integers, over
// scales, rounding modes, special values, lengths and misaligned arrays; both half-float routes.
#include <algorithm>
#include <bit>
#include <cmath>
#include <functional>
#include <limits>

#include "support/generic.h"
#include "support/support.h"

NT_GENERIC_RULE(nuvsConvert_16s8s_Sfs, nt::NoNegativeLen);
NT_GENERIC_RULE(nuvsJoinScaled_32f16s_D2L, nt::SkipGeneric);
NT_GENERIC_RULE(nuvsJoinScaled_32f24s_D2L, nt::SkipGeneric);
NT_GENERIC_RULE(nuvsSplitScaled_16s32f_D2L, nt::SkipGeneric);
NT_GENERIC_RULE(nuvsSplitScaled_24s32f_D2L, nt::SkipGeneric);

namespace {

using LD = long double;
struct B3 { uint8_t b[3]; };  // a packed 24-bit element
int32_t s24(B3 v) { return int32_t(uint32_t(v.b[0] | v.b[1] << 8 | v.b[2] << 16) << 8) >> 8; }
uint32_t u24(B3 v) { return uint32_t(v.b[0] | v.b[1] << 8 | v.b[2] << 16); }
B3 b3(int64_t v) { return B3{{uint8_t(v), uint8_t(v >> 8), uint8_t(v >> 16)}}; }

// Rounding of an exact value by rndMode: 1 to nearest even, 0 toward zero, anything else away.
LD roundBy(LD v, int mode) { return mode == 1 ? nearbyintl(v) : (mode == 0 ? truncl(v) : roundl(v)); }
// Saturation to [lo, hi]; NaN gives the lowest value.
int64_t satL(LD v, int64_t lo, int64_t hi) {
    if (std::isnan(v) || v <= LD(lo)) return lo;
    return v >= LD(hi) ? hi : int64_t(v);
}
template <class T> int64_t satT(LD v) { return satL(v, std::numeric_limits<T>::min(), std::numeric_limits<T>::max()); }
int clampI(int v, int lo, int hi) { return v < lo ? lo : (v > hi ? hi : v); }

// Runs fn on src (placed `off` bytes off a boundary) and compares every element with model.
template <class S, class D, class Fn, class Model>
void expectModel(const std::vector<S>& src, Fn fn, Model model, const std::string& what, size_t off = 0) {
    const int n = int(src.size());
    nt::Buf<S> s(n, off);
    nt::Buf<D> d(n, off * sizeof(D) / sizeof(S) % 64);
    s.copyFrom(src);
    ASSERT_EQ(fn(s.data(), d.data(), n), nuvStsOk) << what;
    ASSERT_TRUE(d.intact()) << what;
    for (int i = 0; i < n; ++i) {
        const D want = model(src[size_t(i)]);
        if (std::memcmp(&d[i], &want, sizeof(D)) != 0) {
            FAIL() << what << " len " << n << " at " << i;
        }
    }
}

template <class S, class D, class Fn, class Model>
void sweep(std::vector<S> (*gen)(int), Fn fn, Model model, const char* what) {
    std::vector<int> lens = nt::sweepLengths();
    lens.insert(lens.end(), {8191, 8192, 8213});  // long runs take wide loads
    for (int n : lens)
        for (size_t off : {size_t(0), sizeof(S) == 8 ? size_t(8) : size_t(4)}) expectModel<S, D>(gen(n), fn, model, what, off);
}

template <class T> std::vector<T> ints(int n) { return nt::randomInts<T>(n); }
std::vector<B3> bytes3(int n) {
    std::vector<B3> out;
    for (int32_t x : nt::randomInts<int32_t>(n, -0x800000, 0xFFFFFF)) out.push_back(b3(x));
    if (n > 2) out[1] = b3(0x800000), out[2] = b3(0x7FFFFF);
    return out;
}
// Reals spread over the binades around 2^e, with ties, extremes and special values mixed in.
template <class T> std::vector<T> realsAround(int n, int e, LD top) {
    auto v = nt::randomReals<T>(n, -1.5 * double(top), 1.5 * double(top));
    const T sp[] = {T(NAN), -T(NAN), T(INFINITY), -T(INFINITY), T(-0.0), std::numeric_limits<T>::max(),
                    -std::numeric_limits<T>::max(), std::numeric_limits<T>::denorm_min(), T(2.5), T(-2.5), T(top), T(-top - 1)};
    for (size_t i = 0; i < v.size(); ++i) {
        if (i % 4 == 1) v[i] = T(std::round(v[i] * 2) / 2);  // half-integers: the ties
        if (i % 7 == 3) v[i] = T(std::ldexp(double(v[i]), -40));
        v[i] = T(std::ldexp(double(v[i]), e));
        if (i % 5 == 2) v[i] = sp[(i / 5) % (sizeof sp / sizeof *sp)];
    }
    return v;
}

TEST(ConvertWiden, EveryElementExact) {
    sweep<int8_t, int16_t>(ints<int8_t>, nuvsConvert_8s16s, [](int8_t x) { return int16_t(x); }, "8s16s");
    sweep<int8_t, float>(ints<int8_t>, nuvsConvert_8s32f, [](int8_t x) { return float(x); }, "8s32f");
    sweep<uint8_t, float>(ints<uint8_t>, nuvsConvert_8u32f, [](uint8_t x) { return float(x); }, "8u32f");
    sweep<int16_t, float>(ints<int16_t>, nuvsConvert_16s32f, [](int16_t x) { return float(x); }, "16s32f");
    sweep<int16_t, int32_t>(ints<int16_t>, nuvsConvert_16s32s, [](int16_t x) { return int32_t(x); }, "16s32s");
    sweep<uint16_t, float>(ints<uint16_t>, nuvsConvert_16u32f, [](uint16_t x) { return float(x); }, "16u32f");
    sweep<int32_t, double>(ints<int32_t>, nuvsConvert_32s64f, [](int32_t x) { return double(x); }, "32s64f");
    sweep<int32_t, int16_t>(ints<int32_t>, nuvsConvert_32s16s, [](int32_t x) { return int16_t(satT<int16_t>(x)); }, "32s16s");
    auto f24 = [](auto fn) { return [fn](const B3* s, auto* d, int n) { return fn(reinterpret_cast<const Nuv8u*>(s), d, n); }; };
    sweep<B3, float>(bytes3, f24(nuvsConvert_24s32f), [](B3 x) { return float(s24(x)); }, "24s32f");
    sweep<B3, int32_t>(bytes3, f24(nuvsConvert_24s32s), [](B3 x) { return s24(x); }, "24s32s");
    sweep<B3, float>(bytes3, f24(nuvsConvert_24u32f), [](B3 x) { return float(u24(x)); }, "24u32f");
    sweep<B3, uint32_t>(bytes3, f24(nuvsConvert_24u32u), [](B3 x) { return u24(x); }, "24u32u");
    auto fl = [](int n) { return realsAround<float>(n, 0, 1e30L); };
    sweep<float, double>(fl, nuvsConvert_32f64f, [](float x) { return double(x); }, "32f64f");
}

// Rounding to nearest of 32s to 32f, 64s to 64f and 64f to 32f; the model rounds in long double.
TEST(ConvertWiden, RoundingConversions) {
    sweep<int32_t, float>(ints<int32_t>, nuvsConvert_32s32f, [](int32_t x) { return float(LD(x)); }, "32s32f");
    auto i64 = [](int n) {
        auto v = nt::randomInts<int64_t>(n);
        for (size_t i = 0; i < v.size(); i += 3) v[i] = (v[i] >> 10) << 10 | 0x200;  // ties of the 53-bit rounding
        return v;
    };
    sweep<int64_t, double>(i64, nuvsConvert_64s64f, [](int64_t x) { return double(LD(x)); }, "64s64f");
    auto dl = [](int n) { return realsAround<double>(n, 0, 1e300L); };
    sweep<double, float>(dl, nuvsConvert_64f32f, [](double x) { return float(LD(x)); }, "64f32f");
}

// Scales: every one from -40 to 70, and the limits of all members.
const std::vector<int>& scales() {
    static const std::vector<int> v = [] {
        std::vector<int> r = {INT32_MIN, -5000, -1100, -1025, -1024, -1023, -1009, -1008, -993, -992, -200, -128, -127, -113, -112, -97, -96,
                              125, 126, 127, 200, 1022, 1023, 1100, 5000, INT32_MAX};
        for (int sf = -40; sf <= 70; ++sf) r.push_back(sf);
        return r;
    }();
    return v;
}

// Integer to float with scale: convert (rounding a 32-bit element to 24 bits), then times
// 2^-sf with sf limited to the member's range.
TEST(ConvertScaled, IntegerToFloat) {
    auto i16 = nt::randomInts<int16_t>(75);
    auto i32 = nt::randomInts<int32_t>(75);
    for (int sf : scales()) {
        auto fs = [sf](auto f) { return [f, sf](auto* s, auto* d, int n) { return f(s, d, n, sf); }; };
        expectModel<int16_t, float>(i16, fs(nuvsConvert_16s32f_Sfs), [&](int16_t x) { return float(ldexpl(x, -clampI(sf, -112, 126))); }, "16s32f", 2);
        expectModel<int32_t, float>(i32, fs(nuvsConvert_32s32f_Sfs), [&](int32_t x) { return float(ldexpl(float(LD(x)), -clampI(sf, -96, 126))); }, "32s32f", 4);
        expectModel<int16_t, double>(i16, fs(nuvsConvert_16s64f_Sfs), [&](int16_t x) { return double(ldexpl(x, -clampI(sf, -1008, 1022))); }, "16s64f");
        expectModel<int32_t, double>(i32, fs(nuvsConvert_32s64f_Sfs), [&](int32_t x) { return double(ldexpl(x, -clampI(sf, -992, 1022))); }, "32s64f");
        if (HasFatalFailure()) return;
    }
    // A destination overlapping its source runs as an ascending element-by-element loop.
    std::vector<int32_t> mem = nt::randomInts<int32_t>(40), ref = mem;
    for (int i = 0; i < 30; ++i) {
        const float f = float(LD(ref[size_t(i) + 3])) * 0.25f;
        std::memcpy(&ref[size_t(i) + 5], &f, 4);
    }
    ASSERT_EQ(nuvsConvert_32s32f_Sfs(mem.data() + 3, reinterpret_cast<Nuv32f*>(mem.data() + 5), 30, 2), nuvStsOk);
    EXPECT_EQ(mem, ref);
}

// Every scale and mode against the exact value, rounded by modeOf(mode) and saturated, with sf
// limited to [sfLo, sfHi] where the member builds its factor.  fn(s, d, n, mode, sf).
template <class S, class D, class Fn, class Gen>
void scaledCase(Fn fn, Gen gen, int64_t lo, int64_t hi, int sfLo, int sfHi, const char* what, int (*modeOf)(int),
                bool signedAtZero = false) {
    const int64_t lo0 = signedAtZero ? -(hi + 1) / 2 : lo, hi0 = signedAtZero ? hi / 2 : hi;
    for (int sf : scales()) {
        const std::vector<S> src = gen(sf);
        const int64_t l = sf == 0 ? lo0 : lo, h = sf == 0 ? hi0 : hi;
        for (int mode : {0, 1, 2, 7, -1}) {
            if (modeOf(mode) != mode && mode != 1) continue;  // one run where the mode is ignored
            expectModel<S, D>(src, [&](const S* s, D* d, int n) { return fn(s, d, n, mode, sf); },
                              [&](S x) {
                                  const int64_t v = satL(roundBy(ldexpl(LD(x), -clampI(sf, sfLo, sfHi)), modeOf(mode)), l, h);
                                  if constexpr (sizeof(D) == 3) return b3(v);
                                  else return D(v);
                              },
                              std::string(what) + " sf " + std::to_string(sf) + " mode " + std::to_string(mode), sizeof(S));
            if (::testing::Test::HasFatalFailure()) return;
        }
    }
}
template <class S, class D, class Fn>
void floatToIntCase(Fn fn, int64_t lo, int64_t hi, int sfLo, int sfHi, const char* what, int (*modeOf)(int), bool signedAtZero = false) {
    scaledCase<S, D>(fn, [hi](int sf) { return realsAround<S>(67, clampI(sf, -200, 200), LD(hi)); }, lo, hi, sfLo, sfHi, what, modeOf,
                     signedAtZero);
}

int asGiven(int m) { return m; }
int nearest(int) { return 1; }

TEST(ConvertScaled, FloatToInteger) {
    floatToIntCase<float, Nuv8s>(nuvsConvert_32f8s_Sfs, -128, 127, -127, 126, "32f8s", asGiven);
    floatToIntCase<float, Nuv8u>(nuvsConvert_32f8u_Sfs, 0, 255, -127, 126, "32f8u", asGiven);
    floatToIntCase<float, Nuv16s>(nuvsConvert_32f16s_Sfs, -32768, 32767, -127, 126, "32f16s", asGiven);
    floatToIntCase<float, Nuv16u>(nuvsConvert_32f16u_Sfs, 0, 65535, -127, 126, "32f16u", asGiven);
    floatToIntCase<float, Nuv32s>(nuvsConvert_32f32s_Sfs, INT32_MIN, INT32_MAX, -127, 126, "32f32s", asGiven);
    floatToIntCase<double, Nuv16s>(nuvsConvert_64f16s_Sfs, -32768, 32767, -1023, 1022, "64f16s", asGiven);
    floatToIntCase<double, Nuv32s>(nuvsConvert_64f32s_Sfs, INT32_MIN, INT32_MAX, -1023, 1022, "64f32s", asGiven);
    floatToIntCase<double, Nuv64s>(nuvsConvert_64f64s_Sfs, INT64_MIN, INT64_MAX, -5000, 5000, "64f64s", asGiven);
    // No mode argument: to nearest even.
    floatToIntCase<float, B3>([](const float* s, B3* d, int n, int, int sf) { return nuvsConvert_32f24s_Sfs(s, &d->b[0], n, sf); },
                              -0x800000, 0x7FFFFF, -127, 126, "32f24s", nearest);
    // 32f24u at scale 0 runs the 24s kernel: limits 8388607 and -8388608, stored as 24 bits.
    floatToIntCase<float, B3>([](const float* s, B3* d, int n, int, int sf) { return nuvsConvert_32f24u_Sfs(s, &d->b[0], n, sf); },
                              0, 0xFFFFFF, -127, 126, "32f24u", nearest, true);
    // The worked examples.
    const float src[] = {2.5f, -2.5f, 40000.0f, -40000.0f, NAN};
    const Nuv16s want[3][5] = {{2, -2, 32767, -32768, -32768}, {2, -2, 32767, -32768, -32768}, {3, -3, 32767, -32768, -32768}};
    for (int mode = 0; mode < 3; ++mode) {
        Nuv16s d[5];
        ASSERT_EQ(nuvsConvert_32f16s_Sfs(src, d, 5, mode, 0), nuvStsOk);
        EXPECT_EQ(std::memcmp(d, want[mode], sizeof d), 0) << mode;
    }
}

// Integer narrowing: the exact rule with the member's rounding and its scale limits.
template <class S, class D, class Fn>
void narrowCase(Fn fn, std::vector<S> src, int64_t lo, int64_t hi, int sfLo, int sfHi, const char* what, bool withMode) {
    scaledCase<S, D>(fn, [&](int) { return src; }, lo, hi, sfLo, sfHi, what, withMode ? asGiven : nearest);
}

TEST(ConvertScaled, IntegerNarrowing) {
    auto withTies = [](auto v) {
        for (size_t i = 0; i + 1 < v.size(); i += 3) v[i] = decltype(v[0] + 0)(v[i] >> 7 << 7 | 0x40);
        return v;
    };
    narrowCase<int32_t, Nuv16s>([](auto s, auto d, int n, int, int sf) { return nuvsConvert_32s16s_Sfs(s, d, n, sf); },
                                withTies(nt::randomInts<int32_t>(69)), -32768, 32767, -15, 31, "32s16s", false);
    narrowCase<int32_t, B3>([](auto s, B3* d, int n, int, int sf) { return nuvsConvert_32s24s_Sfs(s, &d->b[0], n, sf); },
                            withTies(nt::randomInts<int32_t>(69)), -0x800000, 0x7FFFFF, -31, 31, "32s24s", false);
    narrowCase<uint32_t, B3>([](auto s, B3* d, int n, int, int sf) { return nuvsConvert_32u24u_Sfs(s, &d->b[0], n, sf); },
                             withTies(nt::randomInts<uint32_t>(69)), 0, 0xFFFFFF, -31, 31, "32u24u", false);
    narrowCase<int16_t, Nuv8s>(nuvsConvert_16s8s_Sfs, withTies(nt::randomInts<int16_t>(69)), -128, 127, -100, 100, "16s8s", true);
    auto i64 = withTies(nt::randomInts<int64_t>(69));
    for (size_t i = 4; i < i64.size(); i += 5) i64[i] >>= (i * 7) % 64;  // all magnitudes
    narrowCase<int64_t, Nuv32s>(nuvsConvert_64s32s_Sfs, i64, INT32_MIN, INT32_MAX, -100, 100, "64s32s", true);
    // 2147483647 at scale 16 without overflow of the rounding bias.
    const Nuv32s top = INT32_MAX;
    Nuv16s d;
    ASSERT_EQ(nuvsConvert_32s16s_Sfs(&top, &d, 1, 16), nuvStsOk);
    EXPECT_EQ(d, 32767);
    // 16s8s tests the length for zero only, before the scale.
    nt::Buf<Nuv8s> out(4);
    const Nuv16s src[4] = {1, 2, 3, 4};
    EXPECT_EQ(nuvsConvert_16s8s_Sfs(src, out.data(), 0, 1, 0), nuvStsSize);
    EXPECT_EQ(nuvsConvert_16s8s_Sfs(src, out.data(), -3, 1, 3), nuvStsOk);
    EXPECT_TRUE(out.untouched());
}

// ---------------------------------------------------------------- half floats

LD halfValue(uint16_t h) {
    const int e = (h >> 10) & 31, f = h & 0x3FF;
    const LD mag = e == 31 ? (f ? LD(NAN) : LD(INFINITY)) : (e ? ldexpl(1024 + f, e - 25) : ldexpl(f, -24));
    return h & 0x8000 ? -mag : mag;
}

// Nearest (or toward zero) half of a float, by the spacing of half values in its binade.
uint16_t halfOf(float x, bool near) {
    uint32_t u;
    std::memcpy(&u, &x, 4);
    const uint16_t sign = uint16_t(u >> 16 & 0x8000);
    if (std::isnan(x)) return uint16_t(sign | 0x7E00 | (u >> 13 & 0x3FF));
    const LD a = fabsl(LD(x));
    if (std::isinf(x)) return sign | 0x7C00;
    int e;
    frexpl(a, &e);
    const LD ulp = ldexpl(1, std::max(e - 1, -14) - 10);
    const LD q = (near ? nearbyintl(a / ulp) : truncl(a / ulp)) * ulp;
    if (q >= 65536) return sign | (near ? 0x7C00 : 0x7BFF);
    if (q < ldexpl(1, -14)) return uint16_t(sign | int(q * ldexpl(1, 24)));
    frexpl(q, &e);
    return uint16_t(sign | (e + 14) << 10 | (int(ldexpl(q, 11 - e)) - 1024));
}

class ConvertHalf : public ::testing::TestWithParam<bool> {
protected:
    void SetUp() override { nuvcoreTestSetFeatures(GetParam() ? 0 : 1, 0); }  // false: integer route
    void TearDown() override { nuvcoreTestSetFeatures(0, 0); }
};

TEST_P(ConvertHalf, HalfToFloatEveryInput) {
    std::vector<Nuv16f> all(65536);
    for (int i = 0; i < 65536; ++i) all[size_t(i)] = uint16_t(i);
    auto model = [](uint16_t h) {
        float f = float(halfValue(h));
        if (std::isnan(f)) {  // quiet, with the fraction kept
            const uint32_t u = (h & 0x8000u) << 16 | 0x7FC00000u | (h & 0x3FFu) << 13;
            std::memcpy(&f, &u, 4);
        }
        return f;
    };
    expectModel<Nuv16f, float>(all, nuvsConvert_16f32f, model, "16f32f", 6);
    for (int n : nt::sweepLengths())
        expectModel<Nuv16f, float>(std::vector<Nuv16f>(all.begin() + 30000, all.begin() + 30000 + n), nuvsConvert_16f32f, model, "16f32f", 2);
}

TEST_P(ConvertHalf, ToHalf) {
    std::vector<float> src;
    for (uint32_t u : nt::randomInts<uint32_t>(200000)) {
        float f;
        std::memcpy(&f, &u, 4);
        src.push_back(f);
    }
    for (int i = 0; i < 65536; ++i) {
        const float h = float(halfValue(uint16_t(i)));
        src.push_back(h), src.push_back(std::nextafter(h, 0.0f)), src.push_back(std::nextafter(h, INFINITY));
        src.push_back(float(halfValue(uint16_t(i)) + halfValue(uint16_t(i + 1))) / 2);  // ties
    }
    for (int mode : {0, 1, 3, -1}) {
        auto fn = [mode](const float* s, Nuv16f* d, int n) { return nuvsConvert_32f16f(s, d, n, mode); };
        expectModel<float, Nuv16f>(src, fn, [mode](float x) { return halfOf(x, mode == 1); }, "32f16f " + std::to_string(mode), 4);
        auto fs = [mode](const Nuv16s* s, Nuv16f* d, int n) { return nuvsConvert_16s16f(s, d, n, mode); };
        expectModel<Nuv16s, Nuv16f>(nt::randomInts<int16_t>(4000), fs, [mode](int16_t x) { return halfOf(float(x), mode == 1); }, "16s16f", 2);
    }
    for (int n : nt::sweepLengths())
        expectModel<float, Nuv16f>(std::vector<float>(src.begin(), src.begin() + n), [](auto s, auto d, int k) { return nuvsConvert_32f16f(s, d, k, 1); },
                                   [](float x) { return halfOf(x, true); }, "32f16f sweep", 8);
}

TEST_P(ConvertHalf, HalfToIntegerEveryInputAndScale) {
    std::vector<Nuv16f> all(65536);
    for (int i = 0; i < 65536; ++i) all[size_t(i)] = uint16_t(i);
    std::vector<Nuv16f> some;
    for (int i = 0; i < 65536; i += 13) some.push_back(uint16_t(i));
    for (int sf : scales()) {
        for (int mode : {0, 1, 4}) {
            // Every input near the scales where the result is neither zero nor saturated.
            const auto& src = (sf >= -30 && sf <= 25 && mode != 4) ? all : some;
            auto fn = [&](const Nuv16f* s, Nuv16s* d, int n) { return nuvsConvert_16f16s_Sfs(s, d, n, mode, sf); };
            auto model = [&](uint16_t h) { return Nuv16s(satL(roundBy(ldexpl(halfValue(h), -clampI(sf, -200, 200)), mode == 1 ? 1 : 0), -32768, 32767)); };
            expectModel<Nuv16f, Nuv16s>(src, fn, model, "16f16s sf " + std::to_string(sf) + " mode " + std::to_string(mode), 2);
            if (HasFatalFailure()) return;
        }
    }
}

TEST_P(ConvertHalf, ModeTwoIsRefusedAfterPointersAndLength) {
    nt::Buf<Nuv16f> h(8);
    nt::Buf<Nuv16s> i(8);
    nt::Buf<Nuv32f> f(8);
    EXPECT_EQ(nuvsConvert_32f16f(f.data(), h.data(), 8, 2), nuvStsRoundMode);
    EXPECT_EQ(nuvsConvert_16s16f(i.data(), h.data(), 8, 2), nuvStsRoundMode);
    EXPECT_EQ(nuvsConvert_16f16s_Sfs(h.data(), i.data(), 8, 2, -20), nuvStsRoundMode);
    EXPECT_EQ(nuvsConvert_32f16f(f.data(), h.data(), 0, 2), nuvStsSize);
    EXPECT_EQ(nuvsConvert_16f16s_Sfs(nullptr, i.data(), 0, 2, 0), nuvStsNullPtr);
    EXPECT_TRUE(h.untouched() && i.untouched());
}

INSTANTIATE_TEST_SUITE_P(Routes, ConvertHalf, ::testing::Values(true, false), [](const auto& p) { return p.param ? "Processor" : "Integer"; });

// ---------------------------------------------------------------- JoinScaled, SplitScaled

TEST(ConvertJoinSplit, MappingAndInterleave) {
    for (int nCh : {1, 2, 3, 5}) {
        for (int len : {1, 7, 8, 9, 33}) {
            std::vector<std::vector<float>> ch;
            std::vector<const float*> ptr;
            for (int c = 0; c < nCh; ++c) {
                ch.push_back(nt::randomReals<float>(len, -1.2, 1.2));
                ch.back()[0] = std::vector<float>{2.0f, -2.0f, NAN, 1.0f, -1.0f}[size_t(c)];
                ptr.push_back(ch.back().data());
            }
            nt::Buf<Nuv16s> d16(nCh * len);
            nt::Buf<B3> d24(nCh * len, 1);
            ASSERT_EQ(nuvsJoinScaled_32f16s_D2L(ptr.data(), nCh, len, d16.data()), nuvStsOk);
            ASSERT_EQ(nuvsJoinScaled_32f24s_D2L(ptr.data(), nCh, len, &d24.data()->b[0]), nuvStsOk);
            std::vector<std::vector<float>> back16(size_t(nCh), std::vector<float>(size_t(len), 0.0f));
            auto back24 = back16;
            std::vector<float*> p16, p24;
            for (int c = 0; c < nCh; ++c) p16.push_back(back16[size_t(c)].data()), p24.push_back(back24[size_t(c)].data());
            ASSERT_EQ(nuvsSplitScaled_16s32f_D2L(d16.data(), p16.data(), nCh, len), nuvStsOk);
            ASSERT_EQ(nuvsSplitScaled_24s32f_D2L(&d24.data()->b[0], p24.data(), nCh, len), nuvStsOk);
            ASSERT_TRUE(d16.intact() && d24.intact());
            const double r24 = std::bit_cast<double>(0x3E8000001000000Full), h24 = std::bit_cast<double>(0x3E7000001000000Full);
            for (int c = 0; c < nCh; ++c) {
                for (int i = 0; i < len; ++i) {
                    const float x = ch[size_t(c)][size_t(i)];
                    const float v = std::isnan(x) ? x : std::max(-1.0f, std::min(1.0f, x));
                    const auto s16 = Nuv16s(satL(nearbyintl(v * 32767.5f + -0.5f), -32768, 32767));
                    const auto s24v = int32_t(satL(nearbyintl(double(v) * 8388607.5 + -0.5), -0x800000, 0x7FFFFF));
                    const int at = c + i * nCh;
                    ASSERT_EQ(d16[at], s16) << nCh << " " << c << " " << i;
                    ASSERT_EQ(s24(d24[at]), s24v) << nCh << " " << c << " " << i;
                    EXPECT_EQ(back16[size_t(c)][size_t(i)], float(s16) * 3.051804378628731e-05f + 1.5259021893143654e-05f);
                    EXPECT_EQ(back24[size_t(c)][size_t(i)], float(double(s24v) * r24 + h24));
                }
            }
            EXPECT_EQ(d16[0], nCh > 0 ? 32767 : 0);
        }
    }
}

TEST(ConvertJoinSplit, CheckOrder) {
    float a[4] = {}, b[4] = {};
    const float* good[2] = {a, b};
    const float* oneNull[2] = {a, nullptr};
    float* outs[2] = {a, b};
    float* outNull[2] = {nullptr, b};
    Nuv16s d[8];
    EXPECT_EQ(nuvsJoinScaled_32f16s_D2L(nullptr, 0, 0, nullptr), nuvStsNullPtr);  // interleaved array first
    EXPECT_EQ(nuvsJoinScaled_32f16s_D2L(nullptr, 0, 4, d), nuvStsSize);          // then the counts
    EXPECT_EQ(nuvsJoinScaled_32f16s_D2L(nullptr, 2, 4, d), nuvStsNullPtr);       // then the pointer array
    EXPECT_EQ(nuvsJoinScaled_32f16s_D2L(oneNull, 2, 4, d), nuvStsNullPtr);       // then each channel
    EXPECT_EQ(nuvsJoinScaled_32f16s_D2L(good, 2, -1, d), nuvStsSize);
    EXPECT_EQ(nuvsJoinScaled_32f24s_D2L(oneNull, 2, 0, reinterpret_cast<Nuv8u*>(d)), nuvStsSize);
    EXPECT_EQ(nuvsSplitScaled_16s32f_D2L(nullptr, nullptr, 0, 0), nuvStsNullPtr);
    EXPECT_EQ(nuvsSplitScaled_16s32f_D2L(d, nullptr, 1, 0), nuvStsSize);
    EXPECT_EQ(nuvsSplitScaled_16s32f_D2L(d, nullptr, 1, 1), nuvStsNullPtr);
    EXPECT_EQ(nuvsSplitScaled_24s32f_D2L(reinterpret_cast<Nuv8u*>(d), outNull, 2, 1), nuvStsNullPtr);
    EXPECT_EQ(nuvsSplitScaled_24s32f_D2L(reinterpret_cast<Nuv8u*>(d), outs, 2, 1), nuvStsOk);
}

// ---------------------------------------------------------------- the caller's rounding state

// Every member on the same data under the caller's default state and under round-up: the same
// bytes out, and the control word (sticky flags aside) as the caller left it.
TEST(ConvertFpState, CallerRoundingModeNeitherChangesResultsNorIsChanged) {
    const int n = 45;
    auto f32 = realsAround<float>(n, 3, 1e4L);
    auto f64 = realsAround<double>(n, 3, 1e4L);
    auto i16 = nt::randomInts<int16_t>(n);
    auto i32 = nt::randomInts<int32_t>(n);
    auto i64 = nt::randomInts<int64_t>(n);
    std::vector<uint8_t> out(8 * n);
    uint8_t* o = out.data();
    const float* chans[3] = {f32.data(), f32.data() + 15, f32.data() + 30};
    float* outs[3] = {reinterpret_cast<float*>(o), reinterpret_cast<float*>(o) + 15, reinterpret_cast<float*>(o) + 30};
    auto* h = reinterpret_cast<const Nuv16f*>(i16.data());
    const std::vector<std::function<NuvStatus()>> calls = {
        [&] { return nuvsConvert_32s32f(i32.data(), (Nuv32f*)o, n); },
        [&] { return nuvsConvert_64s64f(i64.data(), (Nuv64f*)o, n); },
        [&] { return nuvsConvert_64f32f(f64.data(), (Nuv32f*)o, n); },
        [&] { return nuvsConvert_32s32f_Sfs(i32.data(), (Nuv32f*)o, n, 3); },
        [&] { return nuvsConvert_32f24s_Sfs(f32.data(), o, n, -2); },
        [&] { return nuvsConvert_32f16s_Sfs(f32.data(), (Nuv16s*)o, n, 1, 0); },
        [&] { return nuvsConvert_32f8u_Sfs(f32.data(), o, n, 2, 5); },
        [&] { return nuvsConvert_32f32s_Sfs(f32.data(), (Nuv32s*)o, n, 1, -4); },
        [&] { return nuvsConvert_64f32s_Sfs(f64.data(), (Nuv32s*)o, n, 1, 0); },
        [&] { return nuvsConvert_64f64s_Sfs(f64.data(), (Nuv64s*)o, n, 1, -3); },
        [&] { return nuvsConvert_16f16s_Sfs(h, (Nuv16s*)o, n, 1, -5); },
        [&] { return nuvsConvert_32f16f(f32.data(), (Nuv16f*)o, n, 1); },
        [&] { return nuvsJoinScaled_32f16s_D2L(chans, 3, 15, (Nuv16s*)o); },
        [&] { return nuvsJoinScaled_32f24s_D2L(chans, 3, 15, o); },
        [&] { return nuvsSplitScaled_16s32f_D2L(i16.data(), outs, 3, 15); },
        [&] { return nuvsSplitScaled_24s32f_D2L(reinterpret_cast<const Nuv8u*>(i32.data()), outs, 3, 15); },
    };
    const unsigned saved = _mm_getcsr();
    for (size_t k = 0; k < calls.size(); ++k) {
        std::fill(out.begin(), out.end(), 0);
        ASSERT_EQ(calls[k](), nuvStsOk) << k;
        const auto plain = out;
        for (unsigned rc : {0x2000u, 0x4000u, 0x6000u}) {
            _mm_setcsr((saved & ~0x603Fu) | rc);
            std::fill(out.begin(), out.end(), 0);
            const NuvStatus st = calls[k]();
            const unsigned after = _mm_getcsr();
            _mm_setcsr(saved);
            ASSERT_EQ(st, nuvStsOk) << k;
            EXPECT_EQ(after & ~0x3Fu, (saved & ~0x603Fu) | rc) << "call " << k;
            EXPECT_EQ(out, plain) << "call " << k << " rounding " << rc;
        }
    }
}

// Conversions to half floats raise no exception on the caller's side: not with exceptions unmasked,
// and no sticky flag is left set, on either route.
TEST(ConvertState, HalfConversionsKeepTheCallersFlags) {
    const std::vector<Nuv32f> x = {1e30f, std::numeric_limits<float>::quiet_NaN(), 0.1f, -7e-8f, 65519.0f, 1.0f, -1e-40f, 3.0f, 2.5f};
    const std::vector<Nuv16s> y = {32767, -32768, 2049, 1, 0, -3, 4097, 12345, -9};
    std::vector<Nuv16f> out(x.size());
    const unsigned saved = _mm_getcsr();
    for (int integerRoute : {0, 1}) {
        nuvcoreTestSetFeatures(integerRoute, 0);
        for (int mode : {0, 1}) {
            _mm_setcsr((saved & ~0x1FBFu) | 0x0100u);   // flags clear, only denormals masked
            const NuvStatus a = nuvsConvert_32f16f(x.data(), out.data(), int(x.size()), mode);
            const NuvStatus b = nuvsConvert_16s16f(y.data(), out.data(), int(y.size()), mode);
            const unsigned after = _mm_getcsr();
            _mm_setcsr(saved);
            EXPECT_EQ(a, nuvStsOk);
            EXPECT_EQ(b, nuvStsOk);
            EXPECT_EQ(after, (saved & ~0x1FBFu) | 0x0100u) << std::hex << after << " integer route " << integerRoute;
        }
    }
    nuvcoreTestSetFeatures(0, 0);
}

// The extended-precision conversion rounds by its own x87 settings, not the caller's: the same
// results under rounding toward zero or upward and under 53-bit precision, and the caller's word back.
TEST(ConvertState, ExtendedPrecisionIgnoresCallerX87State) {
    const std::vector<Nuv64f> x = {2.5, 3.5, -2.5, 7.75, -0.5, 0x1p60 + 1024.0, -0x1p62 - 2048.0, 1.5e-300, 0x1.fffffffffffffp62};
    const int n = int(x.size());
    auto cw = [] { unsigned short w; __asm__ volatile("fnstcw %0" : "=m"(w)); return w; };
    auto setCw = [](unsigned short w) { __asm__ volatile("fldcw %0" : : "m"(w)); };
    const unsigned short normal = cw();
    for (int mode : {0, 1, 2}) {
        for (int sf : {-3, 0, 1}) {
            std::vector<Nuv64s> want(x.size()), got(x.size());
            ASSERT_EQ(nuvsConvert_64f64s_Sfs(x.data(), want.data(), n, mode, sf), nuvStsOk);
            for (unsigned short caller : {uint16_t(normal | 0x0C00), uint16_t((normal & ~0x0C00) | 0x0800), uint16_t((normal & ~0x0F00) | 0x0200)}) {
                setCw(caller);
                const NuvStatus st = nuvsConvert_64f64s_Sfs(x.data(), got.data(), n, mode, sf);
                const unsigned short after = cw();
                setCw(normal);
                EXPECT_EQ(st, nuvStsOk);
                EXPECT_EQ(after, caller);
                EXPECT_EQ(got, want) << "mode " << mode << " sf " << sf << " caller " << std::hex << caller;
            }
        }
    }
}

}  // namespace

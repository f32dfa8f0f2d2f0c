// Threshold family: every member against independent per-element models over lengths, alignments,
// in-place and out-of-place forms and special values; complex rescaling bit for bit against a scalar
// model of its formula and against long double; the order of argument checks.
#include <immintrin.h>

#include <cfloat>
#include <functional>
#include <string>
#include <tuple>

#include "support/support.h"

namespace {

template <class T> struct RealOf { using type = T; };
template <> struct RealOf<Nuv16sc> { using type = Nuv16s; };
template <> struct RealOf<Nuv32fc> { using type = Nuv32f; };
template <> struct RealOf<Nuv64fc> { using type = Nuv64f; };
template <class T> using Lv = typename RealOf<T>::type;

// The arguments of any member: `level` is levelLT of LTValGTVal, `value` its valueLT.
template <class T> struct Args { Lv<T> level; T value; Lv<T> levelGT; T valueGT; int relOp; };
template <class T> using Call = std::function<NuvStatus(const T*, T*, int, const Args<T>&)>;

// One adapter for every argument list, told apart by the count and types of the trailing scalars;
// an in-place form finds its source already in the destination.
template <class T, class... A, class F> NuvStatus pass(F f, const T* s, T* d, int n, const Args<T>& a) {
    auto go = [&](auto... x) {
        if constexpr (std::is_invocable_v<F, const T*, T*, int, A...>) return f(s, d, n, A(x)...);
        else return f(d, n, A(x)...);
    };
    if constexpr (sizeof...(A) == 1) return go(a.level);
    else if constexpr (sizeof...(A) == 4) return go(a.level, a.value, a.levelGT, a.valueGT);
    else if constexpr (std::is_same_v<std::tuple_element_t<1, std::tuple<A...>>, int>) return go(a.level, a.relOp);
    else return go(a.level, a.value);
}
template <class T, class... A> Call<T> wrap(NuvStatus (*f)(const T*, T*, int, A...)) {
    return [f](const T* s, T* d, int n, const Args<T>& a) { return pass<T, A...>(f, s, d, n, a); };
}
template <class T, class... A> Call<T> wrap(NuvStatus (*f)(T*, int, A...)) {
    return [f](const T* s, T* d, int n, const Args<T>& a) { return pass<T, A...>(f, s, d, n, a); };
}

enum class Rule { Plain, LT, GT, LTVal, GTVal, LTAbs, GTAbs, LTInv, LTValGTVal };

// ---- real model, written from the rule table with explicit NaN and sign handling
template <class T> T realModel(Rule r, T x, const Args<T>& a) {
    const T l = a.level;
    if (r == Rule::Plain) r = a.relOp == 0 ? Rule::LT : Rule::GT;
    bool nan = x != x;
    switch (r) {
    case Rule::LT: return nan || !(x > l) ? l : x;
    case Rule::GT: return nan || !(x < l) ? l : x;
    case Rule::LTVal: return nan || x < l ? a.value : x;
    case Rule::GTVal: return nan || x > l ? a.value : x;
    case Rule::LTAbs: {
        if (nan) return x;
        long double ax = x < 0 ? -(long double)x : (long double)x;
        bool negative = std::signbit((long double)x) && x != 0;
        return ax < l ? (negative ? T(-l) : l) : x;
    }
    case Rule::GTAbs: {
        // A NaN element gives level, also a level of zero: the larger of -0 and +0 is +0.
        if (nan) return l;
        T t = x < l ? x : l;
        return T(-l) > t ? T(-l) : t;
    }
    case Rule::LTInv: {
        if constexpr (std::is_floating_point_v<T>) {
            if (nan) return x;
            T mag = std::fabs(x) >= l ? std::fabs(x) : l;
            return T(1) / (std::signbit(x) ? -mag : mag);
        }
        return x;
    }
    case Rule::LTValGTVal: return x < l ? a.value : x > a.levelGT ? a.valueGT : x;
    default: return x;
    }
}

template <class T> std::vector<T> realData(int n) {
    std::vector<T> v;
    if constexpr (std::is_integral_v<T>) {
        v = nt::randomInts<T>(n);
        const T sp[] = {std::numeric_limits<T>::min(), std::numeric_limits<T>::max(), 0, -1, 1, 1000, -1000, 999, 1001, -999, -1001, 20000, -20000};
        for (int i = 0; i < n; i += 3) v[size_t(i)] = sp[size_t(i / 3) % std::size(sp)];
    } else {
        v = nt::randomReals<T>(n);
        const T inf = std::numeric_limits<T>::infinity(), nan = std::numeric_limits<T>::quiet_NaN();
        const T sp[] = {nan, -nan, T(0), T(-0.0), inf, -inf, T(2.5), T(-2.5), std::nextafter(T(2.5), T(0)),
                        std::numeric_limits<T>::denorm_min(), -std::numeric_limits<T>::max(), std::numeric_limits<T>::max(),
                        T(0.5), T(-0.5), T(5), T(40)};
        for (int i = 0; i < n; i += 3) v[size_t(i)] = sp[size_t(i / 3) % std::size(sp)];
    }
    return v;
}

template <class T> std::vector<Args<T>> realArgs(Rule r) {
    const bool integral = std::is_integral_v<T>;
    const T lev = integral ? T(1000) : T(2.5), val = integral ? T(-7) : T(-7.25);
    switch (r) {
    case Rule::Plain: return {{lev, 0, 0, 0, 0}, {lev, 0, 0, 0, 4}, {0, 0, 0, 0, 0}, {0, 0, 0, 0, 4}, {T(-lev), 0, 0, 0, 4}};
    case Rule::LTAbs: case Rule::GTAbs: case Rule::LTInv: return {{lev, 0, 0, 0, 0}, {0, 0, 0, 0, 0}};
    case Rule::LTValGTVal:
        return {{T(-lev), val, T(5), T(99), 0}, {T(5), val, T(5), T(99), 0}, {T(-20000), val, T(20000), T(-3), 0}};
    default: return {{lev, val, 0, 0, 0}, {0, val, 0, 0, 0}, {T(-lev), val, 0, 0, 0}};
    }
}

std::vector<int> lengths() {
    std::vector<int> v = nt::sweepLengths();
    v.insert(v.end(), {1199, 1200, 1237});   // the no-peel limit of LTAbs_32f
    return v;
}

template <class T> bool sameValue(T a, T b) {
    if constexpr (std::is_floating_point_v<T>) return nt::sameBits(a, b) || (a != a && b != b);
    else return a == b;
}

template <class T> void checkReal(Rule rule, const Call<T>& oop, const Call<T>& inp) {
    for (int n : lengths())
        for (size_t off : {size_t(0), sizeof(T), 5 * sizeof(T)})
            for (const Args<T>& a : realArgs<T>(rule))
                for (bool inPlace : {false, true}) {
                    std::vector<T> x = realData<T>(n);
                    nt::Buf<T> src(n, off), dst(n, off + 4);
                    src.copyFrom(x);
                    if (inPlace) dst.copyFrom(x);
                    NuvStatus st = (inPlace ? inp : oop)(src.data(), dst.data(), n, a);
                    bool zero = false;
                    for (int i = 0; i < n; ++i) zero |= x[size_t(i)] == T(0);
                    const NuvStatus want = rule == Rule::LTInv && a.level == 0 && zero ? nuvStsInvZeroWarn : nuvStsOk;
                    ASSERT_EQ(st, want) << "len " << n << " off " << off << " in place " << inPlace;
                    ASSERT_TRUE(dst.intact() && src.intact());
                    for (int i = 0; i < n; ++i) {
                        T want = realModel(rule, x[size_t(i)], a);
                        ASSERT_TRUE(sameValue(dst[i], want)) << "len " << n << " off " << off << " in place " << inPlace
                                                             << " level " << +a.level << " op " << a.relOp << " i " << i
                                                             << " x " << +x[size_t(i)] << " got " << +dst[i] << " want " << +want;
                    }
                }
}

template <class C> bool sameCplx(C a, C b) { return sameValue(a.re, b.re) && sameValue(a.im, b.im); }

// ---- complex model: the rescaling formula step by step, and the choices at its edges
template <class F> F rsqrtOf(F m) { return F(_mm_cvtss_f32(_mm_rsqrt_ss(_mm_set_ss(float(m))))); }

template <class C> C rescaleModel(C z, Lv<C> level, bool floor) {
    using F = Lv<C>;
    if constexpr (std::is_integral_v<F>) {
        int64_t m = int64_t(z.re) * z.re + int64_t(z.im) * z.im, l2 = int64_t(level) * level;
        if (!(floor ? m < l2 : m > l2)) return z;
        if (m == 0) return C{level, 0};
        float mf = float(m), y = rsqrtOf(mf), s = (0.5f * float(level) * y) * (3.0f - mf * y * y);
        auto rnd = [](float v) { return F(std::max(-32768.0f, std::min(32767.0f, std::nearbyint(v)))); };
        return C{rnd(float(z.re) * s), rnd(float(z.im) * s)};
    } else {
        F m = z.re * z.re + z.im * z.im;
        if (!(floor ? m < level * level : m > level * level)) return z;
        if (m >= F(FLT_MIN) && m <= F(FLT_MAX)) {
            F y = rsqrtOf(m), s = (F(0.5) * level * y) * (F(3) - m * y * y);
            return C{z.re * s, z.im * s};
        }
        long double a = z.re, b = z.im, lm = std::sqrt(a * a + b * b);
        return lm == 0 ? C{level, 0} : C{F(a * level / lm), F(b * level / lm)};
    }
}

// Complex LTInv, exact in long double: 1/z with |z| first raised to level is conj(z) / (|z| max(|z|, level)).
// A zero element becomes (level, 0) before the reciprocal, or with level 0 gives infinity with the sign
// of its real part; an infinite part gives signed zeros.  Results are compared within a few units in
// the last place of the larger part.
template <class C> ::testing::AssertionResult nearInv(C got, C z, long double level) {
    using F = Lv<C>;
    const long double a = z.re, b = z.im, r = std::hypot(a, b);
    C want;
    if (std::isnan(r)) want = C{F(NAN), F(NAN)};
    else if (r == 0) want = level > 0 ? C{F(1 / level), F(-b)} : C{F(std::copysign(INFINITY, a)), F(-b)};
    else if (std::isinf(r)) want = C{std::copysign(F(0), F(a)), std::copysign(F(0), F(-b))};
    else {
        const long double d = r * std::max(r, level), re = a / d, im = -b / d;
        const long double tol = std::max<long double>(4 * std::numeric_limits<F>::epsilon() * std::max(std::fabs(re), std::fabs(im)),
                                                      2 * std::numeric_limits<F>::denorm_min());
        const bool overflow = std::isinf(F(re)) || std::isinf(F(im));
        if (overflow ? got.re == F(re) && got.im == F(im) : std::fabs(got.re - re) <= tol && std::fabs(got.im - im) <= tol)
            return ::testing::AssertionSuccess();
        return ::testing::AssertionFailure() << "want " << double(re) << "," << double(im);
    }
    if (sameCplx(got, want) || (std::isnan(got.re) && std::isnan(want.re) && std::isnan(got.im))) return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << "want " << +want.re << "," << +want.im;
}

template <class C> C cplxModel(Rule r, C z, const Args<C>& a) {
    using F = Lv<C>;
    if (r == Rule::LT || r == Rule::GT || r == Rule::Plain) {
        const bool floor = r == Rule::Plain ? a.relOp == 0 : r == Rule::LT;
        if (a.level == 0) return floor ? z : C{0, 0};   // level 0: a copy, or all zeros
        return rescaleModel(z, a.level, floor);
    }
    long double m = (long double)z.re * z.re + (long double)z.im * z.im, l2 = (long double)a.level * a.level;
    if constexpr (std::is_floating_point_v<F>) {
        m = F(z.re * z.re + z.im * z.im), l2 = F(a.level * a.level);   // compared in the element's precision
    }
    bool rep = r == Rule::LTVal ? !(m >= l2) : !(m <= l2);
    return rep ? a.value : z;
}

template <class C> std::vector<C> cplxData(int n) {
    using F = Lv<C>;
    std::vector<F> v = std::is_integral_v<F> ? nt::randomInts<F>(2 * n) : nt::randomReals<F>(2 * n, -8, 8);
    std::vector<C> z(static_cast<size_t>(n));
    for (int i = 0; i < n; ++i) z[size_t(i)] = C{v[size_t(2 * i)], v[size_t(2 * i + 1)]};
    const F big = std::is_integral_v<F> ? F(-32768) : F(1e30), tiny = std::is_integral_v<F> ? F(1) : F(1e-30);
    // (on, 0) lies exactly on the level of the sweeps: kept by every strict rule
    const F on = std::is_integral_v<F> ? F(3000) : F(2.5);
    const C sp[] = {{0, 0}, {F(-0.0), 0}, {F(3), F(-4)}, {tiny, tiny}, {big, F(0)}, {big, big}, {F(-1), F(1)}, {on, F(0)}, {F(0), -on}};
    for (int i = 0; i < n; i += 4) z[size_t(i)] = sp[size_t(i / 4) % std::size(sp)];
    return z;
}

template <class C> void checkCplx(Rule rule, const Call<C>& oop, const Call<C>& inp) {
    using F = Lv<C>;
    const F lev = std::is_integral_v<F> ? F(3000) : F(2.5);
    std::vector<Args<C>> args = {{lev, {F(7), F(-1)}, 0, {}, 0}, {lev, {F(7), F(-1)}, 0, {}, 4}, {0, {F(7), F(-1)}, 0, {}, 0}, {0, {}, 0, {}, 4}};
    for (int n : nt::sweepLengths())
        for (size_t off : {size_t(0), 2 * sizeof(F), 3 * sizeof(F)})
            for (const Args<C>& a : args)
                for (bool inPlace : {false, true}) {
                    std::vector<C> x = cplxData<C>(n);
                    nt::Buf<C> src(n, off), dst(n, off);
                    src.copyFrom(x);
                    if (inPlace) dst.copyFrom(x);
                    NuvStatus st = (inPlace ? inp : oop)(src.data(), dst.data(), n, a);
                    ASSERT_EQ(st, rule == Rule::LTInv && a.level == 0 ? nuvStsInvZeroWarn : nuvStsOk);
                    ASSERT_TRUE(dst.intact() && src.intact());
                    for (int i = 0; i < n; ++i) {
                        const C z = x[size_t(i)], got = dst[i];
                        if constexpr (std::is_floating_point_v<F>) {
                            if (rule == Rule::LTInv) {
                                ASSERT_TRUE(nearInv(got, z, a.level)) << "len " << n << " level " << a.level << " i " << i << " z " << z.re << "," << z.im;
                                continue;
                            }
                        }
                        const C want = cplxModel(rule, z, a);
                        ASSERT_TRUE(sameCplx(got, want)) << "len " << n << " op " << a.relOp << " level " << +a.level << " i " << i
                                                         << " z " << +z.re << "," << +z.im << " got " << +got.re << "," << +got.im;
                        // A rescaled element lies on its own ray at magnitude level, to the accuracy of one step.
                        long double m = std::hypot((long double)z.re, (long double)z.im);
                        bool rescaled = (rule == Rule::Plain || rule == Rule::LT || rule == Rule::GT) && a.level > 0 &&
                                        !sameCplx(got, z) && m > 1e-20L && m < 1e20L;
                        if (rescaled) {
                            long double tol = std::is_integral_v<F> ? 1.0L : 1e-6L * a.level;
                            EXPECT_NEAR(z.re * (long double)a.level / m, got.re, tol);
                            EXPECT_NEAR(z.im * (long double)a.level / m, got.im, tol);
                        }
                    }
                }
}

struct Case {
    std::string name;
    std::function<void()> run;
};
void PrintTo(const Case& c, std::ostream* os) { *os << c.name; }
template <class T, class O, class I> Case member(const char* name, Rule r, O oop, I inp) {
    Call<T> o = wrap(oop), p = wrap(inp);
    if constexpr (std::is_class_v<T>) return {name, [=] { checkCplx<T>(r, o, p); }};
    else return {name, [=] { checkReal<T>(r, o, p); }};
}

std::vector<Case> cases() {
    using R = Rule;
    return {
        member<Nuv16s>("Plain_16s", R::Plain, nuvsThreshold_16s, nuvsThreshold_16s_I),
        member<Nuv32f>("Plain_32f", R::Plain, nuvsThreshold_32f, nuvsThreshold_32f_I),
        member<Nuv64f>("Plain_64f", R::Plain, nuvsThreshold_64f, nuvsThreshold_64f_I),
        member<Nuv16sc>("Plain_16sc", R::Plain, nuvsThreshold_16sc, nuvsThreshold_16sc_I),
        member<Nuv32fc>("Plain_32fc", R::Plain, nuvsThreshold_32fc, nuvsThreshold_32fc_I),
        member<Nuv64fc>("Plain_64fc", R::Plain, nuvsThreshold_64fc, nuvsThreshold_64fc_I),
        member<Nuv16s>("LT_16s", R::LT, nuvsThreshold_LT_16s, nuvsThreshold_LT_16s_I),
        member<Nuv32s>("LT_32s", R::LT, nuvsThreshold_LT_32s, nuvsThreshold_LT_32s_I),
        member<Nuv32f>("LT_32f", R::LT, nuvsThreshold_LT_32f, nuvsThreshold_LT_32f_I),
        member<Nuv64f>("LT_64f", R::LT, nuvsThreshold_LT_64f, nuvsThreshold_LT_64f_I),
        member<Nuv16sc>("LT_16sc", R::LT, nuvsThreshold_LT_16sc, nuvsThreshold_LT_16sc_I),
        member<Nuv32fc>("LT_32fc", R::LT, nuvsThreshold_LT_32fc, nuvsThreshold_LT_32fc_I),
        member<Nuv64fc>("LT_64fc", R::LT, nuvsThreshold_LT_64fc, nuvsThreshold_LT_64fc_I),
        member<Nuv16s>("GT_16s", R::GT, nuvsThreshold_GT_16s, nuvsThreshold_GT_16s_I),
        member<Nuv32s>("GT_32s", R::GT, nuvsThreshold_GT_32s, nuvsThreshold_GT_32s_I),
        member<Nuv32f>("GT_32f", R::GT, nuvsThreshold_GT_32f, nuvsThreshold_GT_32f_I),
        member<Nuv64f>("GT_64f", R::GT, nuvsThreshold_GT_64f, nuvsThreshold_GT_64f_I),
        member<Nuv16sc>("GT_16sc", R::GT, nuvsThreshold_GT_16sc, nuvsThreshold_GT_16sc_I),
        member<Nuv32fc>("GT_32fc", R::GT, nuvsThreshold_GT_32fc, nuvsThreshold_GT_32fc_I),
        member<Nuv64fc>("GT_64fc", R::GT, nuvsThreshold_GT_64fc, nuvsThreshold_GT_64fc_I),
        member<Nuv16s>("LTVal_16s", R::LTVal, nuvsThreshold_LTVal_16s, nuvsThreshold_LTVal_16s_I),
        member<Nuv32f>("LTVal_32f", R::LTVal, nuvsThreshold_LTVal_32f, nuvsThreshold_LTVal_32f_I),
        member<Nuv64f>("LTVal_64f", R::LTVal, nuvsThreshold_LTVal_64f, nuvsThreshold_LTVal_64f_I),
        member<Nuv16sc>("LTVal_16sc", R::LTVal, nuvsThreshold_LTVal_16sc, nuvsThreshold_LTVal_16sc_I),
        member<Nuv32fc>("LTVal_32fc", R::LTVal, nuvsThreshold_LTVal_32fc, nuvsThreshold_LTVal_32fc_I),
        member<Nuv64fc>("LTVal_64fc", R::LTVal, nuvsThreshold_LTVal_64fc, nuvsThreshold_LTVal_64fc_I),
        member<Nuv16s>("GTVal_16s", R::GTVal, nuvsThreshold_GTVal_16s, nuvsThreshold_GTVal_16s_I),
        member<Nuv32f>("GTVal_32f", R::GTVal, nuvsThreshold_GTVal_32f, nuvsThreshold_GTVal_32f_I),
        member<Nuv64f>("GTVal_64f", R::GTVal, nuvsThreshold_GTVal_64f, nuvsThreshold_GTVal_64f_I),
        member<Nuv16sc>("GTVal_16sc", R::GTVal, nuvsThreshold_GTVal_16sc, nuvsThreshold_GTVal_16sc_I),
        member<Nuv32fc>("GTVal_32fc", R::GTVal, nuvsThreshold_GTVal_32fc, nuvsThreshold_GTVal_32fc_I),
        member<Nuv64fc>("GTVal_64fc", R::GTVal, nuvsThreshold_GTVal_64fc, nuvsThreshold_GTVal_64fc_I),
        member<Nuv16s>("LTAbs_16s", R::LTAbs, nuvsThreshold_LTAbs_16s, nuvsThreshold_LTAbs_16s_I),
        member<Nuv32s>("LTAbs_32s", R::LTAbs, nuvsThreshold_LTAbs_32s, nuvsThreshold_LTAbs_32s_I),
        member<Nuv32f>("LTAbs_32f", R::LTAbs, nuvsThreshold_LTAbs_32f, nuvsThreshold_LTAbs_32f_I),
        member<Nuv64f>("LTAbs_64f", R::LTAbs, nuvsThreshold_LTAbs_64f, nuvsThreshold_LTAbs_64f_I),
        member<Nuv16s>("GTAbs_16s", R::GTAbs, nuvsThreshold_GTAbs_16s, nuvsThreshold_GTAbs_16s_I),
        member<Nuv32s>("GTAbs_32s", R::GTAbs, nuvsThreshold_GTAbs_32s, nuvsThreshold_GTAbs_32s_I),
        member<Nuv32f>("GTAbs_32f", R::GTAbs, nuvsThreshold_GTAbs_32f, nuvsThreshold_GTAbs_32f_I),
        member<Nuv64f>("GTAbs_64f", R::GTAbs, nuvsThreshold_GTAbs_64f, nuvsThreshold_GTAbs_64f_I),
        member<Nuv32f>("LTInv_32f", R::LTInv, nuvsThreshold_LTInv_32f, nuvsThreshold_LTInv_32f_I),
        member<Nuv64f>("LTInv_64f", R::LTInv, nuvsThreshold_LTInv_64f, nuvsThreshold_LTInv_64f_I),
        member<Nuv32fc>("LTInv_32fc", R::LTInv, nuvsThreshold_LTInv_32fc, nuvsThreshold_LTInv_32fc_I),
        member<Nuv64fc>("LTInv_64fc", R::LTInv, nuvsThreshold_LTInv_64fc, nuvsThreshold_LTInv_64fc_I),
        member<Nuv16s>("LTValGTVal_16s", R::LTValGTVal, nuvsThreshold_LTValGTVal_16s, nuvsThreshold_LTValGTVal_16s_I),
        member<Nuv32s>("LTValGTVal_32s", R::LTValGTVal, nuvsThreshold_LTValGTVal_32s, nuvsThreshold_LTValGTVal_32s_I),
        member<Nuv32f>("LTValGTVal_32f", R::LTValGTVal, nuvsThreshold_LTValGTVal_32f, nuvsThreshold_LTValGTVal_32f_I),
        member<Nuv64f>("LTValGTVal_64f", R::LTValGTVal, nuvsThreshold_LTValGTVal_64f, nuvsThreshold_LTValGTVal_64f_I),
    };
}

class ThresholdMember : public ::testing::TestWithParam<Case> {};
TEST_P(ThresholdMember, MatchesModel) { GetParam().run(); }
INSTANTIATE_TEST_SUITE_P(All, ThresholdMember, ::testing::ValuesIn(cases()), [](const auto& c) { return c.param.name; });

// ---- argument checks: null, length, relOp, negative level, level order; nothing written on failure
TEST(ThresholdChecks, OrderAndNothingWritten) {
    nt::Buf<Nuv32f> s(8), d(8);
    nt::Buf<Nuv32fc> cs(8), cd(8);
    nt::Buf<Nuv16s> is(8), id(8);
    const struct {
        const char* what;
        std::function<NuvStatus()> call;
        NuvStatus want;
    } rows[] = {
        {"null before bad relOp", [&] { return nuvsThreshold_32f(nullptr, d.data(), 8, 1, 2); }, nuvStsNullPtr},
        {"length before bad relOp", [&] { return nuvsThreshold_32f(s.data(), d.data(), 0, 1, 2); }, nuvStsSize},
        {"relOp 2", [&] { return nuvsThreshold_32f(s.data(), d.data(), 8, 1, 2); }, nuvStsBadArg},
        {"relOp 1 in place", [&] { return nuvsThreshold_64f_I(reinterpret_cast<Nuv64f*>(d.data()), 4, 1, 1); }, nuvStsBadArg},
        {"relOp -1, 16s", [&] { return nuvsThreshold_16s(is.data(), id.data(), 8, 1, -1); }, nuvStsBadArg},
        {"complex relOp before level", [&] { return nuvsThreshold_32fc(cs.data(), cd.data(), 8, -1, 3); }, nuvStsBadArg},
        {"complex negative level", [&] { return nuvsThreshold_32fc(cs.data(), cd.data(), 8, -1, 0); }, nuvStsNegLevel},
        {"complex GTVal negative level", [&] { return nuvsThreshold_GTVal_32fc(cs.data(), cd.data(), 8, -1, {1, 1}); }, nuvStsNegLevel},
        {"16sc negative level", [&] { return nuvsThreshold_LT_16sc_I(reinterpret_cast<Nuv16sc*>(id.data()), 4, -1); }, nuvStsNegLevel},
        {"length before negative level", [&] { return nuvsThreshold_LTAbs_32f(s.data(), d.data(), -1, -1); }, nuvStsSize},
        {"LTAbs negative level", [&] { return nuvsThreshold_LTAbs_16s(is.data(), id.data(), 8, -1); }, nuvStsNegLevel},
        {"GTAbs negative level", [&] { return nuvsThreshold_GTAbs_32f(s.data(), d.data(), 8, -0.5f); }, nuvStsNegLevel},
        {"LTInv negative level", [&] { return nuvsThreshold_LTInv_32fc(cs.data(), cd.data(), 8, -1e-30f); }, nuvStsNegLevel},
        {"levels out of order", [&] { return nuvsThreshold_LTValGTVal_32f(s.data(), d.data(), 8, 2, 0, 1, 0); }, nuvStsLevelOrder},
        {"levels out of order, 16s in place", [&] { return nuvsThreshold_LTValGTVal_16s_I(id.data(), 8, 2, 0, 1, 0); }, nuvStsLevelOrder},
        {"null before level order", [&] { return nuvsThreshold_LTValGTVal_32s(nullptr, nullptr, 8, 2, 0, 1, 0); }, nuvStsNullPtr},
    };
    for (const auto& r : rows) {
        EXPECT_EQ(r.call(), r.want) << r.what;
        EXPECT_TRUE(d.untouched() && cd.untouched() && id.untouched()) << r.what;
    }
}

TEST(ThresholdChecks, EqualLevelsAndLevelZeroExits) {
    std::vector<Nuv32f> x = {1, 2, 3, NAN};
    nt::Buf<Nuv32f> d(4);
    EXPECT_EQ(nuvsThreshold_LTValGTVal_32f(x.data(), d.data(), 4, 2, -1, 2, 9), nuvStsOk);
    EXPECT_EQ(d[0], -1);
    EXPECT_EQ(d[1], 2);
    EXPECT_EQ(d[2], 9);
    EXPECT_TRUE(std::isnan(d[3]));   // neither below nor above: passes through
    // Complex level 0: op 0 copies every bit (NaN included), op 4 zeroes.
    std::vector<Nuv32fc> z = {{NAN, -0.0f}, {1e-40f, 3}, {0, 0}};
    nt::Buf<Nuv32fc> cd(3);
    EXPECT_EQ(nuvsThreshold_32fc(z.data(), cd.data(), 3, 0.0f, 0), nuvStsOk);
    for (int i = 0; i < 3; ++i) EXPECT_TRUE(nt::sameBits(cd[i].re, z[size_t(i)].re) && nt::sameBits(cd[i].im, z[size_t(i)].im));
    EXPECT_EQ(nuvsThreshold_32fc(z.data(), cd.data(), 3, -0.0f, 4), nuvStsOk);
    for (int i = 0; i < 3; ++i) EXPECT_TRUE(nt::sameBits(cd[i].re, 0.0f) && nt::sameBits(cd[i].im, 0.0f));
}

// LTInv with level 0 reports a zero element after the whole run, whatever the caller's exception masks
// and sticky flags, and leaves the caller's control word as it was.
TEST(ThresholdChecks, LTInvZeroDivideWatch) {
    const unsigned saved = _mm_getcsr();
    std::vector<Nuv64f> x(37, 4.0);
    nt::Buf<Nuv64f> d(37);
    for (unsigned csr : {saved, (saved | 0x4u), saved & ~0x200u}) {   // as is, zero-divide flag set, unmasked
        for (bool withZero : {false, true}) {
            x[20] = withZero ? -0.0 : 4.0;
            _mm_setcsr(csr);
            NuvStatus st = nuvsThreshold_LTInv_64f(x.data(), d.data(), 37, 0.0);
            const unsigned after = _mm_getcsr();
            _mm_setcsr(saved);
            EXPECT_EQ(st, withZero ? nuvStsInvZeroWarn : nuvStsOk) << std::hex << csr;
            EXPECT_EQ(after, csr) << std::hex << csr;
            EXPECT_EQ(d[36], 0.25);
            EXPECT_EQ(d[20], withZero ? -INFINITY : 0.25);
        }
    }
    // With a level above 0 there is no zero divisor; the spot values of the rule.
    std::vector<Nuv32f> y = {0.5f, -0.5f, 0.0f, -0.0f, 4.0f};
    nt::Buf<Nuv32f> e(5);
    EXPECT_EQ(nuvsThreshold_LTInv_32f(y.data(), e.data(), 5, 2.0f), nuvStsOk);
    EXPECT_EQ(e[0], 0.5f);
    EXPECT_EQ(e[1], -0.5f);
    EXPECT_EQ(e[2], 0.5f);
    EXPECT_EQ(e[3], -0.5f);
    EXPECT_EQ(e[4], 0.25f);
}

// Complex LTInv with levels whose square leaves the element's range: zeros and elements on both sides
// of the level, every lane position; no zero divide, and the caller's flags untouched.
template <class C> void invExtremes(NuvStatus (*f)(const C*, C*, int, Lv<C>), std::initializer_list<Lv<C>> levels) {
    using F = Lv<C>;
    for (F lev : levels) {
        std::vector<C> x;
        for (F k : {F(0), F(0.5), F(0.999), F(1), F(1.001), F(2), F(1e3), F(-0.7)}) x.push_back({k * lev, F(0)}), x.push_back({F(0.6) * k * lev, F(-0.8) * k * lev});
        x.push_back({F(0), F(-0.0)});
        const int n = int(x.size());
        nt::Buf<C> d(n);
        const unsigned saved = _mm_getcsr();
        _mm_setcsr(saved & ~0x3Fu);
        const NuvStatus st = f(x.data(), d.data(), n, lev);
        const unsigned flags = _mm_getcsr() & 0x3Fu;
        _mm_setcsr(saved);
        EXPECT_EQ(st, nuvStsOk) << lev;
        EXPECT_EQ(flags & 0x4u, 0u) << "zero divide at level " << lev;
        for (int i = 0; i < n; ++i) EXPECT_TRUE(nearInv(d[i], x[size_t(i)], lev)) << "level " << lev << " z " << x[size_t(i)].re << "," << x[size_t(i)].im;
    }
}
TEST(ThresholdChecks, ComplexLTInvExtremeLevels) {
    invExtremes<Nuv32fc>(nuvsThreshold_LTInv_32fc, {1e-25f, 3e-39f, 1e20f, 3e38f});
    invExtremes<Nuv64fc>(nuvsThreshold_LTInv_64fc, {1e-200, 1e-310, 1e170, 1e300});
}

}  // namespace

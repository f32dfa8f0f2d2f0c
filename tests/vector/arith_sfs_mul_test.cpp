// Scaled integer multiply, add-product and square, differential against exact 128-bit models.
#include <cfenv>
#include <functional>
#include <limits>

#include "support/model.h"
#include "support/support.h"

namespace {

using i128 = __int128;

template <class T>
T exactRule(i128 x, int sf) {
    return T(nt::scaleRule(x, sf, std::numeric_limits<T>::min(), std::numeric_limits<T>::max()));
}

// ---- operands: full-range random, small random (many ties), and every combination of extremes
template <class C>
C extremeAt(int i, int digit) {
    using L = std::numeric_limits<C>;
    const C v[7] = {L::min(), C(L::min() + 1), C(L::is_signed ? -1 : 2), 0, 1, C(L::max() - 1), L::max()};
    for (int d = 0; d < digit; ++d) i /= 7;
    return v[i % 7];
}
template <class T> struct Parts { using C = T; static constexpr int n = 1; };
template <> struct Parts<Nuv16sc> { using C = Nuv16s; static constexpr int n = 2; };
template <> struct Parts<Nuv32sc> { using C = Nuv32s; static constexpr int n = 2; };

enum Set { Full, Small, Extremes };
constexpr int kExtremesLen = 2401;  // 7^4: every pair of extremes in up to four words

template <class T>
std::vector<T> operands(int n, Set set, int firstDigit) {
    using C = typename Parts<T>::C;
    const int w = n * Parts<T>::n;
    std::vector<C> c;
    if (set == Full) c = nt::randomInts<C>(w);
    if (set == Small) c = nt::randomInts<C>(w, std::max<int64_t>(std::numeric_limits<C>::min(), -300), 300);
    if (set == Extremes)
        for (int i = 0; i < w; ++i) c.push_back(extremeAt<C>(i / Parts<T>::n, firstDigit + i % Parts<T>::n));
    std::vector<T> v(static_cast<size_t>(n));
    std::memcpy(v.data(), c.data(), size_t(w) * sizeof(C));
    return v;
}

// ---- a member under test: every export becomes f(a, b, dst, len, sf), with its model per element
template <class A, class B, class D>
struct Member {
    std::string name;
    std::function<NuvStatus(const A*, const B*, D*, int, int)> run;
    std::function<D(A, B, D, int)> model;
    std::function<NuvStatus(const B*, D*, int, int)> inPlace = nullptr;  // dst holds a
};

template <class T>
bool same(const T& x, const T& y) { return std::memcmp(&x, &y, sizeof(T)) == 0; }

template <class A, class B, class D>
void check(const Member<A, B, D>& m, const std::vector<A>& a, const std::vector<B>& b, const std::vector<D>& d0,
           int sf, bool inPlace, size_t offUnits = 0) {
    const int n = int(a.size());
    nt::Buf<A> ba(n, offUnits * sizeof(A));
    nt::Buf<B> bb(n, offUnits * sizeof(B));
    nt::Buf<D> bd(n, offUnits * sizeof(D));
    ba.copyFrom(a), bb.copyFrom(b), bd.copyFrom(d0);
    if constexpr (std::is_same_v<A, D>) {
        if (inPlace) bd.copyFrom(a);
    }
    const NuvStatus st = inPlace ? m.inPlace(bb.data(), bd.data(), n, sf) : m.run(ba.data(), bb.data(), bd.data(), n, sf);
    ASSERT_EQ(st, nuvStsOk) << m.name << " sf " << sf;
    int bad = 0;
    for (int i = 0; i < n && bad < 3; ++i) {
        const D want = m.model(a[size_t(i)], b[size_t(i)], d0[size_t(i)], sf);
        if (!same(bd[i], want)) {
            ++bad;
            ADD_FAILURE() << m.name << (inPlace ? " in place" : "") << " sf " << sf << " len " << n << " at " << i;
        }
    }
    EXPECT_TRUE(ba.intact() && bb.intact() && bd.intact()) << m.name;
}

template <class A, class B, class D>
void sweep(const Member<A, B, D>& m) {
    SCOPED_TRACE(m.name);
    for (bool ip : {false, true}) {
        if (ip && !m.inPlace) continue;
        std::vector<int> scales = {INT_MIN, INT_MIN + 1, -1000, 1000, INT_MAX};
        for (int sf = -40; sf <= 70; ++sf) scales.push_back(sf);
        for (int sf : scales)
            for (Set set : {Full, Small, Extremes}) {
                const int n = set == Extremes ? kExtremesLen : 67;
                check(m, operands<A>(n, set, 0), operands<B>(n, set, 2), operands<D>(n, set, 1), sf, ip);
            }
        for (int len : nt::sweepLengths())
            for (int sf : {0, 1, 2, 13, -3})
                for (size_t off : {0, 3})
                    check(m, operands<A>(len, Small, 0), operands<B>(len, Small, 2), operands<D>(len, Full, 1), sf, ip, off);
    }
}

// Models of the members whose value is the exact rule.
template <class D, class A, class B>
D mulModel(A a, B b, D, int sf) { return exactRule<D>(i128(a) * b, sf); }

template <class D, class CA, class CB>
D cmulModel(CA a, CB b, D, int sf) {
    using C = decltype(D::re);
    return D{exactRule<C>(i128(a.re) * b.re - i128(a.im) * b.im, sf), exactRule<C>(i128(a.re) * b.im + i128(a.im) * b.re, sf)};
}

// ---- the 8-bit and 16-bit members
TEST(SfsMulExact, RealMembers) {
    sweep(Member<Nuv8u, Nuv8u, Nuv8u>{"Mul_8u", nuvsMul_8u_Sfs, mulModel<Nuv8u, Nuv8u, Nuv8u>,
                                      [](const Nuv8u* s, Nuv8u* d, int n, int sf) { return nuvsMul_8u_ISfs(s, d, n, sf); }});
    sweep(Member<Nuv16s, Nuv16s, Nuv16s>{"Mul_16s", nuvsMul_16s_Sfs, mulModel<Nuv16s, Nuv16s, Nuv16s>, nuvsMul_16s_ISfs});
    sweep(Member<Nuv16u, Nuv16u, Nuv16u>{"Mul_16u", nuvsMul_16u_Sfs,
                                         [](Nuv16u a, Nuv16u b, Nuv16u, int sf) { return sf >= 32 ? Nuv16u(0) : exactRule<Nuv16u>(i128(a) * b, sf); },
                                         nuvsMul_16u_ISfs});
    sweep(Member<Nuv16u, Nuv16s, Nuv16s>{"Mul_16u16s", nuvsMul_16u16s_Sfs, mulModel<Nuv16s, Nuv16u, Nuv16s>});
    sweep(Member<Nuv16s, Nuv16s, Nuv32s>{"Mul_16s32s", nuvsMul_16s32s_Sfs, mulModel<Nuv32s, Nuv16s, Nuv16s>});
    sweep(Member<Nuv16s, Nuv16s, Nuv16s>{"AddProduct_16s", nuvsAddProduct_16s_Sfs,
                                         [](Nuv16s a, Nuv16s b, Nuv16s d, int sf) { return exactRule<Nuv16s>(i128(a) * b + d, sf); }});
    sweep(Member<Nuv16s, Nuv16s, Nuv32s>{"AddProduct_16s32s", nuvsAddProduct_16s32s_Sfs,
                                         [](Nuv16s a, Nuv16s b, Nuv32s d, int sf) { return exactRule<Nuv32s>(i128(a) * b + d, sf); }});
    sweep(Member<Nuv32s, Nuv32s, Nuv32s>{"AddProduct_32s", nuvsAddProduct_32s_Sfs,
                                         [](Nuv32s a, Nuv32s b, Nuv32s d, int sf) { return sf >= 63 ? 0 : exactRule<Nuv32s>(i128(a) * b + d, sf); }});
    sweep(Member<Nuv8u, Nuv8u, Nuv8u>{"Sqr_8u", [](const Nuv8u* a, const Nuv8u*, Nuv8u* d, int n, int sf) { return nuvsSqr_8u_Sfs(a, d, n, sf); },
                                      [](Nuv8u a, Nuv8u, Nuv8u, int sf) { return exactRule<Nuv8u>(i128(a) * a, sf); }});
    sweep(Member<Nuv16s, Nuv16s, Nuv16s>{"Sqr_16s", [](const Nuv16s* a, const Nuv16s*, Nuv16s* d, int n, int sf) { return nuvsSqr_16s_Sfs(a, d, n, sf); },
                                         [](Nuv16s a, Nuv16s, Nuv16s, int sf) { return exactRule<Nuv16s>(i128(a) * a, sf); }});
    sweep(Member<Nuv16u, Nuv16u, Nuv16u>{"Sqr_16u", [](const Nuv16u* a, const Nuv16u*, Nuv16u* d, int n, int sf) { return nuvsSqr_16u_Sfs(a, d, n, sf); },
                                         [](Nuv16u a, Nuv16u, Nuv16u, int sf) { return exactRule<Nuv16u>(i128(a) * a, sf); }});
}

TEST(SfsMulExact, ComplexMembers) {
    sweep(Member<Nuv16sc, Nuv16sc, Nuv16sc>{"Mul_16sc", nuvsMul_16sc_Sfs, cmulModel<Nuv16sc, Nuv16sc, Nuv16sc>, nuvsMul_16sc_ISfs});
    sweep(Member<Nuv32sc, Nuv32sc, Nuv32sc>{"Mul_32sc", nuvsMul_32sc_Sfs, cmulModel<Nuv32sc, Nuv32sc, Nuv32sc>, nuvsMul_32sc_ISfs});
    sweep(Member<Nuv32s, Nuv32sc, Nuv32sc>{"Mul_32s32sc", nuvsMul_32s32sc_Sfs, [](Nuv32s a, Nuv32sc b, Nuv32sc, int sf) {
        return Nuv32sc{exactRule<Nuv32s>(i128(a) * b.re, sf), exactRule<Nuv32s>(i128(a) * b.im, sf)}; }});
    sweep(Member<Nuv16sc, Nuv16sc, Nuv16sc>{"Sqr_16sc", [](const Nuv16sc* a, const Nuv16sc*, Nuv16sc* d, int n, int sf) { return nuvsSqr_16sc_Sfs(a, d, n, sf); },
                                            [](Nuv16sc a, Nuv16sc, Nuv16sc, int sf) { return sf >= 31 ? Nuv16sc{0, 0} : cmulModel<Nuv16sc>(a, a, a, sf); }});
}

// ---- the 32-bit double route and the wrapping reduced form, against scalar models of those routes
int32_t signOnly(i128 p) { return p > 0 ? INT32_MAX : (p < 0 ? INT32_MIN : 0); }

Nuv32s mul32sModel(Nuv32s a, Nuv32s b, Nuv32s, int sf) {
    if (sf > 62) return 0;
    if (sf < -31) return signOnly(i128(a) * b);
    double r = std::ldexp(double(a) * double(b), -sf);
    r = std::min(std::max(r, -2147483648.0), 2147483647.0);
    return Nuv32s(std::nearbyint(r));
}
Nuv32s mulLowModel(Nuv32s a, Nuv32s b, Nuv32s, int sf) {
    const int64_t p = int64_t(a) * b;
    if (sf > 62) return 0;
    if (sf < -31) return signOnly(p);
    return Nuv32s(uint32_t(sf >= 0 ? uint64_t(p / (int64_t(1) << sf) - (p % (int64_t(1) << sf) < 0)) : uint64_t(p) << -sf));
}

TEST(SfsMulRoutes, DoubleAndReducedForms) {
    sweep(Member<Nuv32s, Nuv32s, Nuv32s>{"Mul_32s", nuvsMul_32s_Sfs, mul32sModel, nuvsMul_32s_ISfs});
    sweep(Member<Nuv32s, Nuv32s, Nuv32s>{"Mul_Low_32s", nuvsMul_Low_32s_Sfs, mulLowModel});
}

// ---- MulC: each constant, including the neutral ones that take the Zero and Copy exits
template <class T, class Fn, class FnI, class Model>
void sweepConst(const char* name, Fn fn, FnI fnI, Model model, std::vector<T> vals) {
    for (size_t j = 0; j < vals.size(); ++j) {
        const T v = vals[j];
        const std::string nm = std::string(name) + " constant #" + std::to_string(j);
        sweep(Member<T, T, T>{nm, [=](const T* a, const T*, T* d, int n, int sf) { return fn(a, v, d, n, sf); },
                              [=](T a, T, T, int sf) { return model(a, v, sf); },
                              [=](const T*, T* d, int n, int sf) { return fnI(v, d, n, sf); }});
    }
}
template <class T>
std::vector<T> constants() { return {0, 1, T(-1), std::numeric_limits<T>::min(), std::numeric_limits<T>::max(), T(77), T(3)}; }

TEST(SfsMulConst, EveryMember) {
    sweepConst<Nuv8u>("MulC_8u", nuvsMulC_8u_Sfs, nuvsMulC_8u_ISfs, [](Nuv8u a, Nuv8u v, int sf) { return mulModel<Nuv8u>(a, v, a, sf); }, constants<Nuv8u>());
    sweepConst<Nuv16s>("MulC_16s", nuvsMulC_16s_Sfs, nuvsMulC_16s_ISfs, [](Nuv16s a, Nuv16s v, int sf) { return mulModel<Nuv16s>(a, v, a, sf); }, constants<Nuv16s>());
    sweepConst<Nuv16u>("MulC_16u", nuvsMulC_16u_Sfs, nuvsMulC_16u_ISfs,
                       [](Nuv16u a, Nuv16u v, int sf) { return sf >= 32 ? Nuv16u(0) : mulModel<Nuv16u>(a, v, a, sf); }, constants<Nuv16u>());
    sweepConst<Nuv32s>("MulC_32s", nuvsMulC_32s_Sfs, nuvsMulC_32s_ISfs, [](Nuv32s a, Nuv32s v, int sf) { return mul32sModel(a, v, a, sf); }, constants<Nuv32s>());
    std::vector<Nuv16sc> c16 = {{0, 0}, {1, 0}, {-32768, -32768}, {32767, -32768}, {3, -5}};
    sweepConst<Nuv16sc>("MulC_16sc", nuvsMulC_16sc_Sfs, nuvsMulC_16sc_ISfs, [](Nuv16sc a, Nuv16sc v, int sf) { return cmulModel<Nuv16sc>(a, v, a, sf); }, c16);
    std::vector<Nuv32sc> c32 = {{0, 0}, {1, 0}, {INT32_MIN, INT32_MIN}, {INT32_MAX, INT32_MIN}, {3, -5}};
    sweepConst<Nuv32sc>("MulC_32sc", nuvsMulC_32sc_Sfs, nuvsMulC_32sc_ISfs, [](Nuv32sc a, Nuv32sc v, int sf) { return cmulModel<Nuv32sc>(a, v, a, sf); }, c32);
}

TEST(SfsMulConst, ForwardersAreScaleZero) {
    auto a = operands<Nuv16s>(1000, Full, 0), b = operands<Nuv16s>(1000, Full, 1);
    std::vector<Nuv16s> x(a.size()), y = b;
    ASSERT_EQ(nuvsMul_16s(a.data(), b.data(), x.data(), 1000), nuvStsOk);
    ASSERT_EQ(nuvsMul_16s_I(a.data(), y.data(), 1000), nuvStsOk);
    for (size_t i = 0; i < a.size(); ++i) {
        EXPECT_EQ(x[i], exactRule<Nuv16s>(i128(a[i]) * b[i], 0));
        EXPECT_EQ(y[i], x[i]);
    }
}

// Mul_16sc and Mul_32sc with the destination on either source run in place.
TEST(SfsMulConst, ComplexDestinationOnASource) {
    for (int which : {1, 2}) {
        auto a = operands<Nuv16sc>(300, Full, 0), b = operands<Nuv16sc>(300, Full, 2);
        auto x = a, y = b;
        Nuv16sc* d = which == 1 ? x.data() : y.data();
        ASSERT_EQ(nuvsMul_16sc_Sfs(x.data(), y.data(), d, 300, 3), nuvStsOk);
        for (size_t i = 0; i < a.size(); ++i) EXPECT_TRUE(same(d[i], cmulModel<Nuv16sc>(a[i], b[i], a[i], 3))) << i;
        auto p = operands<Nuv32sc>(300, Full, 0), q = operands<Nuv32sc>(300, Full, 2);
        auto u = p, v = q;
        Nuv32sc* e = which == 1 ? u.data() : v.data();
        ASSERT_EQ(nuvsMul_32sc_Sfs(u.data(), v.data(), e, 300, 40), nuvStsOk);
        for (size_t i = 0; i < p.size(); ++i) EXPECT_TRUE(same(e[i], cmulModel<Nuv32sc>(p[i], q[i], p[i], 40))) << i;
    }
}

// ---- float and extended-precision routes
Nuv16s mulC32f16sModel(float x, float c) {
    const float r = x * c;
    if (r != r || r >= 32767.0f) return 32767;
    if (r <= -32768.0f) return -32768;
    return Nuv16s(std::nearbyint(r));
}

TEST(SfsMulFloat, MulC32f16s) {
    std::vector<float> x = nt::randomReals<float>(4099, -70000.0, 70000.0);
    const float specials[] = {0.5f, 1.5f, 2.5f, -0.5f, -2.5f, 32767.4f, 32767.5f, -32768.5f, -32769.0f, 1e30f, -1e30f,
                              std::numeric_limits<float>::infinity(), -std::numeric_limits<float>::infinity(),
                              std::numeric_limits<float>::quiet_NaN(), -0.0f, 16777215.0f};
    std::copy(std::begin(specials), std::end(specials), x.begin());
    std::vector<int> scales = {INT_MIN, -200, -128, -127, 126, 127, 200, INT_MAX};
    for (int sf = -40; sf <= 70; ++sf) scales.push_back(sf);
    for (float val : {1.0f, -1.0f, 0.3f, 3.0f, 0.0f, 1e-20f})
        for (int sf : scales)
            for (int len : {1, 7, 8, 17, 4099}) {
                nt::Buf<Nuv32f> s(len, 4);
                nt::Buf<Nuv16s> d(len, 2);
                std::memcpy(s.data(), x.data(), size_t(len) * 4);
                ASSERT_EQ(nuvsMulC_32f16s_Sfs(s.data(), val, d.data(), len, sf), nuvStsOk);
                // The constant carries the scale, rounded once; the power runs over the whole exponent
                // field, to zero from scale 127 and to infinity from -128.
                const float p2 = sf >= 127 ? 0.0f : sf <= -128 ? std::numeric_limits<float>::infinity() : std::ldexp(1.0f, -sf);
                const float c = val * p2;
                for (int i = 0; i < len; ++i) ASSERT_EQ(d[i], mulC32f16sModel(x[size_t(i)], c)) << val << " sf " << sf << " x " << x[size_t(i)];
                if (sf == 0) {
                    nt::Buf<Nuv16s> e(len);
                    ASSERT_EQ(nuvsMulC_Low_32f16s(s.data(), val, e.data(), len), nuvStsOk);
                    EXPECT_EQ(std::memcmp(e.data(), d.data(), size_t(len) * 2), 0);
                }
                EXPECT_TRUE(d.intact());
            }
}

int64_t ext64Model(long double p, int sf) {
    const long double r = std::nearbyint(std::ldexp(p, -sf));
    if (r != r) return INT64_MIN;
    if (r >= 0x1p63L) return INT64_MAX;
    if (r < -0x1p63L) return INT64_MIN;
    return int64_t(r);
}

TEST(SfsMulFloat, MulCExtendedPrecision) {
    auto x = operands<Nuv64s>(2401, Extremes, 0);
    auto r = nt::randomInts<Nuv64s>(500);
    auto sm = nt::randomInts<Nuv64s>(500, -5000, 5000);
    x.insert(x.end(), r.begin(), r.end());
    x.insert(x.end(), sm.begin(), sm.end());
    const int n = int(x.size());
    for (int sf = -40; sf <= 70; ++sf) {
        for (double val : {0.0, 1.0, -1.0, 0.75, 1e-10, 3e9, 1e300, std::numeric_limits<double>::quiet_NaN()}) {
            auto y = x;
            ASSERT_EQ(nuvsMulC_64f64s_ISfs(val, y.data(), n, sf), nuvStsOk);
            for (int i = 0; i < n; ++i) ASSERT_EQ(y[size_t(i)], ext64Model((long double)x[size_t(i)] * (long double)val, sf)) << val << " sf " << sf;
        }
        for (Nuv64s val : {Nuv64s(0), Nuv64s(1), Nuv64s(-3), INT64_MIN, INT64_MAX, Nuv64s(123456789)}) {
            auto y = x;
            ASSERT_EQ(nuvsMulC_64s_ISfs(val, y.data(), n, sf), nuvStsOk);
            for (int i = 0; i < n; ++i) ASSERT_EQ(y[size_t(i)], ext64Model((long double)x[size_t(i)] * (long double)val, sf)) << val << " sf " << sf;
        }
    }
}

// The extended-precision members round to nearest with a 64-bit significand whatever the caller's
// x87 rounding and precision settings, and leave those settings as they found them.
TEST(SfsMulFloat, MulCExtendedPrecisionIgnoresCallerX87State) {
    const std::vector<Nuv64s> x = {7, -7, 5, -5, (Nuv64s(1) << 62) + 1, -(Nuv64s(1) << 62) - 3, 123456789123, INT64_MAX, INT64_MIN};
    const int n = int(x.size());
    auto cw = [] { unsigned short w; __asm__ volatile("fnstcw %0" : "=m"(w)); return w; };
    auto setCw = [](unsigned short w) { __asm__ volatile("fldcw %0" : : "m"(w)); };
    const unsigned short normal = cw();
    // Round toward zero, round up, and 53-bit precision with round to nearest.
    for (unsigned short caller : {uint16_t(normal | 0x0C00), uint16_t((normal & ~0x0C00) | 0x0800), uint16_t((normal & ~0x0F00) | 0x0200)}) {
        for (int sf : {-2, 0, 1, 2}) {
            auto y = x, z = x;
            setCw(caller);
            const NuvStatus s1 = nuvsMulC_64f64s_ISfs(0.5, y.data(), n, sf), s2 = nuvsMulC_64s_ISfs(3, z.data(), n, sf);
            const unsigned short after = cw();
            setCw(normal);
            ASSERT_EQ(s1, nuvStsOk);
            ASSERT_EQ(s2, nuvStsOk);
            EXPECT_EQ(after, caller);
            for (int i = 0; i < n; ++i) {
                EXPECT_EQ(y[size_t(i)], ext64Model((long double)x[size_t(i)] * 0.5L, sf)) << std::hex << caller << " sf " << sf;
                EXPECT_EQ(z[size_t(i)], ext64Model((long double)x[size_t(i)] * 3.0L, sf)) << std::hex << caller << " sf " << sf;
            }
        }
    }
}

// The double route of Mul_32s rounds its product to nearest whatever the caller's SSE rounding.
TEST(SfsMulFloat, Mul32sIgnoresCallerRounding) {
    const std::vector<Nuv32s> a(9, 2147483645), b(9, 2147483645);
    std::vector<Nuv32s> want(9), got(9);
    ASSERT_EQ(nuvsMul_32s_Sfs(a.data(), b.data(), want.data(), 9, 33), nuvStsOk);
    EXPECT_EQ(want[0], 536870910);
    const unsigned saved = _mm_getcsr();
    for (unsigned rc : {0x2000u, 0x4000u, 0x6000u}) {
        _mm_setcsr((saved & ~0x6000u) | rc);
        const NuvStatus st = nuvsMul_32s_Sfs(a.data(), b.data(), got.data(), 9, 33);
        const unsigned after = _mm_getcsr();
        _mm_setcsr(saved);
        EXPECT_EQ(st, nuvStsOk);
        EXPECT_EQ(after & 0x6000u, rc);
        EXPECT_EQ(got, want) << std::hex << rc;
    }
}

// ---- where the delivered value leaves the exact rule on purpose
TEST(SfsMulDeviations, Table) {
    struct Row { const char* what; int32_t got, exact; };
    auto m16u = [](Nuv16u a, Nuv16u b, int sf) { Nuv16u d; nuvsMul_16u_Sfs(&a, &b, &d, 1, sf); return int32_t(d); };
    auto m32s = [](Nuv32s a, Nuv32s b, int sf) { Nuv32s d; nuvsMul_32s_Sfs(&a, &b, &d, 1, sf); return d; };
    auto low = [](Nuv32s a, Nuv32s b, int sf) { Nuv32s d; nuvsMul_Low_32s_Sfs(&a, &b, &d, 1, sf); return d; };
    auto ap32 = [](Nuv32s a, Nuv32s b, Nuv32s d, int sf) { nuvsAddProduct_32s_Sfs(&a, &b, &d, 1, sf); return d; };
    auto sq16sc = [](Nuv16sc a, int sf) { Nuv16sc d; nuvsSqr_16sc_Sfs(&a, &d, 1, sf); return int32_t(d.im); };
    const Row rows[] = {
        {"Mul_16u zeroes from scale 32", m16u(65535, 65535, 32), 1},
        {"Mul_32s rounds the product to 53 bits first", m32s(2147483643, 1932735283, 31), 1932735279},
        {"Mul_32s saturates 46341^2", m32s(46341, 46341, 0), INT32_MAX},
        {"Mul_Low_32s wraps", low(65536, 65536, 0), INT32_MAX},
        {"Mul_Low_32s truncates", low(3, 1, 1), 2},
        {"AddProduct_32s zeroes from scale 63", ap32(INT32_MIN, INT32_MIN, 1, 63), 1},
        {"Sqr_16sc zeroes from scale 31", sq16sc({-32768, -32768}, 31), 1},
    };
    const int32_t expected[] = {0, 1932735278, INT32_MAX, 0, 1, 0, 0};
    for (size_t i = 0; i < std::size(rows); ++i) EXPECT_EQ(rows[i].got, expected[i]) << rows[i].what << " (exact rule: " << rows[i].exact << ")";
}

TEST(SfsMulDeviations, NumberRuleExamples) {
    Nuv16s a = -32768, d;
    nuvsMul_16s_Sfs(&a, &a, &d, 1, 30);
    EXPECT_EQ(d, 1);
    nuvsMul_16s_Sfs(&a, &a, &d, 1, 31);
    EXPECT_EQ(d, 0);
    Nuv16s one = 1;
    nuvsSqr_16s_Sfs(&one, &d, 1, -15);
    EXPECT_EQ(d, 32767);
    Nuv32s x = INT32_MAX, y = 1, z;
    nuvsMul_32s_Sfs(&x, &y, &z, 1, 0);
    EXPECT_EQ(z, INT32_MAX);
}

}  // namespace

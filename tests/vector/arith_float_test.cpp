// Floating add, subtract, multiply: every member against an independent scalar model, bit for bit,
// over the sweep lengths, destination offsets, in-place forms, overlaps and neutral constants.
#include <bit>
#include <cmath>
#include <functional>
#include <limits>

#include "support/support.h"

namespace {

// ---------------------------------------------------------------- models
// Float results through long double (exact products, innocuous double rounding); double in double.
template <class T> using Wide = std::conditional_t<std::is_same_v<T, float>, long double, double>;
template <class T, class Op> T rnd(Op op, T x, T y) { return T(op(Wide<T>(x), Wide<T>(y))); }

template <class C> C cx(decltype(C::re) re, decltype(C::re) im) { return C{re, im}; }
template <class C> C cadd(C a, C b) { return cx<C>(rnd(std::plus<>{}, a.re, b.re), rnd(std::plus<>{}, a.im, b.im)); }
template <class C> C csub(C a, C b) { return cx<C>(rnd(std::minus<>{}, a.re, b.re), rnd(std::minus<>{}, a.im, b.im)); }
// a from the first source: re = fused b.re*a.re minus rounded b.im*a.im, im = fused b.re*a.im plus rounded b.im*a.re.
template <class C> C cmul(C a, C b) { return cx<C>(std::fma(b.re, a.re, -(b.im * a.im)), std::fma(b.re, a.im, b.im * a.re)); }
// x times constant c: re = fused c.re*x.re minus rounded x.im*c.im, im = fused c.im*x.re plus rounded x.im*c.re.
template <class C> C cmulc(C x, C c) { return cx<C>(std::fma(c.re, x.re, -(x.im * c.im)), std::fma(c.im, x.re, x.im * c.re)); }
template <class C> C csqr(C x) { return cx<C>(std::fma(x.re, x.re, -(x.im * x.im)), std::fma(x.im, x.re, x.im * x.re)); }

template <class E> bool same(const E& x, const E& y) { return std::memcmp(&x, &y, sizeof(E)) == 0; }

template <class E> std::vector<E> randomElems(int n, double lo = -100, double hi = 100) {
    if constexpr (std::is_integral_v<E>) {
        return nt::randomInts<E>(n);
    } else if constexpr (std::is_floating_point_v<E>) {
        return nt::randomReals<E>(n, lo, hi);
    } else {
        std::vector<E> v(static_cast<size_t>(n));
        auto words = nt::randomReals<decltype(E::re)>(2 * n, lo, hi);
        std::memcpy(v.data(), words.data(), sizeof(E) * size_t(n));
        return v;
    }
}

// ---------------------------------------------------------------- the sweep
// call(x, y, d, len) over every sweep length and every destination offset in element steps, with
// the sources at the destination's offset and at another; each d[i] must equal model(x[i], y[i], d0[i]).
template <class X, class Y, class D>
using Call = std::function<NuvStatus(const X*, const Y*, D*, int)>;
template <class X, class Y, class D>
using Model = std::function<D(X, Y, D)>;

template <class X, class Y, class D>
void sweep(const Call<X, Y, D>& call, const Model<X, Y, D>& model, std::vector<int> lens = nt::sweepLengths()) {
    for (int len : lens)
        for (size_t off = 0; off < 32; off += sizeof(D))
            for (size_t srcOff : {off, (off + 3 * sizeof(D)) % 32}) {
                nt::Buf<X> x(len, srcOff);
                nt::Buf<Y> y(len, srcOff);
                nt::Buf<D> d(len, off);
                x.copyFrom(randomElems<X>(len));
                y.copyFrom(randomElems<Y>(len));
                d.copyFrom(randomElems<D>(len));
                const std::vector<D> d0 = d.vec();
                ASSERT_EQ(call(x.data(), y.data(), d.data(), len), nuvStsOk);
                for (int i = 0; i < len; ++i)
                    ASSERT_TRUE(same(d[i], model(x[i], y[i], d0[i]))) << "len " << len << " off " << off << "/" << srcOff << " at " << i;
                ASSERT_TRUE(x.intact() && y.intact() && d.intact()) << "len " << len;
            }
}

struct Case {
    std::string name;
    std::function<void()> run;
};
void PrintTo(const Case& c, std::ostream* os) { *os << c.name; }

// pDst = f(pSrc1, pSrc2); in place pSrcDst = f(pSrcDst, pSrc) with pSrc first in the argument list.
template <class X, class Y, class D, class F>
Case vv(const char* name, NuvStatus (*fn)(const X*, const Y*, D*, int), F f) {
    return {name, [=] { sweep<X, Y, D>(fn, [=](X x, Y y, D) { return f(x, y); }); }};
}
template <class X, class D, class F>
Case vvI(const char* name, NuvStatus (*fn)(const X*, D*, int), F f) {
    return {name, [=] { sweep<X, X, D>([=](const X* x, const X*, D* d, int n) { return fn(x, d, n); }, [=](X x, X, D d) { return f(d, x); }); }};
}
template <class T, class F>
Case vc(const char* name, NuvStatus (*fn)(const T*, T, T*, int), T val, F f) {
    return {name, [=] { sweep<T, T, T>([=](const T* x, const T*, T* d, int n) { return fn(x, val, d, n); }, [=](T x, T, T) { return f(x, val); }); }};
}
template <class T, class F>
Case vcI(const char* name, NuvStatus (*fn)(T, T*, int), T val, F f) {
    return {name, [=] { sweep<T, T, T>([=](const T*, const T*, T* d, int n) { return fn(val, d, n); }, [=](T, T, T d) { return f(d, val); }); }};
}
template <class T, class F>
Case un(const char* name, NuvStatus (*fn)(const T*, T*, int), F f) {
    return {name, [=] { sweep<T, T, T>([=](const T* x, const T*, T* d, int n) { return fn(x, d, n); }, [=](T x, T, T) { return f(x); }); }};
}
template <class T, class F>
Case unI(const char* name, NuvStatus (*fn)(T*, int), F f) {
    return {name, [=] { sweep<T, T, T>([=](const T*, const T*, T* d, int n) { return fn(d, n); }, [=](T, T, T d) { return f(d); }); }};
}
template <class T, class F>
Case addProduct(const char* name, NuvStatus (*fn)(const T*, const T*, T*, int), F f) {
    std::vector<int> lens = nt::sweepLengths();
    lens.insert(lens.end(), {2731, 2732, 6000, 6017});  // working sets on both sides of the prefetch switch
    return {name, [=] { sweep<T, T, T>(fn, [=](T x, T y, T d) { return f(x, y, d); }, lens); }};
}

const auto add = [](auto a, auto b) { return a + b; };
const auto sub = [](auto a, auto b) { return a - b; };
const auto rsub = [](auto a, auto b) { return b - a; };
const auto mul = [](auto a, auto b) { return a * b; };
template <class T> auto rndOp(auto op) { return [=](T a, T b) { return rnd(op, a, b); }; }

template <class T> T sat(int64_t v) { return T(std::clamp<int64_t>(v, std::numeric_limits<T>::min(), std::numeric_limits<T>::max())); }

std::vector<Case> cases() {
    using F = Nuv32f;
    using D = Nuv64f;
    using CF = Nuv32fc;
    using CD = Nuv64fc;
    const CF cf{1.25f, -0.75f};
    const CD cd{-2.5, 0.375};
    return {
        vv("nuvsAdd_32f", nuvsAdd_32f, rndOp<F>(add)), vvI("nuvsAdd_32f_I", nuvsAdd_32f_I, rndOp<F>(add)),
        vv("nuvsAdd_64f", nuvsAdd_64f, rndOp<D>(add)), vvI("nuvsAdd_64f_I", nuvsAdd_64f_I, rndOp<D>(add)),
        vv("nuvsSub_32f", nuvsSub_32f, rndOp<F>(rsub)), vvI("nuvsSub_32f_I", nuvsSub_32f_I, rndOp<F>(sub)),
        vv("nuvsSub_64f", nuvsSub_64f, rndOp<D>(rsub)), vvI("nuvsSub_64f_I", nuvsSub_64f_I, rndOp<D>(sub)),
        vv("nuvsMul_32f", nuvsMul_32f, rndOp<F>(mul)), vvI("nuvsMul_32f_I", nuvsMul_32f_I, rndOp<F>(mul)),
        vv("nuvsMul_64f", nuvsMul_64f, rndOp<D>(mul)), vvI("nuvsMul_64f_I", nuvsMul_64f_I, rndOp<D>(mul)),
        vv("nuvsAdd_32fc", nuvsAdd_32fc, cadd<CF>), vvI("nuvsAdd_32fc_I", nuvsAdd_32fc_I, cadd<CF>),
        vv("nuvsAdd_64fc", nuvsAdd_64fc, cadd<CD>), vvI("nuvsAdd_64fc_I", nuvsAdd_64fc_I, cadd<CD>),
        vv("nuvsSub_32fc", nuvsSub_32fc, [](CF a, CF b) { return csub(b, a); }), vvI("nuvsSub_32fc_I", nuvsSub_32fc_I, csub<CF>),
        vv("nuvsSub_64fc", nuvsSub_64fc, [](CD a, CD b) { return csub(b, a); }), vvI("nuvsSub_64fc_I", nuvsSub_64fc_I, csub<CD>),
        // In place, pSrc is the first operand of the product and pSrcDst the second.
        vv("nuvsMul_32fc", nuvsMul_32fc, cmul<CF>), vvI("nuvsMul_32fc_I", nuvsMul_32fc_I, [](CF d, CF x) { return cmul(x, d); }),
        vv("nuvsMul_64fc", nuvsMul_64fc, cmul<CD>), vvI("nuvsMul_64fc_I", nuvsMul_64fc_I, [](CD d, CD x) { return cmul(x, d); }),
        vv("nuvsMul_32f32fc", nuvsMul_32f32fc, [](F a, CF b) { return CF{a * b.re, a * b.im}; }),
        vvI("nuvsMul_32f32fc_I", nuvsMul_32f32fc_I, [](CF d, F a) { return CF{a * d.re, a * d.im}; }),
        vc("nuvsAddC_32f", nuvsAddC_32f, 0.3f, rndOp<F>(add)), vcI("nuvsAddC_32f_I", nuvsAddC_32f_I, 0.3f, rndOp<F>(add)),
        vc("nuvsAddC_64f", nuvsAddC_64f, 0.3, rndOp<D>(add)), vcI("nuvsAddC_64f_I", nuvsAddC_64f_I, 0.3, rndOp<D>(add)),
        vc("nuvsSubC_32f", nuvsSubC_32f, 0.3f, rndOp<F>(sub)), vcI("nuvsSubC_32f_I", nuvsSubC_32f_I, 0.3f, rndOp<F>(sub)),
        vc("nuvsSubC_64f", nuvsSubC_64f, 0.3, rndOp<D>(sub)), vcI("nuvsSubC_64f_I", nuvsSubC_64f_I, 0.3, rndOp<D>(sub)),
        vc("nuvsSubCRev_32f", nuvsSubCRev_32f, 0.3f, rndOp<F>(rsub)), vcI("nuvsSubCRev_32f_I", nuvsSubCRev_32f_I, 0.3f, rndOp<F>(rsub)),
        vc("nuvsSubCRev_64f", nuvsSubCRev_64f, 0.3, rndOp<D>(rsub)), vcI("nuvsSubCRev_64f_I", nuvsSubCRev_64f_I, 0.3, rndOp<D>(rsub)),
        vc("nuvsMulC_32f", nuvsMulC_32f, 0.3f, rndOp<F>(mul)), vcI("nuvsMulC_32f_I", nuvsMulC_32f_I, 0.3f, rndOp<F>(mul)),
        vc("nuvsMulC_64f", nuvsMulC_64f, 0.3, rndOp<D>(mul)), vcI("nuvsMulC_64f_I", nuvsMulC_64f_I, 0.3, rndOp<D>(mul)),
        vc("nuvsAddC_32fc", nuvsAddC_32fc, cf, cadd<CF>), vcI("nuvsAddC_32fc_I", nuvsAddC_32fc_I, cf, cadd<CF>),
        vc("nuvsAddC_64fc", nuvsAddC_64fc, cd, cadd<CD>), vcI("nuvsAddC_64fc_I", nuvsAddC_64fc_I, cd, cadd<CD>),
        vc("nuvsSubC_32fc", nuvsSubC_32fc, cf, csub<CF>), vcI("nuvsSubC_32fc_I", nuvsSubC_32fc_I, cf, csub<CF>),
        vc("nuvsSubC_64fc", nuvsSubC_64fc, cd, csub<CD>), vcI("nuvsSubC_64fc_I", nuvsSubC_64fc_I, cd, csub<CD>),
        vc("nuvsSubCRev_32fc", nuvsSubCRev_32fc, cf, [](CF x, CF c) { return csub(c, x); }),
        vcI("nuvsSubCRev_32fc_I", nuvsSubCRev_32fc_I, cf, [](CF x, CF c) { return csub(c, x); }),
        vc("nuvsSubCRev_64fc", nuvsSubCRev_64fc, cd, [](CD x, CD c) { return csub(c, x); }),
        vcI("nuvsSubCRev_64fc_I", nuvsSubCRev_64fc_I, cd, [](CD x, CD c) { return csub(c, x); }),
        vc("nuvsMulC_32fc", nuvsMulC_32fc, cf, cmulc<CF>), vcI("nuvsMulC_32fc_I", nuvsMulC_32fc_I, cf, cmulc<CF>),
        vc("nuvsMulC_64fc", nuvsMulC_64fc, cd, cmulc<CD>), vcI("nuvsMulC_64fc_I", nuvsMulC_64fc_I, cd, cmulc<CD>),
        // One fused multiply-add per real word; the complex forms add the product of Mul to pSrcDst.
        addProduct("nuvsAddProduct_32f", nuvsAddProduct_32f, [](F x, F y, F d) { return std::fma(x, y, d); }),
        addProduct("nuvsAddProduct_64f", nuvsAddProduct_64f, [](D x, D y, D d) { return std::fma(x, y, d); }),
        addProduct("nuvsAddProduct_32fc", nuvsAddProduct_32fc, [](CF x, CF y, CF d) { return cadd(d, cmul(x, y)); }),
        addProduct("nuvsAddProduct_64fc", nuvsAddProduct_64fc, [](CD x, CD y, CD d) { return cadd(d, cmul(x, y)); }),
        {"nuvsAddProductC_32f", [] {
             sweep<F, F, F>([](const F* x, const F*, F* d, int n) { return nuvsAddProductC_32f(x, 0.7f, d, n); },
                            [](F x, F, F d) { return std::fma(x, 0.7f, d); });
         }},
        un("nuvsAbs_32f", nuvsAbs_32f, [](F x) { return std::fabs(x); }), unI("nuvsAbs_32f_I", nuvsAbs_32f_I, [](F x) { return std::fabs(x); }),
        un("nuvsAbs_64f", nuvsAbs_64f, [](D x) { return std::fabs(x); }), unI("nuvsAbs_64f_I", nuvsAbs_64f_I, [](D x) { return std::fabs(x); }),
        un("nuvsSqr_32f", nuvsSqr_32f, [](F x) { return rnd(mul, x, x); }), unI("nuvsSqr_32f_I", nuvsSqr_32f_I, [](F x) { return rnd(mul, x, x); }),
        un("nuvsSqr_64f", nuvsSqr_64f, [](D x) { return x * x; }), unI("nuvsSqr_64f_I", nuvsSqr_64f_I, [](D x) { return x * x; }),
        un("nuvsSqr_32fc", nuvsSqr_32fc, csqr<CF>), unI("nuvsSqr_32fc_I", nuvsSqr_32fc_I, csqr<CF>),
        un("nuvsSqr_64fc", nuvsSqr_64fc, csqr<CD>), unI("nuvsSqr_64fc_I", nuvsSqr_64fc_I, csqr<CD>),
        // Integer members: exact wide results, saturated where the member saturates.
        vv("nuvsAdd_8u16u", nuvsAdd_8u16u, [](Nuv8u a, Nuv8u b) { return Nuv16u(a + b); }),
        vv("nuvsMul_8u16u", nuvsMul_8u16u, [](Nuv8u a, Nuv8u b) { return Nuv16u(a * b); }),
        vv("nuvsAdd_16u", nuvsAdd_16u, [](Nuv16u a, Nuv16u b) { return sat<Nuv16u>(int64_t(a) + b); }),
        vv("nuvsAdd_32u", nuvsAdd_32u, [](Nuv32u a, Nuv32u b) { return sat<Nuv32u>(int64_t(a) + b); }),
        vvI("nuvsAdd_16s32s_I", nuvsAdd_16s32s_I, [](Nuv32s d, Nuv16s x) { return sat<Nuv32s>(int64_t(d) + x); }),
        vv("nuvsAdd_16s32f", nuvsAdd_16s32f, [](Nuv16s a, Nuv16s b) { return F(int64_t(a) + b); }),
        vv("nuvsSub_16s32f", nuvsSub_16s32f, [](Nuv16s a, Nuv16s b) { return F(int64_t(b) - a); }),
        vv("nuvsMul_16s32f", nuvsMul_16s32f, [](Nuv16s a, Nuv16s b) { return F(int64_t(a) * b); }),
        un("nuvsAbs_16s", nuvsAbs_16s, [](Nuv16s x) { return sat<Nuv16s>(std::abs(int64_t(x))); }),
        unI("nuvsAbs_16s_I", nuvsAbs_16s_I, [](Nuv16s x) { return sat<Nuv16s>(std::abs(int64_t(x))); }),
        un("nuvsAbs_32s", nuvsAbs_32s, [](Nuv32s x) { return sat<Nuv32s>(std::abs(int64_t(x))); }),
        unI("nuvsAbs_32s_I", nuvsAbs_32s_I, [](Nuv32s x) { return sat<Nuv32s>(std::abs(int64_t(x))); }),
    };
}

class ArithFloat : public ::testing::TestWithParam<Case> {};
TEST_P(ArithFloat, MatchesModel) { GetParam().run(); }
INSTANTIATE_TEST_SUITE_P(All, ArithFloat, ::testing::ValuesIn(cases()), [](const auto& c) { return c.param.name; });

// ---------------------------------------------------------------- destinations written around the caches
// From 2 MiB of destination an out-of-place map stores without the caches.  The result must be the
// one the member gives in pieces below that size, at every destination alignment, including one
// that is not element-aligned (which runs singly).
template <class X, class Y, class D>
void streamingMatchesPieces(const char* name, const Call<X, Y, D>& call) {
    constexpr size_t kCut = size_t(2) << 20;
    const int len = int(kCut / sizeof(D)) + 13, piece = int(kCut / sizeof(D)) / 3;
    for (size_t off : {size_t(0), sizeof(D) / 2, sizeof(D), size_t(1)}) {
        nt::Buf<X> x(len, 8);
        nt::Buf<Y> y(len);
        nt::Buf<D> d(len, off), ref(len, off);
        x.copyFrom(randomElems<X>(len));
        y.copyFrom(randomElems<Y>(len));
        ASSERT_EQ(call(x.data(), y.data(), d.data(), len), nuvStsOk) << name;
        for (int i = 0; i < len; i += piece)
            ASSERT_EQ(call(x.data() + i, y.data() + i, ref.data() + i, std::min(piece, len - i)), nuvStsOk);
        ASSERT_EQ(std::memcmp(d.data(), ref.data(), size_t(len) * sizeof(D)), 0) << name << " off " << off;
        ASSERT_TRUE(d.intact() && x.intact() && y.intact()) << name;
    }
}

TEST(ArithFloatStreaming, LargeDestinationsMatchTheCachedRoute) {
    using F = Nuv32f;
    using CF = Nuv32fc;
    using CD = Nuv64fc;
    streamingMatchesPieces<F, F, F>("Add_32f", nuvsAdd_32f);
    streamingMatchesPieces<F, F, F>("Sqr_32f", [](const F* x, const F*, F* d, int n) { return nuvsSqr_32f(x, d, n); });
    streamingMatchesPieces<Nuv64f, Nuv64f, Nuv64f>("MulC_64f", [](const Nuv64f* x, const Nuv64f*, Nuv64f* d, int n) { return nuvsMulC_64f(x, 0.3, d, n); });
    streamingMatchesPieces<CF, CF, CF>("Mul_32fc", nuvsMul_32fc);
    streamingMatchesPieces<F, CF, CF>("Mul_32f32fc", nuvsMul_32f32fc);
    streamingMatchesPieces<CD, CD, CD>("SubCRev_64fc", [](const CD* x, const CD*, CD* d, int n) { return nuvsSubCRev_64fc(x, CD{-2.5, 0.375}, d, n); });
    streamingMatchesPieces<CD, CD, CD>("Sqr_64fc", [](const CD* x, const CD*, CD* d, int n) { return nuvsSqr_64fc(x, d, n); });
}

// ---------------------------------------------------------------- worked examples
// Subtraction takes the first array from the second: 3 - 1, never 1 - 3, in the block loop, the
// tail and the single-element path alike.
TEST(ArithFloatWorked, SubtractionOrder) {
    for (int len : {15, 16, 57}) {
        const std::vector<Nuv32f> ones(size_t(len), 1.0f), threes(size_t(len), 3.0f);
        const std::vector<Nuv64f> ones64(size_t(len), 1.0), threes64(size_t(len), 3.0);
        nt::Buf<Nuv32f> d(len), dI(len);
        nt::Buf<Nuv64f> d64(len);
        dI.copyFrom(threes);
        ASSERT_EQ(nuvsSub_32f(ones.data(), threes.data(), d.data(), len), nuvStsOk);
        ASSERT_EQ(nuvsSub_32f_I(ones.data(), dI.data(), len), nuvStsOk);
        ASSERT_EQ(nuvsSub_64f(ones64.data(), threes64.data(), d64.data(), len), nuvStsOk);
        for (int i = 0; i < len; ++i) {
            EXPECT_EQ(d[i], 2.0f) << "len " << len << " at " << i;
            EXPECT_EQ(dI[i], 2.0f) << "in place, len " << len << " at " << i;
            EXPECT_EQ(d64[i], 2.0) << "64f, len " << len << " at " << i;
        }
        EXPECT_TRUE(d.intact() && dI.intact() && d64.intact());
    }
}

// ---------------------------------------------------------------- neutral constants
template <class T> std::vector<T> edgeValues(int n) {
    using L = std::numeric_limits<T>;
    const T pool[] = {L::signaling_NaN(), -L::quiet_NaN(), T(-0.0), T(0.0), L::infinity(), -L::infinity(), T(1.5), T(-2)};
    std::vector<T> v(static_cast<size_t>(n));
    for (int i = 0; i < n; ++i) v[size_t(i)] = pool[i % 8];
    return v;
}
template <class T> bool sameOrBothNan(T x, T y) { return same(x, y) || (std::isnan(x) && std::isnan(y)); }

enum class Exit { Copy, Zero, None };

// The out-of-place and in-place member with constant `val` on NaN, -0, inf: a copy keeps every bit
// (signalling NaN and -0 included), a zero exit writes +0 everywhere, no exit computes.
template <class T, class F>
void neutral(NuvStatus (*fn)(const T*, T, T*, int), NuvStatus (*fnI)(T, T*, int), T val, Exit e, F model) {
    for (int len : {5, 40, 100}) {
        const std::vector<T> x = edgeValues<T>(len);
        nt::Buf<T> d(len, sizeof(T)), dI(len, sizeof(T));
        dI.copyFrom(x);
        ASSERT_EQ(fn(x.data(), val, d.data(), len), nuvStsOk);
        ASSERT_EQ(fnI(val, dI.data(), len), nuvStsOk);
        for (int i = 0; i < len; ++i) {
            const T want = e == Exit::Copy ? x[size_t(i)] : e == Exit::Zero ? T(0) : model(x[size_t(i)], val);
            // Where two NaNs meet, which one survives is not fixed.
            ASSERT_TRUE(e == Exit::None ? sameOrBothNan(d[i], want) : same(d[i], want)) << "val " << val << " at " << i;
            ASSERT_TRUE(e == Exit::None ? sameOrBothNan(dI[i], want) : same(dI[i], want)) << "val " << val << " at " << i;
        }
    }
}

template <class T> void neutralFamily(auto addC, auto addCI, auto subC, auto subCI, auto subCRev, auto subCRevI, auto mulC, auto mulCI) {
    const T nan = std::numeric_limits<T>::quiet_NaN();
    for (T zero : {T(0), T(-0.0)}) {
        neutral<T>(addC, addCI, zero, Exit::Copy, add);
        neutral<T>(subC, subCI, zero, Exit::Copy, sub);
        neutral<T>(mulC, mulCI, zero, Exit::Zero, mul);
        neutral<T>(subCRev, subCRevI, zero, Exit::None, rsub);  // 0 - (-0) is +0: no exit here
    }
    neutral<T>(mulC, mulCI, T(1), Exit::Copy, mul);
    neutral<T>(mulC, mulCI, T(-1), Exit::None, mul);
    neutral<T>(addC, addCI, nan, Exit::None, add);
    neutral<T>(subC, subCI, nan, Exit::None, sub);
    neutral<T>(mulC, mulCI, nan, Exit::None, mul);
}

TEST(ArithFloatNeutral, RealConstants) {
    neutralFamily<Nuv32f>(nuvsAddC_32f, nuvsAddC_32f_I, nuvsSubC_32f, nuvsSubC_32f_I, nuvsSubCRev_32f, nuvsSubCRev_32f_I,
                          nuvsMulC_32f, nuvsMulC_32f_I);
    neutralFamily<Nuv64f>(nuvsAddC_64f, nuvsAddC_64f_I, nuvsSubC_64f, nuvsSubC_64f_I, nuvsSubCRev_64f, nuvsSubCRev_64f_I,
                          nuvsMulC_64f, nuvsMulC_64f_I);
}

TEST(ArithFloatNeutral, ComplexConstantsAlwaysCompute) {
    const float snan = std::numeric_limits<float>::signaling_NaN();
    const Nuv32fc x[2] = {{-0.0f, -0.0f}, {snan, snan}};
    Nuv32fc d[2];
    ASSERT_EQ(nuvsAddC_32fc(x, Nuv32fc{0, 0}, d, 2), nuvStsOk);
    EXPECT_TRUE(same(d[0].re, 0.0f) && same(d[0].im, 0.0f));  // -0 + 0 is +0, not a copy
    ASSERT_EQ(nuvsMulC_32fc(x, Nuv32fc{1, 0}, d, 2), nuvStsOk);
    EXPECT_FALSE(same(d[1].re, snan));  // the signalling NaN went through arithmetic
}

TEST(ArithFloatNeutral, AbsClearsTheSignBitOnly) {
    const std::vector<Nuv32f> x = edgeValues<Nuv32f>(40);
    nt::Buf<Nuv32f> d(40);
    ASSERT_EQ(nuvsAbs_32f(x.data(), d.data(), 40), nuvStsOk);
    for (int i = 0; i < 40; ++i)
        EXPECT_EQ(std::bit_cast<uint32_t>(d[i]), std::bit_cast<uint32_t>(x[size_t(i)]) & 0x7FFFFFFFu) << i;
}

// ---------------------------------------------------------------- complex overlap
// A destination that overlaps a source gives the ascending element-by-element result.  The live
// model reads each element's operands from the shared array just before writing it.
template <class C>
void overlapRun(const char* name, const std::function<NuvStatus(const C*, const C*, C*, int)>& call,
                const std::function<C(C, C, C)>& model) {
    const int len = 100;
    for (auto [sOff, dOff] : {std::pair{0, 1}, {1, 0}, {0, 0}, {3, 0}}) {
        // Moduli near 1, so that chains of products through the overlap stay finite.
        std::vector<C> shared = randomElems<C>(len + 4, -1, 1), live = shared;
        const std::vector<C> y = randomElems<C>(len, -1, 1);
        ASSERT_EQ(call(shared.data() + sOff, y.data(), shared.data() + dOff, len), nuvStsOk);
        for (int i = 0; i < len; ++i) live[size_t(dOff + i)] = model(live[size_t(sOff + i)], y[size_t(i)], live[size_t(dOff + i)]);
        for (int i = 0; i < len + 4; ++i)
            ASSERT_TRUE(same(shared[size_t(i)], live[size_t(i)])) << name << " src+" << sOff << " dst+" << dOff << " at " << i;
    }
}

template <class C>
void overlapFamily(auto mul, auto mulI, auto mulC, auto addC, auto subC, auto subCRev, auto sqr) {
    using Fn = std::function<NuvStatus(const C*, const C*, C*, int)>;
    using M = std::function<C(C, C, C)>;
    const C c{0.625, -1.5};
    overlapRun<C>("Mul, second source", Fn([=](const C* s, const C* y, C* d, int n) { return mul(y, s, d, n); }), M([](C s, C y, C) { return cmul(y, s); }));
    overlapRun<C>("Mul, first source", Fn([=](const C* s, const C* y, C* d, int n) { return mul(s, y, d, n); }), M([](C s, C y, C) { return cmul(s, y); }));
    overlapRun<C>("Mul_I", Fn([=](const C* s, const C*, C* d, int n) { return mulI(s, d, n); }), M([](C s, C, C d) { return cmul(s, d); }));
    overlapRun<C>("MulC", Fn([=](const C* s, const C*, C* d, int n) { return mulC(s, c, d, n); }), M([=](C s, C, C) { return cmulc(s, c); }));
    overlapRun<C>("AddC", Fn([=](const C* s, const C*, C* d, int n) { return addC(s, c, d, n); }), M([=](C s, C, C) { return cadd(s, c); }));
    overlapRun<C>("SubC", Fn([=](const C* s, const C*, C* d, int n) { return subC(s, c, d, n); }), M([=](C s, C, C) { return csub(s, c); }));
    overlapRun<C>("SubCRev", Fn([=](const C* s, const C*, C* d, int n) { return subCRev(s, c, d, n); }), M([=](C s, C, C) { return csub(c, s); }));
    overlapRun<C>("Sqr", Fn([=](const C* s, const C*, C* d, int n) { return sqr(s, d, n); }), M([](C s, C, C) { return csqr(s); }));
}

TEST(ArithFloatOverlap, ComplexFormsRunAscending) {
    overlapFamily<Nuv32fc>(nuvsMul_32fc, nuvsMul_32fc_I, nuvsMulC_32fc, nuvsAddC_32fc, nuvsSubC_32fc, nuvsSubCRev_32fc, nuvsSqr_32fc);
    overlapFamily<Nuv64fc>(nuvsMul_64fc, nuvsMul_64fc_I, nuvsMulC_64fc, nuvsAddC_64fc, nuvsSubC_64fc, nuvsSubCRev_64fc, nuvsSqr_64fc);
}

}  // namespace

// Fixed-point add and subtract with scale factor, against an exact model in 128-bit integers:
// every member, scales -40 to 70, lengths around the block boundaries, misaligned and in-place
// arrays; then the cut-offs that zero earlier than the exact rule, and the check orders.
#include <climits>
#include <functional>
#include <iomanip>
#include <limits>
#include <sstream>

#include "support/generic.h"
#include "support/model.h"
#include "support/support.h"

NT_GENERIC_RULE(nuvsAdd_16sc_Sfs, nt::LenFirst);
NT_GENERIC_RULE(nuvsAdd_16sc_ISfs, nt::LenFirst);
NT_GENERIC_RULE(nuvsAdd_32sc_Sfs, nt::LenFirst);
NT_GENERIC_RULE(nuvsAdd_32sc_ISfs, nt::LenFirst);
NT_GENERIC_RULE(nuvsSub_16sc_Sfs, nt::LenFirst);
NT_GENERIC_RULE(nuvsSub_16sc_ISfs, nt::LenFirst);
NT_GENERIC_RULE(nuvsSub_32sc_Sfs, nt::LenFirst);
NT_GENERIC_RULE(nuvsSub_32sc_ISfs, nt::LenFirst);
NT_GENERIC_RULE(nuvsAddC_64s_Sfs, nt::NoNegativeLen);
NT_GENERIC_RULE(nuvsAddC_64u_Sfs, nt::NoNegativeLen);

namespace {

using i128 = __int128;

using nt::scaleRule;

enum class K { Add, Sub, AddC, SubC, SubCRev };

// x: word of pSrc1 (or pSrc), y: word of pSrc2 (or the constant).
i128 exact(K k, i128 x, i128 y) {
    switch (k) {
        case K::Add: case K::AddC: return x + y;
        case K::Sub: case K::SubCRev: return y - x;
        case K::SubC: return x - y;
    }
    return 0;
}

std::string show(i128 v) {
    std::ostringstream o;
    o << std::fixed << std::setprecision(0) << static_cast<long double>(v);
    return o.str();
}

template <class W> constexpr i128 lo() { return i128(std::numeric_limits<W>::min()); }
template <class W> constexpr i128 hi() { return i128(std::numeric_limits<W>::max()); }

// Random words over the whole range, with small multiples of powers of two (so that sums fall on
// ties at every scale) and the extremes mixed in.
template <class W>
std::vector<W> mixedWords(int n) {
    std::vector<W> v = nt::randomInts<W>(n);
    const i128 specials[] = {lo<W>(), hi<W>(), 0, 1, lo<W>() + 1, hi<W>() - 1, std::is_signed_v<W> ? -1 : 2};
    for (auto& w : v) {
        const uint64_t r = nt::rng()();
        if (r % 8 == 6) w = W(specials[(r >> 8) % 7]);
        else if (r % 8 >= 4)
            w = W((std::is_signed_v<W> ? int64_t((r >> 8) % 9) - 4 : int64_t((r >> 8) % 5))
                  * (int64_t(1) << ((r >> 16) % (sizeof(W) * 8 - 3))));
    }
    return v;
}

// Calls of a member over elements E made of words W.  Out of place: (x, y, dst) where y is the
// second array or points to the constant; in place: (y or the constant, srcDst).
template <class E> using OutOfPlace = std::function<NuvStatus(const E*, const E*, E*, int, int)>;
template <class E> using InPlace = std::function<NuvStatus(const E*, E*, int, int)>;
template <class E> OutOfPlace<E> C(NuvStatus (*f)(const E*, E, E*, int, int)) {
    return [f](const E* x, const E* c, E* d, int len, int sf) { return f(x, *c, d, len, sf); };
}
template <class E> InPlace<E> CI(NuvStatus (*f)(E, E*, int, int)) {
    return [f](const E* c, E* sd, int len, int sf) { return f(*c, sd, len, sf); };
}

struct Member {
    std::string name;
    K kind;
    int zeroFrom = INT_MAX;  // the member zeroes from this scale on, whatever the exact rule says
    int mode = 1;
    int sfLo = -40, sfHi = 70;
};

// Every scale from -40 to 70 and the extremes of int, every sweep length, arrays at varying misalignments, a fresh
// window of the data and (for constant forms) one of a set of constants per call.
template <class E, class W>
void sweep(const Member& m, const OutOfPlace<E>& sfs, const InPlace<E>& isfs) {
    constexpr int kW = int(sizeof(E) / sizeof(W));
    constexpr size_t kSlots = 32 / sizeof(E);
    const bool yConst = m.kind != K::Add && m.kind != K::Sub;
    const std::vector<W> x0 = mixedWords<W>((4099 + 97) * kW), y0 = mixedWords<W>((4099 + 97) * kW);
    const std::vector<W> cs = {W(0), W(1), W(lo<W>()), W(hi<W>()), W(std::is_signed_v<W> ? -1 : 2), y0[5], y0[9]};
    int variant = 0;
    std::vector<int> scales;
    if (m.sfLo < m.sfHi) scales = {INT_MIN, INT_MIN + 1, -1000, 1000, INT_MAX};
    for (int sf = m.sfLo; sf <= m.sfHi; ++sf) scales.push_back(sf);
    for (int sf : scales) {
        for (int len : nt::sweepLengths()) {
            ++variant;
            const auto at = x0.begin() + variant * 13 % 97 * kW;
            const std::vector<W> x(at, at + len * kW);
            std::vector<W> y(y0.begin() + (at - x0.begin()), y0.begin() + (at - x0.begin()) + len * kW);
            if (yConst)
                for (int w = 0; w < kW; ++w) y[size_t(w)] = cs[size_t(variant + 3 * w) % cs.size()];
            nt::Buf<E> a(len, sizeof(E) * (size_t(variant) % kSlots)), b(len, sizeof(E) * (size_t(variant) / 3 % kSlots));
            nt::Buf<E> d(len, sizeof(E) * (size_t(variant) / 7 % kSlots));
            std::memcpy(a.data(), x.data(), x.size() * sizeof(W));
            std::memcpy(b.data(), y.data(), (yConst ? kW : len * kW) * sizeof(W));
            auto same = [&](const E* out, const char* form) {
                const W* got = reinterpret_cast<const W*>(out);
                for (int j = 0; j < len * kW; ++j) {
                    const i128 xj = x[size_t(j)], yj = y[size_t(yConst ? j % kW : j)];
                    const i128 want = sf >= m.zeroFrom ? 0 : scaleRule(exact(m.kind, xj, yj), sf, lo<W>(), hi<W>(), m.mode);
                    if (i128(got[j]) != want) {
                        ADD_FAILURE() << m.name << form << " scale " << sf << " len " << len << " word " << j << ": x "
                                      << show(xj) << " y " << show(yj) << " got " << show(got[j]) << " want " << show(want);
                        return false;
                    }
                }
                return true;
            };
            if (sfs) {
                ASSERT_EQ(sfs(a.data(), b.data(), d.data(), len, sf), nuvStsOk) << m.name << " scale " << sf;
                ASSERT_TRUE(d.intact() && a.intact() && b.intact()) << m.name << " scale " << sf << " len " << len;
                if (!same(d.data(), "_Sfs")) return;
            }
            if (!isfs) continue;
            // In place: the destination holds the array operand that the out-of-place form read second
            // (Add, Sub) or the only one (constant forms).
            nt::Buf<E>& sd = yConst ? a : b;
            ASSERT_EQ(isfs(yConst ? b.data() : a.data(), sd.data(), len, sf), nuvStsOk);
            ASSERT_TRUE(sd.intact());
            if (!same(sd.data(), "_ISfs")) return;
        }
    }
}

TEST(ArithSfsAdd, AddSubAgainstExactModel) {
    sweep<Nuv8u, Nuv8u>({"Add_8u", K::Add}, nuvsAdd_8u_Sfs, nuvsAdd_8u_ISfs);
    sweep<Nuv16s, Nuv16s>({"Add_16s", K::Add}, nuvsAdd_16s_Sfs, nuvsAdd_16s_ISfs);
    sweep<Nuv16u, Nuv16u>({"Add_16u", K::Add}, nuvsAdd_16u_Sfs, nuvsAdd_16u_ISfs);
    sweep<Nuv32s, Nuv32s>({"Add_32s", K::Add}, nuvsAdd_32s_Sfs, nuvsAdd_32s_ISfs);
    sweep<Nuv16sc, Nuv16s>({"Add_16sc", K::Add}, nuvsAdd_16sc_Sfs, nuvsAdd_16sc_ISfs);
    sweep<Nuv32sc, Nuv32s>({"Add_32sc", K::Add}, nuvsAdd_32sc_Sfs, nuvsAdd_32sc_ISfs);
    sweep<Nuv8u, Nuv8u>({"Sub_8u", K::Sub}, nuvsSub_8u_Sfs, nuvsSub_8u_ISfs);
    sweep<Nuv16s, Nuv16s>({"Sub_16s", K::Sub}, nuvsSub_16s_Sfs, nuvsSub_16s_ISfs);
    sweep<Nuv16u, Nuv16u>({"Sub_16u", K::Sub}, nuvsSub_16u_Sfs, nuvsSub_16u_ISfs);
    sweep<Nuv32s, Nuv32s>({"Sub_32s", K::Sub}, nuvsSub_32s_Sfs, nuvsSub_32s_ISfs);
    sweep<Nuv16sc, Nuv16s>({"Sub_16sc", K::Sub}, nuvsSub_16sc_Sfs, nuvsSub_16sc_ISfs);
    sweep<Nuv32sc, Nuv32s>({"Sub_32sc", K::Sub}, nuvsSub_32sc_Sfs, nuvsSub_32sc_ISfs);
    // Add_64s zeroes from scale 64, where sums beyond +-2^63 would still round to +-1.
    sweep<Nuv64s, Nuv64s>({"Add_64s", K::Add, 64}, nuvsAdd_64s_Sfs, nullptr);
}

TEST(ArithSfsAdd, ConstantFormsAgainstExactModel) {
    // AddC_8u zeroes from scale 9, where 255 + 255 would still round to 1.
    sweep<Nuv8u, Nuv8u>({"AddC_8u", K::AddC, 9}, C(nuvsAddC_8u_Sfs), CI(nuvsAddC_8u_ISfs));
    sweep<Nuv16s, Nuv16s>({"AddC_16s", K::AddC}, C(nuvsAddC_16s_Sfs), CI(nuvsAddC_16s_ISfs));
    sweep<Nuv16u, Nuv16u>({"AddC_16u", K::AddC}, C(nuvsAddC_16u_Sfs), CI(nuvsAddC_16u_ISfs));
    sweep<Nuv32s, Nuv32s>({"AddC_32s", K::AddC}, C(nuvsAddC_32s_Sfs), CI(nuvsAddC_32s_ISfs));
    sweep<Nuv16sc, Nuv16s>({"AddC_16sc", K::AddC}, C(nuvsAddC_16sc_Sfs), CI(nuvsAddC_16sc_ISfs));
    sweep<Nuv32sc, Nuv32s>({"AddC_32sc", K::AddC}, C(nuvsAddC_32sc_Sfs), CI(nuvsAddC_32sc_ISfs));
    sweep<Nuv8u, Nuv8u>({"SubC_8u", K::SubC}, C(nuvsSubC_8u_Sfs), CI(nuvsSubC_8u_ISfs));
    sweep<Nuv16s, Nuv16s>({"SubC_16s", K::SubC}, C(nuvsSubC_16s_Sfs), CI(nuvsSubC_16s_ISfs));
    sweep<Nuv16u, Nuv16u>({"SubC_16u", K::SubC}, C(nuvsSubC_16u_Sfs), CI(nuvsSubC_16u_ISfs));
    sweep<Nuv32s, Nuv32s>({"SubC_32s", K::SubC}, C(nuvsSubC_32s_Sfs), CI(nuvsSubC_32s_ISfs));
    sweep<Nuv16sc, Nuv16s>({"SubC_16sc", K::SubC}, C(nuvsSubC_16sc_Sfs), CI(nuvsSubC_16sc_ISfs));
    sweep<Nuv32sc, Nuv32s>({"SubC_32sc", K::SubC}, C(nuvsSubC_32sc_Sfs), CI(nuvsSubC_32sc_ISfs));
    sweep<Nuv8u, Nuv8u>({"SubCRev_8u", K::SubCRev}, C(nuvsSubCRev_8u_Sfs), CI(nuvsSubCRev_8u_ISfs));
    sweep<Nuv16s, Nuv16s>({"SubCRev_16s", K::SubCRev}, C(nuvsSubCRev_16s_Sfs), CI(nuvsSubCRev_16s_ISfs));
    sweep<Nuv16u, Nuv16u>({"SubCRev_16u", K::SubCRev}, C(nuvsSubCRev_16u_Sfs), CI(nuvsSubCRev_16u_ISfs));
    sweep<Nuv32s, Nuv32s>({"SubCRev_32s", K::SubCRev}, C(nuvsSubCRev_32s_Sfs), CI(nuvsSubCRev_32s_ISfs));
    sweep<Nuv16sc, Nuv16s>({"SubCRev_16sc", K::SubCRev}, C(nuvsSubCRev_16sc_Sfs), CI(nuvsSubCRev_16sc_ISfs));
    sweep<Nuv32sc, Nuv32s>({"SubCRev_32sc", K::SubCRev}, C(nuvsSubCRev_32sc_Sfs), CI(nuvsSubCRev_32sc_ISfs));
}

// The forms without scale factor are the scaled members at scale 0.
TEST(ArithSfsAdd, ScaleZeroForms) {
    using P = const Nuv16s*;
    const Member add{"Add_16s", K::Add, INT_MAX, 1, 0, 0}, sub{"Sub_16s", K::Sub, INT_MAX, 1, 0, 0};
    sweep<Nuv16s, Nuv16s>(add, [](P x, P y, Nuv16s* d, int len, int) { return nuvsAdd_16s(x, y, d, len); },
                          [](P x, Nuv16s* sd, int len, int) { return nuvsAdd_16s_I(x, sd, len); });
    sweep<Nuv16s, Nuv16s>(sub, [](P x, P y, Nuv16s* d, int len, int) { return nuvsSub_16s(x, y, d, len); },
                          [](P x, Nuv16s* sd, int len, int) { return nuvsSub_16s_I(x, sd, len); });
    // AddC and SubC have only the in-place form.
    const Member addC{"AddC_16s_I", K::AddC, INT_MAX, 1, 0, 0}, subC{"SubC_16s_I", K::SubC, INT_MAX, 1, 0, 0};
    sweep<Nuv16s, Nuv16s>(addC, nullptr, CI<Nuv16s>([](Nuv16s c, Nuv16s* sd, int len, int) { return nuvsAddC_16s_I(c, sd, len); }));
    sweep<Nuv16s, Nuv16s>(subC, nullptr, CI<Nuv16s>([](Nuv16s c, Nuv16s* sd, int len, int) { return nuvsSubC_16s_I(c, sd, len); }));
}

TEST(ArithSfsAdd, AddC64InEveryRoundingMode) {
    for (int mode : {1, 0, 2, 7}) {  // any mode other than 0 and 1 rounds ties away from zero
        const Member m{"AddC_64 mode " + std::to_string(mode), K::AddC, INT_MAX, mode == 7 ? 2 : mode};
        sweep<Nuv64s, Nuv64s>(m, [mode](const Nuv64s* s, const Nuv64s* c, Nuv64s* d, int len, int sf) {
            return nuvsAddC_64s_Sfs(s, *c, d, len, sf, mode); }, nullptr);
        sweep<Nuv64u, Nuv64u>(m, [mode](const Nuv64u* s, const Nuv64u* c, Nuv64u* d, int len, int sf) {
            return nuvsAddC_64u_Sfs(s, *c, d, len, sf, mode); }, nullptr);
    }
}

// ---- worked values, and the cut-offs that zero before the exact rule does ----------------------

template <class T>
T one(NuvStatus (*f)(const T*, const T*, T*, int, int), T a, T b, int sf) {
    T d{};
    EXPECT_EQ(f(&a, &b, &d, 1, sf), nuvStsOk);
    return d;
}
template <class T>
T oneC(NuvStatus (*f)(const T*, T, T*, int, int), T a, T c, int sf) {
    T d{};
    EXPECT_EQ(f(&a, c, &d, 1, sf), nuvStsOk);
    return d;
}

TEST(ArithSfsAdd, WorkedValuesAndEarlyCutOffs) {
    constexpr Nuv64s kMin64 = INT64_MIN, kMax64 = INT64_MAX;
    const struct { const char* what; int64_t got, want; } rows[] = {
        {"3/2 is a tie, to even", one<Nuv16s>(nuvsAdd_16s_Sfs, 1, 2, 1), 2},
        {"-3/2 is a tie, to even", one<Nuv16s>(nuvsAdd_16s_Sfs, -3, 0, 1), -2},
        {"1/2 is a tie, to even", one<Nuv16s>(nuvsAdd_16s_Sfs, 0, 1, 1), 0},
        {"-1/2 is a tie, to even", one<Nuv16s>(nuvsAdd_16s_Sfs, -1, 0, 1), 0},
        {"sum above the range at scale 0", one<Nuv16s>(nuvsAdd_16s_Sfs, 32767, 32767, 0), 32767},
        {"twice 32767 halves back exactly", one<Nuv16s>(nuvsAdd_16s_Sfs, 32767, 32767, 1), 32767},
        {"sum above the range shifted left", one<Nuv16s>(nuvsAdd_16s_Sfs, 32767, 32767, -1), 32767},
        {"zero stays zero at any left shift", one<Nuv16s>(nuvsAdd_16s_Sfs, 1, -1, -16), 0},
        {"left by sign, positive", one<Nuv16s>(nuvsAdd_16s_Sfs, 1, 0, -16), 32767},
        {"left by sign", one<Nuv16s>(nuvsAdd_16s_Sfs, -1, 0, -16), -32768},
        {"twice the top halves back exactly", one<Nuv32s>(nuvsAdd_32s_Sfs, INT32_MAX, INT32_MAX, 1), INT32_MAX},
        {"twice the bottom halves back exactly", one<Nuv32s>(nuvsAdd_32s_Sfs, INT32_MIN, INT32_MIN, 1), INT32_MIN},
        {"AddC of 0 keeps the bottom", oneC<Nuv16s>(nuvsAddC_16s_Sfs, -32768, 0, 0), -32768},
        {"Sub is second minus first", one<Nuv16s>(nuvsSub_16s_Sfs, 1, 3, 0), 2},
        {"2^32 - 1 halves to a tie above the range", one<Nuv32s>(nuvsSub_32s_Sfs, INT32_MIN, INT32_MAX, 1), INT32_MAX},
        {"Add_8u at 9 still rounds", one<Nuv8u>(nuvsAdd_8u_Sfs, 255, 255, 9), 1},
        // Deliberate: these members zero where the exact rule would still give +-1.
        {"AddC_8u zeroes at 9", oneC<Nuv8u>(nuvsAddC_8u_Sfs, 255, 255, 9), 0},
        {"Add_64s zeroes at 64, negative", one<Nuv64s>(nuvsAdd_64s_Sfs, kMin64, -1, 64), 0},
        {"Add_64s zeroes at 64, positive", one<Nuv64s>(nuvsAdd_64s_Sfs, kMax64, 2, 64), 0},
    };
    for (const auto& r : rows) EXPECT_EQ(r.got, r.want) << r.what;
    EXPECT_EQ(scaleRule(510, 9, 0, 255), 1);  // the model keeps to the exact rule
}

// ---- argument checks ---------------------------------------------------------------------------

TEST(ArithSfsAdd, CheckOrders) {
    Nuv16sc c16[1] = {};
    Nuv32sc c32[1] = {};
    // Complex Add and Sub test the length before the pointers.
    for (int len : {0, -1}) {
        EXPECT_EQ(nuvsAdd_16sc_Sfs(nullptr, c16, c16, len, 0), nuvStsSize);
        EXPECT_EQ(nuvsSub_16sc_ISfs(c16, nullptr, len, 0), nuvStsSize);
        EXPECT_EQ(nuvsAdd_32sc_ISfs(nullptr, c32, len, 0), nuvStsSize);
        EXPECT_EQ(nuvsSub_32sc_Sfs(c32, c32, nullptr, len, 0), nuvStsSize);
    }
    // AddC_64 tests pointers first and refuses only a length of 0 (a negative one would run as a
    // huge count and is not exercised).
    nt::Buf<Nuv64s> s(1), d(1);
    nt::Buf<Nuv64u> su(1), du(1);
    EXPECT_EQ(nuvsAddC_64s_Sfs(nullptr, 1, d.data(), 0, 0, 1), nuvStsNullPtr);
    EXPECT_EQ(nuvsAddC_64u_Sfs(su.data(), 1, nullptr, 0, 0, 1), nuvStsNullPtr);
    EXPECT_EQ(nuvsAddC_64s_Sfs(s.data(), 1, d.data(), 0, 0, 1), nuvStsSize);
    EXPECT_EQ(nuvsAddC_64u_Sfs(su.data(), 1, du.data(), 0, 3, 9), nuvStsSize);
    EXPECT_TRUE(d.untouched() && du.untouched());
}

}  // namespace

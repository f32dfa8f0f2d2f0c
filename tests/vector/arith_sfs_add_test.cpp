// Fixed-point add and subtract with scale factor, against an exact model in 128-bit integers:
// every member, scales -40 to 70, lengths around the block boundaries, misaligned and in-place
// arrays; then the cut-offs that zero earlier than the exact rule, and the check orders.
#include <climits>
#include <functional>
#include <limits>

#include "support/generic.h"
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

// x * 2^-sf rounded (mode 1: ties to even, 0: toward zero, other: ties away from zero), clamped
// to [lo, hi].  Floor division with remainder; |x| < 2^66 and sf >= -40 keep it within 128 bits.
i128 model(i128 x, int sf, i128 lo, i128 hi, int mode = 1) {
    i128 v;
    if (sf <= 0) {
        v = x * (i128(1) << -sf);
    } else {
        const i128 d = i128(1) << sf;
        i128 q = x / d, r = x % d;
        if (r < 0) r += d, q -= 1;  // now x = q d + r with 0 <= r < d
        if (mode == 0) q += (x < 0 && r != 0);
        else if (2 * r > d) q += 1;
        else if (2 * r == d) q += mode == 1 ? (q & 1) : (x > 0);
        v = q;
    }
    return v < lo ? lo : (v > hi ? hi : v);
}

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
    if (v == 0) return "0";
    std::string s;
    const bool neg = v < 0;
    for (; v != 0; v /= 10) s.insert(s.begin(), char('0' + int(neg ? -(v % 10) : v % 10)));
    return neg ? "-" + s : s;
}

template <class W> constexpr i128 lo() { return i128(std::numeric_limits<W>::min()); }
template <class W> constexpr i128 hi() { return i128(std::numeric_limits<W>::max()); }

// Random words over the whole range, with small multiples of powers of two (so that sums fall on
// ties at every scale) and the extremes mixed in.
template <class W>
std::vector<W> mixedWords(int n) {
    std::vector<W> v = nt::randomInts<W>(n);
    const i128 specials[] = {lo<W>(), hi<W>(), 0, 1, lo<W>() + 1, hi<W>() - 1, std::is_signed_v<W> ? -1 : 2};
    constexpr int bits = int(sizeof(W) * 8);
    for (auto& w : v) {
        const uint64_t r = nt::rng()();
        if (r % 8 == 6) {
            w = W(specials[(r >> 8) % 7]);
        } else if (r % 8 >= 4) {
            const int64_t small = std::is_signed_v<W> ? int64_t((r >> 8) % 9) - 4 : int64_t((r >> 8) % 5);
            w = W(small * (int64_t(1) << ((r >> 16) % uint64_t(bits - 3))));
        }
    }
    return v;
}

// A case: the member under test over word arrays.  `run(x, y, dst, len, sf)` calls the out-of-place
// form with y as the second array or, for constant forms, ignores it; `inPlace` the in-place form
// with dst holding the array operand; the constant, if any, is set before the calls.
template <class E, class W>
struct Harness {
    static constexpr int kWords = int(sizeof(E) / sizeof(W));
    std::string name;
    K kind;
    int zeroFrom = INT_MAX;  // the member zeroes from this scale on, whatever the exact rule says
    int mode = 1;

    // Compares the words of `got` with the model; reports the first difference.
    bool same(const W* got, const std::vector<W>& x, const std::vector<W>& y, bool yConst, int len, int sf,
              const char* form) const {
        for (int j = 0; j < len * kWords; ++j) {
            const i128 yj = yConst ? i128(y[size_t(j % kWords)]) : i128(y[size_t(j)]);
            const i128 want = sf >= zeroFrom ? 0 : model(exact(kind, x[size_t(j)], yj), sf, lo<W>(), hi<W>(), mode);
            if (i128(got[j]) != want) {
                ADD_FAILURE() << name << form << " scale " << sf << " len " << len << " word " << j << ": x "
                              << show(x[size_t(j)]) << " y " << show(yj) << " got " << show(got[j]) << " want "
                              << show(want);
                return false;
            }
        }
        return true;
    }
};

template <class E, class W>
void fill(nt::Buf<E>& b, const std::vector<W>& v) { std::memcpy(b.data(), v.data(), v.size() * sizeof(W)); }

size_t offsetFor(int variant, size_t elem, int salt) {
    const size_t m = 32 / elem;
    return elem * ((size_t(variant) * 7 + size_t(salt) * 3) % m);
}

template <class E, class W>
void sweepArrays(const Harness<E, W>& h, const std::function<NuvStatus(const E*, const E*, E*, int, int)>& sfs,
                 const std::function<NuvStatus(const E*, E*, int, int)>& isfs) {
    const int maxWords = (4099 + 97) * h.kWords;
    const std::vector<W> x0 = mixedWords<W>(maxWords), y0 = mixedWords<W>(maxWords);
    int variant = 0;
    for (int sf = -40; sf <= 70; ++sf) {
        for (int len : nt::sweepLengths()) {
            ++variant;
            // Each (scale, length) sees a different window of the data.
            const size_t start = size_t(variant * 13 % 97) * size_t(h.kWords);
            const std::vector<W> x(x0.begin() + long(start), x0.begin() + long(start) + len * h.kWords);
            const std::vector<W> y(y0.begin() + long(start), y0.begin() + long(start) + len * h.kWords);
            nt::Buf<E> a(len, offsetFor(variant, sizeof(E), 0)), b(len, offsetFor(variant, sizeof(E), 1));
            nt::Buf<E> d(len, offsetFor(variant, sizeof(E), 2));
            fill(a, x), fill(b, y);
            ASSERT_EQ(sfs(a.data(), b.data(), d.data(), len, sf), nuvStsOk) << h.name << " scale " << sf;
            ASSERT_TRUE(d.intact() && a.intact() && b.intact()) << h.name << " scale " << sf << " len " << len;
            if (!h.same(reinterpret_cast<const W*>(d.data()), x, y, false, len, sf, "_Sfs")) return;
            // In place: the destination holds the second operand.
            ASSERT_EQ(isfs(a.data(), b.data(), len, sf), nuvStsOk);
            ASSERT_TRUE(b.intact());
            if (!h.same(reinterpret_cast<const W*>(b.data()), x, y, false, len, sf, "_ISfs")) return;
        }
    }
}

// Constants per scale: 0, 1, the extremes, -1 or 2, and random ones; every scale sees each.
template <class W>
std::vector<W> constWords() {
    std::vector<W> c = {W(0), W(1), W(lo<W>()), W(hi<W>()), W(std::is_signed_v<W> ? -1 : 2)};
    for (W w : mixedWords<W>(6)) c.push_back(w);
    return c;
}

template <class E, class W>
void sweepConst(const Harness<E, W>& h, const std::function<NuvStatus(const E*, E, E*, int, int)>& sfs,
                const std::function<NuvStatus(E, E*, int, int)>& isfs, int lowScale = -40) {
    const int maxWords = (4099 + 97) * h.kWords;
    const std::vector<W> x0 = mixedWords<W>(maxWords);
    const std::vector<W> cs = constWords<W>();
    int variant = 0;
    for (int sf = lowScale; sf <= 70; ++sf) {
        int li = 0;
        for (int len : nt::sweepLengths()) {
            ++variant, ++li;
            std::vector<W> cw(size_t(h.kWords));
            for (int w = 0; w < h.kWords; ++w) cw[size_t(w)] = cs[size_t(li + sf + 100 + 4 * w) % cs.size()];
            E c;
            std::memcpy(&c, cw.data(), sizeof c);
            const size_t start = size_t(variant * 13 % 97) * size_t(h.kWords);
            const std::vector<W> x(x0.begin() + long(start), x0.begin() + long(start) + len * h.kWords);
            nt::Buf<E> a(len, offsetFor(variant, sizeof(E), 0)), d(len, offsetFor(variant, sizeof(E), 2));
            fill(a, x);
            ASSERT_EQ(sfs(a.data(), c, d.data(), len, sf), nuvStsOk) << h.name << " scale " << sf;
            ASSERT_TRUE(d.intact() && a.intact()) << h.name << " scale " << sf << " len " << len;
            if (!h.same(reinterpret_cast<const W*>(d.data()), x, cw, true, len, sf, "_Sfs")) return;
            if (!isfs) continue;
            ASSERT_EQ(isfs(c, a.data(), len, sf), nuvStsOk);
            ASSERT_TRUE(a.intact());
            if (!h.same(reinterpret_cast<const W*>(a.data()), x, cw, true, len, sf, "_ISfs")) return;
        }
    }
}

// ---- every member against the model ------------------------------------------------------------

TEST(ArithSfsAdd, AddSubAgainstExactModel) {
    sweepArrays<Nuv8u, Nuv8u>({"Add_8u", K::Add}, nuvsAdd_8u_Sfs, nuvsAdd_8u_ISfs);
    sweepArrays<Nuv16s, Nuv16s>({"Add_16s", K::Add}, nuvsAdd_16s_Sfs, nuvsAdd_16s_ISfs);
    sweepArrays<Nuv16u, Nuv16u>({"Add_16u", K::Add}, nuvsAdd_16u_Sfs, nuvsAdd_16u_ISfs);
    sweepArrays<Nuv32s, Nuv32s>({"Add_32s", K::Add}, nuvsAdd_32s_Sfs, nuvsAdd_32s_ISfs);
    sweepArrays<Nuv16sc, Nuv16s>({"Add_16sc", K::Add}, nuvsAdd_16sc_Sfs, nuvsAdd_16sc_ISfs);
    sweepArrays<Nuv32sc, Nuv32s>({"Add_32sc", K::Add}, nuvsAdd_32sc_Sfs, nuvsAdd_32sc_ISfs);
    sweepArrays<Nuv8u, Nuv8u>({"Sub_8u", K::Sub}, nuvsSub_8u_Sfs, nuvsSub_8u_ISfs);
    sweepArrays<Nuv16s, Nuv16s>({"Sub_16s", K::Sub}, nuvsSub_16s_Sfs, nuvsSub_16s_ISfs);
    sweepArrays<Nuv16u, Nuv16u>({"Sub_16u", K::Sub}, nuvsSub_16u_Sfs, nuvsSub_16u_ISfs);
    sweepArrays<Nuv32s, Nuv32s>({"Sub_32s", K::Sub}, nuvsSub_32s_Sfs, nuvsSub_32s_ISfs);
    sweepArrays<Nuv16sc, Nuv16s>({"Sub_16sc", K::Sub}, nuvsSub_16sc_Sfs, nuvsSub_16sc_ISfs);
    sweepArrays<Nuv32sc, Nuv32s>({"Sub_32sc", K::Sub}, nuvsSub_32sc_Sfs, nuvsSub_32sc_ISfs);
    // Add_64s zeroes from scale 64, where sums beyond +-2^63 would still round to +-1.
    sweepArrays<Nuv64s, Nuv64s>({"Add_64s", K::Add, 64}, nuvsAdd_64s_Sfs,
                                [](const Nuv64s* s, Nuv64s* sd, int len, int sf) {
                                    return nuvsAdd_64s_Sfs(s, sd, sd, len, sf);
                                });
}

TEST(ArithSfsAdd, ConstantFormsAgainstExactModel) {
    // AddC_8u zeroes from scale 9, where 255 + 255 would still round to 1.
    sweepConst<Nuv8u, Nuv8u>({"AddC_8u", K::AddC, 9}, nuvsAddC_8u_Sfs, nuvsAddC_8u_ISfs);
    sweepConst<Nuv16s, Nuv16s>({"AddC_16s", K::AddC}, nuvsAddC_16s_Sfs, nuvsAddC_16s_ISfs);
    sweepConst<Nuv16u, Nuv16u>({"AddC_16u", K::AddC}, nuvsAddC_16u_Sfs, nuvsAddC_16u_ISfs);
    sweepConst<Nuv32s, Nuv32s>({"AddC_32s", K::AddC}, nuvsAddC_32s_Sfs, nuvsAddC_32s_ISfs);
    sweepConst<Nuv16sc, Nuv16s>({"AddC_16sc", K::AddC}, nuvsAddC_16sc_Sfs, nuvsAddC_16sc_ISfs);
    sweepConst<Nuv32sc, Nuv32s>({"AddC_32sc", K::AddC}, nuvsAddC_32sc_Sfs, nuvsAddC_32sc_ISfs);
    sweepConst<Nuv8u, Nuv8u>({"SubC_8u", K::SubC}, nuvsSubC_8u_Sfs, nuvsSubC_8u_ISfs);
    sweepConst<Nuv16s, Nuv16s>({"SubC_16s", K::SubC}, nuvsSubC_16s_Sfs, nuvsSubC_16s_ISfs);
    sweepConst<Nuv16u, Nuv16u>({"SubC_16u", K::SubC}, nuvsSubC_16u_Sfs, nuvsSubC_16u_ISfs);
    sweepConst<Nuv32s, Nuv32s>({"SubC_32s", K::SubC}, nuvsSubC_32s_Sfs, nuvsSubC_32s_ISfs);
    sweepConst<Nuv16sc, Nuv16s>({"SubC_16sc", K::SubC}, nuvsSubC_16sc_Sfs, nuvsSubC_16sc_ISfs);
    sweepConst<Nuv32sc, Nuv32s>({"SubC_32sc", K::SubC}, nuvsSubC_32sc_Sfs, nuvsSubC_32sc_ISfs);
    sweepConst<Nuv8u, Nuv8u>({"SubCRev_8u", K::SubCRev}, nuvsSubCRev_8u_Sfs, nuvsSubCRev_8u_ISfs);
    sweepConst<Nuv16s, Nuv16s>({"SubCRev_16s", K::SubCRev}, nuvsSubCRev_16s_Sfs, nuvsSubCRev_16s_ISfs);
    sweepConst<Nuv16u, Nuv16u>({"SubCRev_16u", K::SubCRev}, nuvsSubCRev_16u_Sfs, nuvsSubCRev_16u_ISfs);
    sweepConst<Nuv32s, Nuv32s>({"SubCRev_32s", K::SubCRev}, nuvsSubCRev_32s_Sfs, nuvsSubCRev_32s_ISfs);
    sweepConst<Nuv16sc, Nuv16s>({"SubCRev_16sc", K::SubCRev}, nuvsSubCRev_16sc_Sfs, nuvsSubCRev_16sc_ISfs);
    sweepConst<Nuv32sc, Nuv32s>({"SubCRev_32sc", K::SubCRev}, nuvsSubCRev_32sc_Sfs, nuvsSubCRev_32sc_ISfs);
}

TEST(ArithSfsAdd, AddC64InEveryRoundingMode) {
    for (int mode : {1, 0, 2, 7}) {  // any mode other than 0 and 1 rounds ties away from zero
        sweepConst<Nuv64s, Nuv64s>({"AddC_64s mode " + std::to_string(mode), K::AddC, INT_MAX, mode == 7 ? 2 : mode},
                                   [mode](const Nuv64s* s, Nuv64s c, Nuv64s* d, int len, int sf) {
                                       return nuvsAddC_64s_Sfs(s, c, d, len, sf, mode);
                                   }, nullptr);
        sweepConst<Nuv64u, Nuv64u>({"AddC_64u mode " + std::to_string(mode), K::AddC, INT_MAX, mode == 7 ? 2 : mode},
                                   [mode](const Nuv64u* s, Nuv64u c, Nuv64u* d, int len, int sf) {
                                       return nuvsAddC_64u_Sfs(s, c, d, len, sf, mode);
                                   }, nullptr);
    }
}

// The forms without scale factor are the scaled members at scale 0.
TEST(ArithSfsAdd, ScaleZeroForms) {
    for (int len : nt::sweepLengths()) {
        const auto x = mixedWords<Nuv16s>(len), y = mixedWords<Nuv16s>(len);
        const Nuv16s c = y[0];
        nt::Buf<Nuv16s> a(len, 2), b(len, 6), want(len), got(len, 4);
        a.copyFrom(x), b.copyFrom(y);
        auto check = [&](const char* what, NuvStatus st) {
            EXPECT_EQ(st, nuvStsOk) << what;
            EXPECT_EQ(got.vec(), want.vec()) << what << " len " << len;
            EXPECT_TRUE(got.intact()) << what;
        };
        nuvsAdd_16s_Sfs(a.data(), b.data(), want.data(), len, 0);
        check("Add_16s", nuvsAdd_16s(a.data(), b.data(), got.data(), len));
        got.copyFrom(y);
        check("Add_16s_I", nuvsAdd_16s_I(a.data(), got.data(), len));
        nuvsSub_16s_Sfs(a.data(), b.data(), want.data(), len, 0);
        check("Sub_16s", nuvsSub_16s(a.data(), b.data(), got.data(), len));
        got.copyFrom(y);
        check("Sub_16s_I", nuvsSub_16s_I(a.data(), got.data(), len));
        nuvsAddC_16s_Sfs(a.data(), c, want.data(), len, 0);
        got.copyFrom(x);
        check("AddC_16s_I", nuvsAddC_16s_I(c, got.data(), len));
        nuvsSubC_16s_Sfs(a.data(), c, want.data(), len, 0);
        got.copyFrom(x);
        check("SubC_16s_I", nuvsSubC_16s_I(c, got.data(), len));
    }
}

// ---- fixed points of the rule and the deliberate departures from it ---------------------------

template <class T>
T add1(NuvStatus (*f)(const T*, const T*, T*, int, int), T a, T b, int sf) {
    T d{};
    EXPECT_EQ(f(&a, &b, &d, 1, sf), nuvStsOk);
    return d;
}
template <class T>
T addc1(NuvStatus (*f)(const T*, T, T*, int, int), T a, T c, int sf) {
    T d{};
    EXPECT_EQ(f(&a, c, &d, 1, sf), nuvStsOk);
    return d;
}

TEST(ArithSfsAdd, WorkedValues) {
    struct Row { const char* what; int64_t got, want; };
    constexpr Nuv32s kMax = INT32_MAX, kMin = INT32_MIN;
    constexpr Nuv64s kMin64 = INT64_MIN, kMax64 = INT64_MAX;
    const Row rows[] = {
        {"3/2 is a tie, to even", add1<Nuv16s>(nuvsAdd_16s_Sfs, 1, 2, 1), 2},
        {"1/2 to even", add1<Nuv16s>(nuvsAdd_16s_Sfs, 0, 1, 1), 0},
        {"-1/2 to even", add1<Nuv16s>(nuvsAdd_16s_Sfs, -1, 0, 1), 0},
        {"-3/2 to even", add1<Nuv16s>(nuvsAdd_16s_Sfs, -3, 0, 1), -2},
        {"saturates at 0", add1<Nuv16s>(nuvsAdd_16s_Sfs, 32767, 32767, 0), 32767},
        {"no saturation needed at 1", add1<Nuv16s>(nuvsAdd_16s_Sfs, 32767, 32767, 1), 32767},
        {"left by sign, 0", add1<Nuv16s>(nuvsAdd_16s_Sfs, 1, -1, -16), 0},
        {"left by sign, +", add1<Nuv16s>(nuvsAdd_16s_Sfs, 1, 0, -16), 32767},
        {"left by sign, -", add1<Nuv16s>(nuvsAdd_16s_Sfs, -1, 0, -16), -32768},
        {"Sub is second minus first", add1<Nuv16s>(nuvsSub_16s_Sfs, 1, 3, 0), 2},
        {"Add_8u at 9 still rounds", add1<Nuv8u>(nuvsAdd_8u_Sfs, 255, 255, 9), 1},
        {"Add_32s at 1, highest", add1<Nuv32s>(nuvsAdd_32s_Sfs, kMax, kMax, 1), kMax},
        {"Add_32s at 1, lowest", add1<Nuv32s>(nuvsAdd_32s_Sfs, kMin, kMin, 1), kMin},
        {"Add_32s at 32", add1<Nuv32s>(nuvsAdd_32s_Sfs, kMin, kMin, 32), -1},
        {"Add_64s at 63", add1<Nuv64s>(nuvsAdd_64s_Sfs, kMin64, kMin64, 63), -2},
        {"AddC_16s copies -32768", addc1<Nuv16s>(nuvsAddC_16s_Sfs, -32768, 0, 0), -32768},
        {"SubC_8u with 0 shifts left", addc1<Nuv8u>(nuvsSubC_8u_Sfs, 3, 0, -6), 192},
        {"AddC_16u far left", addc1<Nuv16u>(nuvsAddC_16u_Sfs, 0, 1, -16), 65535},
        // Deliberate departures: these cut-offs zero while the exact rule would still give +-1.
        {"AddC_8u zeroes at 9", addc1<Nuv8u>(nuvsAddC_8u_Sfs, 255, 255, 9), 0},
        {"Add_64s zeroes at 64, negative", add1<Nuv64s>(nuvsAdd_64s_Sfs, kMin64, -1, 64), 0},
        {"Add_64s zeroes at 64, positive", add1<Nuv64s>(nuvsAdd_64s_Sfs, kMax64, 2, 64), 0},
    };
    for (const Row& r : rows) EXPECT_EQ(r.got, r.want) << r.what;
    // The model agrees with the exact rule where these members don't depart from it.
    EXPECT_EQ(model(510, 9, 0, 255), 1);
    EXPECT_EQ(model(i128(kMin64) - 1, 64, lo<Nuv64s>(), hi<Nuv64s>()), -1);
}

// ---- argument checks ---------------------------------------------------------------------------

TEST(ArithSfsAdd, ComplexAddSubCheckLengthFirst) {
    Nuv16sc s16[1] = {};
    Nuv32sc s32[1] = {};
    for (int len : {0, -1}) {
        EXPECT_EQ(nuvsAdd_16sc_Sfs(nullptr, s16, s16, len, 0), nuvStsSize);
        EXPECT_EQ(nuvsSub_16sc_ISfs(s16, nullptr, len, 0), nuvStsSize);
        EXPECT_EQ(nuvsAdd_32sc_ISfs(nullptr, s32, len, 0), nuvStsSize);
        EXPECT_EQ(nuvsSub_32sc_Sfs(s32, s32, nullptr, len, 0), nuvStsSize);
    }
    EXPECT_EQ(nuvsAdd_16sc_Sfs(s16, nullptr, s16, 1, 0), nuvStsNullPtr);
    EXPECT_EQ(nuvsSub_32sc_ISfs(nullptr, s32, 1, 0), nuvStsNullPtr);
}

TEST(ArithSfsAdd, AddC64RefusesOnlyZeroLength) {
    // Pointers come first; only a length of 0 is refused.  (A negative length runs as a huge count
    // and is not exercised.)
    nt::Buf<Nuv64s> s(1), d(1);
    nt::Buf<Nuv64u> su(1), du(1);
    EXPECT_EQ(nuvsAddC_64s_Sfs(nullptr, 1, d.data(), 0, 0, 1), nuvStsNullPtr);
    EXPECT_EQ(nuvsAddC_64u_Sfs(su.data(), 1, nullptr, 0, 0, 1), nuvStsNullPtr);
    EXPECT_EQ(nuvsAddC_64s_Sfs(s.data(), 1, d.data(), 0, 0, 1), nuvStsSize);
    EXPECT_EQ(nuvsAddC_64u_Sfs(su.data(), 1, du.data(), 0, 3, 9), nuvStsSize);
    EXPECT_TRUE(d.untouched() && du.untouched());
}

}  // namespace

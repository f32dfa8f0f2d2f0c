// Fill, copy and reorder: every member against a plain model over many lengths and
// misalignments, the streaming fill route, overlapping moves, and the bit-string operations
// against bit-by-bit models.
#include <algorithm>
#include <climits>
#include <functional>

#include "support/support.h"

namespace {

using Bytes = std::vector<uint8_t>;

Bytes randomBytes(size_t n) { return nt::randomInts<uint8_t>(int(n)); }

// Lengths around every size class of the byte kernels (32, 64, 128, 256 bytes and the blocks).
const std::vector<int>& lengths() {
    static const std::vector<int> v = [] {
        std::vector<int> l = nt::sweepLengths();
        for (int n : {6, 10, 12, 20, 48, 66, 96, 130, 160, 192, 250, 256, 257, 300, 511, 513, 777, 2049})
            l.push_back(n);
        return l;
    }();
    return v;
}

// Restores the cache size query to the processor's own answer.
struct CacheOverride {
    explicit CacheOverride(int size) { nuvcoreTestSetCacheSize(size); }
    ~CacheOverride() { nuvcoreTestSetCacheSize(-1); }
};

// ---- Zero and Set

// Runs `fill` on len elements of E bytes at byte offset `off` and checks every element against
// `val` and the red zones.
template <size_t E, class Fill>
void checkFill(const uint8_t (&val)[E], int len, size_t off, Fill fill, const char* name) {
    nt::Guarded g(size_t(len) * E, off);
    std::memset(g.data(), 0x5A, g.size());
    ASSERT_EQ(fill(g.data(), len), nuvStsOk) << name;
    for (int i = 0; i < len; ++i)
        ASSERT_EQ(std::memcmp(g.data() + size_t(i) * E, val, E), 0) << name << " len " << len << " off " << off << " at " << i;
    ASSERT_TRUE(g.intact()) << name << " len " << len << " off " << off;
}

template <class T>
void fillFamily(NuvStatus (*zero)(T*, int), NuvStatus (*set)(T, T*, int), const char* name) {
    constexpr size_t E = sizeof(T);
    uint8_t zeros[E] = {}, pat[E];
    for (size_t k = 0; k < E; ++k) pat[k] = uint8_t(0x11 * (k + 1) + 0x80);
    T val;
    std::memcpy(&val, pat, E);
    for (int len : lengths())
        for (size_t off : {size_t(0), size_t(1), E, size_t(13), size_t(32) - E, size_t(40)}) {
            checkFill<E>(zeros, len, off, [&](uint8_t* p, int n) { return zero(reinterpret_cast<T*>(p), n); }, name);
            checkFill<E>(pat, len, off, [&](uint8_t* p, int n) { return set(val, reinterpret_cast<T*>(p), n); }, name);
        }
}

TEST(MoveFill, ZeroAndSetEveryWidth) {
    fillFamily<Nuv8u>(nuvsZero_8u, nuvsSet_8u, "8u");
    fillFamily<Nuv16s>(nuvsZero_16s, nuvsSet_16s, "16s");
    fillFamily<Nuv16sc>(nuvsZero_16sc, nuvsSet_16sc, "16sc");
    fillFamily<Nuv32f>(nuvsZero_32f, nuvsSet_32f, "32f");
    fillFamily<Nuv32s>(nuvsZero_32s, nuvsSet_32s, "32s");
    fillFamily<Nuv32fc>(nuvsZero_32fc, nuvsSet_32fc, "32fc");
    fillFamily<Nuv32sc>(nuvsZero_32sc, nuvsSet_32sc, "32sc");
    fillFamily<Nuv64f>(nuvsZero_64f, nuvsSet_64f, "64f");
    fillFamily<Nuv64s>(nuvsZero_64s, nuvsSet_64s, "64s");
    fillFamily<Nuv64fc>(nuvsZero_64fc, nuvsSet_64fc, "64fc");
    fillFamily<Nuv64sc>(nuvsZero_64sc, nuvsSet_64sc, "64sc");
}

TEST(MoveFill, LongPlainFillsAtEveryPhase) {
    const uint8_t p1[1] = {0xC3}, p2[2] = {0x01, 0x80}, p4[4] = {0x00, 0x00, 0xC0, 0x3F}, p8[8] = {9, 8, 7, 6, 5, 4, 3, 2};
    for (int extra = 0; extra < 9; ++extra)
        for (size_t off : {0, 4, 8, 28, 3}) {
            checkFill<1>(p1, 0x80040 + extra, off, [](uint8_t* p, int n) { return nuvsSet_8u(0xC3, p, n); }, "8u");
            checkFill<2>(p2, 0x40020 + extra, off, [](uint8_t* p, int n) { return nuvsSet_16s(-32767, reinterpret_cast<Nuv16s*>(p), n); }, "16s");
            checkFill<4>(p4, 0x20010 + extra, off, [](uint8_t* p, int n) { return nuvsSet_32f(1.5f, reinterpret_cast<Nuv32f*>(p), n); }, "32f");
            checkFill<8>(p8, 0x10008 + extra, off, [](uint8_t* p, int n) { return nuvsSet_64s(0x0203040506070809, reinterpret_cast<Nuv64s*>(p), n); }, "64s");
        }
}

TEST(MoveFill, SetKeepsNaNPayloadAndSignedZero) {
    const float vals[] = {-0.0f, std::bit_cast<float>(0x7FA00001u), std::bit_cast<float>(0xFFC12345u)};
    for (float v : vals) {
        nt::Buf<Nuv32f> d(77, 4);
        ASSERT_EQ(nuvsSet_32f(v, d.data(), 77), nuvStsOk);
        for (int i = 0; i < 77; ++i) ASSERT_TRUE(nt::sameBits(d[i], v));
    }
}

// One large fill: the number of cache queries it made and whether the content is right.
template <size_t E, class Fill>
int queriesOf(int len, size_t off, const uint8_t (&val)[E], Fill fill) {
    const int before = nuvcoreTestCacheQueries();
    checkFill<E>(val, len, off, fill, "large");
    return nuvcoreTestCacheQueries() - before;
}

TEST(MoveFill, LargeRegionsAskTheCacheAndStream) {
    CacheOverride cache(4096);  // every large region is beyond this "cache": the streaming route
    const uint8_t z4[4] = {}, z1[1] = {}, z16[16] = {};
    auto zero32f = [](uint8_t* p, int n) { return nuvsZero_32f(reinterpret_cast<Nuv32f*>(p), n); };
    EXPECT_EQ(queriesOf<4>(0x80000, 0, z4, zero32f), 0);  // exactly 0x200000 bytes: plain
    for (size_t off : {0, 4, 20, 3}) EXPECT_EQ(queriesOf<4>(0x80001, off, z4, zero32f), 1) << off;
    auto zero8u = [](uint8_t* p, int n) { return nuvsZero_8u(p, n); };
    EXPECT_EQ(queriesOf<1>(0x200000, 0, z1, zero8u), 0);
    for (int extra : {1, 2, 7, 8, 17, 48, 63})
        EXPECT_EQ(queriesOf<1>(0x200000 + extra, size_t(extra) % 5, z1, zero8u), 1) << extra;
    auto zero64fc = [](uint8_t* p, int n) { return nuvsZero_64fc(reinterpret_cast<Nuv64fc*>(p), n); };
    EXPECT_EQ(queriesOf<16>(0x20001, 8, z16, zero64fc), 1);

    const uint8_t p2[2] = {0x12, 0x34};
    auto set16s = [](uint8_t* p, int n) { return nuvsSet_16s(0x3412, reinterpret_cast<Nuv16s*>(p), n); };
    EXPECT_EQ(queriesOf<2>(0x100001, 2, p2, set16s), 1);
    EXPECT_EQ(queriesOf<2>(0x100001, 1, p2, set16s), 0);  // odd address: plain, no query

    const uint8_t p4[4] = {0x00, 0x00, 0xC0, 0x3F};  // 1.5f
    auto set32f = [](uint8_t* p, int n) { return nuvsSet_32f(1.5f, reinterpret_cast<Nuv32f*>(p), n); };
    EXPECT_EQ(queriesOf<4>(0x80000, 4, p4, set32f), 0);
    for (size_t off : {0, 4, 36, 60}) EXPECT_EQ(queriesOf<4>(0x80001 + int(off), off, p4, set32f), 1) << off;
    EXPECT_EQ(queriesOf<4>(0x80001, 2, p4, set32f), 0);

    const uint8_t p8[8] = {1, 2, 3, 4, 5, 6, 7, 8};
    auto set64s = [](uint8_t* p, int n) { return nuvsSet_64s(0x0807060504030201, reinterpret_cast<Nuv64s*>(p), n); };
    EXPECT_EQ(queriesOf<8>(0x40000, 8, p8, set64s), 0);  // the 8-byte kernel cuts in elements
    EXPECT_EQ(queriesOf<8>(0x40001, 8, p8, set64s), 1);
    EXPECT_EQ(queriesOf<8>(0x40003, 24, p8, set64s), 1);
    EXPECT_EQ(queriesOf<8>(0x40001, 4, p8, set64s), 0);

    uint8_t p16[16];
    for (int k = 0; k < 16; ++k) p16[k] = uint8_t(k * 7 + 1);
    Nuv64sc v16;
    std::memcpy(&v16, p16, 16);
    auto set64sc = [&](uint8_t* p, int n) { return nuvsSet_64sc(v16, reinterpret_cast<Nuv64sc*>(p), n); };
    EXPECT_EQ(queriesOf<16>(0x10000, 16, p16, set64sc), 0);
    EXPECT_EQ(queriesOf<16>(0x10001, 16, p16, set64sc), 1);
    EXPECT_EQ(queriesOf<16>(0x10005, 48, p16, set64sc), 1);
    EXPECT_EQ(queriesOf<16>(0x10001, 8, p16, set64sc), 0);
}

TEST(MoveFill, FailingOrSmallCacheAnswerKeepsThePlainRoute) {
    const uint8_t z4[4] = {}, p4[4] = {0, 0, 0x80, 0xBF};  // -1.0f
    for (int size : {0, 0x7FFFFFFF}) {
        CacheOverride cache(size);
        EXPECT_EQ(queriesOf<4>(0x80011, 12, z4, [](uint8_t* p, int n) { return nuvsZero_32f(reinterpret_cast<Nuv32f*>(p), n); }), 1);
        EXPECT_EQ(queriesOf<4>(0x80011, 12, p4, [](uint8_t* p, int n) { return nuvsSet_32f(-1.0f, reinterpret_cast<Nuv32f*>(p), n); }), 1);
    }
}

// ---- Copy and Move

template <class T>
using CopyFn = NuvStatus (*)(const T*, T*, int);

// Copy or Move of len elements between disjoint regions at the given byte offsets, against memcpy.
template <class T>
void checkCopy(CopyFn<T> fn, int len, size_t so, size_t dof, const char* name) {
    const size_t n = size_t(len) * sizeof(T);
    nt::Guarded s(n, so), d(n, dof);
    const Bytes src = randomBytes(n);
    std::memcpy(s.data(), src.data(), n);
    ASSERT_EQ(fn(s.as<T>(), d.as<T>(), len), nuvStsOk);
    ASSERT_EQ(std::memcmp(d.data(), src.data(), n), 0) << name << " len " << len << " offsets " << so << "," << dof;
    ASSERT_TRUE(d.intact() && s.intact()) << name << " len " << len;
    ASSERT_EQ(std::memcmp(s.data(), src.data(), n), 0) << name << " source changed";
}

template <class T>
void copyFamily(CopyFn<T> fn, const char* name) {
    for (int len : lengths())
        for (auto [so, dof] : {std::pair{0, 0}, {1, 0}, {0, 3}, {5, 17}, {32, 9}, {63, 31}, {16, 48}})
            checkCopy<T>(fn, len, size_t(so), size_t(dof), name);
}

TEST(MoveCopy, EveryWidthMatchesMemcpy) {
    copyFamily<Nuv8u>(nuvsCopy_8u, "Copy_8u");
    copyFamily<Nuv16s>(nuvsCopy_16s, "Copy_16s");
    copyFamily<Nuv32f>(nuvsCopy_32f, "Copy_32f");
    copyFamily<Nuv64f>(nuvsCopy_64f, "Copy_64f");
    copyFamily<Nuv64fc>(nuvsCopy_64fc, "Copy_64fc");
    copyFamily<Nuv8u>(nuvsMove_8u, "Move_8u");
    copyFamily<Nuv32fc>(nuvsMove_32fc, "Move_32fc");
    copyFamily<Nuv64sc>(nuvsMove_64sc, "Move_64sc");
}

TEST(MoveCopy, EveryByteLengthUpTo600AndTheLargeRoutes) {
    for (int len = 1; len <= 600; ++len) {
        checkCopy<Nuv8u>(nuvsCopy_8u, len, size_t(len % 7), size_t(len % 33), "Copy_8u");
        checkCopy<Nuv8u>(nuvsMove_8u, len, size_t(len % 11), size_t(len % 29), "Move_8u");
    }
    for (int len : {32767, 32768, 0x20001, 0x2AAAB, 0x17FFFF, 0x180000, 0x180001, 0x200033})
        for (auto [so, dof] : {std::pair{0, 0}, {3, 40}, {40, 7}}) {
            checkCopy<Nuv8u>(nuvsCopy_8u, len, size_t(so), size_t(dof), "Copy_8u");
            checkCopy<Nuv8u>(nuvsMove_8u, len, size_t(so), size_t(dof), "Move_8u");
        }
}

// Move within one region: source and destination overlap by any distance in either direction,
// against a copy through a separate buffer.
template <class T>
void overlapFamily(CopyFn<T> fn, const char* name) {
    constexpr size_t E = sizeof(T);
    std::vector<int> lens = lengths();
    lens.push_back(5000);
    lens.push_back(0x9000);
    for (int len : lens)
        for (int shift = -64; shift <= 64; ++shift) {
            if (shift == 0 || (len > 1000 && shift % 7 != 0 && std::abs(shift) > 2)) continue;
            const size_t n = size_t(len) * E, span = n + 64 * E, base = 64 * E;
            nt::Guarded g(span + 2 * base, 3);
            const Bytes init = randomBytes(g.size());
            std::memcpy(g.data(), init.data(), g.size());
            const size_t so = base, dof = size_t(ptrdiff_t(base) + shift * ptrdiff_t(E));
            Bytes want = init;
            std::memcpy(want.data() + dof, init.data() + so, n);
            ASSERT_EQ(fn(reinterpret_cast<const T*>(g.data() + so), reinterpret_cast<T*>(g.data() + dof), len), nuvStsOk);
            ASSERT_EQ(std::memcmp(g.data(), want.data(), g.size()), 0) << name << " len " << len << " shift " << shift;
            ASSERT_TRUE(g.intact());
        }
}

TEST(MoveCopy, OverlappingMoveInBothDirections) {
    overlapFamily<Nuv8u>(nuvsMove_8u, "Move_8u");
    overlapFamily<Nuv16s>(nuvsMove_16s, "Move_16s");
    overlapFamily<Nuv32f>(nuvsMove_32f, "Move_32f");
    overlapFamily<Nuv64fc>(nuvsMove_64fc, "Move_64fc");
}

// Members of one sharing group give identical bytes on identical bytes.
template <class... T>
void sameBytes(int len, NuvStatus (*... fn)(const T*, T*, int)) {
    const size_t n = size_t(len) * std::max({sizeof(T)...});
    const Bytes src = randomBytes(n);
    std::vector<Bytes> outs;
    auto run = [&](auto f) {
        Bytes d(n, 0x77);
        EXPECT_EQ(f(src.data(), d.data()), nuvStsOk);
        outs.push_back(d);
    };
    (run([&](const uint8_t* s, uint8_t* d) { return fn(reinterpret_cast<const T*>(s), reinterpret_cast<T*>(d), len); }), ...);
    for (const Bytes& o : outs) EXPECT_EQ(o, outs.front());
}

TEST(MoveCopy, SharingGroupsGiveIdenticalBytes) {
    for (int len : {1, 3, 40, 1001}) {
        sameBytes<Nuv16sc, Nuv32f, Nuv32s>(len, nuvsCopy_16sc, nuvsCopy_32f, nuvsCopy_32s);
        sameBytes<Nuv32fc, Nuv32sc, Nuv64f, Nuv64s>(len, nuvsCopy_32fc, nuvsCopy_32sc, nuvsCopy_64f, nuvsCopy_64s);
        sameBytes<Nuv64fc, Nuv64sc>(len, nuvsCopy_64fc, nuvsCopy_64sc);
        sameBytes<Nuv16sc, Nuv32f, Nuv32s>(len, nuvsMove_16sc, nuvsMove_32f, nuvsMove_32s);
        sameBytes<Nuv32fc, Nuv32sc, Nuv64f, Nuv64s>(len, nuvsMove_32fc, nuvsMove_32sc, nuvsMove_64f, nuvsMove_64s);
        sameBytes<Nuv64fc, Nuv64sc>(len, nuvsMove_64fc, nuvsMove_64sc);
    }
}

// ---- Flip and SwapBytes

// Out of place, in place, and out of place with equal pointers, against std::reverse.
template <class T>
void flipFamily(CopyFn<T> flip, NuvStatus (*flipI)(T*, int), const char* name) {
    constexpr size_t E = sizeof(T);
    std::vector<int> lens = lengths();
    for (int n = 1; n <= 70; ++n) lens.push_back(n);
    for (int len : lens)
        for (size_t off : {size_t(0), size_t(4), size_t(8) + E, size_t(35)}) {
            const size_t n = size_t(len) * E;
            const Bytes src = randomBytes(n);
            Bytes want(n);
            for (int i = 0; i < len; ++i) std::memcpy(&want[size_t(i) * E], &src[size_t(len - 1 - i) * E], E);
            nt::Guarded s(n, off), d(n, 64 - off % 64);
            std::memcpy(s.data(), src.data(), n);
            ASSERT_EQ(flip(s.as<T>(), d.as<T>(), len), nuvStsOk);
            ASSERT_EQ(std::memcmp(d.data(), want.data(), n), 0) << name << " len " << len << " off " << off;
            ASSERT_EQ(flipI(s.as<T>(), len), nuvStsOk);
            ASSERT_EQ(std::memcmp(s.data(), want.data(), n), 0) << name << "_I len " << len << " off " << off;
            ASSERT_EQ(flip(s.as<T>(), s.as<T>(), len), nuvStsOk);
            ASSERT_EQ(std::memcmp(s.data(), src.data(), n), 0) << name << " equal pointers, len " << len;
            ASSERT_TRUE(s.intact() && d.intact()) << name << " len " << len;
        }
}

TEST(MoveReorder, FlipEveryWidth) {
    flipFamily<Nuv8u>(nuvsFlip_8u, nuvsFlip_8u_I, "Flip_8u");
    flipFamily<Nuv16u>(nuvsFlip_16u, nuvsFlip_16u_I, "Flip_16u");
    flipFamily<Nuv32f>(nuvsFlip_32f, nuvsFlip_32f_I, "Flip_32f");
    flipFamily<Nuv64f>(nuvsFlip_64f, nuvsFlip_64f_I, "Flip_64f");
    flipFamily<Nuv32fc>(nuvsFlip_32fc, nuvsFlip_32fc_I, "Flip_32fc");
    flipFamily<Nuv64fc>(nuvsFlip_64fc, nuvsFlip_64fc_I, "Flip_64fc");
}

TEST(MoveReorder, FlipWithEqualPointersTakesTheInPlaceChecks) {
    EXPECT_EQ(nuvsFlip_32f(nullptr, nullptr, 5), nuvStsNullPtr);
    EXPECT_EQ(nuvsFlip_8u(nullptr, nullptr, 0), nuvStsNullPtr);
    Nuv32f x[3] = {1, 2, 3};
    EXPECT_EQ(nuvsFlip_32f(x, x, 0), nuvStsSize);
    EXPECT_EQ(nuvsFlip_32f(x, x, 3), nuvStsOk);
    EXPECT_EQ(x[0], 3.0f);
    EXPECT_EQ(x[2], 1.0f);
}

template <size_t E, class T>
void swapFamily(CopyFn<T> fn, NuvStatus (*fnI)(T*, int), const char* name) {
    std::vector<int> lens = lengths();
    for (int n = 1; n <= 40; ++n) lens.push_back(n);
    for (int len : lens)
        for (size_t off : {size_t(0), size_t(1), size_t(E), size_t(30)}) {
            const size_t n = size_t(len) * E;
            const Bytes src = randomBytes(n);
            Bytes want(n);
            for (size_t i = 0; i < n; i += E)
                for (size_t k = 0; k < E; ++k) want[i + k] = src[i + E - 1 - k];
            nt::Guarded s(n, off), d(n, 7 * off % 64);
            std::memcpy(s.data(), src.data(), n);
            ASSERT_EQ(fn(reinterpret_cast<const T*>(s.data()), reinterpret_cast<T*>(d.data()), len), nuvStsOk);
            ASSERT_EQ(std::memcmp(d.data(), want.data(), n), 0) << name << " len " << len << " off " << off;
            ASSERT_EQ(fnI(reinterpret_cast<T*>(s.data()), len), nuvStsOk);
            ASSERT_EQ(std::memcmp(s.data(), want.data(), n), 0) << name << "_I len " << len << " off " << off;
            ASSERT_TRUE(s.intact() && d.intact()) << name << " len " << len;
        }
}

TEST(MoveReorder, SwapBytesEveryWidth) {
    swapFamily<2, Nuv16u>(nuvsSwapBytes_16u, nuvsSwapBytes_16u_I, "SwapBytes_16u");
    swapFamily<3, Nuv8u>(nuvsSwapBytes_24u, nuvsSwapBytes_24u_I, "SwapBytes_24u");
    swapFamily<4, Nuv32u>(nuvsSwapBytes_32u, nuvsSwapBytes_32u_I, "SwapBytes_32u");
    swapFamily<8, Nuv64u>(nuvsSwapBytes_64u, nuvsSwapBytes_64u_I, "SwapBytes_64u");
}

// ---- Bit strings

// Bit k of a string: top-first (mask 128 is bit 0) or bottom-first (mask 1 is bit 0).
bool getBit(const uint8_t* p, int64_t k, bool top) { return (p[k >> 3] >> (top ? 7 - (k & 7) : (k & 7))) & 1; }
void setBit(uint8_t* p, int64_t k, bool top, bool v) {
    const uint8_t m = uint8_t(1u << (top ? 7 - (k & 7) : (k & 7)));
    p[k >> 3] = uint8_t(v ? p[k >> 3] | m : p[k >> 3] & ~m);
}

using BitCopyFn = NuvStatus (*)(const Nuv8u*, int, Nuv8u*, int, int);

void checkBitCopy(BitCopyFn fn, bool top, int so, int dof, int len, const char* name) {
    const size_t sb = size_t(so + len + 7) / 8, db = size_t(dof + len + 7) / 8;
    nt::Guarded s(sb, size_t(so) % 5), d(db, size_t(dof) % 7);
    const Bytes src = randomBytes(sb), dst = randomBytes(db);
    std::memcpy(s.data(), src.data(), sb);
    std::memcpy(d.data(), dst.data(), db);
    Bytes want = dst;
    for (int k = 0; k < len; ++k) setBit(want.data(), dof + k, top, getBit(src.data(), so + k, top));
    ASSERT_EQ(fn(s.data(), so, d.data(), dof, len), nuvStsOk);
    ASSERT_EQ(std::memcmp(d.data(), want.data(), db), 0) << name << " offsets " << so << "," << dof << " len " << len;
    ASSERT_TRUE(s.intact() && d.intact()) << name << " offsets " << so << "," << dof << " len " << len;
}

TEST(MoveBits, CopiesAgainstABitByBitModel) {
    const std::pair<BitCopyFn, bool> fns[] = {{nuvsCopy_1u, true}, {nuvsCopyLE_1u, true}, {nuvsCopyBE_1u, false}};
    const char* names[] = {"Copy_1u", "CopyLE_1u", "CopyBE_1u"};
    for (int f = 0; f < 3; ++f) {
        for (int so = 0; so < 16; ++so)
            for (int dof = 0; dof < 16; ++dof)
                for (int len = 1; len <= 200; ++len) checkBitCopy(fns[f].first, fns[f].second, so, dof, len, names[f]);
        for (int len : {1000, 4099, 20000})
            for (auto [so, dof] : {std::pair{0, 0}, {3, 5}, {1001, 7}, {8, 4093}, {77, 77}})
                checkBitCopy(fns[f].first, fns[f].second, so, dof, len, names[f]);
    }
}

TEST(MoveBits, SingleBitAndArgumentOrder) {
    uint8_t src[2] = {0x10, 0x00}, dst[2] = {0x00, 0xFF};  // source bit 3 set (top-first)
    ASSERT_EQ(nuvsCopy_1u(src, 3, dst, 5, 1), nuvStsOk);
    EXPECT_EQ(dst[0], 0x04);
    EXPECT_EQ(dst[1], 0xFF);
    for (BitCopyFn fn : {nuvsCopy_1u, nuvsCopyLE_1u, nuvsCopyBE_1u}) {
        EXPECT_EQ(fn(src, -1, dst, 0, 4), nuvStsSize);
        EXPECT_EQ(fn(src, 0, dst, -1, 4), nuvStsSize);
        EXPECT_EQ(fn(nullptr, -1, dst, 0, 0), nuvStsNullPtr);
        EXPECT_EQ(fn(src, -1, nullptr, -1, 4), nuvStsNullPtr);
    }
    EXPECT_EQ(dst[0], 0x04);
}

// PackBits model: appends bit by bit to a copy of the destination; widths limited to 0..32.
struct Packed {
    Bytes bytes;
    int total = 0;
    bool clipped = false;
};
Packed packModel(const std::vector<Nuv32u>& src, const std::vector<int>& widths, const Bytes& dst, int off) {
    Packed p{dst};
    int64_t pos = off;
    for (size_t i = 0; i < src.size(); ++i) {
        const int w = std::clamp(widths[i], 0, 32);
        p.clipped |= w != widths[i];
        for (int b = w - 1; b >= 0; --b) setBit(p.bytes.data(), pos++, true, (src[i] >> b) & 1);
        p.total += w;
    }
    if (pos % 8 && pos > off)  // unused trailing bits of the last partial byte are zero
        for (int64_t k = pos; k % 8; ++k) setBit(p.bytes.data(), k, true, false);
    return p;
}

void checkPack(const std::vector<int>& widths, int off) {
    const int n = int(widths.size());
    const std::vector<Nuv32u> src = nt::randomInts<Nuv32u>(n);
    const size_t db = size_t(off) / 8 + size_t(n) * 4 + 1;
    const Bytes dst = randomBytes(db);
    const Packed want = packModel(src, widths, dst, off);
    nt::Guarded d(db, size_t(off) % 3);
    std::memcpy(d.data(), dst.data(), db);
    int total = -1;
    const NuvStatus st = nuvsPackBits_32u8u(src.data(), widths.data(), n, d.data(), off, &total);
    ASSERT_EQ(st, want.clipped ? nuvStsPackBitLen : nuvStsOk) << "offset " << off;
    ASSERT_EQ(total, want.total);
    ASSERT_EQ(std::memcmp(d.data(), want.bytes.data(), db), 0) << "offset " << off << " words " << n;
    ASSERT_TRUE(d.intact());
}

TEST(MoveBits, PackBitsAgainstModel) {
    std::uniform_int_distribution<int> width(0, 32);
    for (int off = 0; off < 20; ++off)
        for (int n : {1, 2, 3, 7, 33, 200}) {
            std::vector<int> w(static_cast<size_t>(n));
            for (int& x : w) x = width(nt::rng());
            checkPack(w, off);
        }
    for (int w = 0; w <= 32; ++w) checkPack(std::vector<int>(9, w), 3);
    checkPack({0, 0, 0}, 5);  // nothing appended: the destination is untouched
    checkPack({33, 5, -1, 100, INT_MIN, INT_MAX, 32}, 6);
    checkPack({-7}, 0);
}

TEST(MoveBits, PackBitsArgumentOrder) {
    const Nuv32u src[1] = {1};
    const int w[1] = {3};
    uint8_t d[4] = {};
    int total = 0;
    EXPECT_EQ(nuvsPackBits_32u8u(src, w, 1, d, -1, &total), nuvStsSize);
    EXPECT_EQ(nuvsPackBits_32u8u(src, w, 0, d, 0, &total), nuvStsSize);
    EXPECT_EQ(nuvsPackBits_32u8u(src, w, 1, d, -1, nullptr), nuvStsNullPtr);
    EXPECT_EQ(nuvsPackBits_32u8u(src, nullptr, -1, d, -1, &total), nuvStsNullPtr);
    EXPECT_EQ(d[0], 0);
}

}  // namespace

// Fill, copy and reorder: every member against a plain model over many lengths and
// misalignments, the streaming fill route, overlapping moves, and the bit-string operations
// against bit-by-bit models.
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <climits>
#include <functional>
#include <string>

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

// A fill member with the bytes every element must hold afterwards.
struct Filler {
    std::string name;
    size_t elem;
    Bytes value;
    std::function<NuvStatus(uint8_t*, int)> run;
};

template <class T>
void addFillers(std::vector<Filler>& v, const char* type, NuvStatus (*zero)(T*, int), NuvStatus (*set)(T, T*, int)) {
    Bytes pat(sizeof(T));
    for (size_t k = 0; k < sizeof(T); ++k) pat[k] = uint8_t(0x11 * (k + 1) + 0x80);  // no two bytes alike
    T val;
    std::memcpy(&val, pat.data(), sizeof(T));
    v.push_back({std::string("Zero_") + type, sizeof(T), Bytes(sizeof(T), 0),
                 [zero](uint8_t* p, int n) { return zero(reinterpret_cast<T*>(p), n); }});
    v.push_back({std::string("Set_") + type, sizeof(T), pat,
                 [set, val](uint8_t* p, int n) { return set(val, reinterpret_cast<T*>(p), n); }});
}

const std::vector<Filler>& fillers() {
    static const std::vector<Filler> v = [] {
        std::vector<Filler> f;
        addFillers<Nuv8u>(f, "8u", nuvsZero_8u, nuvsSet_8u);
        addFillers<Nuv16s>(f, "16s", nuvsZero_16s, nuvsSet_16s);
        addFillers<Nuv16sc>(f, "16sc", nuvsZero_16sc, nuvsSet_16sc);
        addFillers<Nuv32f>(f, "32f", nuvsZero_32f, nuvsSet_32f);
        addFillers<Nuv32s>(f, "32s", nuvsZero_32s, nuvsSet_32s);
        addFillers<Nuv32fc>(f, "32fc", nuvsZero_32fc, nuvsSet_32fc);
        addFillers<Nuv32sc>(f, "32sc", nuvsZero_32sc, nuvsSet_32sc);
        addFillers<Nuv64f>(f, "64f", nuvsZero_64f, nuvsSet_64f);
        addFillers<Nuv64s>(f, "64s", nuvsZero_64s, nuvsSet_64s);
        addFillers<Nuv64fc>(f, "64fc", nuvsZero_64fc, nuvsSet_64fc);
        addFillers<Nuv64sc>(f, "64sc", nuvsZero_64sc, nuvsSet_64sc);
        return f;
    }();
    return v;
}
const Filler& filler(const std::string& name) {
    return *std::find_if(fillers().begin(), fillers().end(), [&](const Filler& f) { return f.name == name; });
}

// One fill of len elements at byte offset `off`, checked element by element and at the red
// zones; returns the number of cache queries it made.
int checkFill(const Filler& f, int len, size_t off) {
    nt::Guarded g(size_t(len) * f.elem, off);
    std::memset(g.data(), 0x5A, g.size());
    const int before = nuvcoreTestCacheQueries();
    EXPECT_EQ(f.run(g.data(), len), nuvStsOk) << f.name;
    const int queries = nuvcoreTestCacheQueries() - before;
    for (int i = 0; i < len; ++i)
        if (std::memcmp(g.data() + size_t(i) * f.elem, f.value.data(), f.elem) != 0) {
            ADD_FAILURE() << f.name << " len " << len << " off " << off << " wrong at " << i;
            break;
        }
    EXPECT_TRUE(g.intact()) << f.name << " len " << len << " off " << off;
    return queries;
}

TEST(MoveFill, ZeroAndSetEveryWidth) {
    for (const Filler& f : fillers())
        for (int len : lengths())
            for (size_t off : {size_t(0), size_t(1), f.elem, size_t(13), 32 - f.elem, size_t(40)}) checkFill(f, len, off);
}

TEST(MoveFill, LongPlainFillsAtEveryPhase) {
    for (const Filler& f : fillers())
        if (f.elem <= 8)  // the lengths where string stores take over, at every phase of the tail
            for (int extra = -9; extra < 9; ++extra)
                for (size_t off : {0, 3, 4, 8, 28}) checkFill(f, int((0x10000 + 192) / f.elem) + extra, off);
}

TEST(MoveFill, LargeRegionsAskTheCacheAndStream) {
    CacheOverride cache(4096);  // every region that asks is beyond this cache: the streaming route
    struct Row {
        const char* name;
        int len;
        size_t off;
        int queries;
    };
    const Row rows[] = {
        {"Zero_32f", 0x80000, 0, 0},   {"Zero_32f", 0x80001, 0, 1},   {"Zero_32f", 0x80001, 20, 1},
        {"Zero_32f", 0x80001, 3, 1},   {"Zero_8u", 0x200000, 0, 0},   {"Zero_8u", 0x200001, 1, 1},
        {"Zero_8u", 0x20002F, 3, 1},   {"Zero_64fc", 0x20001, 8, 1},  {"Set_8u", 0x200011, 5, 1},
        {"Set_16s", 0x100001, 2, 1},   {"Set_16s", 0x100001, 1, 0},   // odd address: plain, no query
        {"Set_16sc", 0x80001, 4, 1},   {"Set_16sc", 0x80001, 2, 0},   {"Set_32f", 0x80000, 4, 0},
        {"Set_32f", 0x80005, 36, 1},   {"Set_32f", 0x80003, 60, 1},   {"Set_32s", 0x80001, 6, 0},
        {"Set_64s", 0x40000, 8, 0},    // the 8-byte kernel cuts in elements
        {"Set_64s", 0x40001, 8, 1},    {"Set_32fc", 0x40003, 24, 1},  {"Set_64f", 0x40001, 4, 0},
        {"Set_64sc", 0x10000, 16, 0},  {"Set_64sc", 0x10001, 16, 1},  {"Set_64fc", 0x10005, 48, 1},
        {"Set_64fc", 0x10001, 8, 0},
    };
    for (const Row& r : rows) EXPECT_EQ(checkFill(filler(r.name), r.len, r.off), r.queries) << r.name << " len " << r.len;
}

TEST(MoveFill, FailingOrSmallCacheAnswerKeepsThePlainRoute) {
    for (int size : {0, 0x7FFFFFFF}) {
        CacheOverride cache(size);
        EXPECT_EQ(checkFill(filler("Zero_32f"), 0x80011, 12), 1);
        EXPECT_EQ(checkFill(filler("Set_32f"), 0x80011, 12), 1);
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

// Copies past 2 GiB run in pieces of 0x7FFFFFE0 bytes, moves in one byte count: marks at the piece
// seams, the ends and in between arrive where they belong.  The arrays are mapped lazily; the test
// needs about 2.5 GiB of free memory and is skipped under the address sanitizer.
#if defined(__SANITIZE_ADDRESS__)
#define NUVS_TEST_ASAN 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define NUVS_TEST_ASAN 1
#endif
#endif
TEST(MoveCopy, BeyondTwoGiB) {
#ifdef NUVS_TEST_ASAN
    GTEST_SKIP() << "too large for the sanitizer's shadow memory";
#endif
    if (double(sysconf(_SC_AVPHYS_PAGES)) * double(sysconf(_SC_PAGESIZE)) < 3.5 * (1ull << 30)) GTEST_SKIP() << "not enough free memory";
    const int len = 0x40000011;   // 16-bit elements: 2 GiB and 34 bytes
    const size_t bytes = size_t(len) * 2, shift = 64;
    auto map = [](size_t n) {
        void* p = mmap(nullptr, n, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
        return p == MAP_FAILED ? nullptr : static_cast<uint8_t*>(p);
    };
    uint8_t* src = map(bytes);
    uint8_t* dst = map(bytes + shift);
    ASSERT_TRUE(src && dst);
    const size_t marks[] = {0, 1, 2, 0x7FFFFFDE, 0x7FFFFFDF, 0x7FFFFFE0, 0x7FFFFFE1, 0x40000001, bytes - 33, bytes - 2, bytes - 1};
    auto mark = [](size_t at) { return uint8_t(at * 131 + 7) | 1; };
    for (size_t at : marks) src[at] = mark(at);
    ASSERT_EQ(nuvsCopy_16s(reinterpret_cast<const Nuv16s*>(src), reinterpret_cast<Nuv16s*>(dst), len), nuvStsOk);
    for (size_t at : marks) EXPECT_EQ(dst[at], mark(at)) << at;
    EXPECT_EQ(dst[0x7FFFFFE2], 0);
    EXPECT_EQ(dst[bytes], 0);
    // The same data moved up by 64 bytes within the destination, backward over the whole run.
    ASSERT_EQ(nuvsMove_16s(reinterpret_cast<const Nuv16s*>(dst), reinterpret_cast<Nuv16s*>(dst + shift), len), nuvStsOk);
    for (size_t at : marks) EXPECT_EQ(dst[at + shift], mark(at)) << at;
    EXPECT_EQ(dst[0x7FFFFFE2 + shift], 0);
    munmap(src, bytes);
    munmap(dst, bytes + shift);
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

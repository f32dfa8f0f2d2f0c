// Memory services, the shared record and work-buffer discipline, and the number rules.
#include <cmath>

#include "frame/context.h"
#include "frame/fpstate.h"
#include "frame/memory.h"
#include "frame/round.h"
#include "support/support.h"

namespace {

TEST(Malloc, BelowOneGivesNullWithoutAskingTheCore) {
    const int calls = nuvcoreTestMallocCalls();
    EXPECT_EQ(nuvsMalloc_32f(0), nullptr);
    EXPECT_EQ(nuvsMalloc_32f(-1), nullptr);
    EXPECT_EQ(nuvsMalloc_64fc(0), nullptr);
    EXPECT_EQ(nuvcoreTestMallocCalls(), calls);
    nuvsFree(nullptr);
}

template <class T>
void allocOne(T* (*fn)(int), int elemSize) {
    nt::AllocScope scope;
    for (int len : {1, 3, 1000}) {
        T* p = fn(len);
        ASSERT_NE(p, nullptr);
        EXPECT_EQ(reinterpret_cast<uintptr_t>(p) % 64, 0u);
        std::memset(p, 0x5A, size_t(len) * size_t(elemSize));  // the whole size is usable
        nuvsFree(p);
    }
    scope.failAfter(0);
    EXPECT_EQ(fn(16), nullptr);
    EXPECT_EQ(scope.leaked(), 0);
}

TEST(Malloc, EveryTypeAlignsAndCanFail) {
    allocOne(nuvsMalloc_8u, 1);
    allocOne(nuvsMalloc_8s, 1);
    allocOne(nuvsMalloc_16u, 2);
    allocOne(nuvsMalloc_16s, 2);
    allocOne(nuvsMalloc_8sc, 2);
    allocOne(nuvsMalloc_32u, 4);
    allocOne(nuvsMalloc_32s, 4);
    allocOne(nuvsMalloc_32f, 4);
    allocOne(nuvsMalloc_16sc, 4);
    allocOne(nuvsMalloc_64s, 8);
    allocOne(nuvsMalloc_64f, 8);
    allocOne(nuvsMalloc_32sc, 8);
    allocOne(nuvsMalloc_32fc, 8);
    allocOne(nuvsMalloc_64sc, 16);
    allocOne(nuvsMalloc_64fc, 16);
}

TEST(Malloc, OverflowingLengthPassesTheWrappedSize) {
    // 0x40000001 elements of 4 bytes wrap to 4 bytes: a small block comes back.
    Nuv32f* p = nuvsMalloc_32f(0x40000001);
    ASSERT_NE(p, nullptr);
    nuvsFree(p);
}

TEST(WorkBuffer, AlignsCallerBufferAndReleasesItsOwn) {
    nt::AllocScope scope;
    alignas(64) Nuv8u area[256];
    for (int off = 0; off < 64; ++off) {
        nuv::WorkBuffer w(area + off, 100);
        EXPECT_FALSE(w.failed());
        EXPECT_EQ(reinterpret_cast<uintptr_t>(w.get()) % 64, 0u);
        EXPECT_EQ(w.get(), area + (off == 0 ? 0 : 64));
    }
    {
        nuv::WorkBuffer none(area, 0);
        EXPECT_EQ(none.get(), nullptr);
        nuv::WorkBuffer own(nullptr, 100);
        EXPECT_NE(own.get(), nullptr);
        EXPECT_EQ(scope.leaked(), 1);
    }
    EXPECT_EQ(scope.leaked(), 0);
    scope.failAfter(0);
    nuv::WorkBuffer failing(nullptr, 100);
    EXPECT_TRUE(failing.failed());
}

struct DemoRecord {
    uint32_t contextId;
    int ownsMemory;
    Nuv8u* memBase;
};

TEST(Records, CheckAndFreeDiscipline) {
    nt::AllocScope scope;
    EXPECT_EQ(nuv::checkRecord<DemoRecord>(nullptr, 4u), nuvStsNullPtr);

    DemoRecord local{nuv::id::FftC32fc, 0, nullptr};
    EXPECT_EQ(nuv::checkRecord(&local, nuv::id::FftC32fc), nuvStsOk);
    EXPECT_EQ(nuv::checkRecord(&local, nuv::id::FftC64fc), nuvStsContextMatch);
    EXPECT_EQ(nuv::checkRecord(&local, nuv::id::FftC64fc, nuv::id::FftC32fc), nuvStsOk);
    EXPECT_EQ(nuv::freeRecord(&local, nuv::id::FftC32fc), nuvStsOk);
    EXPECT_EQ(nuv::freeRecord(&local, nuv::id::FftC32fc), nuvStsContextMatch);

    nuv::OwnedBlock block(sizeof(DemoRecord));
    ASSERT_TRUE(block);
    auto* rec = reinterpret_cast<DemoRecord*>(block.get());
    *rec = {nuv::id::fir(1), 1, block.release()};
    EXPECT_EQ(scope.leaked(), 1);
    EXPECT_EQ(nuv::freeRecord(rec, nuv::id::fir(1)), nuvStsOk);
    EXPECT_EQ(scope.leaked(), 0);

    DemoRecord zeroed{};
    EXPECT_EQ(nuv::checkRecord(&zeroed, nuv::id::FftC16sc), nuvStsContextMatch);
}

TEST(Records, IdsReadAsTheirCharacters) {
    EXPECT_EQ(nuv::id::fir(9), 0x46493039u);
    EXPECT_EQ(nuv::id::fir(10), 0x46493130u);
    EXPECT_EQ(nuv::id::iir(29), 0x49493239u);
    EXPECT_EQ(nuv::id::Lms32f16s, 0x4C4D5300u);
    EXPECT_EQ(nuv::id::FftR16s32s, 0x434D414Fu);
    uint32_t w = nuv::id::fir(1);  // stored little-endian, the bytes read backwards
    EXPECT_EQ(std::memcmp(&w, "10IF", 4), 0);
}

TEST(FpState, RestoresTheCallersWord) {
    const unsigned before = _mm_getcsr();
    {
        nuv::ScopedMxcsr s(nuv::kMxcsrRcZero, nuv::kMxcsrRcMask);
        EXPECT_EQ(_mm_getcsr() & nuv::kMxcsrRcMask, unsigned(nuv::kMxcsrRcZero));
    }
    EXPECT_EQ(_mm_getcsr(), before);
}

// Independent model of the rule: exact rational value, nearest even, saturated.
template <class T>
int64_t modelRule(int64_t x, int sf) {
    long double v = std::ldexp((long double)x, -sf);
    long double r = std::nearbyintl(v);  // default mode: ties to even
    if (r < (long double)std::numeric_limits<T>::min()) return std::numeric_limits<T>::min();
    if (r > (long double)std::numeric_limits<T>::max()) return std::numeric_limits<T>::max();
    return int64_t(r);
}

TEST(NumberRules, ScaleRneMatchesTheExactModel) {
    auto xs = nt::randomInts<int64_t>(4000, -(int64_t(1) << 40), int64_t(1) << 40);
    for (int v : {0, 1, -1, 2, 3, -3, 5, -5, 32767, -32768, 65535}) xs.push_back(v);
    for (int sf = -40; sf <= 70; ++sf)
        for (int64_t x : xs) {
            ASSERT_EQ(int64_t(nuv::scaleRne<int16_t>(x, sf)), modelRule<int16_t>(x, sf)) << x << " sf " << sf;
            ASSERT_EQ(int64_t(nuv::scaleRne<uint8_t>(x, sf)), modelRule<uint8_t>(x, sf)) << x << " sf " << sf;
            ASSERT_EQ(int64_t(nuv::scaleRne<int32_t>(x, sf)), modelRule<int32_t>(x, sf)) << x << " sf " << sf;
        }
}

}  // namespace

// nuvcore: allocation, alignment, cache size and processor features.
#include "nuvcore.h"

#include <atomic>
#include <cpuid.h>
#include <cstdlib>
#include <unistd.h>

namespace {

std::atomic<int> g_failAfter{-1};
std::atomic<int> g_live{0};
std::atomic<int> g_calls{0};
std::atomic<int> g_cacheQueries{0};
std::atomic<int> g_featOverride{0};
std::atomic<uint64_t> g_featMask{0};
std::atomic<int> g_cacheOverride{-1};

bool allocationAllowed() {
    int n = g_failAfter.load(std::memory_order_relaxed);
    while (n >= 0) {
        if (n == 0) return false;
        if (g_failAfter.compare_exchange_weak(n, n - 1, std::memory_order_relaxed)) return true;
    }
    return true;
}

uint64_t xgetbv0() {
    uint32_t lo, hi;
    __asm__("xgetbv" : "=a"(lo), "=d"(hi) : "c"(0));
    return (uint64_t(hi) << 32) | lo;
}

uint64_t probeFeatures() {
    unsigned a, b, c, d;
    uint64_t m = 0;
    if (!__get_cpuid(1, &a, &b, &c, &d)) return 0;
    if (d & bit_MMX) m |= nuvCpuMmx;
    if (d & bit_SSE) m |= nuvCpuSse;
    if (d & bit_SSE2) m |= nuvCpuSse2;
    if (c & bit_SSE3) m |= nuvCpuSse3;
    if (c & bit_SSSE3) m |= nuvCpuSsse3;
    if (c & bit_SSE4_1) m |= nuvCpuSse41;
    if (c & bit_SSE4_2) m |= nuvCpuSse42;
    if (c & bit_POPCNT) m |= nuvCpuPopcnt;
    if (c & bit_MOVBE) m |= nuvCpuMovbe;
    // AVX-class features count only when the OS saves the YMM state.
    bool ymm = (c & bit_OSXSAVE) && (xgetbv0() & 6) == 6;
    if (ymm) {
        if (c & bit_AVX) m |= nuvCpuAvx;
        if (c & bit_FMA) m |= nuvCpuFma;
        if (c & bit_F16C) m |= nuvCpuF16c;
        if (__get_cpuid_count(7, 0, &a, &b, &c, &d)) {
            if (b & bit_AVX2) m |= nuvCpuAvx2;
            if (b & bit_BMI) m |= nuvCpuBmi1;
            if (b & bit_BMI2) m |= nuvCpuBmi2;
            if ((b & bit_AVX512F) && (xgetbv0() & 0xE6) == 0xE6) m |= nuvCpuAvx512f;
        }
    }
    return m;
}

uint64_t features() {
    if (g_featOverride.load(std::memory_order_relaxed)) return g_featMask.load(std::memory_order_relaxed);
    static const uint64_t mask = probeFeatures();
    return mask;
}

long probeCacheSize() {
    long best = 0;
    for (int name : {_SC_LEVEL1_DCACHE_SIZE, _SC_LEVEL2_CACHE_SIZE, _SC_LEVEL3_CACHE_SIZE, _SC_LEVEL4_CACHE_SIZE}) {
        long v = sysconf(name);
        if (v > best) best = v;
    }
    return best;
}

}  // namespace

extern "C" {

void* nuvMalloc(int size) {
    g_calls.fetch_add(1, std::memory_order_relaxed);
    if (size < 1 || !allocationAllowed()) return nullptr;
    size_t bytes = (size_t(size) + 63) & ~size_t(63);
    void* p = std::aligned_alloc(64, bytes);
    if (p) g_live.fetch_add(1, std::memory_order_relaxed);
    return p;
}

void nuvFree(void* ptr) {
    if (!ptr) return;
    g_live.fetch_sub(1, std::memory_order_relaxed);
    std::free(ptr);
}

void* nuvAlignPtr(void* ptr, int align) {
    uintptr_t a = uintptr_t(align);
    return reinterpret_cast<void*>((reinterpret_cast<uintptr_t>(ptr) + a - 1) & ~(a - 1));
}

int nuvGetMaxCacheSizeB(int* size) {
    g_cacheQueries.fetch_add(1, std::memory_order_relaxed);
    if (!size) return -1;
    int ov = g_cacheOverride.load(std::memory_order_relaxed);
    if (ov == 0) return -1;
    if (ov > 0) { *size = ov; return 0; }
    static const long probed = probeCacheSize();
    if (probed <= 0 || probed > 0x7FFFFFFF) return -1;
    *size = int(probed);
    return 0;
}

uint64_t nuvGetEnabledCpuFeatures(void) { return features(); }

int ownGetFeature(uint64_t mask) { return mask != 0 && (features() & mask) == mask; }

void nuvcoreTestFailAllocAfter(int n) { g_failAfter.store(n < 0 ? -1 : n, std::memory_order_relaxed); }
int nuvcoreTestLiveBlocks(void) { return g_live.load(std::memory_order_relaxed); }
int nuvcoreTestMallocCalls(void) { return g_calls.load(std::memory_order_relaxed); }
void nuvcoreTestSetFeatures(int override, uint64_t mask) {
    g_featMask.store(mask, std::memory_order_relaxed);
    g_featOverride.store(override != 0, std::memory_order_relaxed);
}
void nuvcoreTestSetCacheSize(int size) { g_cacheOverride.store(size, std::memory_order_relaxed); }
int nuvcoreTestCacheQueries(void) { return g_cacheQueries.load(std::memory_order_relaxed); }

}  // extern "C"

/* nuvcore: the core services beneath libnuvsx7 -- aligned allocation, pointer alignment,
 * cache size and processor features.  The nuvcoreTest* controls exist for test suites only. */
#ifndef NUVCORE_H
#define NUVCORE_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

#define NUVCORE_API __attribute__((visibility("default")))

/* Feature bits of nuvGetEnabledCpuFeatures and ownGetFeature. */
enum {
    nuvCpuMmx = 0x1, nuvCpuSse = 0x2, nuvCpuSse2 = 0x4, nuvCpuSse3 = 0x8,
    nuvCpuSsse3 = 0x10, nuvCpuSse41 = 0x20, nuvCpuSse42 = 0x40, nuvCpuAvx = 0x80,
    nuvCpuAvx2 = 0x100, nuvCpuFma = 0x200, nuvCpuBmi1 = 0x400, nuvCpuBmi2 = 0x800,
    nuvCpuPopcnt = 0x1000, nuvCpuMovbe = 0x2000, nuvCpuF16c = 0x4000, nuvCpuAvx512f = 0x8000
};

/* A block of at least `size` bytes aligned to 64, or null for size below 1 or on failure. */
NUVCORE_API void* nuvMalloc(int size);
NUVCORE_API void nuvFree(void* ptr);
/* `ptr` rounded up to a multiple of `align`, a power of two. */
NUVCORE_API void* nuvAlignPtr(void* ptr, int align);
/* Size in bytes of the largest cache into *size; returns 0, or nonzero when unknown. */
NUVCORE_API int nuvGetMaxCacheSizeB(int* size);
NUVCORE_API uint64_t nuvGetEnabledCpuFeatures(void);
/* Nonzero if every feature of `mask` is present and enabled. */
NUVCORE_API int ownGetFeature(uint64_t mask);

/* Test controls.  nuvcoreTestFailAllocAfter(n): the next n allocations succeed, every later one
 * fails until the control is reset with n < 0.  Live blocks and calls are counted always. */
NUVCORE_API void nuvcoreTestFailAllocAfter(int n);
NUVCORE_API int nuvcoreTestLiveBlocks(void);
NUVCORE_API int nuvcoreTestMallocCalls(void);
/* Override the feature mask (override != 0) or go back to the processor's own. */
NUVCORE_API void nuvcoreTestSetFeatures(int override, uint64_t mask);
/* Override the cache size query: size > 0 reports that size, size == 0 reports failure,
 * size < 0 goes back to the processor's own answer. */
NUVCORE_API void nuvcoreTestSetCacheSize(int size);
NUVCORE_API int nuvcoreTestCacheQueries(void);

#ifdef __cplusplus
}
#endif
#endif

// nuvsMalloc_<type>, nuvsFree: the library's allocator, shared with callers.
#include "nuvcore.h"
#include "nuvs.h"

namespace {

// Exports of one element size are one function.  The byte count is formed in 32-bit arithmetic
// without an overflow test: an overflowing len passes a wrapped size on, as it must.
template <int Bytes>
void* allocElems(int len) {
    if (len < 1) return nullptr;
    return nuvMalloc(int(uint32_t(len) * uint32_t(Bytes)));
}

}  // namespace

extern "C" {
Nuv8u* nuvsMalloc_8u(int len) { return static_cast<Nuv8u*>(allocElems<1>(len)); }
Nuv8s* nuvsMalloc_8s(int len) { return static_cast<Nuv8s*>(allocElems<1>(len)); }
Nuv16u* nuvsMalloc_16u(int len) { return static_cast<Nuv16u*>(allocElems<2>(len)); }
Nuv16s* nuvsMalloc_16s(int len) { return static_cast<Nuv16s*>(allocElems<2>(len)); }
Nuv8sc* nuvsMalloc_8sc(int len) { return static_cast<Nuv8sc*>(allocElems<2>(len)); }
Nuv32u* nuvsMalloc_32u(int len) { return static_cast<Nuv32u*>(allocElems<4>(len)); }
Nuv32s* nuvsMalloc_32s(int len) { return static_cast<Nuv32s*>(allocElems<4>(len)); }
Nuv32f* nuvsMalloc_32f(int len) { return static_cast<Nuv32f*>(allocElems<4>(len)); }
Nuv16sc* nuvsMalloc_16sc(int len) { return static_cast<Nuv16sc*>(allocElems<4>(len)); }
Nuv64s* nuvsMalloc_64s(int len) { return static_cast<Nuv64s*>(allocElems<8>(len)); }
Nuv64f* nuvsMalloc_64f(int len) { return static_cast<Nuv64f*>(allocElems<8>(len)); }
Nuv32sc* nuvsMalloc_32sc(int len) { return static_cast<Nuv32sc*>(allocElems<8>(len)); }
Nuv32fc* nuvsMalloc_32fc(int len) { return static_cast<Nuv32fc*>(allocElems<8>(len)); }
Nuv64sc* nuvsMalloc_64sc(int len) { return static_cast<Nuv64sc*>(allocElems<16>(len)); }
Nuv64fc* nuvsMalloc_64fc(int len) { return static_cast<Nuv64fc*>(allocElems<16>(len)); }
void nuvsFree(void* ptr) { nuvFree(ptr); }
}

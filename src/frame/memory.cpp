// nuvsMalloc_<type>, nuvsFree: the library's allocator, shared with callers.
#include "frame/export.h"
#include "nuvcore.h"
#include "nuvs.h"

namespace {

// The byte count is formed in 32-bit arithmetic without an overflow test: an overflowing len
// passes a wrapped size on, as it must.  Members of one element size are one function (aliases
// below).
template <int Bytes>
void* allocElems(int len) {
    if (len < 1) return nullptr;
    return nuvMalloc(int(uint32_t(len) * uint32_t(Bytes)));
}

}  // namespace

extern "C" {
Nuv8u* nuvsMalloc_8u(int len) { return static_cast<Nuv8u*>(allocElems<1>(len)); }
Nuv8s* nuvsMalloc_8s(int len) NUV_SAME_AS(nuvsMalloc_8u);
Nuv16u* nuvsMalloc_16u(int len) { return static_cast<Nuv16u*>(allocElems<2>(len)); }
Nuv16s* nuvsMalloc_16s(int len) NUV_SAME_AS(nuvsMalloc_16u);
Nuv8sc* nuvsMalloc_8sc(int len) NUV_SAME_AS(nuvsMalloc_16u);
Nuv32u* nuvsMalloc_32u(int len) { return static_cast<Nuv32u*>(allocElems<4>(len)); }
Nuv32s* nuvsMalloc_32s(int len) NUV_SAME_AS(nuvsMalloc_32u);
Nuv32f* nuvsMalloc_32f(int len) NUV_SAME_AS(nuvsMalloc_32u);
Nuv16sc* nuvsMalloc_16sc(int len) NUV_SAME_AS(nuvsMalloc_32u);
Nuv64s* nuvsMalloc_64s(int len) { return static_cast<Nuv64s*>(allocElems<8>(len)); }
Nuv64f* nuvsMalloc_64f(int len) NUV_SAME_AS(nuvsMalloc_64s);
Nuv32sc* nuvsMalloc_32sc(int len) NUV_SAME_AS(nuvsMalloc_64s);
Nuv32fc* nuvsMalloc_32fc(int len) NUV_SAME_AS(nuvsMalloc_64s);
Nuv64sc* nuvsMalloc_64sc(int len) { return static_cast<Nuv64sc*>(allocElems<16>(len)); }
Nuv64fc* nuvsMalloc_64fc(int len) NUV_SAME_AS(nuvsMalloc_64sc);
void nuvsFree(void* ptr) { nuvFree(ptr); }
}

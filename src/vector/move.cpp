// Fill and move: Zero, Set, Copy, Move.  Plain first versions; every width funnels into one byte kernel.
#include <cstring>

#include "frame/check.h"
#include "nuvs.h"

namespace {

template <class T>
NuvStatus zeroN(T* pDst, int len) {
    if (NuvStatus s = nuv::check(len, pDst)) return s;
    std::memset(static_cast<void*>(pDst), 0, size_t(len) * sizeof(T));
    return nuvStsOk;
}

template <class T>
NuvStatus setN(T val, T* pDst, int len) {
    if (NuvStatus s = nuv::check(len, pDst)) return s;
    for (int i = 0; i < len; ++i) pDst[i] = val;
    return nuvStsOk;
}

template <class T>
NuvStatus copyN(const T* pSrc, T* pDst, int len) {
    if (NuvStatus s = nuv::check(len, pSrc, pDst)) return s;
    std::memcpy(static_cast<void*>(pDst), pSrc, size_t(len) * sizeof(T));
    return nuvStsOk;
}

template <class T>
NuvStatus moveN(const T* pSrc, T* pDst, int len) {
    if (NuvStatus s = nuv::check(len, pSrc, pDst)) return s;
    std::memmove(static_cast<void*>(pDst), pSrc, size_t(len) * sizeof(T));
    return nuvStsOk;
}

}  // namespace

extern "C" {
NuvStatus nuvsZero_8u(Nuv8u* pDst, int len) { return zeroN(pDst, len); }
NuvStatus nuvsZero_16s(Nuv16s* pDst, int len) { return zeroN(pDst, len); }
NuvStatus nuvsZero_16sc(Nuv16sc* pDst, int len) { return zeroN(pDst, len); }
NuvStatus nuvsZero_32f(Nuv32f* pDst, int len) { return zeroN(pDst, len); }
NuvStatus nuvsZero_32fc(Nuv32fc* pDst, int len) { return zeroN(pDst, len); }
NuvStatus nuvsZero_32s(Nuv32s* pDst, int len) { return zeroN(pDst, len); }
NuvStatus nuvsZero_32sc(Nuv32sc* pDst, int len) { return zeroN(pDst, len); }
NuvStatus nuvsZero_64f(Nuv64f* pDst, int len) { return zeroN(pDst, len); }
NuvStatus nuvsZero_64fc(Nuv64fc* pDst, int len) { return zeroN(pDst, len); }
NuvStatus nuvsZero_64s(Nuv64s* pDst, int len) { return zeroN(pDst, len); }
NuvStatus nuvsZero_64sc(Nuv64sc* pDst, int len) { return zeroN(pDst, len); }
NuvStatus nuvsSet_8u(Nuv8u val, Nuv8u* pDst, int len) { return setN(val, pDst, len); }
NuvStatus nuvsSet_16s(Nuv16s val, Nuv16s* pDst, int len) { return setN(val, pDst, len); }
NuvStatus nuvsSet_16sc(Nuv16sc val, Nuv16sc* pDst, int len) { return setN(val, pDst, len); }
NuvStatus nuvsSet_32f(Nuv32f val, Nuv32f* pDst, int len) { return setN(val, pDst, len); }
NuvStatus nuvsSet_32fc(Nuv32fc val, Nuv32fc* pDst, int len) { return setN(val, pDst, len); }
NuvStatus nuvsSet_32s(Nuv32s val, Nuv32s* pDst, int len) { return setN(val, pDst, len); }
NuvStatus nuvsSet_32sc(Nuv32sc val, Nuv32sc* pDst, int len) { return setN(val, pDst, len); }
NuvStatus nuvsSet_64f(Nuv64f val, Nuv64f* pDst, int len) { return setN(val, pDst, len); }
NuvStatus nuvsSet_64fc(Nuv64fc val, Nuv64fc* pDst, int len) { return setN(val, pDst, len); }
NuvStatus nuvsSet_64s(Nuv64s val, Nuv64s* pDst, int len) { return setN(val, pDst, len); }
NuvStatus nuvsSet_64sc(Nuv64sc val, Nuv64sc* pDst, int len) { return setN(val, pDst, len); }
NuvStatus nuvsCopy_8u(const Nuv8u* pSrc, Nuv8u* pDst, int len) { return copyN(pSrc, pDst, len); }
NuvStatus nuvsCopy_16s(const Nuv16s* pSrc, Nuv16s* pDst, int len) { return copyN(pSrc, pDst, len); }
NuvStatus nuvsCopy_16sc(const Nuv16sc* pSrc, Nuv16sc* pDst, int len) { return copyN(pSrc, pDst, len); }
NuvStatus nuvsCopy_32f(const Nuv32f* pSrc, Nuv32f* pDst, int len) { return copyN(pSrc, pDst, len); }
NuvStatus nuvsCopy_32fc(const Nuv32fc* pSrc, Nuv32fc* pDst, int len) { return copyN(pSrc, pDst, len); }
NuvStatus nuvsCopy_32s(const Nuv32s* pSrc, Nuv32s* pDst, int len) { return copyN(pSrc, pDst, len); }
NuvStatus nuvsCopy_32sc(const Nuv32sc* pSrc, Nuv32sc* pDst, int len) { return copyN(pSrc, pDst, len); }
NuvStatus nuvsCopy_64f(const Nuv64f* pSrc, Nuv64f* pDst, int len) { return copyN(pSrc, pDst, len); }
NuvStatus nuvsCopy_64fc(const Nuv64fc* pSrc, Nuv64fc* pDst, int len) { return copyN(pSrc, pDst, len); }
NuvStatus nuvsCopy_64s(const Nuv64s* pSrc, Nuv64s* pDst, int len) { return copyN(pSrc, pDst, len); }
NuvStatus nuvsCopy_64sc(const Nuv64sc* pSrc, Nuv64sc* pDst, int len) { return copyN(pSrc, pDst, len); }
NuvStatus nuvsMove_8u(const Nuv8u* pSrc, Nuv8u* pDst, int len) { return moveN(pSrc, pDst, len); }
NuvStatus nuvsMove_16s(const Nuv16s* pSrc, Nuv16s* pDst, int len) { return moveN(pSrc, pDst, len); }
NuvStatus nuvsMove_16sc(const Nuv16sc* pSrc, Nuv16sc* pDst, int len) { return moveN(pSrc, pDst, len); }
NuvStatus nuvsMove_32f(const Nuv32f* pSrc, Nuv32f* pDst, int len) { return moveN(pSrc, pDst, len); }
NuvStatus nuvsMove_32fc(const Nuv32fc* pSrc, Nuv32fc* pDst, int len) { return moveN(pSrc, pDst, len); }
NuvStatus nuvsMove_32s(const Nuv32s* pSrc, Nuv32s* pDst, int len) { return moveN(pSrc, pDst, len); }
NuvStatus nuvsMove_32sc(const Nuv32sc* pSrc, Nuv32sc* pDst, int len) { return moveN(pSrc, pDst, len); }
NuvStatus nuvsMove_64f(const Nuv64f* pSrc, Nuv64f* pDst, int len) { return moveN(pSrc, pDst, len); }
NuvStatus nuvsMove_64fc(const Nuv64fc* pSrc, Nuv64fc* pDst, int len) { return moveN(pSrc, pDst, len); }
NuvStatus nuvsMove_64s(const Nuv64s* pSrc, Nuv64s* pDst, int len) { return moveN(pSrc, pDst, len); }
NuvStatus nuvsMove_64sc(const Nuv64sc* pSrc, Nuv64sc* pDst, int len) { return moveN(pSrc, pDst, len); }
}

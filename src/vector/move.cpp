// Fill, copy and reorder: Zero, Set, Copy, Move, Flip, SwapBytes, the bit copies and PackBits.
#include <immintrin.h>

#include <cstring>

#include "frame/check.h"
#include "frame/export.h"
#include "nuvs.h"
#include "vector/move_bits.h"
#include "vector/move_copy.h"
#include "vector/move_fill.h"
#include "vector/move_reorder.h"

namespace {

using u8 = uint8_t;

// ---- Zero and Set: one kernel per element width

// Zero, inlined into each export like Set: a jump to a shared body costs short fills more than its
// bytes are worth.
template <size_t E>
[[gnu::always_inline]] inline NuvStatus zeroN(void* pDst, int len) {
    if (NuvStatus s = nuv::check(len, pDst)) return s;
    nuv::fill::ownsFillBytes<E, 1>(pDst, len, _mm256_setzero_si256(), true);
    return nuvStsOk;
}

// The value repeated over 32 bytes, broadcast straight from the register it arrives in: the
// first store waits on nothing longer than one broadcast.
template <class T>
[[gnu::always_inline]] inline __m256i patternOf(const T& val) {
    static_assert(sizeof(T) == 1 || sizeof(T) == 2 || sizeof(T) == 4 || sizeof(T) == 8 || sizeof(T) == 16);
    if constexpr (sizeof(T) == 1) {
        char v;
        std::memcpy(&v, &val, 1);
        return _mm256_set1_epi8(v);
    } else if constexpr (sizeof(T) == 2) {
        short v;
        std::memcpy(&v, &val, 2);
        return _mm256_set1_epi16(v);
    } else if constexpr (sizeof(T) == 4) {
        float v;
        std::memcpy(&v, &val, 4);
        return _mm256_castps_si256(_mm256_set1_ps(v));
    } else if constexpr (sizeof(T) == 8) {
        double v;
        std::memcpy(&v, &val, 8);
        return _mm256_castpd_si256(_mm256_set1_pd(v));
    } else {
        __m128i v;
        std::memcpy(&v, &val, 16);
        return _mm256_broadcastsi128_si256(v);
    }
}

// Set, inlined into each export so that the value never leaves its register.
template <class T>
[[gnu::always_inline]] inline NuvStatus setN(const T& val, T* pDst, int len) {
    constexpr size_t E = sizeof(T);
    if (NuvStatus s = nuv::check(len, pDst)) return s;
    const __m256i pat = patternOf(val);
    const uintptr_t a = reinterpret_cast<uintptr_t>(pDst);
    if constexpr (E <= 4) nuv::fill::ownsFillBytes<E>(pDst, len, pat, a % E == 0);  // odd addresses stay plain
    if constexpr (E == 8) nuv::fill::ownsSet8(pDst, len, pat);
    if constexpr (E == 16) nuv::fill::ownsSet16(pDst, len, pat);
    return nuvStsOk;
}

// ---- Copy and Move: every width funnels into the byte kernel

// Highest element count of E bytes whose byte size fits 31 bits, and the piece size above it.
template <size_t E>
inline constexpr int kCopyMaxCount = int(0x7FFFFFFF / E);
inline constexpr int kCopyPiece = 0x7FFFFFE0;

template <size_t E>
NuvStatus copyN(const void* pSrc, void* pDst, int len) {
    if (NuvStatus s = nuv::check(len, pSrc, pDst)) return s;
    const Nuv8u* src = static_cast<const Nuv8u*>(pSrc);
    Nuv8u* dst = static_cast<Nuv8u*>(pDst);
    if (len <= kCopyMaxCount<E>) return nuvsCopy_8u(src, dst, int(unsigned(len) * unsigned(E)));
    size_t rest = size_t(len) * E;
    for (; rest > size_t(kCopyPiece); rest -= kCopyPiece, src += kCopyPiece, dst += kCopyPiece)
        if (NuvStatus s = nuvsCopy_8u(src, dst, kCopyPiece)) return s;
    return nuvsCopy_8u(src, dst, int(rest));
}

template <size_t E>
NuvStatus moveN(const void* pSrc, void* pDst, int len) {
    if (NuvStatus s = nuv::check(len, pSrc, pDst)) return s;
    nuv::copy::ownsMove_8u(static_cast<const u8*>(pSrc), static_cast<u8*>(pDst), size_t(len) * E);
    return nuvStsOk;
}

// ---- Flip and SwapBytes

template <size_t E>
NuvStatus flipI(void* pSrcDst, int len) {
    if (NuvStatus s = nuv::check(len, pSrcDst)) return s;
    nuv::reorder::ownsFlipInPlace<E>(static_cast<u8*>(pSrcDst), size_t(len));
    return nuvStsOk;
}

// Equal pointers take the in-place form before any null test.
template <size_t E>
NuvStatus flipN(const void* pSrc, void* pDst, int len) {
    if (pSrc == pDst) return flipI<E>(pDst, len);
    if (NuvStatus s = nuv::check(len, pSrc, pDst)) return s;
    nuv::reorder::ownsFlip<E>(static_cast<const u8*>(pSrc), static_cast<u8*>(pDst), size_t(len));
    return nuvStsOk;
}

template <size_t E>
void swapKernel(const u8* s, u8* d, size_t n) {
    if constexpr (E == 3) nuv::reorder::ownsSwapBytes24(s, d, n);
    else nuv::reorder::ownsSwapBytes<E>(s, d, n);
}

template <size_t E>
NuvStatus swapN(const void* pSrc, void* pDst, int len) {
    if (NuvStatus s = nuv::check(len, pSrc, pDst)) return s;
    swapKernel<E>(static_cast<const u8*>(pSrc), static_cast<u8*>(pDst), size_t(len));
    return nuvStsOk;
}

template <size_t E>
NuvStatus swapI(void* pSrcDst, int len) {
    if (NuvStatus s = nuv::check(len, pSrcDst)) return s;
    swapKernel<E>(static_cast<const u8*>(pSrcDst), static_cast<u8*>(pSrcDst), size_t(len));
    return nuvStsOk;
}

// ---- Bit strings

template <class Order>
NuvStatus copyBits(const Nuv8u* pSrc, int srcBitOffset, Nuv8u* pDst, int dstBitOffset, int len) {
    if (NuvStatus s = nuv::check(len, pSrc, pDst)) return s;
    if (srcBitOffset < 0 || dstBitOffset < 0) return nuvStsSize;
    nuv::bits::ownsCopyBits<Order>(pSrc, srcBitOffset, pDst, dstBitOffset, len);
    return nuvStsOk;
}

NuvStatus packBits(const Nuv32u* pSrc, const int* pSrcBitsLen, int srcLen, Nuv8u* pDst, int dstBitOffset,
                   int* pDstLenBits) {
    if (NuvStatus s = nuv::check(srcLen, pSrc, pSrcBitsLen, pDst, pDstLenBits)) return s;
    if (dstBitOffset < 0) return nuvStsSize;
    int64_t total = 0;
    const bool clipped = nuv::bits::ownsPackBits(pSrc, pSrcBitsLen, srcLen, pDst, dstBitOffset, &total);
    *pDstLenBits = int(total);
    return clipped ? nuvStsPackBitLen : nuvStsOk;
}

}  // namespace

extern "C" {
NuvStatus nuvsZero_8u(Nuv8u* pDst, int len) { return zeroN<1>(pDst, len); }
NuvStatus nuvsZero_16s(Nuv16s* pDst, int len) { return zeroN<2>(pDst, len); }
NuvStatus nuvsZero_16sc(Nuv16sc* pDst, int len) { return zeroN<4>(pDst, len); }
NuvStatus nuvsZero_32f(Nuv32f* pDst, int len) NUV_SAME_AS(nuvsZero_16sc);
NuvStatus nuvsZero_32fc(Nuv32fc* pDst, int len) { return zeroN<8>(pDst, len); }
NuvStatus nuvsZero_32s(Nuv32s* pDst, int len) NUV_SAME_AS(nuvsZero_16sc);
NuvStatus nuvsZero_32sc(Nuv32sc* pDst, int len) NUV_SAME_AS(nuvsZero_32fc);
NuvStatus nuvsZero_64f(Nuv64f* pDst, int len) NUV_SAME_AS(nuvsZero_32fc);
NuvStatus nuvsZero_64fc(Nuv64fc* pDst, int len) { return zeroN<16>(pDst, len); }
NuvStatus nuvsZero_64s(Nuv64s* pDst, int len) NUV_SAME_AS(nuvsZero_32fc);
NuvStatus nuvsZero_64sc(Nuv64sc* pDst, int len) NUV_SAME_AS(nuvsZero_64fc);

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

NuvStatus nuvsCopy_8u(const Nuv8u* pSrc, Nuv8u* pDst, int len) {
    if (NuvStatus s = nuv::check(len, pSrc, pDst)) return s;
    nuv::copy::ownsCopy_8u(pSrc, pDst, size_t(len));
    return nuvStsOk;
}
NuvStatus nuvsCopy_16s(const Nuv16s* pSrc, Nuv16s* pDst, int len) { return copyN<2>(pSrc, pDst, len); }
NuvStatus nuvsCopy_16sc(const Nuv16sc* pSrc, Nuv16sc* pDst, int len) { return copyN<4>(pSrc, pDst, len); }
NuvStatus nuvsCopy_32f(const Nuv32f* pSrc, Nuv32f* pDst, int len) NUV_SAME_AS(nuvsCopy_16sc);
NuvStatus nuvsCopy_32fc(const Nuv32fc* pSrc, Nuv32fc* pDst, int len) { return copyN<8>(pSrc, pDst, len); }
NuvStatus nuvsCopy_32s(const Nuv32s* pSrc, Nuv32s* pDst, int len) NUV_SAME_AS(nuvsCopy_16sc);
NuvStatus nuvsCopy_32sc(const Nuv32sc* pSrc, Nuv32sc* pDst, int len) NUV_SAME_AS(nuvsCopy_32fc);
NuvStatus nuvsCopy_64f(const Nuv64f* pSrc, Nuv64f* pDst, int len) NUV_SAME_AS(nuvsCopy_32fc);
NuvStatus nuvsCopy_64fc(const Nuv64fc* pSrc, Nuv64fc* pDst, int len) { return copyN<16>(pSrc, pDst, len); }
NuvStatus nuvsCopy_64s(const Nuv64s* pSrc, Nuv64s* pDst, int len) NUV_SAME_AS(nuvsCopy_32fc);
NuvStatus nuvsCopy_64sc(const Nuv64sc* pSrc, Nuv64sc* pDst, int len) NUV_SAME_AS(nuvsCopy_64fc);

NuvStatus nuvsMove_8u(const Nuv8u* pSrc, Nuv8u* pDst, int len) { return moveN<1>(pSrc, pDst, len); }
NuvStatus nuvsMove_16s(const Nuv16s* pSrc, Nuv16s* pDst, int len) { return moveN<2>(pSrc, pDst, len); }
NuvStatus nuvsMove_16sc(const Nuv16sc* pSrc, Nuv16sc* pDst, int len) { return moveN<4>(pSrc, pDst, len); }
NuvStatus nuvsMove_32f(const Nuv32f* pSrc, Nuv32f* pDst, int len) NUV_SAME_AS(nuvsMove_16sc);
NuvStatus nuvsMove_32fc(const Nuv32fc* pSrc, Nuv32fc* pDst, int len) { return moveN<8>(pSrc, pDst, len); }
NuvStatus nuvsMove_32s(const Nuv32s* pSrc, Nuv32s* pDst, int len) NUV_SAME_AS(nuvsMove_16sc);
NuvStatus nuvsMove_32sc(const Nuv32sc* pSrc, Nuv32sc* pDst, int len) NUV_SAME_AS(nuvsMove_32fc);
NuvStatus nuvsMove_64f(const Nuv64f* pSrc, Nuv64f* pDst, int len) NUV_SAME_AS(nuvsMove_32fc);
NuvStatus nuvsMove_64fc(const Nuv64fc* pSrc, Nuv64fc* pDst, int len) { return moveN<16>(pSrc, pDst, len); }
NuvStatus nuvsMove_64s(const Nuv64s* pSrc, Nuv64s* pDst, int len) NUV_SAME_AS(nuvsMove_32fc);
NuvStatus nuvsMove_64sc(const Nuv64sc* pSrc, Nuv64sc* pDst, int len) NUV_SAME_AS(nuvsMove_64fc);

NuvStatus nuvsFlip_8u(const Nuv8u* pSrc, Nuv8u* pDst, int len) { return flipN<1>(pSrc, pDst, len); }
NuvStatus nuvsFlip_8u_I(Nuv8u* pSrcDst, int len) { return flipI<1>(pSrcDst, len); }
NuvStatus nuvsFlip_16u(const Nuv16u* pSrc, Nuv16u* pDst, int len) { return flipN<2>(pSrc, pDst, len); }
NuvStatus nuvsFlip_16u_I(Nuv16u* pSrcDst, int len) { return flipI<2>(pSrcDst, len); }
NuvStatus nuvsFlip_32f(const Nuv32f* pSrc, Nuv32f* pDst, int len) { return flipN<4>(pSrc, pDst, len); }
NuvStatus nuvsFlip_32f_I(Nuv32f* pSrcDst, int len) { return flipI<4>(pSrcDst, len); }
NuvStatus nuvsFlip_32fc(const Nuv32fc* pSrc, Nuv32fc* pDst, int len) { return flipN<8>(pSrc, pDst, len); }
NuvStatus nuvsFlip_32fc_I(Nuv32fc* pSrcDst, int len) { return flipI<8>(pSrcDst, len); }
NuvStatus nuvsFlip_64f(const Nuv64f* pSrc, Nuv64f* pDst, int len) { return flipN<8>(pSrc, pDst, len); }
NuvStatus nuvsFlip_64f_I(Nuv64f* pSrcDst, int len) { return flipI<8>(pSrcDst, len); }
NuvStatus nuvsFlip_64fc(const Nuv64fc* pSrc, Nuv64fc* pDst, int len) { return flipN<16>(pSrc, pDst, len); }
NuvStatus nuvsFlip_64fc_I(Nuv64fc* pSrcDst, int len) { return flipI<16>(pSrcDst, len); }

NuvStatus nuvsSwapBytes_16u(const Nuv16u* pSrc, Nuv16u* pDst, int len) { return swapN<2>(pSrc, pDst, len); }
NuvStatus nuvsSwapBytes_16u_I(Nuv16u* pSrcDst, int len) { return swapI<2>(pSrcDst, len); }
NuvStatus nuvsSwapBytes_24u(const Nuv8u* pSrc, Nuv8u* pDst, int len) { return swapN<3>(pSrc, pDst, len); }
NuvStatus nuvsSwapBytes_24u_I(Nuv8u* pSrcDst, int len) { return swapI<3>(pSrcDst, len); }
NuvStatus nuvsSwapBytes_32u(const Nuv32u* pSrc, Nuv32u* pDst, int len) { return swapN<4>(pSrc, pDst, len); }
NuvStatus nuvsSwapBytes_32u_I(Nuv32u* pSrcDst, int len) { return swapI<4>(pSrcDst, len); }
NuvStatus nuvsSwapBytes_64u(const Nuv64u* pSrc, Nuv64u* pDst, int len) { return swapN<8>(pSrc, pDst, len); }
NuvStatus nuvsSwapBytes_64u_I(Nuv64u* pSrcDst, int len) { return swapI<8>(pSrcDst, len); }

NuvStatus nuvsCopy_1u(const Nuv8u* pSrc, int srcBitOffset, Nuv8u* pDst, int dstBitOffset, int len) {
    return copyBits<nuv::bits::TopFirst>(pSrc, srcBitOffset, pDst, dstBitOffset, len);
}
NuvStatus nuvsCopyLE_1u(const Nuv8u* pSrc, int srcBitOffset, Nuv8u* pDst, int dstBitOffset, int len) {
    return nuvsCopy_1u(pSrc, srcBitOffset, pDst, dstBitOffset, len);
}
NuvStatus nuvsCopyBE_1u(const Nuv8u* pSrc, int srcBitOffset, Nuv8u* pDst, int dstBitOffset, int len) {
    return copyBits<nuv::bits::BottomFirst>(pSrc, srcBitOffset, pDst, dstBitOffset, len);
}
NuvStatus nuvsPackBits_32u8u(const Nuv32u* pSrc, const int* pSrcBitsLen, int srcLen, Nuv8u* pDst, int dstBitOffset,
                             int* pDstLenBits) {
    return packBits(pSrc, pSrcBitsLen, srcLen, pDst, dstBitOffset, pDstLenBits);
}
}

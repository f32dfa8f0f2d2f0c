// Bit logic and shifts: And, Or, Xor, their constant forms, Not, LShiftC, RShiftC.
#include <immintrin.h>

#include <cstdint>
#include <type_traits>

#include "frame/block.h"
#include "frame/check.h"
#include "frame/simd.h"
#include "nuvs.h"

namespace {

// ---------------------------------------------------------------- data movement of the neutral cases
// Zero and Copy by element width; the unsigned and signed words of one width share the byte movers.

NUV_INLINE NuvStatus zeroOf(Nuv8u* p, int len) { return nuvsZero_8u(p, len); }
NUV_INLINE NuvStatus zeroOf(Nuv16u* p, int len) { return nuvsZero_16s(reinterpret_cast<Nuv16s*>(p), len); }
NUV_INLINE NuvStatus zeroOf(Nuv16s* p, int len) { return nuvsZero_16s(p, len); }
NUV_INLINE NuvStatus zeroOf(Nuv32u* p, int len) { return nuvsZero_32s(reinterpret_cast<Nuv32s*>(p), len); }
NUV_INLINE NuvStatus zeroOf(Nuv32s* p, int len) { return nuvsZero_32s(p, len); }

NUV_INLINE NuvStatus copyOf(const Nuv8u* s, Nuv8u* d, int len) { return nuvsCopy_8u(s, d, len); }
NUV_INLINE NuvStatus copyOf(const Nuv16u* s, Nuv16u* d, int len) {
    return nuvsCopy_16s(reinterpret_cast<const Nuv16s*>(s), reinterpret_cast<Nuv16s*>(d), len);
}
NUV_INLINE NuvStatus copyOf(const Nuv16s* s, Nuv16s* d, int len) { return nuvsCopy_16s(s, d, len); }
NUV_INLINE NuvStatus copyOf(const Nuv32u* s, Nuv32u* d, int len) {
    return nuvsCopy_32s(reinterpret_cast<const Nuv32s*>(s), reinterpret_cast<Nuv32s*>(d), len);
}
NUV_INLINE NuvStatus copyOf(const Nuv32s* s, Nuv32s* d, int len) { return nuvsCopy_32s(s, d, len); }

// A neutral operation becomes Copy.  Copying an array onto itself (the in-place forms) moves
// nothing, so there only Copy's own checks remain, with the same statuses.
template <class T>
NUV_INLINE NuvStatus copyOrCheck(const T* pSrc, T* pDst, int len) {
    if (pSrc == pDst) return nuv::check(len, pDst);
    return copyOf(pSrc, pDst, len);
}

// An operation that zeroes every element never reads the source, but a null source is still
// refused; everything else is Zero's own checks.
template <class T>
NUV_INLINE NuvStatus zeroAfterSource(const T* pSrc, T* pDst, int len) {
    if (pSrc == nullptr) return nuvStsNullPtr;
    return zeroOf(pDst, len);
}

// ---------------------------------------------------------------- logic kernels
// The operations ignore element borders, so the loops run 32 bytes a register with the widest
// lanes; only the leftover elements at the end go one by one in the element type.

struct AndOp {
    static constexpr bool kZeroAbsorbs = true;   // x & 0 == 0
    NUV_INLINE static __m256i vec(__m256i a, __m256i b) { return _mm256_and_si256(a, b); }
    template <class T> NUV_INLINE static T one(T a, T b) { return T(a & b); }
};
struct OrOp {
    static constexpr bool kZeroAbsorbs = false;  // x | 0 == x
    NUV_INLINE static __m256i vec(__m256i a, __m256i b) { return _mm256_or_si256(a, b); }
    template <class T> NUV_INLINE static T one(T a, T b) { return T(a | b); }
};
struct XorOp {
    static constexpr bool kZeroAbsorbs = false;  // x ^ 0 == x
    NUV_INLINE static __m256i vec(__m256i a, __m256i b) { return _mm256_xor_si256(a, b); }
    template <class T> NUV_INLINE static T one(T a, T b) { return T(a ^ b); }
};

NUV_INLINE __m256i loadV(const void* p) { return _mm256_loadu_si256(static_cast<const __m256i*>(p)); }
NUV_INLINE void storeV(void* p, __m256i v) { _mm256_storeu_si256(static_cast<__m256i*>(p), v); }

// Runs `vec(i)` on the register of elements at i (4 registers a step while they last) and
// `one(i)` on the last elements that don't fill a register.
template <class T, class Vec, class One>
NUV_INLINE void wideLoop(int len, Vec&& vec, One&& one) {
    constexpr int kLanes = int(32 / sizeof(T));
    int i = 0;
    for (; i <= len - 4 * kLanes; i += 4 * kLanes) {
        vec(i);
        vec(i + kLanes);
        vec(i + 2 * kLanes);
        vec(i + 3 * kLanes);
    }
    for (; i <= len - kLanes; i += kLanes) vec(i);
    for (; i < len; ++i) one(i);
}

template <class T>
NUV_INLINE __m256i broadcast(T v) {
    if constexpr (sizeof(T) == 1) return _mm256_set1_epi8(char(v));
    else if constexpr (sizeof(T) == 2) return _mm256_set1_epi16(short(v));
    else return _mm256_set1_epi32(int(v));
}

template <class T, class Op>
void ownsLogic(const T* pSrc1, const T* pSrc2, T* pDst, int len) {
    wideLoop<T>(
        len, [&](int i) { storeV(pDst + i, Op::vec(loadV(pSrc1 + i), loadV(pSrc2 + i))); },
        [&](int i) { pDst[i] = Op::one(pSrc1[i], pSrc2[i]); });
}

template <class T, class Op>
void ownsLogicC(const T* pSrc, T val, T* pDst, int len) {
    const __m256i c = broadcast(val);
    wideLoop<T>(
        len, [&](int i) { storeV(pDst + i, Op::vec(loadV(pSrc + i), c)); },
        [&](int i) { pDst[i] = Op::one(pSrc[i], val); });
}

template <class T, class Op>
NuvStatus logicN(const T* pSrc1, const T* pSrc2, T* pDst, int len) {
    if (NuvStatus s = nuv::check(len, pSrc1, pSrc2, pDst)) return s;
    ownsLogic<T, Op>(pSrc1, pSrc2, pDst, len);
    return nuvStsOk;
}

// A constant of 0 is turned into data movement before any check of the ordinary path:
// AndC into Zero on the destination, OrC and XorC into Copy.
template <class T, class Op>
NuvStatus logicC(const T* pSrc, T val, T* pDst, int len) {
    if (val == 0) {
        if constexpr (Op::kZeroAbsorbs) return zeroAfterSource(pSrc, pDst, len);
        else return copyOrCheck(pSrc, pDst, len);
    }
    if (NuvStatus s = nuv::check(len, pSrc, pDst)) return s;
    ownsLogicC<T, Op>(pSrc, val, pDst, len);
    return nuvStsOk;
}

template <class T>
NUV_INLINE NuvStatus notN(const T* pSrc, T* pDst, int len) {
    return logicC<T, XorOp>(pSrc, T(~T(0)), pDst, len);
}

// ---------------------------------------------------------------- shift kernels
// `k` is already in 1 .. w-1.  The count register (and for bytes the mask that clears the bits
// the 16-bit lane shift carries across byte borders) is made once, before the loop.

enum class Dir { Left, Right };

template <class T, Dir D>
struct Shifter {
    static_assert(std::is_integral_v<T> && sizeof(T) <= 4);
    __m128i cnt;
    __m256i mask;
    int k;

    explicit Shifter(int count) : cnt(_mm_cvtsi32_si128(count)), k(count) {
        if constexpr (sizeof(T) == 1)
            mask = _mm256_set1_epi8(char(D == Dir::Left ? uint8_t(0xFFu << count) : uint8_t(0xFFu >> count)));
        else
            mask = _mm256_setzero_si256();
    }

    NUV_INLINE __m256i vec(__m256i x) const {
        if constexpr (sizeof(T) == 1) {
            const __m256i s = D == Dir::Left ? _mm256_sll_epi16(x, cnt) : _mm256_srl_epi16(x, cnt);
            return _mm256_and_si256(s, mask);
        } else if constexpr (sizeof(T) == 2) {
            if constexpr (D == Dir::Left) return _mm256_sll_epi16(x, cnt);
            else if constexpr (std::is_signed_v<T>) return _mm256_sra_epi16(x, cnt);
            else return _mm256_srl_epi16(x, cnt);
        } else {
            if constexpr (D == Dir::Left) return _mm256_sll_epi32(x, cnt);
            else if constexpr (std::is_signed_v<T>) return _mm256_sra_epi32(x, cnt);
            else return _mm256_srl_epi32(x, cnt);
        }
    }

    NUV_INLINE T one(T x) const {
        using U = std::make_unsigned_t<T>;
        if constexpr (D == Dir::Left) return T(U(uint32_t(U(x)) << k));
        else return T(x >> k);  // arithmetic for signed T, logical for unsigned
    }
};

template <class T, Dir D>
void ownsShift(const T* pSrc, int k, T* pDst, int len) {
    const Shifter<T, D> sh(k);
    auto vec = [&](int i) { storeV(pDst + i, sh.vec(loadV(pSrc + i))); };
    auto one = [&](int i) { pDst[i] = sh.one(pSrc[i]); };
    if constexpr (sizeof(T) == 4) nuv::blocked<nuv::kPlan4B, 4>(pDst, len, vec, one);
    else wideLoop<T>(len, vec, one);
}

// 0 becomes Copy before any check.  A logical shift by the width or more empties every element
// and becomes Zero once the source is known; an arithmetic right shift that far leaves the sign,
// which is a shift by w - 1.  A negative count is refused after pointers and length.
template <class T, Dir D>
NuvStatus shiftC(const T* pSrc, int val, T* pDst, int len) {
    constexpr int w = int(8 * sizeof(T));
    constexpr bool arithmetic = D == Dir::Right && std::is_signed_v<T>;
    if (val == 0) return copyOrCheck(pSrc, pDst, len);
    if (!arithmetic && val >= w) return zeroAfterSource(pSrc, pDst, len);
    if (NuvStatus s = nuv::check(len, pSrc, pDst)) return s;
    if (val < 0) return nuvStsShift;
    ownsShift<T, D>(pSrc, val < w ? val : w - 1, pDst, len);
    return nuvStsOk;
}

// A left shift of 16s moves the same bits as one of 16u.
NUV_INLINE NuvStatus lshift16s(const Nuv16s* pSrc, int val, Nuv16s* pDst, int len) {
    return shiftC<Nuv16u, Dir::Left>(reinterpret_cast<const Nuv16u*>(pSrc), val, reinterpret_cast<Nuv16u*>(pDst), len);
}

}  // namespace

extern "C" {
// And, Or, Xor
NuvStatus nuvsAnd_8u(const Nuv8u* pSrc1, const Nuv8u* pSrc2, Nuv8u* pDst, int len) { return logicN<Nuv8u, AndOp>(pSrc1, pSrc2, pDst, len); }
NuvStatus nuvsAnd_8u_I(const Nuv8u* pSrc, Nuv8u* pSrcDst, int len) { return logicN<Nuv8u, AndOp>(pSrc, pSrcDst, pSrcDst, len); }
NuvStatus nuvsAnd_16u(const Nuv16u* pSrc1, const Nuv16u* pSrc2, Nuv16u* pDst, int len) { return logicN<Nuv16u, AndOp>(pSrc1, pSrc2, pDst, len); }
NuvStatus nuvsAnd_16u_I(const Nuv16u* pSrc, Nuv16u* pSrcDst, int len) { return logicN<Nuv16u, AndOp>(pSrc, pSrcDst, pSrcDst, len); }
NuvStatus nuvsAnd_32u(const Nuv32u* pSrc1, const Nuv32u* pSrc2, Nuv32u* pDst, int len) { return logicN<Nuv32u, AndOp>(pSrc1, pSrc2, pDst, len); }
NuvStatus nuvsAnd_32u_I(const Nuv32u* pSrc, Nuv32u* pSrcDst, int len) { return logicN<Nuv32u, AndOp>(pSrc, pSrcDst, pSrcDst, len); }
NuvStatus nuvsOr_8u(const Nuv8u* pSrc1, const Nuv8u* pSrc2, Nuv8u* pDst, int len) { return logicN<Nuv8u, OrOp>(pSrc1, pSrc2, pDst, len); }
NuvStatus nuvsOr_8u_I(const Nuv8u* pSrc, Nuv8u* pSrcDst, int len) { return logicN<Nuv8u, OrOp>(pSrc, pSrcDst, pSrcDst, len); }
NuvStatus nuvsOr_16u(const Nuv16u* pSrc1, const Nuv16u* pSrc2, Nuv16u* pDst, int len) { return logicN<Nuv16u, OrOp>(pSrc1, pSrc2, pDst, len); }
NuvStatus nuvsOr_16u_I(const Nuv16u* pSrc, Nuv16u* pSrcDst, int len) { return logicN<Nuv16u, OrOp>(pSrc, pSrcDst, pSrcDst, len); }
NuvStatus nuvsOr_32u(const Nuv32u* pSrc1, const Nuv32u* pSrc2, Nuv32u* pDst, int len) { return logicN<Nuv32u, OrOp>(pSrc1, pSrc2, pDst, len); }
NuvStatus nuvsOr_32u_I(const Nuv32u* pSrc, Nuv32u* pSrcDst, int len) { return logicN<Nuv32u, OrOp>(pSrc, pSrcDst, pSrcDst, len); }
NuvStatus nuvsXor_8u(const Nuv8u* pSrc1, const Nuv8u* pSrc2, Nuv8u* pDst, int len) { return logicN<Nuv8u, XorOp>(pSrc1, pSrc2, pDst, len); }
NuvStatus nuvsXor_8u_I(const Nuv8u* pSrc, Nuv8u* pSrcDst, int len) { return logicN<Nuv8u, XorOp>(pSrc, pSrcDst, pSrcDst, len); }
NuvStatus nuvsXor_16u(const Nuv16u* pSrc1, const Nuv16u* pSrc2, Nuv16u* pDst, int len) { return logicN<Nuv16u, XorOp>(pSrc1, pSrc2, pDst, len); }
NuvStatus nuvsXor_16u_I(const Nuv16u* pSrc, Nuv16u* pSrcDst, int len) { return logicN<Nuv16u, XorOp>(pSrc, pSrcDst, pSrcDst, len); }
NuvStatus nuvsXor_32u(const Nuv32u* pSrc1, const Nuv32u* pSrc2, Nuv32u* pDst, int len) { return logicN<Nuv32u, XorOp>(pSrc1, pSrc2, pDst, len); }
NuvStatus nuvsXor_32u_I(const Nuv32u* pSrc, Nuv32u* pSrcDst, int len) { return logicN<Nuv32u, XorOp>(pSrc, pSrcDst, pSrcDst, len); }

// AndC, OrC, XorC
NuvStatus nuvsAndC_8u(const Nuv8u* pSrc, Nuv8u val, Nuv8u* pDst, int len) { return logicC<Nuv8u, AndOp>(pSrc, val, pDst, len); }
NuvStatus nuvsAndC_8u_I(Nuv8u val, Nuv8u* pSrcDst, int len) { return logicC<Nuv8u, AndOp>(pSrcDst, val, pSrcDst, len); }
NuvStatus nuvsAndC_16u(const Nuv16u* pSrc, Nuv16u val, Nuv16u* pDst, int len) { return logicC<Nuv16u, AndOp>(pSrc, val, pDst, len); }
NuvStatus nuvsAndC_16u_I(Nuv16u val, Nuv16u* pSrcDst, int len) { return logicC<Nuv16u, AndOp>(pSrcDst, val, pSrcDst, len); }
NuvStatus nuvsAndC_32u(const Nuv32u* pSrc, Nuv32u val, Nuv32u* pDst, int len) { return logicC<Nuv32u, AndOp>(pSrc, val, pDst, len); }
NuvStatus nuvsAndC_32u_I(Nuv32u val, Nuv32u* pSrcDst, int len) { return logicC<Nuv32u, AndOp>(pSrcDst, val, pSrcDst, len); }
NuvStatus nuvsOrC_8u(const Nuv8u* pSrc, Nuv8u val, Nuv8u* pDst, int len) { return logicC<Nuv8u, OrOp>(pSrc, val, pDst, len); }
NuvStatus nuvsOrC_8u_I(Nuv8u val, Nuv8u* pSrcDst, int len) { return logicC<Nuv8u, OrOp>(pSrcDst, val, pSrcDst, len); }
NuvStatus nuvsOrC_16u(const Nuv16u* pSrc, Nuv16u val, Nuv16u* pDst, int len) { return logicC<Nuv16u, OrOp>(pSrc, val, pDst, len); }
NuvStatus nuvsOrC_16u_I(Nuv16u val, Nuv16u* pSrcDst, int len) { return logicC<Nuv16u, OrOp>(pSrcDst, val, pSrcDst, len); }
NuvStatus nuvsOrC_32u(const Nuv32u* pSrc, Nuv32u val, Nuv32u* pDst, int len) { return logicC<Nuv32u, OrOp>(pSrc, val, pDst, len); }
NuvStatus nuvsOrC_32u_I(Nuv32u val, Nuv32u* pSrcDst, int len) { return logicC<Nuv32u, OrOp>(pSrcDst, val, pSrcDst, len); }
NuvStatus nuvsXorC_8u(const Nuv8u* pSrc, Nuv8u val, Nuv8u* pDst, int len) { return logicC<Nuv8u, XorOp>(pSrc, val, pDst, len); }
NuvStatus nuvsXorC_8u_I(Nuv8u val, Nuv8u* pSrcDst, int len) { return logicC<Nuv8u, XorOp>(pSrcDst, val, pSrcDst, len); }
NuvStatus nuvsXorC_16u(const Nuv16u* pSrc, Nuv16u val, Nuv16u* pDst, int len) { return logicC<Nuv16u, XorOp>(pSrc, val, pDst, len); }
NuvStatus nuvsXorC_16u_I(Nuv16u val, Nuv16u* pSrcDst, int len) { return logicC<Nuv16u, XorOp>(pSrcDst, val, pSrcDst, len); }
NuvStatus nuvsXorC_32u(const Nuv32u* pSrc, Nuv32u val, Nuv32u* pDst, int len) { return logicC<Nuv32u, XorOp>(pSrc, val, pDst, len); }
NuvStatus nuvsXorC_32u_I(Nuv32u val, Nuv32u* pSrcDst, int len) { return logicC<Nuv32u, XorOp>(pSrcDst, val, pSrcDst, len); }

// Not
NuvStatus nuvsNot_8u(const Nuv8u* pSrc, Nuv8u* pDst, int len) { return notN(pSrc, pDst, len); }
NuvStatus nuvsNot_8u_I(Nuv8u* pSrcDst, int len) { return notN<Nuv8u>(pSrcDst, pSrcDst, len); }
NuvStatus nuvsNot_16u(const Nuv16u* pSrc, Nuv16u* pDst, int len) { return notN(pSrc, pDst, len); }
NuvStatus nuvsNot_16u_I(Nuv16u* pSrcDst, int len) { return notN<Nuv16u>(pSrcDst, pSrcDst, len); }
NuvStatus nuvsNot_32u(const Nuv32u* pSrc, Nuv32u* pDst, int len) { return notN(pSrc, pDst, len); }
NuvStatus nuvsNot_32u_I(Nuv32u* pSrcDst, int len) { return notN<Nuv32u>(pSrcDst, pSrcDst, len); }

// LShiftC, RShiftC
NuvStatus nuvsLShiftC_8u(const Nuv8u* pSrc, int val, Nuv8u* pDst, int len) { return shiftC<Nuv8u, Dir::Left>(pSrc, val, pDst, len); }
NuvStatus nuvsLShiftC_8u_I(int val, Nuv8u* pSrcDst, int len) { return shiftC<Nuv8u, Dir::Left>(pSrcDst, val, pSrcDst, len); }
NuvStatus nuvsLShiftC_16u(const Nuv16u* pSrc, int val, Nuv16u* pDst, int len) { return shiftC<Nuv16u, Dir::Left>(pSrc, val, pDst, len); }
NuvStatus nuvsLShiftC_16u_I(int val, Nuv16u* pSrcDst, int len) { return shiftC<Nuv16u, Dir::Left>(pSrcDst, val, pSrcDst, len); }
NuvStatus nuvsLShiftC_16s(const Nuv16s* pSrc, int val, Nuv16s* pDst, int len) { return lshift16s(pSrc, val, pDst, len); }
NuvStatus nuvsLShiftC_16s_I(int val, Nuv16s* pSrcDst, int len) { return lshift16s(pSrcDst, val, pSrcDst, len); }
NuvStatus nuvsLShiftC_32s(const Nuv32s* pSrc, int val, Nuv32s* pDst, int len) { return shiftC<Nuv32s, Dir::Left>(pSrc, val, pDst, len); }
NuvStatus nuvsLShiftC_32s_I(int val, Nuv32s* pSrcDst, int len) { return shiftC<Nuv32s, Dir::Left>(pSrcDst, val, pSrcDst, len); }
NuvStatus nuvsRShiftC_8u(const Nuv8u* pSrc, int val, Nuv8u* pDst, int len) { return shiftC<Nuv8u, Dir::Right>(pSrc, val, pDst, len); }
NuvStatus nuvsRShiftC_8u_I(int val, Nuv8u* pSrcDst, int len) { return shiftC<Nuv8u, Dir::Right>(pSrcDst, val, pSrcDst, len); }
NuvStatus nuvsRShiftC_16u(const Nuv16u* pSrc, int val, Nuv16u* pDst, int len) { return shiftC<Nuv16u, Dir::Right>(pSrc, val, pDst, len); }
NuvStatus nuvsRShiftC_16u_I(int val, Nuv16u* pSrcDst, int len) { return shiftC<Nuv16u, Dir::Right>(pSrcDst, val, pSrcDst, len); }
NuvStatus nuvsRShiftC_16s(const Nuv16s* pSrc, int val, Nuv16s* pDst, int len) { return shiftC<Nuv16s, Dir::Right>(pSrc, val, pDst, len); }
NuvStatus nuvsRShiftC_16s_I(int val, Nuv16s* pSrcDst, int len) { return shiftC<Nuv16s, Dir::Right>(pSrcDst, val, pSrcDst, len); }
NuvStatus nuvsRShiftC_32s(const Nuv32s* pSrc, int val, Nuv32s* pDst, int len) { return shiftC<Nuv32s, Dir::Right>(pSrc, val, pDst, len); }
NuvStatus nuvsRShiftC_32s_I(int val, Nuv32s* pSrcDst, int len) { return shiftC<Nuv32s, Dir::Right>(pSrcDst, val, pSrcDst, len); }
}

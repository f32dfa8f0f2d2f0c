// Floating add, subtract, multiply: Add, Sub, Mul, their C, CRev and product forms, Abs, Sqr, and the
// integer members that need no scale factor.
#include <immintrin.h>

#include <cstdint>
#include <type_traits>

#include "frame/block.h"
#include "frame/check.h"
#include "nuvs.h"
#include "vector/arith_float_kern.h"

namespace {

using namespace nuv;
using namespace nuv::arith;

// Plans of the square: the real single-precision form runs blocks of 32 with its peel taken from
// the source and no peel-free zone; the other out-of-place forms have a single block size and
// peel whenever there is room.
//                                 scalar below, no peel below, block, tail
constexpr BlockPlan kPlanSqr4B     {32, 32, 32,  8};   // Sqr_32f, peel on the source
constexpr BlockPlan kPlanSqr4BInPl {16, 33, 32,  8};   // Sqr_32f_I
constexpr BlockPlan kPlanSqr8B     {16, 16, 16, 16};   // Sqr_64f
constexpr BlockPlan kPlanSqrCplx   { 8,  8,  8,  8};   // Sqr_32fc, Sqr_64fc

// Above this working set AddProduct prefetches ahead on all three arrays.  Below it the data sit
// in L1 or L2, where software prefetches only compete with the loads for the load ports.
constexpr int64_t kAddProductPrefetchAbove = 2 << 20;

// Words of a complex array.
inline const float* w(const Nuv32fc* p) { return reinterpret_cast<const float*>(p); }
inline float* w(Nuv32fc* p) { return reinterpret_cast<float*>(p); }
inline const double* w(const Nuv64fc* p) { return reinterpret_cast<const double*>(p); }
inline double* w(Nuv64fc* p) { return reinterpret_cast<double*>(p); }
template <class C> struct WordT { using type = C; };
template <> struct WordT<Nuv32fc> { using type = float; };
template <> struct WordT<Nuv64fc> { using type = double; };
template <class C> using WordOf = typename WordT<C>::type;

// Twice a complex count: a count below 1 stays as it is, so that the real member refuses it after its
// pointer tests; a positive count past the range of twice wraps negative and is refused the same way.
inline int twice(int len) { return len < 1 ? len : int(unsigned(len) * 2u); }

inline NuvStatus copyOf(const Nuv32f* s, Nuv32f* d, int len) { return nuvsCopy_32f(s, d, len); }
inline NuvStatus copyOf(const Nuv64f* s, Nuv64f* d, int len) { return nuvsCopy_64f(s, d, len); }
inline NuvStatus zeroOf(Nuv32f* d, int len) { return nuvsZero_32f(d, len); }
inline NuvStatus zeroOf(Nuv64f* d, int len) { return nuvsZero_64f(d, len); }

// ---------------------------------------------------------------- real forms
// pDst[n] = op(pSrc1[n], pSrc2[n]).
template <BlockPlan P, class T, class Op>
NuvStatus vv(const T* pSrc1, const T* pSrc2, T* pDst, int len, Op op) {
    if (NuvStatus s = check(len, pSrc1, pSrc2, pDst)) return s;
    ownsMap<P>(pDst, pDst, len, op, Arr<T>{pSrc1}, Arr<T>{pSrc2});
    return nuvStsOk;
}

// pSrcDst[n] = op(pSrcDst[n], pSrc[n]).
template <BlockPlan P, class T, class Op>
NuvStatus vvI(const T* pSrc, T* pSrcDst, int len, Op op) {
    if (NuvStatus s = check(len, pSrc, pSrcDst)) return s;
    ownsMap<P>(pSrcDst, pSrcDst, len, op, Arr<T>{pSrcDst}, Arr<T>{pSrc});
    return nuvStsOk;
}

// Constants that make the operation trivial.  Zero (of either sign) for AddC and SubC: a copy.
// For MulC, one: a copy; zero: the destination is zeroed, so NaN and infinite elements give 0.
// A NaN constant compares unequal to both and always computes.
enum class Neutral { None, AddZero, MulOneZero };

template <BlockPlan P, Neutral K, class T, class Op>
NuvStatus vc(const T* pSrc, T val, T* pDst, int len, Op op) {
    if (NuvStatus s = check(len, pSrc, pDst)) return s;
    if constexpr (K == Neutral::AddZero) {
        if (val == T(0)) return copyOf(pSrc, pDst, len);
    } else if constexpr (K == Neutral::MulOneZero) {
        if (val == T(1)) return copyOf(pSrc, pDst, len);
        if (val == T(0)) return zeroOf(pDst, len);
    }
    ownsMap<P>(pDst, pDst, len, op, Arr<T>{pSrc}, Bcast<T>(val));
    return nuvStsOk;
}

template <BlockPlan P, Neutral K, class T, class Op>
NuvStatus vcI(T val, T* pSrcDst, int len, Op op) {
    if (NuvStatus s = check(len, pSrcDst)) return s;
    if constexpr (K == Neutral::AddZero) {
        if (val == T(0)) return nuvStsOk;
    } else if constexpr (K == Neutral::MulOneZero) {
        if (val == T(1)) return nuvStsOk;
        if (val == T(0)) return zeroOf(pSrcDst, len);
    }
    ownsMap<P>(pSrcDst, pSrcDst, len, op, Arr<T>{pSrcDst}, Bcast<T>(val));
    return nuvStsOk;
}

// pDst[n] = op(pSrc[n]); the peel follows the source where PeelOnSource.
template <BlockPlan P, bool PeelOnSource = false, class T, class Op>
NuvStatus un(const T* pSrc, T* pDst, int len, Op op) {
    if (NuvStatus s = check(len, pSrc, pDst)) return s;
    ownsMap<P>(PeelOnSource ? static_cast<const void*>(pSrc) : pDst, pDst, len, op, Arr<T>{pSrc});
    return nuvStsOk;
}

template <BlockPlan P, class T, class Op>
NuvStatus unI(T* pSrcDst, int len, Op op) {
    if (NuvStatus s = check(len, pSrcDst)) return s;
    ownsMap<P>(pSrcDst, pSrcDst, len, op, Arr<T>{pSrcDst});
    return nuvStsOk;
}

// ---------------------------------------------------------------- complex forms
// Every out-of-place complex form runs blocked only when its destination is separate from each
// source; any overlap takes the plain ascending element loop.
template <BlockPlan P, class C, class Op>
NuvStatus cvv(const C* pSrc1, const C* pSrc2, C* pDst, int len, Op op) {
    if (NuvStatus s = check(len, pSrc1, pSrc2, pDst)) return s;
    using T = WordOf<C>;
    const ArrC<T> a{w(pSrc1)}, b{w(pSrc2)};
    if (separate(pDst, pSrc1, len, sizeof(C)) && separate(pDst, pSrc2, len, sizeof(C)))
        ownsMapC<P>(pDst, w(pDst), len, op, a, b);
    else
        ownsPairsAscending(w(pDst), len, op, a, b);
    return nuvStsOk;
}

// In place the sources keep their places: pSrc is the first operand, pSrcDst the second.
template <BlockPlan P, class C, class Op>
NuvStatus cvvI(const C* pSrc, C* pSrcDst, int len, Op op) {
    if (NuvStatus s = check(len, pSrc, pSrcDst)) return s;
    using T = WordOf<C>;
    const ArrC<T> a{w(pSrc)}, b{w(pSrcDst)};
    if (separate(pSrcDst, pSrc, len, sizeof(C)))
        ownsMapC<P>(pSrcDst, w(pSrcDst), len, op, a, b);
    else
        ownsPairsAscending(w(pSrcDst), len, op, a, b);
    return nuvStsOk;
}

template <BlockPlan P, class C, class Op>
NuvStatus cvc(const C* pSrc, C val, C* pDst, int len, Op op) {
    if (NuvStatus s = check(len, pSrc, pDst)) return s;
    using T = WordOf<C>;
    const ArrC<T> x{w(pSrc)};
    const BcastC<T> c(val.re, val.im);
    if (separate(pDst, pSrc, len, sizeof(C)))
        ownsMapC<P>(pDst, w(pDst), len, op, x, c);
    else
        ownsPairsAscending(w(pDst), len, op, x, c);
    return nuvStsOk;
}

template <BlockPlan P, class C, class Op>
NuvStatus cvcI(C val, C* pSrcDst, int len, Op op) {
    if (NuvStatus s = check(len, pSrcDst)) return s;
    using T = WordOf<C>;
    ownsMapC<P>(pSrcDst, w(pSrcDst), len, op, ArrC<T>{w(pSrcDst)}, BcastC<T>(val.re, val.im));
    return nuvStsOk;
}

template <BlockPlan P, class C, class Op>
NuvStatus cun(const C* pSrc, C* pDst, int len, Op op) {
    if (NuvStatus s = check(len, pSrc, pDst)) return s;
    using T = WordOf<C>;
    const ArrC<T> x{w(pSrc)};
    if (separate(pDst, pSrc, len, sizeof(C)))
        ownsMapC<P>(pDst, w(pDst), len, op, x);
    else
        ownsPairsAscending(w(pDst), len, op, x);
    return nuvStsOk;
}

template <BlockPlan P, class C, class Op>
NuvStatus cunI(C* pSrcDst, int len, Op op) {
    if (NuvStatus s = check(len, pSrcDst)) return s;
    ownsMapC<P>(pSrcDst, w(pSrcDst), len, op, ArrC<WordOf<C>>{w(pSrcDst)});
    return nuvStsOk;
}

// Real array times complex array, each part one rounded product.
template <BlockPlan P>
NuvStatus realTimesCplx(const Nuv32f* pSrc1, const Nuv32fc* pSrc2, Nuv32fc* pDst, int len) {
    ownsMapC<P>(pDst, w(pDst), len, Mul{}, ArrRealAsPairs{pSrc1}, ArrC<float>{w(pSrc2)});
    return nuvStsOk;
}

// ---------------------------------------------------------------- AddProduct
// pSrcDst[n] += pSrc1[n] * pSrc2[n]; Wpe words per element.
template <int Wpe, class C, class Op>
NuvStatus addProduct(const C* pSrc1, const C* pSrc2, C* pSrcDst, int len, Op op) {
    if (NuvStatus s = check(len, pSrc1, pSrc2, pSrcDst)) return s;
    using T = WordOf<C>;
    const T* a = reinterpret_cast<const T*>(pSrc1);
    const T* b = reinterpret_cast<const T*>(pSrc2);
    T* d = reinterpret_cast<T*>(pSrcDst);
    if (int64_t(len) * 3 * int64_t(sizeof(C)) > kAddProductPrefetchAbove)
        ownsAddProduct<T, Wpe, true>(a, b, d, len, op);
    else
        ownsAddProduct<T, Wpe, false>(a, b, d, len, op);
    return nuvStsOk;
}

// ---------------------------------------------------------------- integer members
// Whole registers of `Step` elements, then single elements, ascending.
template <int Step, class Vec, class One>
NUV_INLINE void ownsSteps(int i, int len, Vec vec, One one) {
    for (; len - i >= Step; i += Step) vec(i);
    for (; i < len; ++i) one(i);
}

NUV_INLINE __m256i load256(const void* p) { return _mm256_loadu_si256(static_cast<const __m256i*>(p)); }
NUV_INLINE __m128i load128(const void* p) { return _mm_loadu_si128(static_cast<const __m128i*>(p)); }
NUV_INLINE void store256(void* p, __m256i v) { _mm256_storeu_si256(static_cast<__m256i*>(p), v); }

// Two byte vectors combined exactly into 16-bit results.
template <class VOp, class SOp>
NuvStatus bytesTo16(const Nuv8u* pSrc1, const Nuv8u* pSrc2, Nuv16u* pDst, int len, VOp vop, SOp sop) {
    if (NuvStatus s = check(len, pSrc1, pSrc2, pDst)) return s;
    ownsSteps<16>(0, len,
        [&](int i) { store256(pDst + i, vop(_mm256_cvtepu8_epi16(load128(pSrc1 + i)), _mm256_cvtepu8_epi16(load128(pSrc2 + i)))); },
        [&](int i) { pDst[i] = Nuv16u(sop(int(pSrc1[i]), int(pSrc2[i]))); });
    return nuvStsOk;
}

// Two 16-bit vectors combined exactly in 32 bits, each result converted to float once.
template <class VOp, class SOp>
NuvStatus shortsToFloat(const Nuv16s* pSrc1, const Nuv16s* pSrc2, Nuv32f* pDst, int len, VOp vop, SOp sop) {
    if (NuvStatus s = check(len, pSrc1, pSrc2, pDst)) return s;
    ownsSteps<8>(0, len,
        [&](int i) {
            const __m256i x = _mm256_cvtepi16_epi32(load128(pSrc1 + i)), y = _mm256_cvtepi16_epi32(load128(pSrc2 + i));
            _mm256_storeu_ps(pDst + i, _mm256_cvtepi32_ps(vop(x, y)));
        },
        [&](int i) { pDst[i] = float(sop(int32_t(pSrc1[i]), int32_t(pSrc2[i]))); });
    return nuvStsOk;
}

// Saturating unsigned 16-bit add: blocks of 32, then 8, then single elements; no peel.
NuvStatus add16u(const Nuv16u* pSrc1, const Nuv16u* pSrc2, Nuv16u* pDst, int len) {
    if (NuvStatus s = check(len, pSrc1, pSrc2, pDst)) return s;
    int i = 0;
    for (; len - i >= 32; i += 32) {
        store256(pDst + i, _mm256_adds_epu16(load256(pSrc1 + i), load256(pSrc2 + i)));
        store256(pDst + i + 16, _mm256_adds_epu16(load256(pSrc1 + i + 16), load256(pSrc2 + i + 16)));
    }
    ownsSteps<8>(i, len,
        [&](int j) { _mm_storeu_si128(reinterpret_cast<__m128i*>(pDst + j), _mm_adds_epu16(load128(pSrc1 + j), load128(pSrc2 + j))); },
        [&](int j) {
            const int sum = int(pSrc1[j]) + int(pSrc2[j]);
            pDst[j] = Nuv16u(sum > 65535 ? 65535 : sum);
        });
    return nuvStsOk;
}

// Unsigned 32-bit add saturated at 4294967295: min(a, ~b) + b is a + b, or ~b + b = all ones on overflow.
NuvStatus add32u(const Nuv32u* pSrc1, const Nuv32u* pSrc2, Nuv32u* pDst, int len) {
    if (NuvStatus s = check(len, pSrc1, pSrc2, pDst)) return s;
    const __m256i ones = _mm256_set1_epi32(-1);
    ownsSteps<8>(0, len,
        [&](int i) {
            const __m256i a = load256(pSrc1 + i), b = load256(pSrc2 + i);
            store256(pDst + i, _mm256_add_epi32(_mm256_min_epu32(a, _mm256_xor_si256(b, ones)), b));
        },
        [&](int i) {
            const uint64_t sum = uint64_t(pSrc1[i]) + pSrc2[i];
            pDst[i] = sum > 0xFFFFFFFFu ? 0xFFFFFFFFu : Nuv32u(sum);
        });
    return nuvStsOk;
}

// 32-bit plus sign-extended 16-bit, saturated: overflow only when both signs agree and the sum's differs.
NuvStatus add16s32sI(const Nuv16s* pSrc, Nuv32s* pSrcDst, int len) {
    if (NuvStatus s = check(len, pSrc, pSrcDst)) return s;
    const __m256i maxv = _mm256_set1_epi32(INT32_MAX);
    ownsSteps<8>(0, len,
        [&](int i) {
            const __m256i a = load256(pSrcDst + i), b = _mm256_cvtepi16_epi32(load128(pSrc + i));
            const __m256i sum = _mm256_add_epi32(a, b);
            const __m256i over = _mm256_andnot_si256(_mm256_xor_si256(a, b), _mm256_xor_si256(a, sum));
            const __m256i sat = _mm256_xor_si256(_mm256_srai_epi32(a, 31), maxv);
            store256(pSrcDst + i, _mm256_castps_si256(_mm256_blendv_ps(
                                      _mm256_castsi256_ps(sum), _mm256_castsi256_ps(sat), _mm256_castsi256_ps(over))));
        },
        [&](int i) {
            const int64_t sum = int64_t(pSrcDst[i]) + pSrc[i];
            pSrcDst[i] = Nuv32s(sum > INT32_MAX ? INT32_MAX : (sum < INT32_MIN ? INT32_MIN : sum));
        });
    return nuvStsOk;
}

// Saturating 16-bit absolute value: max(x, 0 -sat x) makes -32768 give 32767.  Peels to a 16-byte
// boundary of the destination, then blocks of 16.
NuvStatus abs16s(const Nuv16s* pSrc, Nuv16s* pDst, int len) {
    if (NuvStatus s = check(len, pSrc, pDst)) return s;
    auto one = [&](int i) { pDst[i] = Nuv16s(pSrc[i] == INT16_MIN ? INT16_MAX : (pSrc[i] < 0 ? -pSrc[i] : pSrc[i])); };
    int peel = int((8 - (reinterpret_cast<uintptr_t>(pDst) >> 1)) & 7);
    if (peel > len) peel = len;
    for (int i = 0; i < peel; ++i) one(i);
    ownsSteps<16>(peel, len,
        [&](int i) {
            const __m256i x = load256(pSrc + i);
            store256(pDst + i, _mm256_max_epi16(x, _mm256_subs_epi16(_mm256_setzero_si256(), x)));
        },
        one);
    return nuvStsOk;
}

// Saturating 32-bit absolute value: |x| as unsigned limited to 2147483647.
NuvStatus abs32s(const Nuv32s* pSrc, Nuv32s* pDst, int len) {
    if (NuvStatus s = check(len, pSrc, pDst)) return s;
    const __m256i maxv = _mm256_set1_epi32(INT32_MAX);
    ownsSteps<8>(0, len,
        [&](int i) { store256(pDst + i, _mm256_min_epu32(_mm256_abs_epi32(load256(pSrc + i)), maxv)); },
        [&](int i) { pDst[i] = pSrc[i] == INT32_MIN ? INT32_MAX : (pSrc[i] < 0 ? -pSrc[i] : pSrc[i]); });
    return nuvStsOk;
}

}  // namespace

extern "C" {
// Add, Sub, Mul of two real vectors; complex Add and Sub are the real member on twice the words.
NuvStatus nuvsAdd_32f(const Nuv32f* pSrc1, const Nuv32f* pSrc2, Nuv32f* pDst, int len) { return vv<kPlan4B>(pSrc1, pSrc2, pDst, len, Add{}); }
NuvStatus nuvsAdd_32f_I(const Nuv32f* pSrc, Nuv32f* pSrcDst, int len) { return vvI<kPlan4BInPl>(pSrc, pSrcDst, len, Add{}); }
NuvStatus nuvsAdd_32fc(const Nuv32fc* pSrc1, const Nuv32fc* pSrc2, Nuv32fc* pDst, int len) { return vv<kPlan4B>(w(pSrc1), w(pSrc2), w(pDst), twice(len), Add{}); }
NuvStatus nuvsAdd_32fc_I(const Nuv32fc* pSrc, Nuv32fc* pSrcDst, int len) { return vvI<kPlan4BInPl>(w(pSrc), w(pSrcDst), twice(len), Add{}); }
NuvStatus nuvsAdd_64f(const Nuv64f* pSrc1, const Nuv64f* pSrc2, Nuv64f* pDst, int len) { return vv<kPlan8B>(pSrc1, pSrc2, pDst, len, Add{}); }
NuvStatus nuvsAdd_64f_I(const Nuv64f* pSrc, Nuv64f* pSrcDst, int len) { return vvI<kPlan8BInPl>(pSrc, pSrcDst, len, Add{}); }
NuvStatus nuvsAdd_64fc(const Nuv64fc* pSrc1, const Nuv64fc* pSrc2, Nuv64fc* pDst, int len) { return vv<kPlan8B>(w(pSrc1), w(pSrc2), w(pDst), twice(len), Add{}); }
NuvStatus nuvsAdd_64fc_I(const Nuv64fc* pSrc, Nuv64fc* pSrcDst, int len) { return vvI<kPlan8BInPl>(w(pSrc), w(pSrcDst), twice(len), Add{}); }
NuvStatus nuvsSub_32f(const Nuv32f* pSrc1, const Nuv32f* pSrc2, Nuv32f* pDst, int len) { return vv<kPlan4B>(pSrc1, pSrc2, pDst, len, Flip<Sub>{}); }
NuvStatus nuvsSub_32f_I(const Nuv32f* pSrc, Nuv32f* pSrcDst, int len) { return vvI<kPlan4BInPl>(pSrc, pSrcDst, len, Sub{}); }
NuvStatus nuvsSub_32fc(const Nuv32fc* pSrc1, const Nuv32fc* pSrc2, Nuv32fc* pDst, int len) { return vv<kPlan4B>(w(pSrc1), w(pSrc2), w(pDst), twice(len), Flip<Sub>{}); }
NuvStatus nuvsSub_32fc_I(const Nuv32fc* pSrc, Nuv32fc* pSrcDst, int len) { return vvI<kPlan4BInPl>(w(pSrc), w(pSrcDst), twice(len), Sub{}); }
NuvStatus nuvsSub_64f(const Nuv64f* pSrc1, const Nuv64f* pSrc2, Nuv64f* pDst, int len) { return vv<kPlan8B>(pSrc1, pSrc2, pDst, len, Flip<Sub>{}); }
NuvStatus nuvsSub_64f_I(const Nuv64f* pSrc, Nuv64f* pSrcDst, int len) { return vvI<kPlan8BInPl>(pSrc, pSrcDst, len, Sub{}); }
NuvStatus nuvsSub_64fc(const Nuv64fc* pSrc1, const Nuv64fc* pSrc2, Nuv64fc* pDst, int len) { return vv<kPlan8B>(w(pSrc1), w(pSrc2), w(pDst), twice(len), Flip<Sub>{}); }
NuvStatus nuvsSub_64fc_I(const Nuv64fc* pSrc, Nuv64fc* pSrcDst, int len) { return vvI<kPlan8BInPl>(w(pSrc), w(pSrcDst), twice(len), Sub{}); }
NuvStatus nuvsMul_32f(const Nuv32f* pSrc1, const Nuv32f* pSrc2, Nuv32f* pDst, int len) { return vv<kPlan4B>(pSrc1, pSrc2, pDst, len, Mul{}); }
NuvStatus nuvsMul_32f_I(const Nuv32f* pSrc, Nuv32f* pSrcDst, int len) { return vvI<kPlan4BInPl>(pSrc, pSrcDst, len, Mul{}); }
NuvStatus nuvsMul_64f(const Nuv64f* pSrc1, const Nuv64f* pSrc2, Nuv64f* pDst, int len) { return vv<kPlan8B>(pSrc1, pSrc2, pDst, len, Mul{}); }
NuvStatus nuvsMul_64f_I(const Nuv64f* pSrc, Nuv64f* pSrcDst, int len) { return vvI<kPlan8BInPl>(pSrc, pSrcDst, len, Mul{}); }
// Complex products with their fixed fused order.
NuvStatus nuvsMul_32fc(const Nuv32fc* pSrc1, const Nuv32fc* pSrc2, Nuv32fc* pDst, int len) { return cvv<kPlan8BCplx>(pSrc1, pSrc2, pDst, len, CMul{}); }
NuvStatus nuvsMul_32fc_I(const Nuv32fc* pSrc, Nuv32fc* pSrcDst, int len) { return cvvI<kPlan8BCplxI>(pSrc, pSrcDst, len, CMul{}); }
NuvStatus nuvsMul_64fc(const Nuv64fc* pSrc1, const Nuv64fc* pSrc2, Nuv64fc* pDst, int len) { return cvv<kPlan16B>(pSrc1, pSrc2, pDst, len, CMul{}); }
NuvStatus nuvsMul_64fc_I(const Nuv64fc* pSrc, Nuv64fc* pSrcDst, int len) { return cvvI<kPlan16BInPl>(pSrc, pSrcDst, len, CMul{}); }
NuvStatus nuvsMul_32f32fc(const Nuv32f* pSrc1, const Nuv32fc* pSrc2, Nuv32fc* pDst, int len) {
    if (NuvStatus s = check(len, pSrc1, pSrc2, pDst)) return s;
    return realTimesCplx<kPlan8BCplx>(pSrc1, pSrc2, pDst, len);
}
NuvStatus nuvsMul_32f32fc_I(const Nuv32f* pSrc, Nuv32fc* pSrcDst, int len) {
    if (NuvStatus s = check(len, pSrc, pSrcDst)) return s;
    return realTimesCplx<kPlan8BCplxI>(pSrc, pSrcDst, pSrcDst, len);
}

// Integer members without scale.
NuvStatus nuvsAdd_8u16u(const Nuv8u* pSrc1, const Nuv8u* pSrc2, Nuv16u* pDst, int len) {
    return bytesTo16(pSrc1, pSrc2, pDst, len, [](__m256i a, __m256i b) { return _mm256_add_epi16(a, b); }, [](int a, int b) { return a + b; });
}
NuvStatus nuvsMul_8u16u(const Nuv8u* pSrc1, const Nuv8u* pSrc2, Nuv16u* pDst, int len) {
    return bytesTo16(pSrc1, pSrc2, pDst, len, [](__m256i a, __m256i b) { return _mm256_mullo_epi16(a, b); }, [](int a, int b) { return a * b; });
}
NuvStatus nuvsAdd_16u(const Nuv16u* pSrc1, const Nuv16u* pSrc2, Nuv16u* pDst, int len) { return add16u(pSrc1, pSrc2, pDst, len); }
NuvStatus nuvsAdd_32u(const Nuv32u* pSrc1, const Nuv32u* pSrc2, Nuv32u* pDst, int len) { return add32u(pSrc1, pSrc2, pDst, len); }
NuvStatus nuvsAdd_16s32s_I(const Nuv16s* pSrc, Nuv32s* pSrcDst, int len) { return add16s32sI(pSrc, pSrcDst, len); }
NuvStatus nuvsAdd_16s32f(const Nuv16s* pSrc1, const Nuv16s* pSrc2, Nuv32f* pDst, int len) {
    return shortsToFloat(pSrc1, pSrc2, pDst, len, [](__m256i a, __m256i b) { return _mm256_add_epi32(a, b); }, [](int32_t a, int32_t b) { return a + b; });
}
NuvStatus nuvsSub_16s32f(const Nuv16s* pSrc1, const Nuv16s* pSrc2, Nuv32f* pDst, int len) {
    return shortsToFloat(pSrc1, pSrc2, pDst, len, [](__m256i a, __m256i b) { return _mm256_sub_epi32(b, a); },
                         [](int32_t a, int32_t b) { return b - a; });
}
NuvStatus nuvsMul_16s32f(const Nuv16s* pSrc1, const Nuv16s* pSrc2, Nuv32f* pDst, int len) {
    return shortsToFloat(pSrc1, pSrc2, pDst, len, [](__m256i a, __m256i b) { return _mm256_mullo_epi32(a, b); }, [](int32_t a, int32_t b) { return a * b; });
}

// Operations with a constant.
NuvStatus nuvsAddC_32f(const Nuv32f* pSrc, Nuv32f val, Nuv32f* pDst, int len) { return vc<kPlan4B, Neutral::AddZero>(pSrc, val, pDst, len, Add{}); }
NuvStatus nuvsAddC_32f_I(Nuv32f val, Nuv32f* pSrcDst, int len) { return vcI<kPlan4BInPl, Neutral::AddZero>(val, pSrcDst, len, Add{}); }
NuvStatus nuvsAddC_64f(const Nuv64f* pSrc, Nuv64f val, Nuv64f* pDst, int len) { return vc<kPlan8B, Neutral::AddZero>(pSrc, val, pDst, len, Add{}); }
NuvStatus nuvsAddC_64f_I(Nuv64f val, Nuv64f* pSrcDst, int len) { return vcI<kPlan8BInPl, Neutral::AddZero>(val, pSrcDst, len, Add{}); }
NuvStatus nuvsSubC_32f(const Nuv32f* pSrc, Nuv32f val, Nuv32f* pDst, int len) { return vc<kPlan4B, Neutral::AddZero>(pSrc, val, pDst, len, Sub{}); }
NuvStatus nuvsSubC_32f_I(Nuv32f val, Nuv32f* pSrcDst, int len) { return vcI<kPlan4BInPl, Neutral::AddZero>(val, pSrcDst, len, Sub{}); }
NuvStatus nuvsSubC_64f(const Nuv64f* pSrc, Nuv64f val, Nuv64f* pDst, int len) { return vc<kPlan8B, Neutral::AddZero>(pSrc, val, pDst, len, Sub{}); }
NuvStatus nuvsSubC_64f_I(Nuv64f val, Nuv64f* pSrcDst, int len) { return vcI<kPlan8BInPl, Neutral::AddZero>(val, pSrcDst, len, Sub{}); }
NuvStatus nuvsSubCRev_32f(const Nuv32f* pSrc, Nuv32f val, Nuv32f* pDst, int len) { return vc<kPlan4B, Neutral::None>(pSrc, val, pDst, len, Flip<Sub>{}); }
NuvStatus nuvsSubCRev_32f_I(Nuv32f val, Nuv32f* pSrcDst, int len) { return vcI<kPlan4BInPl, Neutral::None>(val, pSrcDst, len, Flip<Sub>{}); }
NuvStatus nuvsSubCRev_64f(const Nuv64f* pSrc, Nuv64f val, Nuv64f* pDst, int len) { return vc<kPlan8B, Neutral::None>(pSrc, val, pDst, len, Flip<Sub>{}); }
NuvStatus nuvsSubCRev_64f_I(Nuv64f val, Nuv64f* pSrcDst, int len) { return vcI<kPlan8BInPl, Neutral::None>(val, pSrcDst, len, Flip<Sub>{}); }
NuvStatus nuvsMulC_32f(const Nuv32f* pSrc, Nuv32f val, Nuv32f* pDst, int len) { return vc<kPlan4B, Neutral::MulOneZero>(pSrc, val, pDst, len, Mul{}); }
NuvStatus nuvsMulC_32f_I(Nuv32f val, Nuv32f* pSrcDst, int len) { return vcI<kPlan4BInPl, Neutral::MulOneZero>(val, pSrcDst, len, Mul{}); }
NuvStatus nuvsMulC_64f(const Nuv64f* pSrc, Nuv64f val, Nuv64f* pDst, int len) { return vc<kPlan8B, Neutral::MulOneZero>(pSrc, val, pDst, len, Mul{}); }
NuvStatus nuvsMulC_64f_I(Nuv64f val, Nuv64f* pSrcDst, int len) { return vcI<kPlan8BInPl, Neutral::MulOneZero>(val, pSrcDst, len, Mul{}); }
// Complex constants never take an exit.
NuvStatus nuvsAddC_32fc(const Nuv32fc* pSrc, Nuv32fc val, Nuv32fc* pDst, int len) { return cvc<kPlan8BCplx>(pSrc, val, pDst, len, Add{}); }
NuvStatus nuvsAddC_32fc_I(Nuv32fc val, Nuv32fc* pSrcDst, int len) { return cvcI<kPlan8BCplxI>(val, pSrcDst, len, Add{}); }
NuvStatus nuvsAddC_64fc(const Nuv64fc* pSrc, Nuv64fc val, Nuv64fc* pDst, int len) { return cvc<kPlan16B>(pSrc, val, pDst, len, Add{}); }
NuvStatus nuvsAddC_64fc_I(Nuv64fc val, Nuv64fc* pSrcDst, int len) { return cvcI<kPlan16BInPl>(val, pSrcDst, len, Add{}); }
NuvStatus nuvsSubC_32fc(const Nuv32fc* pSrc, Nuv32fc val, Nuv32fc* pDst, int len) { return cvc<kPlan8BCplx>(pSrc, val, pDst, len, Sub{}); }
NuvStatus nuvsSubC_32fc_I(Nuv32fc val, Nuv32fc* pSrcDst, int len) { return cvcI<kPlan8BCplxI>(val, pSrcDst, len, Sub{}); }
NuvStatus nuvsSubC_64fc(const Nuv64fc* pSrc, Nuv64fc val, Nuv64fc* pDst, int len) { return cvc<kPlan16B>(pSrc, val, pDst, len, Sub{}); }
NuvStatus nuvsSubC_64fc_I(Nuv64fc val, Nuv64fc* pSrcDst, int len) { return cvcI<kPlan16BInPl>(val, pSrcDst, len, Sub{}); }
NuvStatus nuvsSubCRev_32fc(const Nuv32fc* pSrc, Nuv32fc val, Nuv32fc* pDst, int len) { return cvc<kPlan8BCplx>(pSrc, val, pDst, len, Flip<Sub>{}); }
NuvStatus nuvsSubCRev_32fc_I(Nuv32fc val, Nuv32fc* pSrcDst, int len) { return cvcI<kPlan8BCplxI>(val, pSrcDst, len, Flip<Sub>{}); }
NuvStatus nuvsSubCRev_64fc(const Nuv64fc* pSrc, Nuv64fc val, Nuv64fc* pDst, int len) { return cvc<kPlan16B>(pSrc, val, pDst, len, Flip<Sub>{}); }
NuvStatus nuvsSubCRev_64fc_I(Nuv64fc val, Nuv64fc* pSrcDst, int len) { return cvcI<kPlan16BInPl>(val, pSrcDst, len, Flip<Sub>{}); }
NuvStatus nuvsMulC_32fc(const Nuv32fc* pSrc, Nuv32fc val, Nuv32fc* pDst, int len) { return cvc<kPlan8BCplx>(pSrc, val, pDst, len, CMulC{}); }
NuvStatus nuvsMulC_32fc_I(Nuv32fc val, Nuv32fc* pSrcDst, int len) { return cvcI<kPlan8BCplxI>(val, pSrcDst, len, CMulC{}); }
NuvStatus nuvsMulC_64fc(const Nuv64fc* pSrc, Nuv64fc val, Nuv64fc* pDst, int len) { return cvc<kPlan16B>(pSrc, val, pDst, len, CMulC{}); }
NuvStatus nuvsMulC_64fc_I(Nuv64fc val, Nuv64fc* pSrcDst, int len) { return cvcI<kPlan16BInPl>(val, pSrcDst, len, CMulC{}); }

// Accumulated products: one fused multiply-add per real element.
NuvStatus nuvsAddProduct_32f(const Nuv32f* pSrc1, const Nuv32f* pSrc2, Nuv32f* pSrcDst, int len) { return addProduct<1>(pSrc1, pSrc2, pSrcDst, len, Fma{}); }
NuvStatus nuvsAddProduct_64f(const Nuv64f* pSrc1, const Nuv64f* pSrc2, Nuv64f* pSrcDst, int len) { return addProduct<1>(pSrc1, pSrc2, pSrcDst, len, Fma{}); }
NuvStatus nuvsAddProduct_32fc(const Nuv32fc* pSrc1, const Nuv32fc* pSrc2, Nuv32fc* pSrcDst, int len) { return addProduct<2>(pSrc1, pSrc2, pSrcDst, len, CAddProduct{}); }
NuvStatus nuvsAddProduct_64fc(const Nuv64fc* pSrc1, const Nuv64fc* pSrc2, Nuv64fc* pSrcDst, int len) { return addProduct<2>(pSrc1, pSrc2, pSrcDst, len, CAddProduct{}); }
NuvStatus nuvsAddProductC_32f(const Nuv32f* pSrc, Nuv32f val, Nuv32f* pSrcDst, int len) {
    if (NuvStatus s = check(len, pSrc, pSrcDst)) return s;
    ownsMap<kPlan4BInPl>(pSrcDst, pSrcDst, len, Fma{}, Arr<Nuv32f>{pSrc}, Bcast<Nuv32f>(val), Arr<Nuv32f>{pSrcDst});
    return nuvStsOk;
}

// Absolute value and square.
NuvStatus nuvsAbs_16s(const Nuv16s* pSrc, Nuv16s* pDst, int len) { return abs16s(pSrc, pDst, len); }
NuvStatus nuvsAbs_16s_I(Nuv16s* pSrcDst, int len) { return abs16s(pSrcDst, pSrcDst, len); }
NuvStatus nuvsAbs_32s(const Nuv32s* pSrc, Nuv32s* pDst, int len) { return abs32s(pSrc, pDst, len); }
NuvStatus nuvsAbs_32s_I(Nuv32s* pSrcDst, int len) { return abs32s(pSrcDst, pSrcDst, len); }
NuvStatus nuvsAbs_32f(const Nuv32f* pSrc, Nuv32f* pDst, int len) { return un<kPlan4B>(pSrc, pDst, len, Abs{}); }
NuvStatus nuvsAbs_32f_I(Nuv32f* pSrcDst, int len) { return unI<kPlan4BInPl>(pSrcDst, len, Abs{}); }
NuvStatus nuvsAbs_64f(const Nuv64f* pSrc, Nuv64f* pDst, int len) { return un<kPlan8B>(pSrc, pDst, len, Abs{}); }
NuvStatus nuvsAbs_64f_I(Nuv64f* pSrcDst, int len) { return unI<kPlan8BInPl>(pSrcDst, len, Abs{}); }
NuvStatus nuvsSqr_32f(const Nuv32f* pSrc, Nuv32f* pDst, int len) { return un<kPlanSqr4B, true>(pSrc, pDst, len, Sqr{}); }
NuvStatus nuvsSqr_32f_I(Nuv32f* pSrcDst, int len) { return unI<kPlanSqr4BInPl>(pSrcDst, len, Sqr{}); }
NuvStatus nuvsSqr_64f(const Nuv64f* pSrc, Nuv64f* pDst, int len) { return un<kPlanSqr8B>(pSrc, pDst, len, Sqr{}); }
NuvStatus nuvsSqr_64f_I(Nuv64f* pSrcDst, int len) { return unI<kPlan8BInPl>(pSrcDst, len, Sqr{}); }
NuvStatus nuvsSqr_32fc(const Nuv32fc* pSrc, Nuv32fc* pDst, int len) { return cun<kPlanSqrCplx>(pSrc, pDst, len, CSqr{}); }
NuvStatus nuvsSqr_32fc_I(Nuv32fc* pSrcDst, int len) { return cunI<kPlan8BCplxI>(pSrcDst, len, CSqr{}); }
NuvStatus nuvsSqr_64fc(const Nuv64fc* pSrc, Nuv64fc* pDst, int len) { return cun<kPlanSqrCplx>(pSrc, pDst, len, CSqr{}); }
NuvStatus nuvsSqr_64fc_I(Nuv64fc* pSrcDst, int len) { return cunI<kPlan16BInPl>(pSrcDst, len, CSqr{}); }
}

// Conversion: Convert between element types with scale and rounding mode, half floats, packed
// 24-bit data, and the scaled interleaving (JoinScaled) and separation (SplitScaled) of channels.
#include <cmath>
#include <cstdint>
#include <type_traits>

#include "frame/block.h"
#include "frame/check.h"
#include "frame/fpstate.h"
#include "frame/round.h"
#include "nuvcore.h"
#include "nuvs.h"
#include "vector/convert_lanes.h"

namespace {

using namespace nuv::cvt;
using nuv::Simd;

// Destinations of three bytes have no alignment to reach: no peel.
constexpr nuv::BlockPlan kPlanPacked{16, 1 << 30, 16, 8};
constexpr unsigned kInvalidMask = 0x0080;  // MXCSR: invalid-operation exception masked
constexpr uint64_t kFeatureF16c = 0x4000;
constexpr int kWideLoadFrom = 8192;  // elements: from here 16-bit sources load 32 bytes at once

// ---------------------------------------------------------------- drivers

// The blocked loop with a main step of two registers, for destinations where two results pack
// into one store.  Zones and order as nuv::blocked: singles, no-peel zone, peel, blocks of
// P.block = 2 * P.tail elements, one-register tails, singles.
template <nuv::BlockPlan P, size_t ElemSize, class Vec2, class Vec, class One>
NUV_INLINE void blockedPairs(const void* dst, int len, Vec2&& vec2, Vec&& vec, One&& one) {
    static_assert(P.block == 2 * P.tail);
    const nuv::BlockZones z = nuv::blockZones<P, ElemSize>(dst, len);
    int i = 0;
    if (z.vector) {
        for (; i < z.peel; ++i) one(i);
        for (; i < z.end; i += P.block) vec2(i);
        for (; len - i >= P.tail; i += P.tail) vec(i);
    }
    for (; i < len; ++i) one(i);
}

// The blocked loop over eight-element registers: load, f, store; two at a time where the
// destination packs two registers into one store.
template <class S, class D, class F>
NUV_INLINE void run8(const S* s, D* d, int len, F f) {
    constexpr nuv::BlockPlan P = sizeof(D) == 3 ? kPlanPacked : nuv::kPlan4B;
    auto vec = [&](int i) { put(d + i, f(get(s + i))); };
    auto one = [&](int i) { put1(d + i, f(get1(s + i))); };
    if constexpr (requires { put2(d, f(get(s)), f(get(s))); }) {
        blockedPairs<P, sizeof(D)>(d, len, [&](int i) { put2(d + i, f(get(s + i)), f(get(s + i + 8))); }, vec, one);
    } else {
        if constexpr (requires { get2(s); }) {
            // Beyond the first-level cache one wide load per two registers is faster; inside it
            // the extra shuffle costs more than the load it saves.
            if (len >= kWideLoadFrom)
                return blockedPairs<P, sizeof(D)>(
                    d, len,
                    [&](int i) {
                        const Get2 v = get2(s + i);
                        put(d + i, f(v.lo));
                        put(d + i + 8, f(v.hi));
                    },
                    vec, one);
        }
        nuv::blocked<P, sizeof(D)>(d, len, vec, one);
    }
}

template <class S, class D, class F>
NuvStatus convert8(const S* pSrc, D* pDst, int len, F f) {
    if (NuvStatus st = nuv::check(len, pSrc, pDst)) return st;
    run8(pSrc, pDst, len, f);
    return nuvStsOk;
}

// Four elements to four doubles: the 64f blocking row.
NUV_INLINE __m128 get4(const float* p) { return _mm_loadu_ps(p); }
NUV_INLINE __m128 get41(const float* p) { return _mm_set1_ps(*p); }
NUV_INLINE __m128i get4(const int32_t* p) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p)); }
NUV_INLINE __m128i get41(const int32_t* p) { return _mm_set1_epi32(*p); }
NUV_INLINE __m128i get4(const int16_t* p) { return _mm_cvtepi16_epi32(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(p))); }
NUV_INLINE __m128i get41(const int16_t* p) { return _mm_set1_epi32(*p); }
NUV_INLINE __m256i get4(const int64_t* p) { return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p)); }
NUV_INLINE __m256i get41(const int64_t* p) { return _mm256_set1_epi64x(*p); }

template <class S, class F>
NuvStatus convert4d(const S* pSrc, double* pDst, int len, F f) {
    if (NuvStatus st = nuv::check(len, pSrc, pDst)) return st;
    nuv::blocked<nuv::kPlan8B, sizeof(double)>(
        pDst, len, [&](int i) { _mm256_storeu_pd(pDst + i, f(get4(pSrc + i))); },
        [&](int i) { pDst[i] = _mm256_cvtsd_f64(f(get41(pSrc + i))); });
    return nuvStsOk;
}

// ---------------------------------------------------------------- integer lanes to integer lanes

struct Same {
    NUV_INLINE __m256i operator()(__m256i v) const { return v; }
};
struct ToFloat {
    NUV_INLINE __m256 operator()(__m256i v) const { return _mm256_cvtepi32_ps(v); }
};
struct ToFloatScaled {
    __m256 f;
    NUV_INLINE __m256 operator()(__m256i v) const { return _mm256_mul_ps(_mm256_cvtepi32_ps(v), f); }
};

// Right shift by k >= 1 with the rounding of R.  Near: up by one where the remainder exceeds half
// a unit, or equals it and the truncated result is odd; this never overflows, so the top of the
// 32-bit range needs no special path.  Zero and Away add a bias and need 16-bit sources.
template <Rnd R, bool Signed = true>
struct ShiftR {
    __m128i cnt;
    __m256i mask, half;
    explicit ShiftR(int k)
        : cnt(_mm_cvtsi32_si128(k)), mask(_mm256_set1_epi32(int32_t((uint32_t(1) << k) - 1))),
          half(_mm256_set1_epi32(int32_t(uint32_t(1) << (k - 1)))) {}
    NUV_INLINE __m256i operator()(__m256i x) const {
        if constexpr (R == Rnd::Near) {
            const __m256i q = Signed ? _mm256_sra_epi32(x, cnt) : _mm256_srl_epi32(x, cnt);
            const __m256i r = _mm256_and_si256(x, mask);
            const __m256i odd = _mm256_and_si256(q, _mm256_set1_epi32(1));
            return _mm256_sub_epi32(q, _mm256_cmpgt_epi32(r, _mm256_sub_epi32(half, odd)));
        } else if constexpr (R == Rnd::Zero) {
            return _mm256_sra_epi32(_mm256_add_epi32(x, _mm256_and_si256(_mm256_srai_epi32(x, 31), mask)), cnt);
        } else {
            return _mm256_sra_epi32(_mm256_add_epi32(x, _mm256_add_epi32(half, _mm256_srai_epi32(x, 31))), cnt);
        }
    }
};

// Limit to [lo, hi], then shift left by k; the caller's limits keep the shift inside 32 bits.
struct ClampShl {
    __m256i lo, hi;
    __m128i cnt;
    NUV_INLINE __m256i operator()(__m256i x) const {
        return _mm256_sll_epi32(_mm256_max_epi32(_mm256_min_epi32(x, hi), lo), cnt);
    }
};

struct Clamp24s {
    NUV_INLINE __m256i operator()(__m256i x) const {
        return _mm256_max_epi32(_mm256_min_epi32(x, _mm256_set1_epi32(0x7FFFFF)), _mm256_set1_epi32(-0x800000));
    }
};
struct Clamp24u {
    NUV_INLINE __m256i operator()(__m256i x) const { return _mm256_min_epu32(x, _mm256_set1_epi32(0xFFFFFF)); }
};

template <class A, class B>
struct Then {
    A a;
    B b;
    NUV_INLINE auto operator()(auto x) const { return b(a(x)); }
};
template <class A, class B>
Then(A, B) -> Then<A, B>;

// Saturating left shift by k of 1..31 into 24 bits: an element above the largest value that
// survives the shift gives the top, one below the smallest gives the bottom.
template <bool Signed>
struct Shl24 {
    __m128i cnt;
    __m256i hiK, loK;
    explicit Shl24(int k)
        : cnt(_mm_cvtsi32_si128(k)), hiK(_mm256_set1_epi32((Signed ? 0x7FFFFF : 0xFFFFFF) >> k)),
          loK(_mm256_set1_epi32(-(0x800000 >> k))) {}
    NUV_INLINE __m256i operator()(__m256i x) const {
        const __m256i r = _mm256_sll_epi32(x, cnt);
        if constexpr (Signed) {
            const __m256i top = _mm256_blendv_epi8(r, _mm256_set1_epi32(0x7FFFFF), _mm256_cmpgt_epi32(x, hiK));
            return _mm256_blendv_epi8(top, _mm256_set1_epi32(-0x800000), _mm256_cmpgt_epi32(loK, x));
        } else {
            const __m256i fits = _mm256_cmpeq_epi32(_mm256_min_epu32(x, hiK), x);
            return _mm256_blendv_epi8(_mm256_set1_epi32(0xFFFFFF), r, fits);
        }
    }
};

// ---------------------------------------------------------------- float lanes to integer lanes

// How the top of the destination is reached: a minimum with its highest value (the low end and
// NaN saturate at the conversion or the pack), the same followed by an integer floor for 24-bit
// destinations, or for 32-bit destinations, whose highest value has no float, a fix-up of the
// converter's overflow answer where the value reaches 2^31.
enum class Top { Min, Min24, Int32 };

template <Rnd R, bool Scaled, class T, Top K>
struct ToInt {
    using S = Simd<T>;
    using V = typename S::V;
    V f, hi;
    __m256i lo;

    NUV_INLINE V prep(V x) const {
        if constexpr (Scaled) x = S::mul(x, f);
        if constexpr (K != Top::Int32) x = S::min(hi, x);  // a NaN passes on to the converter
        return R == Rnd::Near ? x : roundTo<R, T>(x);       // nearest: the converter in the nearest state
    }
    NUV_INLINE __m256i finish(__m256i r) const {
        if constexpr (K == Top::Min24) r = _mm256_max_epi32(r, lo);
        return r;
    }
    NUV_INLINE __m256i operator()(__m256 x) const {
        __m256i r = R == Rnd::Near ? _mm256_cvtps_epi32(prep(x)) : _mm256_cvttps_epi32(prep(x));
        if constexpr (K == Top::Int32) {
            const __m256 xs = Scaled ? S::mul(x, f) : x;
            r = _mm256_xor_si256(r, _mm256_castps_si256(_mm256_cmp_ps(xs, _mm256_set1_ps(0x1p31f), _CMP_GE_OQ)));
        }
        return finish(r);
    }
    NUV_INLINE __m256i operator()(D8 x) const {
        const __m128i a = R == Rnd::Near ? _mm256_cvtpd_epi32(prep(x.lo)) : _mm256_cvttpd_epi32(prep(x.lo));
        const __m128i b = R == Rnd::Near ? _mm256_cvtpd_epi32(prep(x.hi)) : _mm256_cvttpd_epi32(prep(x.hi));
        return finish(_mm256_inserti128_si256(_mm256_castsi128_si256(a), b, 1));
    }
};

template <class T>
T pow2Of(int sf) {
    if constexpr (sizeof(T) == 4) return nuv::pow2f(sf, -127, 126);
    else return nuv::pow2d(sf, -1023, 1022);
}

template <Rnd R, bool Scaled, Top K, class T, class S, class D>
void toIntWith(const S* s, D* d, int len, T f, T hi, int32_t lo) {
    run8(s, d, len, ToInt<R, Scaled, T, K>{Simd<T>::set1(f), Simd<T>::set1(hi), _mm256_set1_epi32(lo)});
}

// The state of every float-to-integer kernel: rounding to nearest, and the invalid exception
// masked while NaN and overflow meet the converter.  Written only where the caller's differs.
constexpr unsigned kToIntState = nuv::kMxcsrRcNear | kInvalidMask, kToIntMask = nuv::kMxcsrRcMask | kInvalidMask;

// Float or double source to an integer destination: one kernel per rounding mode and scale case.
template <Top K, class S, class D>
void toInt(const S* s, D* d, int len, Rnd r, int sf, S hi, int32_t lo = 0) {
    nuv::ScopedMxcsr guard(kToIntState, kToIntMask);
    const S f = pow2Of<S>(sf);
    if (sf == 0) {
        switch (r) {
            case Rnd::Near: return toIntWith<Rnd::Near, false, K>(s, d, len, f, hi, lo);
            case Rnd::Zero: return toIntWith<Rnd::Zero, false, K>(s, d, len, f, hi, lo);
            case Rnd::Away: return toIntWith<Rnd::Away, false, K>(s, d, len, f, hi, lo);
        }
    } else {
        switch (r) {
            case Rnd::Near: return toIntWith<Rnd::Near, true, K>(s, d, len, f, hi, lo);
            case Rnd::Zero: return toIntWith<Rnd::Zero, true, K>(s, d, len, f, hi, lo);
            case Rnd::Away: return toIntWith<Rnd::Away, true, K>(s, d, len, f, hi, lo);
        }
    }
}

template <Top K, class S, class D>
NuvStatus floatToInt(const S* pSrc, D* pDst, int len, int rndMode, int sf, S hi, int32_t lo = 0) {
    if (NuvStatus st = nuv::check(len, pSrc, pDst)) return st;
    toInt<K>(pSrc, pDst, len, rndOf(rndMode), sf, hi, lo);
    return nuvStsOk;
}

// ---------------------------------------------------------------- plain conversions that round

// Elements that can lose bits are converted to nearest even whatever the caller's rounding state.
NuvStatus convert32s32f(const Nuv32s* pSrc, Nuv32f* pDst, int len) {
    if (NuvStatus st = nuv::check(len, pSrc, pDst)) return st;
    nuv::ScopedMxcsr guard(nuv::kMxcsrRcNear, nuv::kMxcsrRcMask);
    run8(pSrc, pDst, len, ToFloat{});
    return nuvStsOk;
}

// Integer to float with scale: the element is converted first (a 32-bit one rounds to 24 bits),
// then multiplied by 2^-sf built from the exponent field with sf limited to [lo, hi].
template <class S>
NuvStatus intToFloatScaled(const S* pSrc, Nuv32f* pDst, int len, int sf, int lo, int hi) {
    if (NuvStatus st = nuv::check(len, pSrc, pDst)) return st;
    nuv::ScopedMxcsr guard(nuv::kMxcsrRcNear, nuv::kMxcsrRcMask);
    if (sf == 0) {
        run8(pSrc, pDst, len, ToFloat{});
        return nuvStsOk;
    }
    const float f = nuv::pow2f(sf, lo, hi);
    if constexpr (sizeof(S) == sizeof(float)) {
        // A destination that overlaps the source runs one element at a time, ascending.
        const auto s = reinterpret_cast<uintptr_t>(pSrc), d = reinterpret_cast<uintptr_t>(pDst);
        const uintptr_t bytes = uintptr_t(len) * sizeof(float);
        if (len > 6 && !(d >= s + bytes || s >= d + bytes)) {
            for (int i = 0; i < len; ++i) pDst[i] = float(pSrc[i]) * f;
            return nuvStsOk;
        }
    }
    run8(pSrc, pDst, len, ToFloatScaled{_mm256_set1_ps(f)});
    return nuvStsOk;
}

template <class S>
NuvStatus intToDoubleScaled(const S* pSrc, Nuv64f* pDst, int len, int sf, int lo, int hi) {
    if (sf == 0) return convert4d(pSrc, pDst, len, [](__m128i v) { return _mm256_cvtepi32_pd(v); });
    const __m256d f = _mm256_set1_pd(nuv::pow2d(sf, lo, hi));
    return convert4d(pSrc, pDst, len, [f](__m128i v) { return _mm256_mul_pd(_mm256_cvtepi32_pd(v), f); });
}

// 64-bit integers to double to nearest: the high half times 2^32 is exact, the low half as an
// unsigned 32-bit value is exact, and their sum rounds once.
NUV_INLINE __m256d s64ToDouble(__m256i v) {
    const __m256i hiIdx = _mm256_setr_epi32(1, 3, 5, 7, 1, 3, 5, 7);
    const __m256d hi = _mm256_cvtepi32_pd(_mm256_castsi256_si128(_mm256_permutevar8x32_epi32(v, hiIdx)));
    const __m256i magic = _mm256_set1_epi64x(0x4330000000000000);
    const __m256d lo = _mm256_sub_pd(_mm256_castsi256_pd(_mm256_or_si256(_mm256_and_si256(v, _mm256_set1_epi64x(0xFFFFFFFF)), magic)),
                                     _mm256_castsi256_pd(magic));
    return _mm256_add_pd(_mm256_mul_pd(hi, _mm256_set1_pd(0x1p32)), lo);
}

// ---------------------------------------------------------------- integer narrowing

NuvStatus convert32s16sSfs(const Nuv32s* pSrc, Nuv16s* pDst, int len, int sf) {
    if (NuvStatus st = nuv::check(len, pSrc, pDst)) return st;
    if (sf == 0) run8(pSrc, pDst, len, Same{});
    else if (sf > 0) run8(pSrc, pDst, len, ShiftR<Rnd::Near>(sf > 31 ? 31 : sf));
    else run8(pSrc, pDst, len, ClampShl{_mm256_set1_epi32(-32768), _mm256_set1_epi32(32767), _mm_cvtsi32_si128(sf < -15 ? 15 : -sf)});
    return nuvStsOk;
}

template <bool Signed, class S>
NuvStatus convertTo24Sfs(const S* pSrc, Nuv8u* pDst8, int len, int sf) {
    using D = std::conditional_t<Signed, I24s, I24u>;
    using Clamp = std::conditional_t<Signed, Clamp24s, Clamp24u>;
    D* pDst = reinterpret_cast<D*>(pDst8);
    if (NuvStatus st = nuv::check(len, pSrc, pDst)) return st;
    sf = sf < -31 ? -31 : (sf > 31 ? 31 : sf);
    if (sf == 0) run8(pSrc, pDst, len, Clamp{});
    else if (sf > 0) run8(pSrc, pDst, len, Then{ShiftR<Rnd::Near, Signed>(sf), Clamp{}});
    else run8(pSrc, pDst, len, Shl24<Signed>(-sf));
    return nuvStsOk;
}

template <Rnd R>
void shift16s8s(const Nuv16s* pSrc, Nuv8s* pDst, int len, int k) {
    run8(pSrc, pDst, len, ShiftR<R>(k));
}

// Its own ranges: element loops from scale -6 to 17, by sign only below, zero from 18.  Only a
// length of zero is refused; a negative one runs no element.
NuvStatus convert16s8sSfs(const Nuv16s* pSrc, Nuv8s* pDst, int len, int rndMode, int sf) {
    if (nuv::anyNull(pSrc, pDst)) return nuvStsNullPtr;
    if (len == 0) return nuvStsSize;
    if (sf >= 18) return nuvsZero_8u(reinterpret_cast<Nuv8u*>(pDst), len);
    if (sf == 0) {
        run8(pSrc, pDst, len, Same{});
    } else if (sf > 0) {
        switch (rndOf(rndMode)) {
            case Rnd::Near: shift16s8s<Rnd::Near>(pSrc, pDst, len, sf); break;
            case Rnd::Zero: shift16s8s<Rnd::Zero>(pSrc, pDst, len, sf); break;
            case Rnd::Away: shift16s8s<Rnd::Away>(pSrc, pDst, len, sf); break;
        }
    } else {
        // A shift by 7 of a value limited to 8 bits leaves only its sign after saturation.
        run8(pSrc, pDst, len, ClampShl{_mm256_set1_epi32(-128), _mm256_set1_epi32(127), _mm_cvtsi32_si128(sf < -6 ? 7 : -sf)});
    }
    return nuvStsOk;
}

// 64-bit to 32-bit by 64 or 65 places, in 128-bit arithmetic.
template <Rnd R>
NUV_INLINE int32_t shr64(int64_t x, int k) {
    using nuv::i128;
    const i128 X = x, h = i128(1) << (k - 1);
    i128 q;
    if constexpr (R == Rnd::Near) {
        q = X >> k;
        q += (X - (q << k)) > h - (q & 1);
    } else if constexpr (R == Rnd::Zero) {
        q = X >= 0 ? X >> k : -((-X) >> k);
    } else {
        q = X >= 0 ? (X + h) >> k : -((h - X) >> k);
    }
    return nuv::sat<int32_t>(q);
}

// 64-bit lanes to 32-bit lanes with scale.  Right shifts by k of 1..63: Near as ShiftR (the
// arithmetic shift made from a logical one between sign flips); Zero and Away shift the
// magnitude, which as an unsigned value holds even the lowest element plus the half.  Left shifts
// by k up to 31 compare with the top and bottom that survive the shift.  Then saturation.
template <int Kind, Rnd R = Rnd::Near>  // Kind: 0 saturate only, 1 right shift, -1 left shift
struct S64To32 {
    __m128i cnt;
    __m256i mask, half, hiK, loK;
    explicit S64To32(int k)
        : cnt(_mm_cvtsi32_si128(k)), mask(_mm256_set1_epi64x(int64_t((uint64_t(1) << k) - 1))),
          half(_mm256_set1_epi64x(int64_t(uint64_t(1) << (k > 0 ? k - 1 : 0)))),
          hiK(_mm256_set1_epi64x(INT32_MAX >> (k > 31 ? 31 : k))), loK(_mm256_set1_epi64x(int64_t(INT32_MIN) >> (k > 31 ? 31 : k))) {}

    NUV_INLINE __m256i lanes4(__m256i x) const {
        const __m256i top = _mm256_set1_epi64x(INT32_MAX), bottom = _mm256_set1_epi64x(INT32_MIN);
        __m256i q = x;
        if constexpr (Kind > 0) {
            const __m256i s = _mm256_cmpgt_epi64(_mm256_setzero_si256(), x);
            if constexpr (R == Rnd::Near) {
                q = _mm256_xor_si256(_mm256_srl_epi64(_mm256_xor_si256(x, s), cnt), s);
                const __m256i odd = _mm256_and_si256(q, _mm256_set1_epi64x(1));
                q = _mm256_sub_epi64(q, _mm256_cmpgt_epi64(_mm256_and_si256(x, mask), _mm256_sub_epi64(half, odd)));
            } else {
                __m256i a = _mm256_sub_epi64(_mm256_xor_si256(x, s), s);
                if constexpr (R == Rnd::Away) a = _mm256_add_epi64(a, half);
                q = _mm256_sub_epi64(_mm256_xor_si256(_mm256_srl_epi64(a, cnt), s), s);
            }
        } else if constexpr (Kind < 0) {
            q = _mm256_blendv_epi8(_mm256_sll_epi64(x, cnt), top, _mm256_cmpgt_epi64(x, hiK));
            return _mm256_blendv_epi8(q, bottom, _mm256_cmpgt_epi64(loK, x));
        }
        q = _mm256_blendv_epi8(q, top, _mm256_cmpgt_epi64(q, top));
        return _mm256_blendv_epi8(q, bottom, _mm256_cmpgt_epi64(bottom, q));
    }
    NUV_INLINE __m256i operator()(Q8 x) const {
        const __m256i even = _mm256_setr_epi32(0, 2, 4, 6, 0, 2, 4, 6);
        const __m256i a = _mm256_permutevar8x32_epi32(lanes4(x.lo), even), b = _mm256_permutevar8x32_epi32(lanes4(x.hi), even);
        return _mm256_inserti128_si256(a, _mm256_castsi256_si128(b), 1);
    }
};

template <Rnd R>
void shift64s32s(const Nuv64s* pSrc, Nuv32s* pDst, int len, int k) {
    const int64_t* s = reinterpret_cast<const int64_t*>(pSrc);
    if (k < 64) run8(s, pDst, len, S64To32<1, R>(k));
    else for (int i = 0; i < len; ++i) pDst[i] = shr64<R>(s[i], k);  // at most one element is not zero
}

NuvStatus convert64s32sSfs(const Nuv64s* pSrc, Nuv32s* pDst, int len, int rndMode, int sf) {
    if (NuvStatus st = nuv::check(len, pSrc, pDst)) return st;
    const int64_t* s = reinterpret_cast<const int64_t*>(pSrc);
    if (sf == 0) {
        run8(s, pDst, len, S64To32<0>(0));
    } else if (sf < 0) {
        run8(s, pDst, len, S64To32<-1>(sf < -31 ? 31 : -sf));
    } else {
        // From 65 on every mode gives zero for every element.
        const int k = sf > 65 ? 65 : sf;
        switch (rndOf(rndMode)) {
            case Rnd::Near: shift64s32s<Rnd::Near>(pSrc, pDst, len, k); break;
            case Rnd::Zero: shift64s32s<Rnd::Zero>(pSrc, pDst, len, k); break;
            case Rnd::Away: shift64s32s<Rnd::Away>(pSrc, pDst, len, k); break;
        }
    }
    return nuvStsOk;
}

// Double to 64-bit integer in extended precision: the scaled value is exact in 80 bits, so the
// range test on it decides saturation, and one x87 store rounds: by the control word to nearest
// even, truncating for toward zero, and after adding one half with the value's sign (exact below
// 2^63 in 64 significant bits) for ties away from zero.
template <Rnd R>
NUV_INLINE int64_t f64ToS64(double x, long double scale) {
    if (x != x) return INT64_MIN;
    const long double v = static_cast<long double>(x) * scale;
    if (v >= 0x1p63L) return INT64_MAX;
    if (v < -0x1p63L) return INT64_MIN;
    if constexpr (R == Rnd::Zero) return static_cast<int64_t>(v);
    if constexpr (R == Rnd::Away) return static_cast<int64_t>(v + (v < 0 ? -0.5L : 0.5L));
    return nuv::x87StoreInt64(v);
}

template <Rnd R>
void loop64f64s(const Nuv64f* pSrc, Nuv64s* pDst, int len, long double scale) {
    for (int i = 0; i < len; ++i) pDst[i] = f64ToS64<R>(pSrc[i], scale);
}

NuvStatus convert64f64sSfs(const Nuv64f* pSrc, Nuv64s* pDst, int len, int rndMode, int sf) {
    if (NuvStatus st = nuv::check(len, pSrc, pDst)) return st;
    const nuv::ScopedX87Nearest x87;   // 64 significant bits and rounding to nearest for the loop
    // Beyond +-2000 every double either vanishes or saturates, as at the limit itself.
    const long double scale = ldexpl(1.0L, -(sf < -2000 ? -2000 : (sf > 2000 ? 2000 : sf)));
    switch (rndOf(rndMode)) {
        case Rnd::Near: loop64f64s<Rnd::Near>(pSrc, pDst, len, scale); break;
        case Rnd::Zero: loop64f64s<Rnd::Zero>(pSrc, pDst, len, scale); break;
        case Rnd::Away: loop64f64s<Rnd::Away>(pSrc, pDst, len, scale); break;
    }
    return nuvStsOk;
}

// ---------------------------------------------------------------- half floats

bool hasF16c() { return ownGetFeature(kFeatureF16c) != 0; }

template <bool Hw>
struct HalfIn {
    NUV_INLINE __m256 operator()(__m128i h) const { return halfToFloat<Hw>(h); }
};
template <bool Hw, bool Near>
struct HalfOut {
    NUV_INLINE __m128i operator()(__m256 x) const { return floatToHalf<Hw, Near>(x); }
    NUV_INLINE __m128i operator()(__m256i v) const { return floatToHalf<Hw, Near>(_mm256_cvtepi32_ps(v)); }
};

template <class S>
void toHalf(const S* s, Half* d, int len, bool near) {
    if (hasF16c()) {
        // The conversion instruction raises exception flags (and would trap where the caller
        // unmasked them): it runs with all exceptions masked, and the caller's word, flags
        // included, is put back afterwards, as on the integer route, which raises none.
        const nuv::ScopedMxcsr guard(nuv::kMxcsrMasks, nuv::kMxcsrMasks);
        if (near) run8(s, d, len, HalfOut<true, true>{});
        else run8(s, d, len, HalfOut<true, false>{});
    } else if (near) run8(s, d, len, HalfOut<false, true>{});
    else run8(s, d, len, HalfOut<false, false>{});
}

// rndMode 2 is refused after pointers and length; 1 rounds to nearest, any other value toward zero.
template <class S>
NuvStatus convertToHalf(const S* pSrc, Nuv16f* pDst, int len, int rndMode) {
    if (NuvStatus st = nuv::check(len, pSrc, pDst)) return st;
    if (rndMode == nuvRndHalfAway) return nuvStsRoundMode;
    toHalf(pSrc, reinterpret_cast<Half*>(pDst), len, rndMode == nuvRndNear);
    return nuvStsOk;
}

NuvStatus convert16f32f(const Nuv16f* pSrc, Nuv32f* pDst, int len) {
    if (NuvStatus st = nuv::check(len, pSrc, pDst)) return st;
    const Half* s = reinterpret_cast<const Half*>(pSrc);
    if (hasF16c()) run8(s, pDst, len, HalfIn<true>{});
    else run8(s, pDst, len, HalfIn<false>{});
    return nuvStsOk;
}

template <bool Hw, Rnd R>
void half16sWith(const Half* s, Nuv16s* d, int len, int sf) {
    const float f = nuv::pow2f(sf, -127, 126);
    const ToInt<R, true, float, Top::Min> k{_mm256_set1_ps(f), _mm256_set1_ps(32767.0f), {}};
    run8(s, d, len, Then{HalfIn<Hw>{}, k});
}

// Below scale -14 the product of a half and 2^-sf no longer needs a float: work on the fields.
template <Rnd R>
NUV_INLINE int16_t halfFieldsTo16s(uint16_t h, int sf) {
    const bool neg = h & 0x8000;
    const int e = (h >> 10) & 31, frac = h & 0x3FF;
    if (e == 31) return frac || neg ? INT16_MIN : INT16_MAX;
    const int64_t m = e ? (frac | 0x400) : frac;
    const int p = (e ? e - 25 : -24) - sf;  // value = m * 2^p
    int64_t mag;
    if (m == 0) mag = 0;
    else if (p >= 20) mag = int64_t(1) << 40;
    else if (p >= 0) mag = m << p;
    else if (R == Rnd::Near) mag = nuv::rshiftRne<int64_t>(m, -p);
    else mag = m >> -p;
    return nuv::sat<int16_t>(neg ? -mag : mag);
}

template <Rnd R>
void halfFields16s(const Nuv16f* s, Nuv16s* d, int len, int sf) {
    for (int i = 0; i < len; ++i) d[i] = halfFieldsTo16s<R>(s[i], sf);
}

NuvStatus convert16f16sSfs(const Nuv16f* pSrc, Nuv16s* pDst, int len, int rndMode, int sf) {
    if (NuvStatus st = nuv::check(len, pSrc, pDst)) return st;
    if (rndMode == nuvRndHalfAway) return nuvStsRoundMode;
    const bool near = rndMode == nuvRndNear;
    if (sf < -14) {
        sf = sf < -64 ? -64 : sf;  // from -44 on every nonzero element saturates
        if (near) halfFields16s<Rnd::Near>(pSrc, pDst, len, sf);
        else halfFields16s<Rnd::Zero>(pSrc, pDst, len, sf);
        return nuvStsOk;
    }
    const Half* s = reinterpret_cast<const Half*>(pSrc);
    nuv::ScopedMxcsr guard(kToIntState, kToIntMask);
    const bool hw = hasF16c();
    if (hw && near) half16sWith<true, Rnd::Near>(s, pDst, len, sf);
    else if (hw) half16sWith<true, Rnd::Zero>(s, pDst, len, sf);
    else if (near) half16sWith<false, Rnd::Near>(s, pDst, len, sf);
    else half16sWith<false, Rnd::Zero>(s, pDst, len, sf);
    return nuvStsOk;
}

// ---------------------------------------------------------------- JoinScaled, SplitScaled

// The interleaved array, then the counts, then the pointer array, then every channel pointer.
template <class P, class Q>
NuvStatus checkChannels(const P* interleaved, Q* const* channels, int nChannels, int chanLen) {
    if (interleaved == nullptr) return nuvStsNullPtr;
    if (nChannels < 1 || chanLen < 1) return nuvStsSize;
    if (channels == nullptr) return nuvStsNullPtr;
    for (int c = 0; c < nChannels; c += 2)
        if (channels[c] == nullptr || (c + 1 < nChannels && channels[c + 1] == nullptr)) return nuvStsNullPtr;
    return nuvStsOk;
}

// Limit to [-1, 1] (a NaN passes), times the full scale, plus -0.5, to nearest.
template <class T>
struct JoinMap {
    using S = Simd<T>;
    typename S::V scale;
    NUV_INLINE typename S::V operator()(typename S::V x) const {
        const auto v = S::max(S::set1(T(-1)), S::min(S::set1(T(1)), x));
        return S::add(S::mul(v, scale), S::set1(T(-0.5)));
    }
};

NuvStatus joinScaled16(const Nuv32f* const* pSrc, int nChannels, int chanLen, Nuv16s* pDst) {
    if (NuvStatus st = checkChannels(pDst, pSrc, nChannels, chanLen)) return st;
    nuv::ScopedMxcsr guard(nuv::kMxcsrRcNear | kInvalidMask, nuv::kMxcsrRcMask | kInvalidMask);
    const JoinMap<float> map{_mm256_set1_ps(32767.5f)};
    const size_t n = size_t(nChannels);
    for (int c = 0; c < nChannels; ++c) {
        const float* s = pSrc[c];
        Nuv16s* d = pDst + c;
        int i = 0;
        for (; i + 8 <= chanLen; i += 8) {
            alignas(32) int32_t r[8];
            _mm256_store_si256(reinterpret_cast<__m256i*>(r), _mm256_cvtps_epi32(map(_mm256_loadu_ps(s + i))));
            for (int j = 0; j < 8; ++j) d[size_t(i + j) * n] = nuv::sat<int16_t>(r[j]);
        }
        for (; i < chanLen; ++i)
            d[size_t(i) * n] = nuv::sat<int16_t>(_mm256_cvtsi256_si32(_mm256_cvtps_epi32(map(_mm256_broadcast_ss(s + i)))));
    }
    return nuvStsOk;
}

NuvStatus joinScaled24(const Nuv32f* const* pSrc, int nChannels, int chanLen, Nuv8u* pDst) {
    if (NuvStatus st = checkChannels(pDst, pSrc, nChannels, chanLen)) return st;
    nuv::ScopedMxcsr guard(nuv::kMxcsrRcNear | kInvalidMask, nuv::kMxcsrRcMask | kInvalidMask);
    const JoinMap<double> map{_mm256_set1_pd(8388607.5)};
    const size_t stride = 3 * size_t(nChannels);
    for (int c = 0; c < nChannels; ++c) {
        const float* s = pSrc[c];
        uint8_t* d = pDst + 3 * size_t(c);
        int i = 0;
        for (; i + 4 <= chanLen; i += 4) {
            alignas(16) int32_t r[4];
            _mm_store_si128(reinterpret_cast<__m128i*>(r), _mm256_cvtpd_epi32(map(_mm256_cvtps_pd(_mm_loadu_ps(s + i)))));
            for (int j = 0; j < 4; ++j) write24(d + size_t(i + j) * stride, r[j] < -0x800000 ? -0x800000 : r[j]);
        }
        for (; i < chanLen; ++i) {
            const int32_t r = _mm_cvtsi128_si32(_mm256_cvtpd_epi32(map(_mm256_set1_pd(s[i]))));
            write24(d + size_t(i) * stride, r < -0x800000 ? -0x800000 : r);
        }
    }
    return nuvStsOk;
}

// The inverse mapping: element times 1/32767.5 plus half of that.
NuvStatus splitScaled16(const Nuv16s* pSrc, Nuv32f* const* pDst, int nChannels, int chanLen) {
    if (NuvStatus st = checkChannels(pSrc, pDst, nChannels, chanLen)) return st;
    nuv::ScopedMxcsr guard(nuv::kMxcsrRcNear, nuv::kMxcsrRcMask);
    const __m256 scale = _mm256_set1_ps(3.051804378628731e-05f), offset = _mm256_set1_ps(1.5259021893143654e-05f);
    const size_t n = size_t(nChannels);
    for (int c = 0; c < nChannels; ++c) {
        const Nuv16s* s = pSrc + c;
        float* d = pDst[c];
        int i = 0;
        if (n == 1) {
            for (; i + 8 <= chanLen; i += 8) _mm256_storeu_ps(d + i, _mm256_add_ps(_mm256_mul_ps(_mm256_cvtepi32_ps(get(s + i)), scale), offset));
        } else {
            for (; i + 8 <= chanLen; i += 8) {
                const __m256i v = _mm256_setr_epi32(s[size_t(i) * n], s[size_t(i + 1) * n], s[size_t(i + 2) * n], s[size_t(i + 3) * n],
                                                    s[size_t(i + 4) * n], s[size_t(i + 5) * n], s[size_t(i + 6) * n], s[size_t(i + 7) * n]);
                _mm256_storeu_ps(d + i, _mm256_add_ps(_mm256_mul_ps(_mm256_cvtepi32_ps(v), scale), offset));
            }
        }
        for (; i < chanLen; ++i)
            d[i] = _mm256_cvtss_f32(_mm256_add_ps(_mm256_mul_ps(_mm256_cvtepi32_ps(_mm256_set1_epi32(s[size_t(i) * n])), scale), offset));
    }
    return nuvStsOk;
}

NuvStatus splitScaled24(const Nuv8u* pSrc, Nuv32f* const* pDst, int nChannels, int chanLen) {
    if (NuvStatus st = checkChannels(pSrc, pDst, nChannels, chanLen)) return st;
    nuv::ScopedMxcsr guard(nuv::kMxcsrRcNear, nuv::kMxcsrRcMask);
    const __m256d scale = _mm256_set1_pd(std::bit_cast<double>(uint64_t(0x3E8000001000000F)));
    const __m256d offset = _mm256_set1_pd(std::bit_cast<double>(uint64_t(0x3E7000001000000F)));
    const size_t stride = 3 * size_t(nChannels);
    auto map = [&](__m128i v) { return _mm256_cvtpd_ps(_mm256_add_pd(_mm256_mul_pd(_mm256_cvtepi32_pd(v), scale), offset)); };
    for (int c = 0; c < nChannels; ++c) {
        const uint8_t* s = pSrc + 3 * size_t(c);
        float* d = pDst[c];
        int i = 0;
        for (; i + 4 <= chanLen; i += 4) {
            const __m128i v = _mm_setr_epi32(read24s(s + size_t(i) * stride), read24s(s + size_t(i + 1) * stride),
                                             read24s(s + size_t(i + 2) * stride), read24s(s + size_t(i + 3) * stride));
            _mm_storeu_ps(d + i, map(v));
        }
        for (; i < chanLen; ++i) d[i] = _mm_cvtss_f32(map(_mm_set1_epi32(read24s(s + size_t(i) * stride))));
    }
    return nuvStsOk;
}

}  // namespace

extern "C" {
// ---- widening and plain conversions
NuvStatus nuvsConvert_8s16s(const Nuv8s* pSrc, Nuv16s* pDst, int len) { return convert8(pSrc, pDst, len, Same{}); }
NuvStatus nuvsConvert_8s32f(const Nuv8s* pSrc, Nuv32f* pDst, int len) { return convert8(pSrc, pDst, len, ToFloat{}); }
NuvStatus nuvsConvert_8u32f(const Nuv8u* pSrc, Nuv32f* pDst, int len) { return convert8(pSrc, pDst, len, ToFloat{}); }
NuvStatus nuvsConvert_16s32f(const Nuv16s* pSrc, Nuv32f* pDst, int len) { return convert8(pSrc, pDst, len, ToFloat{}); }
NuvStatus nuvsConvert_16s32s(const Nuv16s* pSrc, Nuv32s* pDst, int len) { return convert8(pSrc, pDst, len, Same{}); }
NuvStatus nuvsConvert_16u32f(const Nuv16u* pSrc, Nuv32f* pDst, int len) { return convert8(pSrc, pDst, len, ToFloat{}); }
NuvStatus nuvsConvert_16f32f(const Nuv16f* pSrc, Nuv32f* pDst, int len) { return convert16f32f(pSrc, pDst, len); }
NuvStatus nuvsConvert_24s32f(const Nuv8u* pSrc, Nuv32f* pDst, int len) { return convert8(reinterpret_cast<const I24s*>(pSrc), pDst, len, ToFloat{}); }
NuvStatus nuvsConvert_24s32s(const Nuv8u* pSrc, Nuv32s* pDst, int len) { return convert8(reinterpret_cast<const I24s*>(pSrc), pDst, len, Same{}); }
NuvStatus nuvsConvert_24u32f(const Nuv8u* pSrc, Nuv32f* pDst, int len) { return convert8(reinterpret_cast<const I24u*>(pSrc), pDst, len, ToFloat{}); }
NuvStatus nuvsConvert_24u32u(const Nuv8u* pSrc, Nuv32u* pDst, int len) { return convert8(reinterpret_cast<const I24u*>(pSrc), pDst, len, Same{}); }
NuvStatus nuvsConvert_32f64f(const Nuv32f* pSrc, Nuv64f* pDst, int len) { return convert4d(pSrc, pDst, len, [](__m128 v) { return _mm256_cvtps_pd(v); }); }
NuvStatus nuvsConvert_32s16s(const Nuv32s* pSrc, Nuv16s* pDst, int len) { return convert8(pSrc, pDst, len, Same{}); }
NuvStatus nuvsConvert_32s32f(const Nuv32s* pSrc, Nuv32f* pDst, int len) { return convert32s32f(pSrc, pDst, len); }
NuvStatus nuvsConvert_32s64f(const Nuv32s* pSrc, Nuv64f* pDst, int len) { return intToDoubleScaled(pSrc, pDst, len, 0, 0, 0); }
NuvStatus nuvsConvert_64f32f(const Nuv64f* pSrc, Nuv32f* pDst, int len) {
    if (NuvStatus st = nuv::check(len, pSrc, pDst)) return st;
    nuv::ScopedMxcsr guard(nuv::kMxcsrRcNear, nuv::kMxcsrRcMask);
    run8(pSrc, pDst, len, [](D8 v) { return _mm256_set_m128(_mm256_cvtpd_ps(v.hi), _mm256_cvtpd_ps(v.lo)); });
    return nuvStsOk;
}
NuvStatus nuvsConvert_64s64f(const Nuv64s* pSrc, Nuv64f* pDst, int len) {
    if (NuvStatus st = nuv::check(len, pSrc, pDst)) return st;
    nuv::ScopedMxcsr guard(nuv::kMxcsrRcNear, nuv::kMxcsrRcMask);
    return convert4d(reinterpret_cast<const int64_t*>(pSrc), pDst, len, s64ToDouble);
}

// ---- integer to float or integer with scale
NuvStatus nuvsConvert_16s32f_Sfs(const Nuv16s* pSrc, Nuv32f* pDst, int len, int scaleFactor) { return intToFloatScaled(pSrc, pDst, len, scaleFactor, -112, 126); }
NuvStatus nuvsConvert_16s64f_Sfs(const Nuv16s* pSrc, Nuv64f* pDst, int len, int scaleFactor) { return intToDoubleScaled(pSrc, pDst, len, scaleFactor, -1008, 1022); }
NuvStatus nuvsConvert_32s16s_Sfs(const Nuv32s* pSrc, Nuv16s* pDst, int len, int scaleFactor) { return convert32s16sSfs(pSrc, pDst, len, scaleFactor); }
NuvStatus nuvsConvert_32s24s_Sfs(const Nuv32s* pSrc, Nuv8u* pDst, int len, int scaleFactor) { return convertTo24Sfs<true>(pSrc, pDst, len, scaleFactor); }
NuvStatus nuvsConvert_32s32f_Sfs(const Nuv32s* pSrc, Nuv32f* pDst, int len, int scaleFactor) { return intToFloatScaled(pSrc, pDst, len, scaleFactor, -96, 126); }
NuvStatus nuvsConvert_32s64f_Sfs(const Nuv32s* pSrc, Nuv64f* pDst, int len, int scaleFactor) { return intToDoubleScaled(pSrc, pDst, len, scaleFactor, -992, 1022); }
NuvStatus nuvsConvert_32u24u_Sfs(const Nuv32u* pSrc, Nuv8u* pDst, int len, int scaleFactor) { return convertTo24Sfs<false>(pSrc, pDst, len, scaleFactor); }
NuvStatus nuvsConvert_32f24s_Sfs(const Nuv32f* pSrc, Nuv8u* pDst, int len, int scaleFactor) {
    return floatToInt<Top::Min24>(pSrc, reinterpret_cast<I24s*>(pDst), len, nuvRndNear, scaleFactor, 8388607.0f, -0x800000);
}
// At scale 0 the unsigned form runs the signed kernel, with its limits 8388607 and -8388608.
NuvStatus nuvsConvert_32f24u_Sfs(const Nuv32f* pSrc, Nuv8u* pDst, int len, int scaleFactor) {
    if (scaleFactor == 0) return nuvsConvert_32f24s_Sfs(pSrc, pDst, len, 0);
    return floatToInt<Top::Min24>(pSrc, reinterpret_cast<I24u*>(pDst), len, nuvRndNear, scaleFactor, 16777215.0f, 0);
}

// ---- half floats
NuvStatus nuvsConvert_16s16f(const Nuv16s* pSrc, Nuv16f* pDst, int len, NuvRoundMode rndMode) { return convertToHalf(pSrc, pDst, len, rndMode); }
NuvStatus nuvsConvert_32f16f(const Nuv32f* pSrc, Nuv16f* pDst, int len, NuvRoundMode rndMode) { return convertToHalf(pSrc, pDst, len, rndMode); }
NuvStatus nuvsConvert_16f16s_Sfs(const Nuv16f* pSrc, Nuv16s* pDst, int len, NuvRoundMode rndMode, int scaleFactor) {
    return convert16f16sSfs(pSrc, pDst, len, rndMode, scaleFactor);
}

// ---- rounding mode and scale
NuvStatus nuvsConvert_16s8s_Sfs(const Nuv16s* pSrc, Nuv8s* pDst, int len, NuvRoundMode rndMode, int scaleFactor) {
    return convert16s8sSfs(pSrc, pDst, len, rndMode, scaleFactor);
}
NuvStatus nuvsConvert_32f8s_Sfs(const Nuv32f* pSrc, Nuv8s* pDst, int len, NuvRoundMode rndMode, int scaleFactor) {
    return floatToInt<Top::Min>(pSrc, pDst, len, rndMode, scaleFactor, 127.0f);
}
NuvStatus nuvsConvert_32f8u_Sfs(const Nuv32f* pSrc, Nuv8u* pDst, int len, NuvRoundMode rndMode, int scaleFactor) {
    return floatToInt<Top::Min>(pSrc, pDst, len, rndMode, scaleFactor, 255.0f);
}
NuvStatus nuvsConvert_32f16s_Sfs(const Nuv32f* pSrc, Nuv16s* pDst, int len, NuvRoundMode rndMode, int scaleFactor) {
    return floatToInt<Top::Min>(pSrc, pDst, len, rndMode, scaleFactor, 32767.0f);
}
NuvStatus nuvsConvert_32f16u_Sfs(const Nuv32f* pSrc, Nuv16u* pDst, int len, NuvRoundMode rndMode, int scaleFactor) {
    return floatToInt<Top::Min>(pSrc, pDst, len, rndMode, scaleFactor, 65535.0f);
}
NuvStatus nuvsConvert_32f32s_Sfs(const Nuv32f* pSrc, Nuv32s* pDst, int len, NuvRoundMode rndMode, int scaleFactor) {
    return floatToInt<Top::Int32>(pSrc, pDst, len, rndMode, scaleFactor, 0.0f);
}
NuvStatus nuvsConvert_64f16s_Sfs(const Nuv64f* pSrc, Nuv16s* pDst, int len, NuvRoundMode rndMode, int scaleFactor) {
    // Tested by mask: only 0 and 1 keep their own kernels, every other value rounds away.
    return floatToInt<Top::Min>(pSrc, pDst, len, (rndMode & ~1) ? nuvRndHalfAway : rndMode, scaleFactor, 32767.0);
}
NuvStatus nuvsConvert_64f32s_Sfs(const Nuv64f* pSrc, Nuv32s* pDst, int len, NuvRoundMode rndMode, int scaleFactor) {
    return floatToInt<Top::Min>(pSrc, pDst, len, rndMode, scaleFactor, 2147483647.0);
}
NuvStatus nuvsConvert_64f64s_Sfs(const Nuv64f* pSrc, Nuv64s* pDst, int len, NuvRoundMode rndMode, int scaleFactor) {
    return convert64f64sSfs(pSrc, pDst, len, rndMode, scaleFactor);
}
NuvStatus nuvsConvert_64s32s_Sfs(const Nuv64s* pSrc, Nuv32s* pDst, int len, NuvRoundMode rndMode, int scaleFactor) {
    return convert64s32sSfs(pSrc, pDst, len, rndMode, scaleFactor);
}

// ---- interleave and separate audio channels
NuvStatus nuvsJoinScaled_32f16s_D2L(const Nuv32f* const* pSrc, int nChannels, int chanLen, Nuv16s* pDst) {
    return joinScaled16(pSrc, nChannels, chanLen, pDst);
}
NuvStatus nuvsJoinScaled_32f24s_D2L(const Nuv32f* const* pSrc, int nChannels, int chanLen, Nuv8u* pDst) {
    return joinScaled24(pSrc, nChannels, chanLen, pDst);
}
NuvStatus nuvsSplitScaled_16s32f_D2L(const Nuv16s* pSrc, Nuv32f* const* pDst, int nChannels, int chanLen) {
    return splitScaled16(pSrc, pDst, nChannels, chanLen);
}
NuvStatus nuvsSplitScaled_24s32f_D2L(const Nuv8u* pSrc, Nuv32f* const* pDst, int nChannels, int chanLen) {
    return splitScaled24(pSrc, pDst, nChannels, chanLen);
}
}

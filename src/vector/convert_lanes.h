// Conversion: loading eight elements of any source type into one register, storing one register
// to eight elements of any destination type, rounding of float lanes, and the two half-float routes.
#pragma once
#include <immintrin.h>

#include <cstdint>
#include <cstring>

#include "frame/round.h"
#include "frame/simd.h"

namespace nuv::cvt {

// Packed 24-bit elements: three bytes, low byte first.  Pointer arithmetic on these steps by 3.
struct I24s { uint8_t b[3]; };
struct I24u { uint8_t b[3]; };
// A half float as its raw word, distinct from Nuv16u so that loads and stores can tell them apart.
struct Half { uint16_t w; };
static_assert(sizeof(I24s) == 3 && sizeof(I24u) == 3 && sizeof(Half) == 2);

// Eight doubles as two registers.
struct D8 {
    __m256d lo, hi;
};

// ---------------------------------------------------------------- loads: get() eight elements, get1() one element in every lane
NUV_INLINE __m256i get(const int8_t* p) { return _mm256_cvtepi8_epi32(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(p))); }
NUV_INLINE __m256i get(const uint8_t* p) { return _mm256_cvtepu8_epi32(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(p))); }
NUV_INLINE __m256i get(const int16_t* p) { return _mm256_cvtepi16_epi32(_mm_loadu_si128(reinterpret_cast<const __m128i*>(p))); }
NUV_INLINE __m256i get(const uint16_t* p) { return _mm256_cvtepu16_epi32(_mm_loadu_si128(reinterpret_cast<const __m128i*>(p))); }
// Sixteen 16-bit elements by one load, widened as two registers of eight: half the loads of
// two `get`s, which tells once the data comes from the second-level cache.
struct Get2 {
    __m256i lo, hi;
};
NUV_INLINE Get2 get2(const int16_t* p) {
    const __m256i v = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p));
    return {_mm256_cvtepi16_epi32(_mm256_castsi256_si128(v)), _mm256_cvtepi16_epi32(_mm256_extracti128_si256(v, 1))};
}
NUV_INLINE Get2 get2(const uint16_t* p) {
    const __m256i v = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p));
    return {_mm256_cvtepu16_epi32(_mm256_castsi256_si128(v)), _mm256_cvtepu16_epi32(_mm256_extracti128_si256(v, 1))};
}
NUV_INLINE __m256i get(const int32_t* p) { return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p)); }
NUV_INLINE __m256i get(const uint32_t* p) { return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p)); }
NUV_INLINE __m256 get(const float* p) { return _mm256_loadu_ps(p); }
NUV_INLINE D8 get(const double* p) { return {_mm256_loadu_pd(p), _mm256_loadu_pd(p + 4)}; }
// Eight 64-bit integers as two registers.
struct Q8 {
    __m256i lo, hi;
};
NUV_INLINE Q8 get(const int64_t* p) {
    return {_mm256_loadu_si256(reinterpret_cast<const __m256i*>(p)), _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p + 4))};
}
NUV_INLINE Q8 get1(const int64_t* p) { return {_mm256_set1_epi64x(*p), _mm256_set1_epi64x(*p)}; }
NUV_INLINE __m128i get(const Half* p) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p)); }

// 24 bytes as eight lanes, each element's bytes at the bottom of its lane (Top: at the top).
template <bool Top>
NUV_INLINE __m256i get24(const uint8_t* b) {
    const __m128i lo = _mm_loadu_si128(reinterpret_cast<const __m128i*>(b));       // bytes 0..15
    const __m128i hi = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(b + 16));  // bytes 16..23
    const __m128i mid = _mm_alignr_epi8(hi, lo, 12);                               // bytes 12..23
    const __m256i v = _mm256_inserti128_si256(_mm256_castsi128_si256(lo), mid, 1);
    const __m256i sh = Top ? _mm256_setr_epi8(-1, 0, 1, 2, -1, 3, 4, 5, -1, 6, 7, 8, -1, 9, 10, 11,
                                              -1, 0, 1, 2, -1, 3, 4, 5, -1, 6, 7, 8, -1, 9, 10, 11)
                           : _mm256_setr_epi8(0, 1, 2, -1, 3, 4, 5, -1, 6, 7, 8, -1, 9, 10, 11, -1,
                                              0, 1, 2, -1, 3, 4, 5, -1, 6, 7, 8, -1, 9, 10, 11, -1);
    return _mm256_shuffle_epi8(v, sh);
}
NUV_INLINE __m256i get(const I24s* p) { return _mm256_srai_epi32(get24<true>(p->b), 8); }
NUV_INLINE __m256i get(const I24u* p) { return get24<false>(p->b); }

NUV_INLINE int32_t read24s(const uint8_t* b) { return int32_t(uint32_t(b[0] | b[1] << 8 | b[2] << 16) << 8) >> 8; }
NUV_INLINE uint32_t read24u(const uint8_t* b) { return uint32_t(b[0] | b[1] << 8 | b[2] << 16); }
NUV_INLINE void write24(uint8_t* b, int32_t v) {
    b[0] = uint8_t(v);
    b[1] = uint8_t(v >> 8);
    b[2] = uint8_t(v >> 16);
}

NUV_INLINE __m256i get1(const int8_t* p) { return _mm256_set1_epi32(*p); }
NUV_INLINE __m256i get1(const uint8_t* p) { return _mm256_set1_epi32(*p); }
NUV_INLINE __m256i get1(const int16_t* p) { return _mm256_set1_epi32(*p); }
NUV_INLINE __m256i get1(const uint16_t* p) { return _mm256_set1_epi32(*p); }
NUV_INLINE __m256i get1(const int32_t* p) { return _mm256_set1_epi32(*p); }
NUV_INLINE __m256i get1(const uint32_t* p) { return _mm256_set1_epi32(int32_t(*p)); }
NUV_INLINE __m256 get1(const float* p) { return _mm256_broadcast_ss(p); }
NUV_INLINE D8 get1(const double* p) { return {_mm256_broadcast_sd(p), _mm256_broadcast_sd(p)}; }
NUV_INLINE __m128i get1(const Half* p) { return _mm_set1_epi16(int16_t(p->w)); }
NUV_INLINE __m256i get1(const I24s* p) { return _mm256_set1_epi32(read24s(p->b)); }
NUV_INLINE __m256i get1(const I24u* p) { return _mm256_set1_epi32(int32_t(read24u(p->b))); }

// ---------------------------------------------------------------- stores: put() eight elements, put1() lane 0
// Narrowing stores saturate as the pack instructions do.
NUV_INLINE void store16(void* p, __m256i packed) {
    _mm_storeu_si128(static_cast<__m128i*>(p), _mm256_castsi256_si128(_mm256_permute4x64_epi64(packed, 0x08)));
}
NUV_INLINE void store8(void* p, __m256i packed) {
    const __m256i v = _mm256_permutevar8x32_epi32(packed, _mm256_setr_epi32(0, 4, 0, 4, 0, 4, 0, 4));
    _mm_storel_epi64(static_cast<__m128i*>(p), _mm256_castsi256_si128(v));
}
NUV_INLINE void put(int32_t* p, __m256i v) { _mm256_storeu_si256(reinterpret_cast<__m256i*>(p), v); }
NUV_INLINE void put(uint32_t* p, __m256i v) { _mm256_storeu_si256(reinterpret_cast<__m256i*>(p), v); }
NUV_INLINE void put(int16_t* p, __m256i v) { store16(p, _mm256_packs_epi32(v, v)); }
NUV_INLINE void put(uint16_t* p, __m256i v) { store16(p, _mm256_packus_epi32(v, v)); }
NUV_INLINE void put(int8_t* p, __m256i v) {
    const __m256i w = _mm256_packs_epi32(v, v);
    store8(p, _mm256_packs_epi16(w, w));
}
NUV_INLINE void put(uint8_t* p, __m256i v) {
    const __m256i w = _mm256_packs_epi32(v, v);
    store8(p, _mm256_packus_epi16(w, w));
}
NUV_INLINE void put(float* p, __m256 v) { _mm256_storeu_ps(p, v); }
NUV_INLINE void put(Half* p, __m128i v) { _mm_storeu_si128(reinterpret_cast<__m128i*>(p), v); }
// The low three bytes of each lane; the caller has limited the values.
NUV_INLINE void put24(uint8_t* b, __m256i v) {
    const __m256i sh = _mm256_setr_epi8(0, 1, 2, 4, 5, 6, 8, 9, 10, 12, 13, 14, -1, -1, -1, -1,
                                        0, 1, 2, 4, 5, 6, 8, 9, 10, 12, 13, 14, -1, -1, -1, -1);
    const __m256i w = _mm256_permutevar8x32_epi32(_mm256_shuffle_epi8(v, sh), _mm256_setr_epi32(0, 1, 2, 4, 5, 6, 7, 7));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(b), _mm256_castsi256_si128(w));
    _mm_storel_epi64(reinterpret_cast<__m128i*>(b + 16), _mm256_extracti128_si256(w, 1));
}
NUV_INLINE void put(I24s* p, __m256i v) { put24(p->b, v); }
NUV_INLINE void put(I24u* p, __m256i v) { put24(p->b, v); }

// Two registers of 32-bit lanes packed into one store of sixteen elements.
NUV_INLINE void store16x2(void* p, __m256i packed) {
    _mm256_storeu_si256(static_cast<__m256i*>(p), _mm256_permute4x64_epi64(packed, 0xD8));
}
NUV_INLINE void store8x2(void* p, __m256i packed) {
    const __m256i v = _mm256_permutevar8x32_epi32(packed, _mm256_setr_epi32(0, 4, 1, 5, 0, 4, 1, 5));
    _mm_storeu_si128(static_cast<__m128i*>(p), _mm256_castsi256_si128(v));
}
NUV_INLINE void put2(int16_t* p, __m256i a, __m256i b) { store16x2(p, _mm256_packs_epi32(a, b)); }
NUV_INLINE void put2(uint16_t* p, __m256i a, __m256i b) { store16x2(p, _mm256_packus_epi32(a, b)); }
NUV_INLINE void put2(int8_t* p, __m256i a, __m256i b) {
    const __m256i w = _mm256_packs_epi32(a, b);
    store8x2(p, _mm256_packs_epi16(w, w));
}
NUV_INLINE void put2(uint8_t* p, __m256i a, __m256i b) {
    const __m256i w = _mm256_packs_epi32(a, b);
    store8x2(p, _mm256_packus_epi16(w, w));
}

NUV_INLINE int32_t lane0(__m256i v) { return _mm256_cvtsi256_si32(v); }
NUV_INLINE void put1(int32_t* p, __m256i v) { *p = lane0(v); }
NUV_INLINE void put1(uint32_t* p, __m256i v) { *p = uint32_t(lane0(v)); }
NUV_INLINE void put1(int16_t* p, __m256i v) { *p = sat<int16_t>(lane0(v)); }
NUV_INLINE void put1(uint16_t* p, __m256i v) { *p = sat<uint16_t>(lane0(v)); }
NUV_INLINE void put1(int8_t* p, __m256i v) { *p = sat<int8_t>(lane0(v)); }
NUV_INLINE void put1(uint8_t* p, __m256i v) { *p = sat<uint8_t>(lane0(v)); }
NUV_INLINE void put1(float* p, __m256 v) { *p = _mm256_cvtss_f32(v); }
NUV_INLINE void put1(Half* p, __m128i v) { p->w = uint16_t(_mm_extract_epi16(v, 0)); }
NUV_INLINE void put1(I24s* p, __m256i v) { write24(p->b, lane0(v)); }
NUV_INLINE void put1(I24u* p, __m256i v) { write24(p->b, lane0(v)); }

// ---------------------------------------------------------------- rounding of float lanes to integral values
enum class Rnd { Zero, Near, Away };

// rndMode of the float-to-integer members: 1 is to nearest, 0 toward zero, anything else away.
constexpr Rnd rndOf(int rndMode) { return rndMode == 1 ? Rnd::Near : (rndMode == 0 ? Rnd::Zero : Rnd::Away); }

// Integral value of each lane in the wanted direction, without touching the rounding state.  Zero
// leaves the value to the truncating conversion.  Away adds one unit of the value's sign where the
// dropped fraction is at least one half: the same as adding 0.5 with the sign and truncating, as
// that addition is never allowed to round up.  The fraction x - trunc(x) is exact.
template <Rnd R, class T>
NUV_INLINE typename Simd<T>::V roundTo(typename Simd<T>::V x) {
    using S = Simd<T>;
    if constexpr (R == Rnd::Zero) {
        return x;
    } else if constexpr (R == Rnd::Near) {
        if constexpr (sizeof(T) == 4) return _mm256_round_ps(x, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC);
        else return _mm256_round_pd(x, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC);
    } else {
        typename S::V t;
        if constexpr (sizeof(T) == 4) t = _mm256_round_ps(x, _MM_FROUND_TO_ZERO | _MM_FROUND_NO_EXC);
        else t = _mm256_round_pd(x, _MM_FROUND_TO_ZERO | _MM_FROUND_NO_EXC);
        const auto half = S::template cmp<_CMP_GE_OQ>(S::abs(S::sub(x, t)), S::set1(T(0.5)));
        const auto unit = S::or_(S::and_(x, S::signMask()), S::set1(T(1)));
        return S::add(t, S::and_(half, unit));
    }
}

// ---------------------------------------------------------------- half floats
// The processor route (Hw) uses the half-float conversion instructions; the integer route gives
// the same bits for every input, NaN payloads included.
template <bool Hw>
NUV_INLINE __m256 halfToFloat(__m128i h8) {
    if constexpr (Hw) {
        return _mm256_cvtph_ps(h8);
    } else {
        const __m256i h = _mm256_cvtepu16_epi32(h8);
        const __m256i em = _mm256_and_si256(h, _mm256_set1_epi32(0x7FFF));
        const __m256i sign = _mm256_slli_epi32(_mm256_xor_si256(h, em), 16);
        const __m256i up = _mm256_slli_epi32(em, 13);
        // Normal: rebias the exponent by 127 - 15.
        __m256i r = _mm256_add_epi32(up, _mm256_set1_epi32(112 << 23));
        // Subnormal and zero: the fraction counts units of 2^-24, converted exactly.
        const __m256 sub = _mm256_mul_ps(_mm256_cvtepi32_ps(em), _mm256_set1_ps(0x1p-24f));
        r = _mm256_blendv_epi8(r, _mm256_castps_si256(sub), _mm256_cmpgt_epi32(_mm256_set1_epi32(0x400), em));
        // Exponent field 31: infinity, or a NaN with its fraction kept and the quiet bit set.
        const __m256i nanq = _mm256_and_si256(_mm256_cmpgt_epi32(em, _mm256_set1_epi32(0x7C00)), _mm256_set1_epi32(0x00400000));
        const __m256i special = _mm256_or_si256(_mm256_or_si256(up, _mm256_set1_epi32(0x7F800000)), nanq);
        r = _mm256_blendv_epi8(r, special, _mm256_cmpgt_epi32(em, _mm256_set1_epi32(0x7BFF)));
        return _mm256_castsi256_ps(_mm256_or_si256(r, sign));
    }
}

// Single to half, to nearest even (Near) or toward zero.
template <bool Hw, bool Near>
NUV_INLINE __m128i floatToHalf(__m256 x) {
    if constexpr (Hw) {
        return _mm256_cvtps_ph(x, Near ? (_MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC) : (_MM_FROUND_TO_ZERO | _MM_FROUND_NO_EXC));
    } else {
        const __m256i u = _mm256_castps_si256(x);
        const __m256i a = _mm256_and_si256(u, _mm256_set1_epi32(0x7FFFFFFF));
        const __m256i sign = _mm256_srli_epi32(_mm256_xor_si256(u, a), 16);
        const __m256i one = _mm256_set1_epi32(1);
        // Normal halves: rebias, then drop 13 fraction bits; a carry rounds into the exponent.
        const __m256i an = _mm256_sub_epi32(a, _mm256_set1_epi32(112 << 23));
        __m256i hn;
        if constexpr (Near) {
            const __m256i odd = _mm256_and_si256(_mm256_srli_epi32(an, 13), one);
            hn = _mm256_srli_epi32(_mm256_add_epi32(an, _mm256_add_epi32(_mm256_set1_epi32(0xFFF), odd)), 13);
        } else {
            hn = _mm256_srli_epi32(an, 13);
        }
        // Subnormal halves: the significand with its hidden bit, shifted right by 126 - exponent
        // (at least 14, limited to 31, which leaves nothing of a 24-bit significand).
        const __m256i m = _mm256_or_si256(_mm256_and_si256(a, _mm256_set1_epi32(0x7FFFFF)), _mm256_set1_epi32(0x800000));
        const __m256i k = _mm256_min_epi32(_mm256_sub_epi32(_mm256_set1_epi32(126), _mm256_srli_epi32(a, 23)), _mm256_set1_epi32(31));
        __m256i hd;
        if constexpr (Near) {
            const __m256i odd = _mm256_and_si256(_mm256_srlv_epi32(m, k), one);
            const __m256i bias = _mm256_sub_epi32(_mm256_sllv_epi32(one, _mm256_sub_epi32(k, one)), one);
            hd = _mm256_srlv_epi32(_mm256_add_epi32(m, _mm256_add_epi32(bias, odd)), k);
        } else {
            hd = _mm256_srlv_epi32(m, k);
        }
        // From 65536 up: infinity to nearest, the largest finite value toward zero; infinity
        // stays infinity, a NaN keeps the top of its fraction and becomes quiet.
        const __m256i big = _mm256_set1_epi32(Near ? 0x7C00 : 0x7BFF);
        const __m256i inf = _mm256_set1_epi32(0x7F800000);
        const __m256i nan = _mm256_or_si256(_mm256_set1_epi32(0x7E00), _mm256_srli_epi32(_mm256_and_si256(a, _mm256_set1_epi32(0x7FFFFF)), 13));
        __m256i h = _mm256_blendv_epi8(hn, hd, _mm256_cmpgt_epi32(_mm256_set1_epi32(0x38800000), a));
        h = _mm256_blendv_epi8(h, big, _mm256_cmpgt_epi32(a, _mm256_set1_epi32(0x477FFFFF)));
        h = _mm256_blendv_epi8(h, _mm256_set1_epi32(0x7C00), _mm256_cmpeq_epi32(a, inf));
        h = _mm256_blendv_epi8(h, nan, _mm256_cmpgt_epi32(a, inf));
        h = _mm256_or_si256(h, sign);
        return _mm256_castsi256_si128(_mm256_permute4x64_epi64(_mm256_packus_epi32(h, h), 0x08));
    }
}

}  // namespace nuv::cvt

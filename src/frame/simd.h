// A small typed vocabulary over AVX2 for kernels that are generic in float and double.
#pragma once
#include <immintrin.h>

#define NUV_INLINE [[gnu::always_inline]] inline

namespace nuv {

template <class T> struct Simd;

template <> struct Simd<float> {
    using V = __m256;
    static constexpr int N = 8;
    NUV_INLINE static V load(const float* p) { return _mm256_loadu_ps(p); }
    NUV_INLINE static void store(float* p, V v) { _mm256_storeu_ps(p, v); }
    NUV_INLINE static void stream(float* p, V v) { _mm256_stream_ps(p, v); }
    NUV_INLINE static V set1(float x) { return _mm256_set1_ps(x); }
    NUV_INLINE static V zero() { return _mm256_setzero_ps(); }
    NUV_INLINE static V add(V a, V b) { return _mm256_add_ps(a, b); }
    NUV_INLINE static V sub(V a, V b) { return _mm256_sub_ps(a, b); }
    NUV_INLINE static V mul(V a, V b) { return _mm256_mul_ps(a, b); }
    NUV_INLINE static V div(V a, V b) { return _mm256_div_ps(a, b); }
    NUV_INLINE static V fma(V a, V b, V c) { return _mm256_fmadd_ps(a, b, c); }     // a*b + c, one rounding
    NUV_INLINE static V fms(V a, V b, V c) { return _mm256_fmsub_ps(a, b, c); }     // a*b - c, one rounding
    NUV_INLINE static V fnma(V a, V b, V c) { return _mm256_fnmadd_ps(a, b, c); }   // c - a*b, one rounding
    NUV_INLINE static V fmaddsub(V a, V b, V c) { return _mm256_fmaddsub_ps(a, b, c); }  // even: a*b-c, odd: a*b+c
    NUV_INLINE static V min(V a, V b) { return _mm256_min_ps(a, b); }  // b where either is NaN
    NUV_INLINE static V max(V a, V b) { return _mm256_max_ps(a, b); }  // b where either is NaN
    NUV_INLINE static V and_(V a, V b) { return _mm256_and_ps(a, b); }
    NUV_INLINE static V andnot(V a, V b) { return _mm256_andnot_ps(a, b); }  // ~a & b
    NUV_INLINE static V or_(V a, V b) { return _mm256_or_ps(a, b); }
    NUV_INLINE static V xor_(V a, V b) { return _mm256_xor_ps(a, b); }
    NUV_INLINE static V signMask() { return _mm256_set1_ps(-0.0f); }
    NUV_INLINE static V abs(V a) { return andnot(signMask(), a); }
    NUV_INLINE static V blendv(V a, V b, V m) { return _mm256_blendv_ps(a, b, m); }  // m ? b : a
    template <int Pred> NUV_INLINE static V cmp(V a, V b) { return _mm256_cmp_ps(a, b, Pred); }
    // Swap real and imaginary words of each complex pair.
    NUV_INLINE static V swapPairs(V a) { return _mm256_permute_ps(a, 0xB1); }
    NUV_INLINE static V dupEven(V a) { return _mm256_moveldup_ps(a); }
    NUV_INLINE static V dupOdd(V a) { return _mm256_movehdup_ps(a); }
};

template <> struct Simd<double> {
    using V = __m256d;
    static constexpr int N = 4;
    NUV_INLINE static V load(const double* p) { return _mm256_loadu_pd(p); }
    NUV_INLINE static void store(double* p, V v) { _mm256_storeu_pd(p, v); }
    NUV_INLINE static void stream(double* p, V v) { _mm256_stream_pd(p, v); }
    NUV_INLINE static V set1(double x) { return _mm256_set1_pd(x); }
    NUV_INLINE static V zero() { return _mm256_setzero_pd(); }
    NUV_INLINE static V add(V a, V b) { return _mm256_add_pd(a, b); }
    NUV_INLINE static V sub(V a, V b) { return _mm256_sub_pd(a, b); }
    NUV_INLINE static V mul(V a, V b) { return _mm256_mul_pd(a, b); }
    NUV_INLINE static V div(V a, V b) { return _mm256_div_pd(a, b); }
    NUV_INLINE static V fma(V a, V b, V c) { return _mm256_fmadd_pd(a, b, c); }
    NUV_INLINE static V fms(V a, V b, V c) { return _mm256_fmsub_pd(a, b, c); }
    NUV_INLINE static V fnma(V a, V b, V c) { return _mm256_fnmadd_pd(a, b, c); }
    NUV_INLINE static V fmaddsub(V a, V b, V c) { return _mm256_fmaddsub_pd(a, b, c); }
    NUV_INLINE static V min(V a, V b) { return _mm256_min_pd(a, b); }
    NUV_INLINE static V max(V a, V b) { return _mm256_max_pd(a, b); }
    NUV_INLINE static V and_(V a, V b) { return _mm256_and_pd(a, b); }
    NUV_INLINE static V andnot(V a, V b) { return _mm256_andnot_pd(a, b); }
    NUV_INLINE static V or_(V a, V b) { return _mm256_or_pd(a, b); }
    NUV_INLINE static V xor_(V a, V b) { return _mm256_xor_pd(a, b); }
    NUV_INLINE static V signMask() { return _mm256_set1_pd(-0.0); }
    NUV_INLINE static V abs(V a) { return andnot(signMask(), a); }
    NUV_INLINE static V blendv(V a, V b, V m) { return _mm256_blendv_pd(a, b, m); }
    template <int Pred> NUV_INLINE static V cmp(V a, V b) { return _mm256_cmp_pd(a, b, Pred); }
    NUV_INLINE static V swapPairs(V a) { return _mm256_permute_pd(a, 0x5); }
    NUV_INLINE static V dupEven(V a) { return _mm256_movedup_pd(a); }
    NUV_INLINE static V dupOdd(V a) { return _mm256_permute_pd(a, 0xF); }
};

}  // namespace nuv

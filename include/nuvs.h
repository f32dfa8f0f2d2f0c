/*
 * nuvs.h -- the public interface of libnuvsx7, a library of signal-processing primitives for
 * x86-64 with AVX2 and FMA.  Usable from C and C++.
 *
 * Every export is declared here exactly once, as `NUVAPI <result> nuvs<Name>(<arguments>);`.
 * The build derives the list of exported symbols and the slot table from these declarations,
 * so a function is exported if and only if it is declared here.
 */
#ifndef NUVS_H
#define NUVS_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

#if defined(_WIN32)
#define NUVAPI
#else
#define NUVAPI __attribute__((visibility("default")))
#endif

/* ---------------------------------------------------------------- element types */
typedef uint8_t  Nuv8u;
typedef int8_t   Nuv8s;
typedef uint16_t Nuv16u;
typedef int16_t  Nuv16s;
typedef uint16_t Nuv16f;   /* half-precision float as its 16-bit word: 1 sign, 5 exponent, 10 fraction */
typedef uint32_t Nuv32u;
typedef int32_t  Nuv32s;
typedef float    Nuv32f;
typedef uint64_t Nuv64u;
typedef int64_t  Nuv64s;
typedef double   Nuv64f;

typedef struct { Nuv8s  re, im; } Nuv8sc;
typedef struct { Nuv16s re, im; } Nuv16sc;
typedef struct { Nuv32s re, im; } Nuv32sc;
typedef struct { Nuv64s re, im; } Nuv64sc;
typedef struct { Nuv32f re, im; } Nuv32fc;
typedef struct { Nuv64f re, im; } Nuv64fc;

/* ---------------------------------------------------------------- status */
/* Zero is success, negative values are errors (nothing was computed, or the operation stopped),
 * positive values are warnings (the whole run completed and met the stated condition). */
typedef int NuvStatus;

enum {
    nuvStsOk              = 0,
    nuvStsSqrtNegArg      = 3,
    nuvStsInvZeroWarn     = 4,
    nuvStsDivByZeroWarn   = 6,
    nuvStsLnZeroArg       = 7,
    nuvStsLnNegArg        = 8,
    nuvStsNotFiniteWarn   = 9,
    nuvStsPackBitLen      = 27,
    nuvStsBadArg          = -5,
    nuvStsSize            = -6,
    nuvStsCrossingKind    = -7,
    nuvStsNullPtr         = -8,
    nuvStsMemAlloc        = -9,
    nuvStsDivByZero       = -10,
    nuvStsCauchyConst     = -11,
    nuvStsDataType        = -12,
    nuvStsTapScale        = -13,
    nuvStsFftOrder        = -15,
    nuvStsFftFlag         = -16,
    nuvStsContextMatch    = -17,
    nuvStsLevelOrder      = -18,
    nuvStsNegLevel        = -19,
    nuvStsDelayIndex      = -24,
    nuvStsIirOrder        = -25,
    nuvStsFirLen          = -26,
    nuvStsRelFreq         = -27,
    nuvStsFirMrPhase      = -28,
    nuvStsFirMrFactor     = -29,
    nuvStsSamplePhase     = -30,
    nuvStsSampleFactor    = -31,
    nuvStsShift           = -32,
    nuvStsWindowLen       = -33,
    nuvStsWtOffset        = -35,
    nuvStsJaehneMagn      = -38,
    nuvStsKaiserAlpha     = -39,
    nuvStsTriAsym         = -40,
    nuvStsTriPhase        = -41,
    nuvStsTriFreq         = -42,
    nuvStsTriMagn         = -43,
    nuvStsTonePhase       = -44,
    nuvStsToneFreq        = -45,
    nuvStsToneMagn        = -46,
    nuvStsIirPOrder       = -47,
    nuvStsIirPLen         = -53,
    nuvStsDesignOrder     = -182,
    nuvStsSparseTaps      = -194,
    nuvStsDesignSingular  = -195,
    nuvStsIirGenOrder     = -206,
    nuvStsIirGenFreq      = -208,
    nuvStsIirGenPassband  = -209,
    nuvStsRoundMode       = -213,
    nuvStsAlgType         = -228
};

/* ---------------------------------------------------------------- small enumerations */
/* Rounding of float-to-integer results. */
typedef int NuvRoundMode;
enum {
    nuvRndZero     = 0,   /* toward zero: the fraction is dropped */
    nuvRndNear     = 1,   /* to nearest, ties to even */
    nuvRndHalfAway = 2    /* to nearest, ties away from zero */
};

/* Comparison of the plain Threshold members. */
typedef int NuvCmpOp;
enum {
    nuvCmpLess    = 0,    /* the level is a floor */
    nuvCmpGreater = 4     /* the level is a ceiling */
};

/* Speed or accuracy hint. */
typedef int NuvHintAlgorithm;
enum {
    nuvAlgHintNone     = 0,
    nuvAlgHintFast     = 1,
    nuvAlgHintAccurate = 2
};

/* Data-type codes of functions that serve several types. */
typedef int NuvDataTypeCode;
enum {
    nuvDt32f  = 13,
    nuvDt32fc = 14,
    nuvDt64f  = 19,
    nuvDt64fc = 20
};

/* Scale flags of the FFT and DFT initialisers; nothing else is accepted. */
enum {
    nuvFftScaleFwdByN  = 1,
    nuvFftScaleInvByN  = 2,
    nuvFftScaleBySqrtN = 4,
    nuvFftScaleNone    = 8
};

/* ---------------------------------------------------------------- version record */
typedef struct {
    int         major;
    int         minor;
    int         majorBuild;
    int         build;
    char        targetCpu[4];
    const char* Name;
    const char* Version;
    const char* BuildDate;
} NuvLibraryVersion;

/* Addresses of all exports, in byte order of their names. */
NUVAPI extern const void* const NuvExportSlotTable[];

/* ================================================================ library frame */
NUVAPI const NuvLibraryVersion* nuvsGetLibVersion(void);

/* ---------------------------------------------------------------- memory */
/* Blocks aligned for the widest vector operation; release with nuvsFree.  len below 1 gives null. */
NUVAPI Nuv8u*   nuvsMalloc_8u(int len);
NUVAPI Nuv8s*   nuvsMalloc_8s(int len);
NUVAPI Nuv16u*  nuvsMalloc_16u(int len);
NUVAPI Nuv16s*  nuvsMalloc_16s(int len);
NUVAPI Nuv8sc*  nuvsMalloc_8sc(int len);
NUVAPI Nuv32u*  nuvsMalloc_32u(int len);
NUVAPI Nuv32s*  nuvsMalloc_32s(int len);
NUVAPI Nuv32f*  nuvsMalloc_32f(int len);
NUVAPI Nuv16sc* nuvsMalloc_16sc(int len);
NUVAPI Nuv64s*  nuvsMalloc_64s(int len);
NUVAPI Nuv64f*  nuvsMalloc_64f(int len);
NUVAPI Nuv32sc* nuvsMalloc_32sc(int len);
NUVAPI Nuv32fc* nuvsMalloc_32fc(int len);
NUVAPI Nuv64sc* nuvsMalloc_64sc(int len);
NUVAPI Nuv64fc* nuvsMalloc_64fc(int len);
NUVAPI void     nuvsFree(void* ptr);

/* ================================================================ floating add, subtract, multiply */
/* (section: arith_float) */
/* ---------------------------------------------------------------- add, subtract, multiply of two vectors */
/* Sub computes the second source minus the first; Sub_I computes pSrcDst minus pSrc. */
NUVAPI NuvStatus nuvsAdd_32f(const Nuv32f* pSrc1, const Nuv32f* pSrc2, Nuv32f* pDst, int len);
NUVAPI NuvStatus nuvsAdd_32f_I(const Nuv32f* pSrc, Nuv32f* pSrcDst, int len);
NUVAPI NuvStatus nuvsAdd_32fc(const Nuv32fc* pSrc1, const Nuv32fc* pSrc2, Nuv32fc* pDst, int len);
NUVAPI NuvStatus nuvsAdd_32fc_I(const Nuv32fc* pSrc, Nuv32fc* pSrcDst, int len);
NUVAPI NuvStatus nuvsAdd_64f(const Nuv64f* pSrc1, const Nuv64f* pSrc2, Nuv64f* pDst, int len);
NUVAPI NuvStatus nuvsAdd_64f_I(const Nuv64f* pSrc, Nuv64f* pSrcDst, int len);
NUVAPI NuvStatus nuvsAdd_64fc(const Nuv64fc* pSrc1, const Nuv64fc* pSrc2, Nuv64fc* pDst, int len);
NUVAPI NuvStatus nuvsAdd_64fc_I(const Nuv64fc* pSrc, Nuv64fc* pSrcDst, int len);
NUVAPI NuvStatus nuvsSub_32f(const Nuv32f* pSrc1, const Nuv32f* pSrc2, Nuv32f* pDst, int len);
NUVAPI NuvStatus nuvsSub_32f_I(const Nuv32f* pSrc, Nuv32f* pSrcDst, int len);
NUVAPI NuvStatus nuvsSub_32fc(const Nuv32fc* pSrc1, const Nuv32fc* pSrc2, Nuv32fc* pDst, int len);
NUVAPI NuvStatus nuvsSub_32fc_I(const Nuv32fc* pSrc, Nuv32fc* pSrcDst, int len);
NUVAPI NuvStatus nuvsSub_64f(const Nuv64f* pSrc1, const Nuv64f* pSrc2, Nuv64f* pDst, int len);
NUVAPI NuvStatus nuvsSub_64f_I(const Nuv64f* pSrc, Nuv64f* pSrcDst, int len);
NUVAPI NuvStatus nuvsSub_64fc(const Nuv64fc* pSrc1, const Nuv64fc* pSrc2, Nuv64fc* pDst, int len);
NUVAPI NuvStatus nuvsSub_64fc_I(const Nuv64fc* pSrc, Nuv64fc* pSrcDst, int len);
NUVAPI NuvStatus nuvsMul_32f(const Nuv32f* pSrc1, const Nuv32f* pSrc2, Nuv32f* pDst, int len);
NUVAPI NuvStatus nuvsMul_32f_I(const Nuv32f* pSrc, Nuv32f* pSrcDst, int len);
NUVAPI NuvStatus nuvsMul_32fc(const Nuv32fc* pSrc1, const Nuv32fc* pSrc2, Nuv32fc* pDst, int len);
NUVAPI NuvStatus nuvsMul_32fc_I(const Nuv32fc* pSrc, Nuv32fc* pSrcDst, int len);
NUVAPI NuvStatus nuvsMul_64f(const Nuv64f* pSrc1, const Nuv64f* pSrc2, Nuv64f* pDst, int len);
NUVAPI NuvStatus nuvsMul_64f_I(const Nuv64f* pSrc, Nuv64f* pSrcDst, int len);
NUVAPI NuvStatus nuvsMul_64fc(const Nuv64fc* pSrc1, const Nuv64fc* pSrc2, Nuv64fc* pDst, int len);
NUVAPI NuvStatus nuvsMul_64fc_I(const Nuv64fc* pSrc, Nuv64fc* pSrcDst, int len);
NUVAPI NuvStatus nuvsMul_32f32fc(const Nuv32f* pSrc1, const Nuv32fc* pSrc2, Nuv32fc* pDst, int len);
NUVAPI NuvStatus nuvsMul_32f32fc_I(const Nuv32f* pSrc, Nuv32fc* pSrcDst, int len);
/* ---------------------------------------------------------------- integer forms without scale */
NUVAPI NuvStatus nuvsAdd_8u16u(const Nuv8u* pSrc1, const Nuv8u* pSrc2, Nuv16u* pDst, int len);
NUVAPI NuvStatus nuvsAdd_16u(const Nuv16u* pSrc1, const Nuv16u* pSrc2, Nuv16u* pDst, int len);
NUVAPI NuvStatus nuvsAdd_32u(const Nuv32u* pSrc1, const Nuv32u* pSrc2, Nuv32u* pDst, int len);
NUVAPI NuvStatus nuvsAdd_16s32s_I(const Nuv16s* pSrc, Nuv32s* pSrcDst, int len);
NUVAPI NuvStatus nuvsAdd_16s32f(const Nuv16s* pSrc1, const Nuv16s* pSrc2, Nuv32f* pDst, int len);
NUVAPI NuvStatus nuvsSub_16s32f(const Nuv16s* pSrc1, const Nuv16s* pSrc2, Nuv32f* pDst, int len);
NUVAPI NuvStatus nuvsMul_16s32f(const Nuv16s* pSrc1, const Nuv16s* pSrc2, Nuv32f* pDst, int len);
NUVAPI NuvStatus nuvsMul_8u16u(const Nuv8u* pSrc1, const Nuv8u* pSrc2, Nuv16u* pDst, int len);
/* ---------------------------------------------------------------- operations with a constant */
NUVAPI NuvStatus nuvsAddC_32f(const Nuv32f* pSrc, Nuv32f val, Nuv32f* pDst, int len);
NUVAPI NuvStatus nuvsAddC_32f_I(Nuv32f val, Nuv32f* pSrcDst, int len);
NUVAPI NuvStatus nuvsAddC_32fc(const Nuv32fc* pSrc, Nuv32fc val, Nuv32fc* pDst, int len);
NUVAPI NuvStatus nuvsAddC_32fc_I(Nuv32fc val, Nuv32fc* pSrcDst, int len);
NUVAPI NuvStatus nuvsAddC_64f(const Nuv64f* pSrc, Nuv64f val, Nuv64f* pDst, int len);
NUVAPI NuvStatus nuvsAddC_64f_I(Nuv64f val, Nuv64f* pSrcDst, int len);
NUVAPI NuvStatus nuvsAddC_64fc(const Nuv64fc* pSrc, Nuv64fc val, Nuv64fc* pDst, int len);
NUVAPI NuvStatus nuvsAddC_64fc_I(Nuv64fc val, Nuv64fc* pSrcDst, int len);
NUVAPI NuvStatus nuvsSubC_32f(const Nuv32f* pSrc, Nuv32f val, Nuv32f* pDst, int len);
NUVAPI NuvStatus nuvsSubC_32f_I(Nuv32f val, Nuv32f* pSrcDst, int len);
NUVAPI NuvStatus nuvsSubC_32fc(const Nuv32fc* pSrc, Nuv32fc val, Nuv32fc* pDst, int len);
NUVAPI NuvStatus nuvsSubC_32fc_I(Nuv32fc val, Nuv32fc* pSrcDst, int len);
NUVAPI NuvStatus nuvsSubC_64f(const Nuv64f* pSrc, Nuv64f val, Nuv64f* pDst, int len);
NUVAPI NuvStatus nuvsSubC_64f_I(Nuv64f val, Nuv64f* pSrcDst, int len);
NUVAPI NuvStatus nuvsSubC_64fc(const Nuv64fc* pSrc, Nuv64fc val, Nuv64fc* pDst, int len);
NUVAPI NuvStatus nuvsSubC_64fc_I(Nuv64fc val, Nuv64fc* pSrcDst, int len);
NUVAPI NuvStatus nuvsSubCRev_32f(const Nuv32f* pSrc, Nuv32f val, Nuv32f* pDst, int len);
NUVAPI NuvStatus nuvsSubCRev_32f_I(Nuv32f val, Nuv32f* pSrcDst, int len);
NUVAPI NuvStatus nuvsSubCRev_32fc(const Nuv32fc* pSrc, Nuv32fc val, Nuv32fc* pDst, int len);
NUVAPI NuvStatus nuvsSubCRev_32fc_I(Nuv32fc val, Nuv32fc* pSrcDst, int len);
NUVAPI NuvStatus nuvsSubCRev_64f(const Nuv64f* pSrc, Nuv64f val, Nuv64f* pDst, int len);
NUVAPI NuvStatus nuvsSubCRev_64f_I(Nuv64f val, Nuv64f* pSrcDst, int len);
NUVAPI NuvStatus nuvsSubCRev_64fc(const Nuv64fc* pSrc, Nuv64fc val, Nuv64fc* pDst, int len);
NUVAPI NuvStatus nuvsSubCRev_64fc_I(Nuv64fc val, Nuv64fc* pSrcDst, int len);
NUVAPI NuvStatus nuvsMulC_32f(const Nuv32f* pSrc, Nuv32f val, Nuv32f* pDst, int len);
NUVAPI NuvStatus nuvsMulC_32f_I(Nuv32f val, Nuv32f* pSrcDst, int len);
NUVAPI NuvStatus nuvsMulC_32fc(const Nuv32fc* pSrc, Nuv32fc val, Nuv32fc* pDst, int len);
NUVAPI NuvStatus nuvsMulC_32fc_I(Nuv32fc val, Nuv32fc* pSrcDst, int len);
NUVAPI NuvStatus nuvsMulC_64f(const Nuv64f* pSrc, Nuv64f val, Nuv64f* pDst, int len);
NUVAPI NuvStatus nuvsMulC_64f_I(Nuv64f val, Nuv64f* pSrcDst, int len);
NUVAPI NuvStatus nuvsMulC_64fc(const Nuv64fc* pSrc, Nuv64fc val, Nuv64fc* pDst, int len);
NUVAPI NuvStatus nuvsMulC_64fc_I(Nuv64fc val, Nuv64fc* pSrcDst, int len);
/* ---------------------------------------------------------------- accumulate a product */
NUVAPI NuvStatus nuvsAddProduct_32f(const Nuv32f* pSrc1, const Nuv32f* pSrc2, Nuv32f* pSrcDst, int len);
NUVAPI NuvStatus nuvsAddProduct_32fc(const Nuv32fc* pSrc1, const Nuv32fc* pSrc2, Nuv32fc* pSrcDst, int len);
NUVAPI NuvStatus nuvsAddProduct_64f(const Nuv64f* pSrc1, const Nuv64f* pSrc2, Nuv64f* pSrcDst, int len);
NUVAPI NuvStatus nuvsAddProduct_64fc(const Nuv64fc* pSrc1, const Nuv64fc* pSrc2, Nuv64fc* pSrcDst, int len);
NUVAPI NuvStatus nuvsAddProductC_32f(const Nuv32f* pSrc, Nuv32f val, Nuv32f* pSrcDst, int len);
/* ---------------------------------------------------------------- absolute value, square */
NUVAPI NuvStatus nuvsAbs_16s(const Nuv16s* pSrc, Nuv16s* pDst, int len);
NUVAPI NuvStatus nuvsAbs_16s_I(Nuv16s* pSrcDst, int len);
NUVAPI NuvStatus nuvsAbs_32s(const Nuv32s* pSrc, Nuv32s* pDst, int len);
NUVAPI NuvStatus nuvsAbs_32s_I(Nuv32s* pSrcDst, int len);
NUVAPI NuvStatus nuvsAbs_32f(const Nuv32f* pSrc, Nuv32f* pDst, int len);
NUVAPI NuvStatus nuvsAbs_32f_I(Nuv32f* pSrcDst, int len);
NUVAPI NuvStatus nuvsAbs_64f(const Nuv64f* pSrc, Nuv64f* pDst, int len);
NUVAPI NuvStatus nuvsAbs_64f_I(Nuv64f* pSrcDst, int len);
NUVAPI NuvStatus nuvsSqr_32f(const Nuv32f* pSrc, Nuv32f* pDst, int len);
NUVAPI NuvStatus nuvsSqr_32f_I(Nuv32f* pSrcDst, int len);
NUVAPI NuvStatus nuvsSqr_32fc(const Nuv32fc* pSrc, Nuv32fc* pDst, int len);
NUVAPI NuvStatus nuvsSqr_32fc_I(Nuv32fc* pSrcDst, int len);
NUVAPI NuvStatus nuvsSqr_64f(const Nuv64f* pSrc, Nuv64f* pDst, int len);
NUVAPI NuvStatus nuvsSqr_64f_I(Nuv64f* pSrcDst, int len);
NUVAPI NuvStatus nuvsSqr_64fc(const Nuv64fc* pSrc, Nuv64fc* pDst, int len);
NUVAPI NuvStatus nuvsSqr_64fc_I(Nuv64fc* pSrcDst, int len);

/* ================================================================ fixed-point arithmetic with scale factor */
/* (section: arith_sfs) */
/* ---------------------------------------------------------------- add and subtract */
/* Exact result times 2^-scaleFactor, rounded to nearest with ties to even, saturated. */
/* pDst = pSrc1 + pSrc2 */
NUVAPI NuvStatus nuvsAdd_8u_Sfs(const Nuv8u* pSrc1, const Nuv8u* pSrc2, Nuv8u* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsAdd_8u_ISfs(const Nuv8u* pSrc, Nuv8u* pSrcDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsAdd_16s_Sfs(const Nuv16s* pSrc1, const Nuv16s* pSrc2, Nuv16s* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsAdd_16s_ISfs(const Nuv16s* pSrc, Nuv16s* pSrcDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsAdd_16u_Sfs(const Nuv16u* pSrc1, const Nuv16u* pSrc2, Nuv16u* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsAdd_16u_ISfs(const Nuv16u* pSrc, Nuv16u* pSrcDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsAdd_32s_Sfs(const Nuv32s* pSrc1, const Nuv32s* pSrc2, Nuv32s* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsAdd_32s_ISfs(const Nuv32s* pSrc, Nuv32s* pSrcDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsAdd_16sc_Sfs(const Nuv16sc* pSrc1, const Nuv16sc* pSrc2, Nuv16sc* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsAdd_16sc_ISfs(const Nuv16sc* pSrc, Nuv16sc* pSrcDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsAdd_32sc_Sfs(const Nuv32sc* pSrc1, const Nuv32sc* pSrc2, Nuv32sc* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsAdd_32sc_ISfs(const Nuv32sc* pSrc, Nuv32sc* pSrcDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsAdd_64s_Sfs(const Nuv64s* pSrc1, const Nuv64s* pSrc2, Nuv64s* pDst, int len, int scaleFactor);
/* pDst = pSrc2 - pSrc1: the second source is the minuend */
NUVAPI NuvStatus nuvsSub_8u_Sfs(const Nuv8u* pSrc1, const Nuv8u* pSrc2, Nuv8u* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsSub_8u_ISfs(const Nuv8u* pSrc, Nuv8u* pSrcDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsSub_16s_Sfs(const Nuv16s* pSrc1, const Nuv16s* pSrc2, Nuv16s* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsSub_16s_ISfs(const Nuv16s* pSrc, Nuv16s* pSrcDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsSub_16u_Sfs(const Nuv16u* pSrc1, const Nuv16u* pSrc2, Nuv16u* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsSub_16u_ISfs(const Nuv16u* pSrc, Nuv16u* pSrcDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsSub_32s_Sfs(const Nuv32s* pSrc1, const Nuv32s* pSrc2, Nuv32s* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsSub_32s_ISfs(const Nuv32s* pSrc, Nuv32s* pSrcDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsSub_16sc_Sfs(const Nuv16sc* pSrc1, const Nuv16sc* pSrc2, Nuv16sc* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsSub_16sc_ISfs(const Nuv16sc* pSrc, Nuv16sc* pSrcDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsSub_32sc_Sfs(const Nuv32sc* pSrc1, const Nuv32sc* pSrc2, Nuv32sc* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsSub_32sc_ISfs(const Nuv32sc* pSrc, Nuv32sc* pSrcDst, int len, int scaleFactor);
/* pDst = pSrc + val */
NUVAPI NuvStatus nuvsAddC_8u_Sfs(const Nuv8u* pSrc, Nuv8u val, Nuv8u* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsAddC_8u_ISfs(Nuv8u val, Nuv8u* pSrcDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsAddC_16s_Sfs(const Nuv16s* pSrc, Nuv16s val, Nuv16s* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsAddC_16s_ISfs(Nuv16s val, Nuv16s* pSrcDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsAddC_16u_Sfs(const Nuv16u* pSrc, Nuv16u val, Nuv16u* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsAddC_16u_ISfs(Nuv16u val, Nuv16u* pSrcDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsAddC_32s_Sfs(const Nuv32s* pSrc, Nuv32s val, Nuv32s* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsAddC_32s_ISfs(Nuv32s val, Nuv32s* pSrcDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsAddC_16sc_Sfs(const Nuv16sc* pSrc, Nuv16sc val, Nuv16sc* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsAddC_16sc_ISfs(Nuv16sc val, Nuv16sc* pSrcDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsAddC_32sc_Sfs(const Nuv32sc* pSrc, Nuv32sc val, Nuv32sc* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsAddC_32sc_ISfs(Nuv32sc val, Nuv32sc* pSrcDst, int len, int scaleFactor);
/* len counts as unsigned (only 0 is refused); rndMode 1: ties to even, 0: toward zero, other: ties away from zero */
NUVAPI NuvStatus nuvsAddC_64s_Sfs(const Nuv64s* pSrc, Nuv64s val, Nuv64s* pDst, int len, int scaleFactor, int rndMode);
NUVAPI NuvStatus nuvsAddC_64u_Sfs(const Nuv64u* pSrc, Nuv64u val, Nuv64u* pDst, int len, int scaleFactor, int rndMode);
/* pDst = pSrc - val */
NUVAPI NuvStatus nuvsSubC_8u_Sfs(const Nuv8u* pSrc, Nuv8u val, Nuv8u* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsSubC_8u_ISfs(Nuv8u val, Nuv8u* pSrcDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsSubC_16s_Sfs(const Nuv16s* pSrc, Nuv16s val, Nuv16s* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsSubC_16s_ISfs(Nuv16s val, Nuv16s* pSrcDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsSubC_16u_Sfs(const Nuv16u* pSrc, Nuv16u val, Nuv16u* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsSubC_16u_ISfs(Nuv16u val, Nuv16u* pSrcDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsSubC_32s_Sfs(const Nuv32s* pSrc, Nuv32s val, Nuv32s* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsSubC_32s_ISfs(Nuv32s val, Nuv32s* pSrcDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsSubC_16sc_Sfs(const Nuv16sc* pSrc, Nuv16sc val, Nuv16sc* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsSubC_16sc_ISfs(Nuv16sc val, Nuv16sc* pSrcDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsSubC_32sc_Sfs(const Nuv32sc* pSrc, Nuv32sc val, Nuv32sc* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsSubC_32sc_ISfs(Nuv32sc val, Nuv32sc* pSrcDst, int len, int scaleFactor);
/* pDst = val - pSrc */
NUVAPI NuvStatus nuvsSubCRev_8u_Sfs(const Nuv8u* pSrc, Nuv8u val, Nuv8u* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsSubCRev_8u_ISfs(Nuv8u val, Nuv8u* pSrcDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsSubCRev_16s_Sfs(const Nuv16s* pSrc, Nuv16s val, Nuv16s* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsSubCRev_16s_ISfs(Nuv16s val, Nuv16s* pSrcDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsSubCRev_16u_Sfs(const Nuv16u* pSrc, Nuv16u val, Nuv16u* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsSubCRev_16u_ISfs(Nuv16u val, Nuv16u* pSrcDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsSubCRev_32s_Sfs(const Nuv32s* pSrc, Nuv32s val, Nuv32s* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsSubCRev_32s_ISfs(Nuv32s val, Nuv32s* pSrcDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsSubCRev_16sc_Sfs(const Nuv16sc* pSrc, Nuv16sc val, Nuv16sc* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsSubCRev_16sc_ISfs(Nuv16sc val, Nuv16sc* pSrcDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsSubCRev_32sc_Sfs(const Nuv32sc* pSrc, Nuv32sc val, Nuv32sc* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsSubCRev_32sc_ISfs(Nuv32sc val, Nuv32sc* pSrcDst, int len, int scaleFactor);
/* 16s at scale 0 */
NUVAPI NuvStatus nuvsAdd_16s(const Nuv16s* pSrc1, const Nuv16s* pSrc2, Nuv16s* pDst, int len);
NUVAPI NuvStatus nuvsAdd_16s_I(const Nuv16s* pSrc, Nuv16s* pSrcDst, int len);
NUVAPI NuvStatus nuvsAddC_16s_I(Nuv16s val, Nuv16s* pSrcDst, int len);
NUVAPI NuvStatus nuvsSub_16s(const Nuv16s* pSrc1, const Nuv16s* pSrc2, Nuv16s* pDst, int len);
NUVAPI NuvStatus nuvsSub_16s_I(const Nuv16s* pSrc, Nuv16s* pSrcDst, int len);
NUVAPI NuvStatus nuvsSubC_16s_I(Nuv16s val, Nuv16s* pSrcDst, int len);

/* ---------------------------------------------------------------- multiply, add-product and square */
NUVAPI NuvStatus nuvsMul_16s(const Nuv16s* pSrc1, const Nuv16s* pSrc2, Nuv16s* pDst, int len);
NUVAPI NuvStatus nuvsMul_16s_I(const Nuv16s* pSrc, Nuv16s* pSrcDst, int len);
NUVAPI NuvStatus nuvsMul_8u_Sfs(const Nuv8u* pSrc1, const Nuv8u* pSrc2, Nuv8u* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsMul_8u_ISfs(const Nuv8u* pSrc, Nuv8u* pSrcDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsMul_16s_Sfs(const Nuv16s* pSrc1, const Nuv16s* pSrc2, Nuv16s* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsMul_16s_ISfs(const Nuv16s* pSrc, Nuv16s* pSrcDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsMul_16u_Sfs(const Nuv16u* pSrc1, const Nuv16u* pSrc2, Nuv16u* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsMul_16u_ISfs(const Nuv16u* pSrc, Nuv16u* pSrcDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsMul_16u16s_Sfs(const Nuv16u* pSrc1, const Nuv16s* pSrc2, Nuv16s* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsMul_16s32s_Sfs(const Nuv16s* pSrc1, const Nuv16s* pSrc2, Nuv32s* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsMul_16sc_Sfs(const Nuv16sc* pSrc1, const Nuv16sc* pSrc2, Nuv16sc* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsMul_16sc_ISfs(const Nuv16sc* pSrc, Nuv16sc* pSrcDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsMul_32s_Sfs(const Nuv32s* pSrc1, const Nuv32s* pSrc2, Nuv32s* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsMul_32s_ISfs(const Nuv32s* pSrc, Nuv32s* pSrcDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsMul_32sc_Sfs(const Nuv32sc* pSrc1, const Nuv32sc* pSrc2, Nuv32sc* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsMul_32sc_ISfs(const Nuv32sc* pSrc, Nuv32sc* pSrcDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsMul_32s32sc_Sfs(const Nuv32s* pSrc1, const Nuv32sc* pSrc2, Nuv32sc* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsMul_32s32sc_ISfs(const Nuv32s* pSrc, Nuv32sc* pSrcDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsMul_Low_32s_Sfs(const Nuv32s* pSrc1, const Nuv32s* pSrc2, Nuv32s* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsMulC_8u_Sfs(const Nuv8u* pSrc, Nuv8u val, Nuv8u* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsMulC_8u_ISfs(Nuv8u val, Nuv8u* pSrcDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsMulC_16s_Sfs(const Nuv16s* pSrc, Nuv16s val, Nuv16s* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsMulC_16s_ISfs(Nuv16s val, Nuv16s* pSrcDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsMulC_16u_Sfs(const Nuv16u* pSrc, Nuv16u val, Nuv16u* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsMulC_16u_ISfs(Nuv16u val, Nuv16u* pSrcDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsMulC_16sc_Sfs(const Nuv16sc* pSrc, Nuv16sc val, Nuv16sc* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsMulC_16sc_ISfs(Nuv16sc val, Nuv16sc* pSrcDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsMulC_32s_Sfs(const Nuv32s* pSrc, Nuv32s val, Nuv32s* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsMulC_32s_ISfs(Nuv32s val, Nuv32s* pSrcDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsMulC_32sc_Sfs(const Nuv32sc* pSrc, Nuv32sc val, Nuv32sc* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsMulC_32sc_ISfs(Nuv32sc val, Nuv32sc* pSrcDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsMulC_32f16s_Sfs(const Nuv32f* pSrc, Nuv32f val, Nuv16s* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsMulC_Low_32f16s(const Nuv32f* pSrc, Nuv32f val, Nuv16s* pDst, int len);
NUVAPI NuvStatus nuvsMulC_64f64s_ISfs(Nuv64f val, Nuv64s* pSrcDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsMulC_64s_ISfs(Nuv64s val, Nuv64s* pSrcDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsAddProduct_16s_Sfs(const Nuv16s* pSrc1, const Nuv16s* pSrc2, Nuv16s* pSrcDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsAddProduct_16s32s_Sfs(const Nuv16s* pSrc1, const Nuv16s* pSrc2, Nuv32s* pSrcDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsAddProduct_32s_Sfs(const Nuv32s* pSrc1, const Nuv32s* pSrc2, Nuv32s* pSrcDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsSqr_8u_Sfs(const Nuv8u* pSrc, Nuv8u* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsSqr_8u_ISfs(Nuv8u* pSrcDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsSqr_16s_Sfs(const Nuv16s* pSrc, Nuv16s* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsSqr_16s_ISfs(Nuv16s* pSrcDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsSqr_16u_Sfs(const Nuv16u* pSrc, Nuv16u* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsSqr_16u_ISfs(Nuv16u* pSrcDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsSqr_16sc_Sfs(const Nuv16sc* pSrc, Nuv16sc* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsSqr_16sc_ISfs(Nuv16sc* pSrcDst, int len, int scaleFactor);

/* ================================================================ bit logic and shifts */
/* (section: logic) */
/* ---------------------------------------------------------------- element-wise And, Or, Xor */
NUVAPI NuvStatus nuvsAnd_8u(const Nuv8u* pSrc1, const Nuv8u* pSrc2, Nuv8u* pDst, int len);
NUVAPI NuvStatus nuvsAnd_8u_I(const Nuv8u* pSrc, Nuv8u* pSrcDst, int len);
NUVAPI NuvStatus nuvsAnd_16u(const Nuv16u* pSrc1, const Nuv16u* pSrc2, Nuv16u* pDst, int len);
NUVAPI NuvStatus nuvsAnd_16u_I(const Nuv16u* pSrc, Nuv16u* pSrcDst, int len);
NUVAPI NuvStatus nuvsAnd_32u(const Nuv32u* pSrc1, const Nuv32u* pSrc2, Nuv32u* pDst, int len);
NUVAPI NuvStatus nuvsAnd_32u_I(const Nuv32u* pSrc, Nuv32u* pSrcDst, int len);
NUVAPI NuvStatus nuvsOr_8u(const Nuv8u* pSrc1, const Nuv8u* pSrc2, Nuv8u* pDst, int len);
NUVAPI NuvStatus nuvsOr_8u_I(const Nuv8u* pSrc, Nuv8u* pSrcDst, int len);
NUVAPI NuvStatus nuvsOr_16u(const Nuv16u* pSrc1, const Nuv16u* pSrc2, Nuv16u* pDst, int len);
NUVAPI NuvStatus nuvsOr_16u_I(const Nuv16u* pSrc, Nuv16u* pSrcDst, int len);
NUVAPI NuvStatus nuvsOr_32u(const Nuv32u* pSrc1, const Nuv32u* pSrc2, Nuv32u* pDst, int len);
NUVAPI NuvStatus nuvsOr_32u_I(const Nuv32u* pSrc, Nuv32u* pSrcDst, int len);
NUVAPI NuvStatus nuvsXor_8u(const Nuv8u* pSrc1, const Nuv8u* pSrc2, Nuv8u* pDst, int len);
NUVAPI NuvStatus nuvsXor_8u_I(const Nuv8u* pSrc, Nuv8u* pSrcDst, int len);
NUVAPI NuvStatus nuvsXor_16u(const Nuv16u* pSrc1, const Nuv16u* pSrc2, Nuv16u* pDst, int len);
NUVAPI NuvStatus nuvsXor_16u_I(const Nuv16u* pSrc, Nuv16u* pSrcDst, int len);
NUVAPI NuvStatus nuvsXor_32u(const Nuv32u* pSrc1, const Nuv32u* pSrc2, Nuv32u* pDst, int len);
NUVAPI NuvStatus nuvsXor_32u_I(const Nuv32u* pSrc, Nuv32u* pSrcDst, int len);
/* ---------------------------------------------------------------- with a constant; 0 turns into Zero (AndC) or Copy */
NUVAPI NuvStatus nuvsAndC_8u(const Nuv8u* pSrc, Nuv8u val, Nuv8u* pDst, int len);
NUVAPI NuvStatus nuvsAndC_8u_I(Nuv8u val, Nuv8u* pSrcDst, int len);
NUVAPI NuvStatus nuvsAndC_16u(const Nuv16u* pSrc, Nuv16u val, Nuv16u* pDst, int len);
NUVAPI NuvStatus nuvsAndC_16u_I(Nuv16u val, Nuv16u* pSrcDst, int len);
NUVAPI NuvStatus nuvsAndC_32u(const Nuv32u* pSrc, Nuv32u val, Nuv32u* pDst, int len);
NUVAPI NuvStatus nuvsAndC_32u_I(Nuv32u val, Nuv32u* pSrcDst, int len);
NUVAPI NuvStatus nuvsOrC_8u(const Nuv8u* pSrc, Nuv8u val, Nuv8u* pDst, int len);
NUVAPI NuvStatus nuvsOrC_8u_I(Nuv8u val, Nuv8u* pSrcDst, int len);
NUVAPI NuvStatus nuvsOrC_16u(const Nuv16u* pSrc, Nuv16u val, Nuv16u* pDst, int len);
NUVAPI NuvStatus nuvsOrC_16u_I(Nuv16u val, Nuv16u* pSrcDst, int len);
NUVAPI NuvStatus nuvsOrC_32u(const Nuv32u* pSrc, Nuv32u val, Nuv32u* pDst, int len);
NUVAPI NuvStatus nuvsOrC_32u_I(Nuv32u val, Nuv32u* pSrcDst, int len);
NUVAPI NuvStatus nuvsXorC_8u(const Nuv8u* pSrc, Nuv8u val, Nuv8u* pDst, int len);
NUVAPI NuvStatus nuvsXorC_8u_I(Nuv8u val, Nuv8u* pSrcDst, int len);
NUVAPI NuvStatus nuvsXorC_16u(const Nuv16u* pSrc, Nuv16u val, Nuv16u* pDst, int len);
NUVAPI NuvStatus nuvsXorC_16u_I(Nuv16u val, Nuv16u* pSrcDst, int len);
NUVAPI NuvStatus nuvsXorC_32u(const Nuv32u* pSrc, Nuv32u val, Nuv32u* pDst, int len);
NUVAPI NuvStatus nuvsXorC_32u_I(Nuv32u val, Nuv32u* pSrcDst, int len);
/* ---------------------------------------------------------------- complement: XorC with all ones */
NUVAPI NuvStatus nuvsNot_8u(const Nuv8u* pSrc, Nuv8u* pDst, int len);
NUVAPI NuvStatus nuvsNot_8u_I(Nuv8u* pSrcDst, int len);
NUVAPI NuvStatus nuvsNot_16u(const Nuv16u* pSrc, Nuv16u* pDst, int len);
NUVAPI NuvStatus nuvsNot_16u_I(Nuv16u* pSrcDst, int len);
NUVAPI NuvStatus nuvsNot_32u(const Nuv32u* pSrc, Nuv32u* pDst, int len);
NUVAPI NuvStatus nuvsNot_32u_I(Nuv32u* pSrcDst, int len);
/* ---------------------------------------------------------------- shifts by a constant count; RShiftC of 16s and 32s is arithmetic */
NUVAPI NuvStatus nuvsLShiftC_8u(const Nuv8u* pSrc, int val, Nuv8u* pDst, int len);
NUVAPI NuvStatus nuvsLShiftC_8u_I(int val, Nuv8u* pSrcDst, int len);
NUVAPI NuvStatus nuvsLShiftC_16u(const Nuv16u* pSrc, int val, Nuv16u* pDst, int len);
NUVAPI NuvStatus nuvsLShiftC_16u_I(int val, Nuv16u* pSrcDst, int len);
NUVAPI NuvStatus nuvsLShiftC_16s(const Nuv16s* pSrc, int val, Nuv16s* pDst, int len);
NUVAPI NuvStatus nuvsLShiftC_16s_I(int val, Nuv16s* pSrcDst, int len);
NUVAPI NuvStatus nuvsLShiftC_32s(const Nuv32s* pSrc, int val, Nuv32s* pDst, int len);
NUVAPI NuvStatus nuvsLShiftC_32s_I(int val, Nuv32s* pSrcDst, int len);
NUVAPI NuvStatus nuvsRShiftC_8u(const Nuv8u* pSrc, int val, Nuv8u* pDst, int len);
NUVAPI NuvStatus nuvsRShiftC_8u_I(int val, Nuv8u* pSrcDst, int len);
NUVAPI NuvStatus nuvsRShiftC_16u(const Nuv16u* pSrc, int val, Nuv16u* pDst, int len);
NUVAPI NuvStatus nuvsRShiftC_16u_I(int val, Nuv16u* pSrcDst, int len);
NUVAPI NuvStatus nuvsRShiftC_16s(const Nuv16s* pSrc, int val, Nuv16s* pDst, int len);
NUVAPI NuvStatus nuvsRShiftC_16s_I(int val, Nuv16s* pSrcDst, int len);
NUVAPI NuvStatus nuvsRShiftC_32s(const Nuv32s* pSrc, int val, Nuv32s* pDst, int len);
NUVAPI NuvStatus nuvsRShiftC_32s_I(int val, Nuv32s* pSrcDst, int len);

/* ================================================================ fill, copy and reorder */
/* (section: move) */
/* ---------------------------------------------------------------- zero, set, copy, move */
NUVAPI NuvStatus nuvsZero_8u(Nuv8u* pDst, int len);
NUVAPI NuvStatus nuvsZero_16s(Nuv16s* pDst, int len);
NUVAPI NuvStatus nuvsZero_16sc(Nuv16sc* pDst, int len);
NUVAPI NuvStatus nuvsZero_32f(Nuv32f* pDst, int len);
NUVAPI NuvStatus nuvsZero_32fc(Nuv32fc* pDst, int len);
NUVAPI NuvStatus nuvsZero_32s(Nuv32s* pDst, int len);
NUVAPI NuvStatus nuvsZero_32sc(Nuv32sc* pDst, int len);
NUVAPI NuvStatus nuvsZero_64f(Nuv64f* pDst, int len);
NUVAPI NuvStatus nuvsZero_64fc(Nuv64fc* pDst, int len);
NUVAPI NuvStatus nuvsZero_64s(Nuv64s* pDst, int len);
NUVAPI NuvStatus nuvsZero_64sc(Nuv64sc* pDst, int len);
NUVAPI NuvStatus nuvsSet_8u(Nuv8u val, Nuv8u* pDst, int len);
NUVAPI NuvStatus nuvsSet_16s(Nuv16s val, Nuv16s* pDst, int len);
NUVAPI NuvStatus nuvsSet_16sc(Nuv16sc val, Nuv16sc* pDst, int len);
NUVAPI NuvStatus nuvsSet_32f(Nuv32f val, Nuv32f* pDst, int len);
NUVAPI NuvStatus nuvsSet_32fc(Nuv32fc val, Nuv32fc* pDst, int len);
NUVAPI NuvStatus nuvsSet_32s(Nuv32s val, Nuv32s* pDst, int len);
NUVAPI NuvStatus nuvsSet_32sc(Nuv32sc val, Nuv32sc* pDst, int len);
NUVAPI NuvStatus nuvsSet_64f(Nuv64f val, Nuv64f* pDst, int len);
NUVAPI NuvStatus nuvsSet_64fc(Nuv64fc val, Nuv64fc* pDst, int len);
NUVAPI NuvStatus nuvsSet_64s(Nuv64s val, Nuv64s* pDst, int len);
NUVAPI NuvStatus nuvsSet_64sc(Nuv64sc val, Nuv64sc* pDst, int len);
NUVAPI NuvStatus nuvsCopy_8u(const Nuv8u* pSrc, Nuv8u* pDst, int len);
NUVAPI NuvStatus nuvsCopy_16s(const Nuv16s* pSrc, Nuv16s* pDst, int len);
NUVAPI NuvStatus nuvsCopy_16sc(const Nuv16sc* pSrc, Nuv16sc* pDst, int len);
NUVAPI NuvStatus nuvsCopy_32f(const Nuv32f* pSrc, Nuv32f* pDst, int len);
NUVAPI NuvStatus nuvsCopy_32fc(const Nuv32fc* pSrc, Nuv32fc* pDst, int len);
NUVAPI NuvStatus nuvsCopy_32s(const Nuv32s* pSrc, Nuv32s* pDst, int len);
NUVAPI NuvStatus nuvsCopy_32sc(const Nuv32sc* pSrc, Nuv32sc* pDst, int len);
NUVAPI NuvStatus nuvsCopy_64f(const Nuv64f* pSrc, Nuv64f* pDst, int len);
NUVAPI NuvStatus nuvsCopy_64fc(const Nuv64fc* pSrc, Nuv64fc* pDst, int len);
NUVAPI NuvStatus nuvsCopy_64s(const Nuv64s* pSrc, Nuv64s* pDst, int len);
NUVAPI NuvStatus nuvsCopy_64sc(const Nuv64sc* pSrc, Nuv64sc* pDst, int len);
NUVAPI NuvStatus nuvsMove_8u(const Nuv8u* pSrc, Nuv8u* pDst, int len);
NUVAPI NuvStatus nuvsMove_16s(const Nuv16s* pSrc, Nuv16s* pDst, int len);
NUVAPI NuvStatus nuvsMove_16sc(const Nuv16sc* pSrc, Nuv16sc* pDst, int len);
NUVAPI NuvStatus nuvsMove_32f(const Nuv32f* pSrc, Nuv32f* pDst, int len);
NUVAPI NuvStatus nuvsMove_32fc(const Nuv32fc* pSrc, Nuv32fc* pDst, int len);
NUVAPI NuvStatus nuvsMove_32s(const Nuv32s* pSrc, Nuv32s* pDst, int len);
NUVAPI NuvStatus nuvsMove_32sc(const Nuv32sc* pSrc, Nuv32sc* pDst, int len);
NUVAPI NuvStatus nuvsMove_64f(const Nuv64f* pSrc, Nuv64f* pDst, int len);
NUVAPI NuvStatus nuvsMove_64fc(const Nuv64fc* pSrc, Nuv64fc* pDst, int len);
NUVAPI NuvStatus nuvsMove_64s(const Nuv64s* pSrc, Nuv64s* pDst, int len);
NUVAPI NuvStatus nuvsMove_64sc(const Nuv64sc* pSrc, Nuv64sc* pDst, int len);
/* ---------------------------------------------------------------- flip: element order reversed */
NUVAPI NuvStatus nuvsFlip_8u(const Nuv8u* pSrc, Nuv8u* pDst, int len);
NUVAPI NuvStatus nuvsFlip_8u_I(Nuv8u* pSrcDst, int len);
NUVAPI NuvStatus nuvsFlip_16u(const Nuv16u* pSrc, Nuv16u* pDst, int len);
NUVAPI NuvStatus nuvsFlip_16u_I(Nuv16u* pSrcDst, int len);
NUVAPI NuvStatus nuvsFlip_32f(const Nuv32f* pSrc, Nuv32f* pDst, int len);
NUVAPI NuvStatus nuvsFlip_32f_I(Nuv32f* pSrcDst, int len);
NUVAPI NuvStatus nuvsFlip_32fc(const Nuv32fc* pSrc, Nuv32fc* pDst, int len);
NUVAPI NuvStatus nuvsFlip_32fc_I(Nuv32fc* pSrcDst, int len);
NUVAPI NuvStatus nuvsFlip_64f(const Nuv64f* pSrc, Nuv64f* pDst, int len);
NUVAPI NuvStatus nuvsFlip_64f_I(Nuv64f* pSrcDst, int len);
NUVAPI NuvStatus nuvsFlip_64fc(const Nuv64fc* pSrc, Nuv64fc* pDst, int len);
NUVAPI NuvStatus nuvsFlip_64fc_I(Nuv64fc* pSrcDst, int len);
/* ---------------------------------------------------------------- swap bytes: byte order within each element */
NUVAPI NuvStatus nuvsSwapBytes_16u(const Nuv16u* pSrc, Nuv16u* pDst, int len);
NUVAPI NuvStatus nuvsSwapBytes_16u_I(Nuv16u* pSrcDst, int len);
NUVAPI NuvStatus nuvsSwapBytes_24u(const Nuv8u* pSrc, Nuv8u* pDst, int len);
NUVAPI NuvStatus nuvsSwapBytes_24u_I(Nuv8u* pSrcDst, int len);
NUVAPI NuvStatus nuvsSwapBytes_32u(const Nuv32u* pSrc, Nuv32u* pDst, int len);
NUVAPI NuvStatus nuvsSwapBytes_32u_I(Nuv32u* pSrcDst, int len);
NUVAPI NuvStatus nuvsSwapBytes_64u(const Nuv64u* pSrc, Nuv64u* pDst, int len);
NUVAPI NuvStatus nuvsSwapBytes_64u_I(Nuv64u* pSrcDst, int len);
/* ---------------------------------------------------------------- bit strings: offsets and len in bits */
/* Copy_1u and CopyLE_1u number bits from the top of each byte, CopyBE_1u from the bottom. */
NUVAPI NuvStatus nuvsCopy_1u(const Nuv8u* pSrc, int srcBitOffset, Nuv8u* pDst, int dstBitOffset, int len);
NUVAPI NuvStatus nuvsCopyBE_1u(const Nuv8u* pSrc, int srcBitOffset, Nuv8u* pDst, int dstBitOffset, int len);
NUVAPI NuvStatus nuvsCopyLE_1u(const Nuv8u* pSrc, int srcBitOffset, Nuv8u* pDst, int dstBitOffset, int len);
/* Appends the low pSrcBitsLen[i] bits of each word to a bit stream; the count of bits through pDstLenBits. */
NUVAPI NuvStatus nuvsPackBits_32u8u(const Nuv32u* pSrc, const int* pSrcBitsLen, int srcLen, Nuv8u* pDst,
                                    int dstBitOffset, int* pDstLenBits);

/* ================================================================ conversion */
/* (section: convert) */
/* ---------------------------------------------------------------- widening and plain conversions */
NUVAPI NuvStatus nuvsConvert_8s16s(const Nuv8s* pSrc, Nuv16s* pDst, int len);
NUVAPI NuvStatus nuvsConvert_8s32f(const Nuv8s* pSrc, Nuv32f* pDst, int len);
NUVAPI NuvStatus nuvsConvert_8u32f(const Nuv8u* pSrc, Nuv32f* pDst, int len);
NUVAPI NuvStatus nuvsConvert_16s32f(const Nuv16s* pSrc, Nuv32f* pDst, int len);
NUVAPI NuvStatus nuvsConvert_16s32s(const Nuv16s* pSrc, Nuv32s* pDst, int len);
NUVAPI NuvStatus nuvsConvert_16u32f(const Nuv16u* pSrc, Nuv32f* pDst, int len);
NUVAPI NuvStatus nuvsConvert_16f32f(const Nuv16f* pSrc, Nuv32f* pDst, int len);
NUVAPI NuvStatus nuvsConvert_24s32f(const Nuv8u* pSrc, Nuv32f* pDst, int len);
NUVAPI NuvStatus nuvsConvert_24s32s(const Nuv8u* pSrc, Nuv32s* pDst, int len);
NUVAPI NuvStatus nuvsConvert_24u32f(const Nuv8u* pSrc, Nuv32f* pDst, int len);
NUVAPI NuvStatus nuvsConvert_24u32u(const Nuv8u* pSrc, Nuv32u* pDst, int len);
NUVAPI NuvStatus nuvsConvert_32f64f(const Nuv32f* pSrc, Nuv64f* pDst, int len);
NUVAPI NuvStatus nuvsConvert_32s16s(const Nuv32s* pSrc, Nuv16s* pDst, int len);
NUVAPI NuvStatus nuvsConvert_32s32f(const Nuv32s* pSrc, Nuv32f* pDst, int len);
NUVAPI NuvStatus nuvsConvert_32s64f(const Nuv32s* pSrc, Nuv64f* pDst, int len);
NUVAPI NuvStatus nuvsConvert_64f32f(const Nuv64f* pSrc, Nuv32f* pDst, int len);
NUVAPI NuvStatus nuvsConvert_64s64f(const Nuv64s* pSrc, Nuv64f* pDst, int len);
/* ---------------------------------------------------------------- integer to float or integer with scale */
NUVAPI NuvStatus nuvsConvert_16s32f_Sfs(const Nuv16s* pSrc, Nuv32f* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsConvert_16s64f_Sfs(const Nuv16s* pSrc, Nuv64f* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsConvert_32s16s_Sfs(const Nuv32s* pSrc, Nuv16s* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsConvert_32s24s_Sfs(const Nuv32s* pSrc, Nuv8u* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsConvert_32s32f_Sfs(const Nuv32s* pSrc, Nuv32f* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsConvert_32s64f_Sfs(const Nuv32s* pSrc, Nuv64f* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsConvert_32u24u_Sfs(const Nuv32u* pSrc, Nuv8u* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsConvert_32f24s_Sfs(const Nuv32f* pSrc, Nuv8u* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsConvert_32f24u_Sfs(const Nuv32f* pSrc, Nuv8u* pDst, int len, int scaleFactor);
/* ---------------------------------------------------------------- half floats */
NUVAPI NuvStatus nuvsConvert_16s16f(const Nuv16s* pSrc, Nuv16f* pDst, int len, NuvRoundMode rndMode);
NUVAPI NuvStatus nuvsConvert_32f16f(const Nuv32f* pSrc, Nuv16f* pDst, int len, NuvRoundMode rndMode);
NUVAPI NuvStatus nuvsConvert_16f16s_Sfs(const Nuv16f* pSrc, Nuv16s* pDst, int len, NuvRoundMode rndMode, int scaleFactor);
/* ---------------------------------------------------------------- rounding mode and scale */
NUVAPI NuvStatus nuvsConvert_16s8s_Sfs(const Nuv16s* pSrc, Nuv8s* pDst, int len, NuvRoundMode rndMode, int scaleFactor);
NUVAPI NuvStatus nuvsConvert_32f8s_Sfs(const Nuv32f* pSrc, Nuv8s* pDst, int len, NuvRoundMode rndMode, int scaleFactor);
NUVAPI NuvStatus nuvsConvert_32f8u_Sfs(const Nuv32f* pSrc, Nuv8u* pDst, int len, NuvRoundMode rndMode, int scaleFactor);
NUVAPI NuvStatus nuvsConvert_32f16s_Sfs(const Nuv32f* pSrc, Nuv16s* pDst, int len, NuvRoundMode rndMode, int scaleFactor);
NUVAPI NuvStatus nuvsConvert_32f16u_Sfs(const Nuv32f* pSrc, Nuv16u* pDst, int len, NuvRoundMode rndMode, int scaleFactor);
NUVAPI NuvStatus nuvsConvert_32f32s_Sfs(const Nuv32f* pSrc, Nuv32s* pDst, int len, NuvRoundMode rndMode, int scaleFactor);
NUVAPI NuvStatus nuvsConvert_64f16s_Sfs(const Nuv64f* pSrc, Nuv16s* pDst, int len, NuvRoundMode rndMode, int scaleFactor);
NUVAPI NuvStatus nuvsConvert_64f32s_Sfs(const Nuv64f* pSrc, Nuv32s* pDst, int len, NuvRoundMode rndMode, int scaleFactor);
NUVAPI NuvStatus nuvsConvert_64f64s_Sfs(const Nuv64f* pSrc, Nuv64s* pDst, int len, NuvRoundMode rndMode, int scaleFactor);
NUVAPI NuvStatus nuvsConvert_64s32s_Sfs(const Nuv64s* pSrc, Nuv32s* pDst, int len, NuvRoundMode rndMode, int scaleFactor);
/* ---------------------------------------------------------------- interleave and separate audio channels */
NUVAPI NuvStatus nuvsJoinScaled_32f16s_D2L(const Nuv32f* const* pSrc, int nChannels, int chanLen, Nuv16s* pDst);
NUVAPI NuvStatus nuvsJoinScaled_32f24s_D2L(const Nuv32f* const* pSrc, int nChannels, int chanLen, Nuv8u* pDst);
NUVAPI NuvStatus nuvsSplitScaled_16s32f_D2L(const Nuv16s* pSrc, Nuv32f* const* pDst, int nChannels, int chanLen);
NUVAPI NuvStatus nuvsSplitScaled_24s32f_D2L(const Nuv8u* pSrc, Nuv32f* const* pDst, int nChannels, int chanLen);

/* ================================================================ complex and polar */
/* (section: complex) */
/* ---------------------------------------------------------------- parts, assembly, conjugation */
NUVAPI NuvStatus nuvsReal_16sc(const Nuv16sc* pSrc, Nuv16s* pDst, int len);
NUVAPI NuvStatus nuvsReal_32fc(const Nuv32fc* pSrc, Nuv32f* pDst, int len);
NUVAPI NuvStatus nuvsReal_64fc(const Nuv64fc* pSrc, Nuv64f* pDst, int len);
NUVAPI NuvStatus nuvsImag_16sc(const Nuv16sc* pSrc, Nuv16s* pDst, int len);
NUVAPI NuvStatus nuvsImag_32fc(const Nuv32fc* pSrc, Nuv32f* pDst, int len);
NUVAPI NuvStatus nuvsImag_64fc(const Nuv64fc* pSrc, Nuv64f* pDst, int len);
NUVAPI NuvStatus nuvsRealToCplx_16s(const Nuv16s* pSrcRe, const Nuv16s* pSrcIm, Nuv16sc* pDst, int len);
NUVAPI NuvStatus nuvsRealToCplx_32f(const Nuv32f* pSrcRe, const Nuv32f* pSrcIm, Nuv32fc* pDst, int len);
NUVAPI NuvStatus nuvsRealToCplx_64f(const Nuv64f* pSrcRe, const Nuv64f* pSrcIm, Nuv64fc* pDst, int len);
NUVAPI NuvStatus nuvsCplxToReal_16sc(const Nuv16sc* pSrc, Nuv16s* pDstRe, Nuv16s* pDstIm, int len);
NUVAPI NuvStatus nuvsCplxToReal_32fc(const Nuv32fc* pSrc, Nuv32f* pDstRe, Nuv32f* pDstIm, int len);
NUVAPI NuvStatus nuvsCplxToReal_64fc(const Nuv64fc* pSrc, Nuv64f* pDstRe, Nuv64f* pDstIm, int len);
NUVAPI NuvStatus nuvsConj_16sc(const Nuv16sc* pSrc, Nuv16sc* pDst, int len);
NUVAPI NuvStatus nuvsConj_16sc_I(Nuv16sc* pSrcDst, int len);
NUVAPI NuvStatus nuvsConj_32fc(const Nuv32fc* pSrc, Nuv32fc* pDst, int len);
NUVAPI NuvStatus nuvsConj_32fc_I(Nuv32fc* pSrcDst, int len);
NUVAPI NuvStatus nuvsConj_64fc(const Nuv64fc* pSrc, Nuv64fc* pDst, int len);
NUVAPI NuvStatus nuvsConj_64fc_I(Nuv64fc* pSrcDst, int len);
NUVAPI NuvStatus nuvsConjFlip_16sc(const Nuv16sc* pSrc, Nuv16sc* pDst, int len);
NUVAPI NuvStatus nuvsConjFlip_32fc(const Nuv32fc* pSrc, Nuv32fc* pDst, int len);
NUVAPI NuvStatus nuvsConjFlip_64fc(const Nuv64fc* pSrc, Nuv64fc* pDst, int len);
/* ---------------------------------------------------------------- modulus and power */
NUVAPI NuvStatus nuvsMagnitude_16s32f(const Nuv16s* pSrcRe, const Nuv16s* pSrcIm, Nuv32f* pDst, int len);
NUVAPI NuvStatus nuvsMagnitude_16s_Sfs(const Nuv16s* pSrcRe, const Nuv16s* pSrcIm, Nuv16s* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsMagnitude_16sc32f(const Nuv16sc* pSrc, Nuv32f* pDst, int len);
NUVAPI NuvStatus nuvsMagnitude_16sc_Sfs(const Nuv16sc* pSrc, Nuv16s* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsMagnitude_32f(const Nuv32f* pSrcRe, const Nuv32f* pSrcIm, Nuv32f* pDst, int len);
NUVAPI NuvStatus nuvsMagnitude_32fc(const Nuv32fc* pSrc, Nuv32f* pDst, int len);
NUVAPI NuvStatus nuvsMagnitude_32sc_Sfs(const Nuv32sc* pSrc, Nuv32s* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsMagnitude_64f(const Nuv64f* pSrcRe, const Nuv64f* pSrcIm, Nuv64f* pDst, int len);
NUVAPI NuvStatus nuvsMagnitude_64fc(const Nuv64fc* pSrc, Nuv64f* pDst, int len);
NUVAPI NuvStatus nuvsMagSquared_32fc64f(const Nuv32fc* pSrc, Nuv64f* pDst, int len);
NUVAPI NuvStatus nuvsMagSquared_32sc32s_Sfs(const Nuv32sc* pSrc, Nuv32s* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsPowerSpectr_16s32f(const Nuv16s* pSrcRe, const Nuv16s* pSrcIm, Nuv32f* pDst, int len);
NUVAPI NuvStatus nuvsPowerSpectr_16s_Sfs(const Nuv16s* pSrcRe, const Nuv16s* pSrcIm, Nuv16s* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsPowerSpectr_16sc32f(const Nuv16sc* pSrc, Nuv32f* pDst, int len);
NUVAPI NuvStatus nuvsPowerSpectr_16sc_Sfs(const Nuv16sc* pSrc, Nuv16s* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsPowerSpectr_32f(const Nuv32f* pSrcRe, const Nuv32f* pSrcIm, Nuv32f* pDst, int len);
NUVAPI NuvStatus nuvsPowerSpectr_32fc(const Nuv32fc* pSrc, Nuv32f* pDst, int len);
NUVAPI NuvStatus nuvsPowerSpectr_64f(const Nuv64f* pSrcRe, const Nuv64f* pSrcIm, Nuv64f* pDst, int len);
NUVAPI NuvStatus nuvsPowerSpectr_64fc(const Nuv64fc* pSrc, Nuv64f* pDst, int len);
/* ---------------------------------------------------------------- phase */
NUVAPI NuvStatus nuvsPhase_16s32f(const Nuv16s* pSrcRe, const Nuv16s* pSrcIm, Nuv32f* pDst, int len);
NUVAPI NuvStatus nuvsPhase_16s_Sfs(const Nuv16s* pSrcRe, const Nuv16s* pSrcIm, Nuv16s* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsPhase_16sc32f(const Nuv16sc* pSrc, Nuv32f* pDst, int len);
NUVAPI NuvStatus nuvsPhase_16sc_Sfs(const Nuv16sc* pSrc, Nuv16s* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsPhase_32f(const Nuv32f* pSrcRe, const Nuv32f* pSrcIm, Nuv32f* pDst, int len);
NUVAPI NuvStatus nuvsPhase_32fc(const Nuv32fc* pSrc, Nuv32f* pDst, int len);
NUVAPI NuvStatus nuvsPhase_32sc_Sfs(const Nuv32sc* pSrc, Nuv32s* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsPhase_64f(const Nuv64f* pSrcRe, const Nuv64f* pSrcIm, Nuv64f* pDst, int len);
NUVAPI NuvStatus nuvsPhase_64fc(const Nuv64fc* pSrc, Nuv64f* pDst, int len);
/* ---------------------------------------------------------------- Cartesian and polar form */
NUVAPI NuvStatus nuvsCartToPolar_16sc_Sfs(const Nuv16sc* pSrc, Nuv16s* pDstMagn, Nuv16s* pDstPhase, int len, int magnScaleFactor, int phaseScaleFactor);
NUVAPI NuvStatus nuvsCartToPolar_32f(const Nuv32f* pSrcRe, const Nuv32f* pSrcIm, Nuv32f* pDstMagn, Nuv32f* pDstPhase, int len);
NUVAPI NuvStatus nuvsCartToPolar_32fc(const Nuv32fc* pSrc, Nuv32f* pDstMagn, Nuv32f* pDstPhase, int len);
NUVAPI NuvStatus nuvsCartToPolar_64f(const Nuv64f* pSrcRe, const Nuv64f* pSrcIm, Nuv64f* pDstMagn, Nuv64f* pDstPhase, int len);
NUVAPI NuvStatus nuvsCartToPolar_64fc(const Nuv64fc* pSrc, Nuv64f* pDstMagn, Nuv64f* pDstPhase, int len);
/* Fixed-point phases carry phaseFixedPoint fraction bits (0..15 for 16sc, 0..31 for 32sc). */
NUVAPI NuvStatus nuvsPolarToCart_16sc(const Nuv16s* pSrcMagn, const Nuv16s* pSrcPhase, Nuv16sc* pDst, int len, int phaseFixedPoint);
NUVAPI NuvStatus nuvsPolarToCart_16sc_Sfs(const Nuv16s* pSrcMagn, const Nuv16s* pSrcPhase, Nuv16sc* pDst, int len, int scaleFactor);
NUVAPI NuvStatus nuvsPolarToCart_32f(const Nuv32f* pSrcMagn, const Nuv32f* pSrcPhase, Nuv32f* pDstRe, Nuv32f* pDstIm, int len);
NUVAPI NuvStatus nuvsPolarToCart_32fc(const Nuv32f* pSrcMagn, const Nuv32f* pSrcPhase, Nuv32fc* pDst, int len);
NUVAPI NuvStatus nuvsPolarToCart_32sc(const Nuv32s* pSrcMagn, const Nuv32s* pSrcPhase, Nuv32sc* pDst, int len, int phaseFixedPoint);
NUVAPI NuvStatus nuvsPolarToCart_64f(const Nuv64f* pSrcMagn, const Nuv64f* pSrcPhase, Nuv64f* pDstRe, Nuv64f* pDstIm, int len);
NUVAPI NuvStatus nuvsPolarToCart_64fc(const Nuv64f* pSrcMagn, const Nuv64f* pSrcPhase, Nuv64fc* pDst, int len);

/* ================================================================ thresholds */
/* (section: threshold) */
/* plain: level as a floor (relOp 0) or a ceiling (relOp 4) */
NUVAPI NuvStatus nuvsThreshold_16s(const Nuv16s* pSrc, Nuv16s* pDst, int len, Nuv16s level, NuvCmpOp relOp);
NUVAPI NuvStatus nuvsThreshold_16s_I(Nuv16s* pSrcDst, int len, Nuv16s level, NuvCmpOp relOp);
NUVAPI NuvStatus nuvsThreshold_16sc(const Nuv16sc* pSrc, Nuv16sc* pDst, int len, Nuv16s level, NuvCmpOp relOp);
NUVAPI NuvStatus nuvsThreshold_16sc_I(Nuv16sc* pSrcDst, int len, Nuv16s level, NuvCmpOp relOp);
NUVAPI NuvStatus nuvsThreshold_32f(const Nuv32f* pSrc, Nuv32f* pDst, int len, Nuv32f level, NuvCmpOp relOp);
NUVAPI NuvStatus nuvsThreshold_32f_I(Nuv32f* pSrcDst, int len, Nuv32f level, NuvCmpOp relOp);
NUVAPI NuvStatus nuvsThreshold_32fc(const Nuv32fc* pSrc, Nuv32fc* pDst, int len, Nuv32f level, NuvCmpOp relOp);
NUVAPI NuvStatus nuvsThreshold_32fc_I(Nuv32fc* pSrcDst, int len, Nuv32f level, NuvCmpOp relOp);
NUVAPI NuvStatus nuvsThreshold_64f(const Nuv64f* pSrc, Nuv64f* pDst, int len, Nuv64f level, NuvCmpOp relOp);
NUVAPI NuvStatus nuvsThreshold_64f_I(Nuv64f* pSrcDst, int len, Nuv64f level, NuvCmpOp relOp);
NUVAPI NuvStatus nuvsThreshold_64fc(const Nuv64fc* pSrc, Nuv64fc* pDst, int len, Nuv64f level, NuvCmpOp relOp);
NUVAPI NuvStatus nuvsThreshold_64fc_I(Nuv64fc* pSrcDst, int len, Nuv64f level, NuvCmpOp relOp);
/* LT: the level is a floor */
NUVAPI NuvStatus nuvsThreshold_LT_16s(const Nuv16s* pSrc, Nuv16s* pDst, int len, Nuv16s level);
NUVAPI NuvStatus nuvsThreshold_LT_16s_I(Nuv16s* pSrcDst, int len, Nuv16s level);
NUVAPI NuvStatus nuvsThreshold_LT_16sc(const Nuv16sc* pSrc, Nuv16sc* pDst, int len, Nuv16s level);
NUVAPI NuvStatus nuvsThreshold_LT_16sc_I(Nuv16sc* pSrcDst, int len, Nuv16s level);
NUVAPI NuvStatus nuvsThreshold_LT_32f(const Nuv32f* pSrc, Nuv32f* pDst, int len, Nuv32f level);
NUVAPI NuvStatus nuvsThreshold_LT_32f_I(Nuv32f* pSrcDst, int len, Nuv32f level);
NUVAPI NuvStatus nuvsThreshold_LT_32fc(const Nuv32fc* pSrc, Nuv32fc* pDst, int len, Nuv32f level);
NUVAPI NuvStatus nuvsThreshold_LT_32fc_I(Nuv32fc* pSrcDst, int len, Nuv32f level);
NUVAPI NuvStatus nuvsThreshold_LT_32s(const Nuv32s* pSrc, Nuv32s* pDst, int len, Nuv32s level);
NUVAPI NuvStatus nuvsThreshold_LT_32s_I(Nuv32s* pSrcDst, int len, Nuv32s level);
NUVAPI NuvStatus nuvsThreshold_LT_64f(const Nuv64f* pSrc, Nuv64f* pDst, int len, Nuv64f level);
NUVAPI NuvStatus nuvsThreshold_LT_64f_I(Nuv64f* pSrcDst, int len, Nuv64f level);
NUVAPI NuvStatus nuvsThreshold_LT_64fc(const Nuv64fc* pSrc, Nuv64fc* pDst, int len, Nuv64f level);
NUVAPI NuvStatus nuvsThreshold_LT_64fc_I(Nuv64fc* pSrcDst, int len, Nuv64f level);
/* GT: the level is a ceiling */
NUVAPI NuvStatus nuvsThreshold_GT_16s(const Nuv16s* pSrc, Nuv16s* pDst, int len, Nuv16s level);
NUVAPI NuvStatus nuvsThreshold_GT_16s_I(Nuv16s* pSrcDst, int len, Nuv16s level);
NUVAPI NuvStatus nuvsThreshold_GT_16sc(const Nuv16sc* pSrc, Nuv16sc* pDst, int len, Nuv16s level);
NUVAPI NuvStatus nuvsThreshold_GT_16sc_I(Nuv16sc* pSrcDst, int len, Nuv16s level);
NUVAPI NuvStatus nuvsThreshold_GT_32f(const Nuv32f* pSrc, Nuv32f* pDst, int len, Nuv32f level);
NUVAPI NuvStatus nuvsThreshold_GT_32f_I(Nuv32f* pSrcDst, int len, Nuv32f level);
NUVAPI NuvStatus nuvsThreshold_GT_32fc(const Nuv32fc* pSrc, Nuv32fc* pDst, int len, Nuv32f level);
NUVAPI NuvStatus nuvsThreshold_GT_32fc_I(Nuv32fc* pSrcDst, int len, Nuv32f level);
NUVAPI NuvStatus nuvsThreshold_GT_32s(const Nuv32s* pSrc, Nuv32s* pDst, int len, Nuv32s level);
NUVAPI NuvStatus nuvsThreshold_GT_32s_I(Nuv32s* pSrcDst, int len, Nuv32s level);
NUVAPI NuvStatus nuvsThreshold_GT_64f(const Nuv64f* pSrc, Nuv64f* pDst, int len, Nuv64f level);
NUVAPI NuvStatus nuvsThreshold_GT_64f_I(Nuv64f* pSrcDst, int len, Nuv64f level);
NUVAPI NuvStatus nuvsThreshold_GT_64fc(const Nuv64fc* pSrc, Nuv64fc* pDst, int len, Nuv64f level);
NUVAPI NuvStatus nuvsThreshold_GT_64fc_I(Nuv64fc* pSrcDst, int len, Nuv64f level);
/* LTVal: elements below the level become value */
NUVAPI NuvStatus nuvsThreshold_LTVal_16s(const Nuv16s* pSrc, Nuv16s* pDst, int len, Nuv16s level, Nuv16s value);
NUVAPI NuvStatus nuvsThreshold_LTVal_16s_I(Nuv16s* pSrcDst, int len, Nuv16s level, Nuv16s value);
NUVAPI NuvStatus nuvsThreshold_LTVal_16sc(const Nuv16sc* pSrc, Nuv16sc* pDst, int len, Nuv16s level, Nuv16sc value);
NUVAPI NuvStatus nuvsThreshold_LTVal_16sc_I(Nuv16sc* pSrcDst, int len, Nuv16s level, Nuv16sc value);
NUVAPI NuvStatus nuvsThreshold_LTVal_32f(const Nuv32f* pSrc, Nuv32f* pDst, int len, Nuv32f level, Nuv32f value);
NUVAPI NuvStatus nuvsThreshold_LTVal_32f_I(Nuv32f* pSrcDst, int len, Nuv32f level, Nuv32f value);
NUVAPI NuvStatus nuvsThreshold_LTVal_32fc(const Nuv32fc* pSrc, Nuv32fc* pDst, int len, Nuv32f level, Nuv32fc value);
NUVAPI NuvStatus nuvsThreshold_LTVal_32fc_I(Nuv32fc* pSrcDst, int len, Nuv32f level, Nuv32fc value);
NUVAPI NuvStatus nuvsThreshold_LTVal_64f(const Nuv64f* pSrc, Nuv64f* pDst, int len, Nuv64f level, Nuv64f value);
NUVAPI NuvStatus nuvsThreshold_LTVal_64f_I(Nuv64f* pSrcDst, int len, Nuv64f level, Nuv64f value);
NUVAPI NuvStatus nuvsThreshold_LTVal_64fc(const Nuv64fc* pSrc, Nuv64fc* pDst, int len, Nuv64f level, Nuv64fc value);
NUVAPI NuvStatus nuvsThreshold_LTVal_64fc_I(Nuv64fc* pSrcDst, int len, Nuv64f level, Nuv64fc value);
/* GTVal: elements above the level become value */
NUVAPI NuvStatus nuvsThreshold_GTVal_16s(const Nuv16s* pSrc, Nuv16s* pDst, int len, Nuv16s level, Nuv16s value);
NUVAPI NuvStatus nuvsThreshold_GTVal_16s_I(Nuv16s* pSrcDst, int len, Nuv16s level, Nuv16s value);
NUVAPI NuvStatus nuvsThreshold_GTVal_16sc(const Nuv16sc* pSrc, Nuv16sc* pDst, int len, Nuv16s level, Nuv16sc value);
NUVAPI NuvStatus nuvsThreshold_GTVal_16sc_I(Nuv16sc* pSrcDst, int len, Nuv16s level, Nuv16sc value);
NUVAPI NuvStatus nuvsThreshold_GTVal_32f(const Nuv32f* pSrc, Nuv32f* pDst, int len, Nuv32f level, Nuv32f value);
NUVAPI NuvStatus nuvsThreshold_GTVal_32f_I(Nuv32f* pSrcDst, int len, Nuv32f level, Nuv32f value);
NUVAPI NuvStatus nuvsThreshold_GTVal_32fc(const Nuv32fc* pSrc, Nuv32fc* pDst, int len, Nuv32f level, Nuv32fc value);
NUVAPI NuvStatus nuvsThreshold_GTVal_32fc_I(Nuv32fc* pSrcDst, int len, Nuv32f level, Nuv32fc value);
NUVAPI NuvStatus nuvsThreshold_GTVal_64f(const Nuv64f* pSrc, Nuv64f* pDst, int len, Nuv64f level, Nuv64f value);
NUVAPI NuvStatus nuvsThreshold_GTVal_64f_I(Nuv64f* pSrcDst, int len, Nuv64f level, Nuv64f value);
NUVAPI NuvStatus nuvsThreshold_GTVal_64fc(const Nuv64fc* pSrc, Nuv64fc* pDst, int len, Nuv64f level, Nuv64fc value);
NUVAPI NuvStatus nuvsThreshold_GTVal_64fc_I(Nuv64fc* pSrcDst, int len, Nuv64f level, Nuv64fc value);
/* LTAbs: magnitudes below the level become the level, with the sign of the element */
NUVAPI NuvStatus nuvsThreshold_LTAbs_16s(const Nuv16s* pSrc, Nuv16s* pDst, int len, Nuv16s level);
NUVAPI NuvStatus nuvsThreshold_LTAbs_16s_I(Nuv16s* pSrcDst, int len, Nuv16s level);
NUVAPI NuvStatus nuvsThreshold_LTAbs_32f(const Nuv32f* pSrc, Nuv32f* pDst, int len, Nuv32f level);
NUVAPI NuvStatus nuvsThreshold_LTAbs_32f_I(Nuv32f* pSrcDst, int len, Nuv32f level);
NUVAPI NuvStatus nuvsThreshold_LTAbs_32s(const Nuv32s* pSrc, Nuv32s* pDst, int len, Nuv32s level);
NUVAPI NuvStatus nuvsThreshold_LTAbs_32s_I(Nuv32s* pSrcDst, int len, Nuv32s level);
NUVAPI NuvStatus nuvsThreshold_LTAbs_64f(const Nuv64f* pSrc, Nuv64f* pDst, int len, Nuv64f level);
NUVAPI NuvStatus nuvsThreshold_LTAbs_64f_I(Nuv64f* pSrcDst, int len, Nuv64f level);
/* GTAbs: elements limited to the range -level to level */
NUVAPI NuvStatus nuvsThreshold_GTAbs_16s(const Nuv16s* pSrc, Nuv16s* pDst, int len, Nuv16s level);
NUVAPI NuvStatus nuvsThreshold_GTAbs_16s_I(Nuv16s* pSrcDst, int len, Nuv16s level);
NUVAPI NuvStatus nuvsThreshold_GTAbs_32f(const Nuv32f* pSrc, Nuv32f* pDst, int len, Nuv32f level);
NUVAPI NuvStatus nuvsThreshold_GTAbs_32f_I(Nuv32f* pSrcDst, int len, Nuv32f level);
NUVAPI NuvStatus nuvsThreshold_GTAbs_32s(const Nuv32s* pSrc, Nuv32s* pDst, int len, Nuv32s level);
NUVAPI NuvStatus nuvsThreshold_GTAbs_32s_I(Nuv32s* pSrcDst, int len, Nuv32s level);
NUVAPI NuvStatus nuvsThreshold_GTAbs_64f(const Nuv64f* pSrc, Nuv64f* pDst, int len, Nuv64f level);
NUVAPI NuvStatus nuvsThreshold_GTAbs_64f_I(Nuv64f* pSrcDst, int len, Nuv64f level);
/* LTInv: reciprocal of the element with its magnitude raised to at least the level */
NUVAPI NuvStatus nuvsThreshold_LTInv_32f(const Nuv32f* pSrc, Nuv32f* pDst, int len, Nuv32f level);
NUVAPI NuvStatus nuvsThreshold_LTInv_32f_I(Nuv32f* pSrcDst, int len, Nuv32f level);
NUVAPI NuvStatus nuvsThreshold_LTInv_32fc(const Nuv32fc* pSrc, Nuv32fc* pDst, int len, Nuv32f level);
NUVAPI NuvStatus nuvsThreshold_LTInv_32fc_I(Nuv32fc* pSrcDst, int len, Nuv32f level);
NUVAPI NuvStatus nuvsThreshold_LTInv_64f(const Nuv64f* pSrc, Nuv64f* pDst, int len, Nuv64f level);
NUVAPI NuvStatus nuvsThreshold_LTInv_64f_I(Nuv64f* pSrcDst, int len, Nuv64f level);
NUVAPI NuvStatus nuvsThreshold_LTInv_64fc(const Nuv64fc* pSrc, Nuv64fc* pDst, int len, Nuv64f level);
NUVAPI NuvStatus nuvsThreshold_LTInv_64fc_I(Nuv64fc* pSrcDst, int len, Nuv64f level);
/* LTValGTVal: below levelLT: valueLT, above levelGT: valueGT */
NUVAPI NuvStatus nuvsThreshold_LTValGTVal_16s(const Nuv16s* pSrc, Nuv16s* pDst, int len, Nuv16s levelLT, Nuv16s valueLT, Nuv16s levelGT, Nuv16s valueGT);
NUVAPI NuvStatus nuvsThreshold_LTValGTVal_16s_I(Nuv16s* pSrcDst, int len, Nuv16s levelLT, Nuv16s valueLT, Nuv16s levelGT, Nuv16s valueGT);
NUVAPI NuvStatus nuvsThreshold_LTValGTVal_32f(const Nuv32f* pSrc, Nuv32f* pDst, int len, Nuv32f levelLT, Nuv32f valueLT, Nuv32f levelGT, Nuv32f valueGT);
NUVAPI NuvStatus nuvsThreshold_LTValGTVal_32f_I(Nuv32f* pSrcDst, int len, Nuv32f levelLT, Nuv32f valueLT, Nuv32f levelGT, Nuv32f valueGT);
NUVAPI NuvStatus nuvsThreshold_LTValGTVal_32s(const Nuv32s* pSrc, Nuv32s* pDst, int len, Nuv32s levelLT, Nuv32s valueLT, Nuv32s levelGT, Nuv32s valueGT);
NUVAPI NuvStatus nuvsThreshold_LTValGTVal_32s_I(Nuv32s* pSrcDst, int len, Nuv32s levelLT, Nuv32s valueLT, Nuv32s levelGT, Nuv32s valueGT);
NUVAPI NuvStatus nuvsThreshold_LTValGTVal_64f(const Nuv64f* pSrc, Nuv64f* pDst, int len, Nuv64f levelLT, Nuv64f valueLT, Nuv64f levelGT, Nuv64f valueGT);
NUVAPI NuvStatus nuvsThreshold_LTValGTVal_64f_I(Nuv64f* pSrcDst, int len, Nuv64f levelLT, Nuv64f valueLT, Nuv64f levelGT, Nuv64f valueGT);

#ifdef __cplusplus
}
#endif
#endif /* NUVS_H */

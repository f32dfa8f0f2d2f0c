// Context records: the ids that mark them and the discipline that every family shares.
#pragma once
#include <cstdint>

#include "nuvs.h"

namespace nuv {

// Four characters read most significant byte first: fourcc("FI01") == 0x46493031.
constexpr uint32_t fourcc(const char (&s)[5]) {
    return uint32_t(uint8_t(s[0])) << 24 | uint32_t(uint8_t(s[1])) << 16 | uint32_t(uint8_t(s[2])) << 8 |
           uint32_t(uint8_t(s[3]));
}

// Ids of records.  No id is 0: a zeroed block never passes as a record, and Free stores 0.
namespace id {
enum : uint32_t {
    // FftSpec
    FftC16sc = 1, FftC16s = 2, FftR16s = 3, FftC32fc = 4, FftC32f = 5, FftR32f = 6,
    FftC64fc = 7, FftC64f = 8, FftR64f = 9,
    // DftSpec
    DftC16sc = 10, DftC16s = 11, DftR16s = 12, DftC32fc = 13, DftC32f = 14, DftR32f = 15,
    DftC64fc = 16, DftC64f = 17, DftR64f = 18,
    // DctSpec
    DctFwd16s = 19, DctInv16s = 20, DctFwd32f = 21, DctInv32f = 22, DctFwd64f = 23, DctInv64f = 24,
    // random generators
    RandUniform8u = 35, RandUniform16s = 36, RandUniform32f = 37,
    RandGauss8u = 38, RandGauss16s = 39, RandGauss32f = 40,
    // wavelets
    WtFwd32f = 41, WtFwd8u32f = 42, WtFwd8s32f = 43, WtFwd16u32f = 44, WtFwd16s32f = 45,
    WtInv32f = 50, WtInv32f8u = 51, WtInv32f8s = 52, WtInv32f16u = 53, WtInv32f16s = 54,
};

// Other transforms and generators.
inline constexpr uint32_t Hilbert32f32fc = fourcc("CMAE");
inline constexpr uint32_t Hilbert16s32fc = fourcc("CMAF");
inline constexpr uint32_t Hilbert16s16sc = fourcc("CMAG");
inline constexpr uint32_t ToneQ15_16s = fourcc("CMAH");
inline constexpr uint32_t TriangleQ15_16s = fourcc("CMAI");
inline constexpr uint32_t DftOutOrdC32fc = fourcc("CMAJ");
inline constexpr uint32_t DftOutOrdC64fc = fourcc("CMAK");
inline constexpr uint32_t FftC32sc = fourcc("CMAL");
inline constexpr uint32_t FftC32s = fourcc("CMAM");
inline constexpr uint32_t FftR32s = fourcc("CMAN");
inline constexpr uint32_t FftR16s32s = fourcc("CMAO");

// FIR records "FI01" .. "FI34" and IIR records "II01" .. "II30": the two digits count on.
constexpr uint32_t fir(int n) { return fourcc("FI00") + uint32_t(n / 10) * 0x100 + uint32_t(n % 10); }
constexpr uint32_t iir(int n) { return fourcc("II00") + uint32_t(n / 10) * 0x100 + uint32_t(n % 10); }
static_assert(fir(1) == 0x46493031 && fir(10) == 0x46493130 && fir(34) == 0x46493334);
static_assert(iir(9) == 0x49493039 && iir(30) == 0x49493330);

// Adaptive filters; the first ends in a zero byte.
inline constexpr uint32_t Lms32f16s = 0x4C4D5300;
inline constexpr uint32_t Lms32f = fourcc("LMS1");
inline constexpr uint32_t LmsMr32sc16sc = fourcc("LMSC");
inline constexpr uint32_t LmsMr32s16s = fourcc("LMSR");
}  // namespace id

// Null first, then the id; a record may accept more than one id (single- and multi-rate kinds).
template <class R, class... Ids>
[[gnu::always_inline]] inline NuvStatus checkRecord(const R* rec, Ids... ids) noexcept {
    if (!rec) return nuvStsNullPtr;
    const uint32_t got = *reinterpret_cast<const uint32_t*>(rec);
    return ((got == uint32_t(ids)) || ...) ? nuvStsOk : nuvStsContextMatch;
}

// Free: null, id, then the id is cleared so any later use fails, and the block is released only
// when InitAlloc made it.  R has the fields contextId, ownsMemory and memBase.
template <class R>
NuvStatus freeRecord(R* rec, uint32_t expected) noexcept {
    if (NuvStatus s = checkRecord(rec, expected)) return s;
    rec->contextId = 0;
    if (rec->ownsMemory) nuvsFree(rec->memBase);
    return nuvStsOk;
}

}  // namespace nuv

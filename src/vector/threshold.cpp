// Threshold family: floors, ceilings, replacement values, magnitude limits and limited reciprocals
// over real and complex vectors.
//
// Answers chosen where the rules leave room (details next to each kernel):
// - LTValGTVal lets a NaN element through: it is neither below levelLT nor above levelGT.
// - Complex floors: a zero element has no direction and becomes (level, 0); elements whose squared
//   magnitude leaves the normal single-precision range are scaled exactly instead of by the estimate.
//   A complex NaN compares false both ways and is copied by plain, LT and GT, replaced by LTVal, GTVal.
// - Integer LTAbs: the most negative element has a magnitude above every accepted level and is kept;
//   GTAbs needs no absolute value (min, then max with -level).
// - Complex LTInv: the magnitude is first raised to `level` by the floor rescaling, then the reciprocal
//   conj(z)/|z|^2 is taken in double; a zero element (level 0) gives (+-inf by the sign of re, -im).
#include "frame/check.h"
#include "frame/fpstate.h"
#include "nuvs.h"
#include "vector/threshold_kernels.h"

namespace {

using namespace nuv::thr;

// ---- real elements

// Floor (relOp 0) or ceiling (relOp 4); relOp is tested after the length, by choosing the loop.
template <class T>
NuvStatus thrPlain(const T* src, T* dst, int len, T level, int relOp) {
    if (NuvStatus s = nuv::check(len, src, dst)) return s;
    const T k[4] = {level, T(0), T(0), T(0)};
    if (relOp == nuvCmpLess) runReal<RuleLT>(src, dst, len, k);
    else if (relOp == nuvCmpGreater) runReal<RuleGT>(src, dst, len, k);
    else return nuvStsBadArg;
    return nuvStsOk;
}

template <class Rule, class T>
NuvStatus thrValue(const T* src, T* dst, int len, T level, T value) {
    if (NuvStatus s = nuv::check(len, src, dst)) return s;
    const T k[4] = {level, value, T(0), T(0)};
    runReal<Rule>(src, dst, len, k);
    return nuvStsOk;
}

template <class Rule, class T>
NuvStatus thrAbs(const T* src, T* dst, int len, T level) {
    if (NuvStatus s = nuv::check(len, src, dst)) return s;
    if (level < T(0)) return nuvStsNegLevel;
    const T k[4] = {level, T(-level), T(0), T(0)};
    if constexpr (std::is_same_v<T, float> && std::is_same_v<Rule, RuleLTAbs>)
        runRealWith<Rule, Lanes4f, kPlanLTAbs4B>(src, dst, len, k);
    else
        runReal<Rule>(src, dst, len, k);
    return nuvStsOk;
}

template <class T>
NuvStatus thrTwo(const T* src, T* dst, int len, T levelLT, T valueLT, T levelGT, T valueGT) {
    if (NuvStatus s = nuv::check(len, src, dst)) return s;
    if (levelLT > levelGT) return nuvStsLevelOrder;
    const T k[4] = {levelLT, valueLT, levelGT, valueGT};
    runReal<RuleLTValGTVal>(src, dst, len, k);
    return nuvStsOk;
}

// Runs `body` and, for a level of 0, reports a zero divisor met on the way: the zero-divide flag is
// cleared with all exceptions masked, read after the whole run, and the caller's word put back
// whenever it differs at the end, so that the flags this run raised don't reach the caller either.
template <class Body>
NuvStatus withZeroDivideWatch(bool watch, Body&& body) {
    if (!watch) {
        body();
        return nuvStsOk;
    }
    const unsigned saved = _mm_getcsr();
    const unsigned run = (saved | nuv::kMxcsrMasks) & ~unsigned(nuv::kMxcsrZeroDivFlag);
    if (run != saved) _mm_setcsr(run);
    body();
    asm volatile("" ::: "memory");
    const unsigned end = _mm_getcsr();
    if (end != saved) _mm_setcsr(saved);
    return (end & nuv::kMxcsrZeroDivFlag) ? nuvStsInvZeroWarn : nuvStsOk;
}

template <class T>
NuvStatus thrInv(const T* src, T* dst, int len, T level) {
    if (NuvStatus s = nuv::check(len, src, dst)) return s;
    if (level < T(0)) return nuvStsNegLevel;
    const T k[4] = {level, T(0), T(0), T(0)};
    return withZeroDivideWatch(level == T(0), [&] { runReal<RuleLTInv>(src, dst, len, k); });
}

// ---- complex elements

NuvStatus copyOut(const Nuv16sc* s, Nuv16sc* d, int n) { return nuvsCopy_16sc(s, d, n); }
NuvStatus copyOut(const Nuv32fc* s, Nuv32fc* d, int n) { return nuvsCopy_32fc(s, d, n); }
NuvStatus copyOut(const Nuv64fc* s, Nuv64fc* d, int n) { return nuvsCopy_64fc(s, d, n); }
NuvStatus zeroOut(Nuv16sc* d, int n) { return nuvsZero_16sc(d, n); }
NuvStatus zeroOut(Nuv32fc* d, int n) { return nuvsZero_32fc(d, n); }
NuvStatus zeroOut(Nuv64fc* d, int n) { return nuvsZero_64fc(d, n); }

// Floor (relOp 0) or ceiling (relOp 4) on the magnitude.  A level of 0 needs no element: the floor
// copies the source (nothing to do in place) and the ceiling zeroes the destination.
template <class C, class R>
NuvStatus cplxPlain(const C* src, C* dst, int len, R level, int relOp) {
    if (NuvStatus s = nuv::check(len, src, dst)) return s;
    if (relOp != nuvCmpLess && relOp != nuvCmpGreater) return nuvStsBadArg;
    if (level < R(0)) return nuvStsNegLevel;
    if (level == R(0)) {
        if (relOp == nuvCmpGreater) return zeroOut(dst, len);
        return src == dst ? nuvStsOk : copyOut(src, dst, len);
    }
    if (relOp == nuvCmpLess) runCplx(src, dst, len, typename RescaleOf<C, true>::type(level));
    else runCplx(src, dst, len, typename RescaleOf<C, false>::type(level));
    return nuvStsOk;
}

template <bool Below, class C, class R>
NuvStatus cplxValue(const C* src, C* dst, int len, R level, C value) {
    if (NuvStatus s = nuv::check(len, src, dst)) return s;
    if (level < R(0)) return nuvStsNegLevel;
    runCplx(src, dst, len, typename CplxValOf<C, Below>::type(level, value));
    return nuvStsOk;
}

template <class C, class F>
NuvStatus cplxInv(const C* src, C* dst, int len, F level) {
    if (NuvStatus s = nuv::check(len, src, dst)) return s;
    if (level < F(0)) return nuvStsNegLevel;
    if (level == F(0))
        return withZeroDivideWatch(true, [&] { runCplx(src, dst, len, CplxInv<F, false>(level)); });
    runCplx(src, dst, len, CplxInv<F, true>(level));
    return nuvStsOk;
}

}  // namespace

extern "C" {
// plain: floor or ceiling by relOp; LT and GT are its two rules
NuvStatus nuvsThreshold_16s(const Nuv16s* pSrc, Nuv16s* pDst, int len, Nuv16s level, NuvCmpOp relOp) { return thrPlain(pSrc, pDst, len, level, relOp); }
NuvStatus nuvsThreshold_16s_I(Nuv16s* pSrcDst, int len, Nuv16s level, NuvCmpOp relOp) { return thrPlain(pSrcDst, pSrcDst, len, level, relOp); }
NuvStatus nuvsThreshold_16sc(const Nuv16sc* pSrc, Nuv16sc* pDst, int len, Nuv16s level, NuvCmpOp relOp) { return cplxPlain(pSrc, pDst, len, level, relOp); }
NuvStatus nuvsThreshold_16sc_I(Nuv16sc* pSrcDst, int len, Nuv16s level, NuvCmpOp relOp) { return cplxPlain(pSrcDst, pSrcDst, len, level, relOp); }
NuvStatus nuvsThreshold_32f(const Nuv32f* pSrc, Nuv32f* pDst, int len, Nuv32f level, NuvCmpOp relOp) { return thrPlain(pSrc, pDst, len, level, relOp); }
NuvStatus nuvsThreshold_32f_I(Nuv32f* pSrcDst, int len, Nuv32f level, NuvCmpOp relOp) { return thrPlain(pSrcDst, pSrcDst, len, level, relOp); }
NuvStatus nuvsThreshold_32fc(const Nuv32fc* pSrc, Nuv32fc* pDst, int len, Nuv32f level, NuvCmpOp relOp) { return cplxPlain(pSrc, pDst, len, level, relOp); }
NuvStatus nuvsThreshold_32fc_I(Nuv32fc* pSrcDst, int len, Nuv32f level, NuvCmpOp relOp) { return cplxPlain(pSrcDst, pSrcDst, len, level, relOp); }
NuvStatus nuvsThreshold_64f(const Nuv64f* pSrc, Nuv64f* pDst, int len, Nuv64f level, NuvCmpOp relOp) { return thrPlain(pSrc, pDst, len, level, relOp); }
NuvStatus nuvsThreshold_64f_I(Nuv64f* pSrcDst, int len, Nuv64f level, NuvCmpOp relOp) { return thrPlain(pSrcDst, pSrcDst, len, level, relOp); }
NuvStatus nuvsThreshold_64fc(const Nuv64fc* pSrc, Nuv64fc* pDst, int len, Nuv64f level, NuvCmpOp relOp) { return cplxPlain(pSrc, pDst, len, level, relOp); }
NuvStatus nuvsThreshold_64fc_I(Nuv64fc* pSrcDst, int len, Nuv64f level, NuvCmpOp relOp) { return cplxPlain(pSrcDst, pSrcDst, len, level, relOp); }
// LT: floor (the 16s members are the plain routine with relOp 0)
NuvStatus nuvsThreshold_LT_16s(const Nuv16s* pSrc, Nuv16s* pDst, int len, Nuv16s level) { return nuvsThreshold_16s(pSrc, pDst, len, level, nuvCmpLess); }
NuvStatus nuvsThreshold_LT_16s_I(Nuv16s* pSrcDst, int len, Nuv16s level) { return nuvsThreshold_16s_I(pSrcDst, len, level, nuvCmpLess); }
NuvStatus nuvsThreshold_LT_16sc(const Nuv16sc* pSrc, Nuv16sc* pDst, int len, Nuv16s level) { return cplxPlain(pSrc, pDst, len, level, nuvCmpLess); }
NuvStatus nuvsThreshold_LT_16sc_I(Nuv16sc* pSrcDst, int len, Nuv16s level) { return cplxPlain(pSrcDst, pSrcDst, len, level, nuvCmpLess); }
NuvStatus nuvsThreshold_LT_32f(const Nuv32f* pSrc, Nuv32f* pDst, int len, Nuv32f level) { return thrPlain(pSrc, pDst, len, level, nuvCmpLess); }
NuvStatus nuvsThreshold_LT_32f_I(Nuv32f* pSrcDst, int len, Nuv32f level) { return thrPlain(pSrcDst, pSrcDst, len, level, nuvCmpLess); }
NuvStatus nuvsThreshold_LT_32fc(const Nuv32fc* pSrc, Nuv32fc* pDst, int len, Nuv32f level) { return cplxPlain(pSrc, pDst, len, level, nuvCmpLess); }
NuvStatus nuvsThreshold_LT_32fc_I(Nuv32fc* pSrcDst, int len, Nuv32f level) { return cplxPlain(pSrcDst, pSrcDst, len, level, nuvCmpLess); }
NuvStatus nuvsThreshold_LT_32s(const Nuv32s* pSrc, Nuv32s* pDst, int len, Nuv32s level) { return thrPlain(pSrc, pDst, len, level, nuvCmpLess); }
NuvStatus nuvsThreshold_LT_32s_I(Nuv32s* pSrcDst, int len, Nuv32s level) { return thrPlain(pSrcDst, pSrcDst, len, level, nuvCmpLess); }
NuvStatus nuvsThreshold_LT_64f(const Nuv64f* pSrc, Nuv64f* pDst, int len, Nuv64f level) { return thrPlain(pSrc, pDst, len, level, nuvCmpLess); }
NuvStatus nuvsThreshold_LT_64f_I(Nuv64f* pSrcDst, int len, Nuv64f level) { return thrPlain(pSrcDst, pSrcDst, len, level, nuvCmpLess); }
NuvStatus nuvsThreshold_LT_64fc(const Nuv64fc* pSrc, Nuv64fc* pDst, int len, Nuv64f level) { return cplxPlain(pSrc, pDst, len, level, nuvCmpLess); }
NuvStatus nuvsThreshold_LT_64fc_I(Nuv64fc* pSrcDst, int len, Nuv64f level) { return cplxPlain(pSrcDst, pSrcDst, len, level, nuvCmpLess); }
// GT: ceiling (the 16s members are the plain routine with relOp 4)
NuvStatus nuvsThreshold_GT_16s(const Nuv16s* pSrc, Nuv16s* pDst, int len, Nuv16s level) { return nuvsThreshold_16s(pSrc, pDst, len, level, nuvCmpGreater); }
NuvStatus nuvsThreshold_GT_16s_I(Nuv16s* pSrcDst, int len, Nuv16s level) { return nuvsThreshold_16s_I(pSrcDst, len, level, nuvCmpGreater); }
NuvStatus nuvsThreshold_GT_16sc(const Nuv16sc* pSrc, Nuv16sc* pDst, int len, Nuv16s level) { return cplxPlain(pSrc, pDst, len, level, nuvCmpGreater); }
NuvStatus nuvsThreshold_GT_16sc_I(Nuv16sc* pSrcDst, int len, Nuv16s level) { return cplxPlain(pSrcDst, pSrcDst, len, level, nuvCmpGreater); }
NuvStatus nuvsThreshold_GT_32f(const Nuv32f* pSrc, Nuv32f* pDst, int len, Nuv32f level) { return thrPlain(pSrc, pDst, len, level, nuvCmpGreater); }
NuvStatus nuvsThreshold_GT_32f_I(Nuv32f* pSrcDst, int len, Nuv32f level) { return thrPlain(pSrcDst, pSrcDst, len, level, nuvCmpGreater); }
NuvStatus nuvsThreshold_GT_32fc(const Nuv32fc* pSrc, Nuv32fc* pDst, int len, Nuv32f level) { return cplxPlain(pSrc, pDst, len, level, nuvCmpGreater); }
NuvStatus nuvsThreshold_GT_32fc_I(Nuv32fc* pSrcDst, int len, Nuv32f level) { return cplxPlain(pSrcDst, pSrcDst, len, level, nuvCmpGreater); }
NuvStatus nuvsThreshold_GT_32s(const Nuv32s* pSrc, Nuv32s* pDst, int len, Nuv32s level) { return thrPlain(pSrc, pDst, len, level, nuvCmpGreater); }
NuvStatus nuvsThreshold_GT_32s_I(Nuv32s* pSrcDst, int len, Nuv32s level) { return thrPlain(pSrcDst, pSrcDst, len, level, nuvCmpGreater); }
NuvStatus nuvsThreshold_GT_64f(const Nuv64f* pSrc, Nuv64f* pDst, int len, Nuv64f level) { return thrPlain(pSrc, pDst, len, level, nuvCmpGreater); }
NuvStatus nuvsThreshold_GT_64f_I(Nuv64f* pSrcDst, int len, Nuv64f level) { return thrPlain(pSrcDst, pSrcDst, len, level, nuvCmpGreater); }
NuvStatus nuvsThreshold_GT_64fc(const Nuv64fc* pSrc, Nuv64fc* pDst, int len, Nuv64f level) { return cplxPlain(pSrc, pDst, len, level, nuvCmpGreater); }
NuvStatus nuvsThreshold_GT_64fc_I(Nuv64fc* pSrcDst, int len, Nuv64f level) { return cplxPlain(pSrcDst, pSrcDst, len, level, nuvCmpGreater); }
// LTVal
NuvStatus nuvsThreshold_LTVal_16s(const Nuv16s* pSrc, Nuv16s* pDst, int len, Nuv16s level, Nuv16s value) { return thrValue<RuleLTVal>(pSrc, pDst, len, level, value); }
NuvStatus nuvsThreshold_LTVal_16s_I(Nuv16s* pSrcDst, int len, Nuv16s level, Nuv16s value) { return thrValue<RuleLTVal>(pSrcDst, pSrcDst, len, level, value); }
NuvStatus nuvsThreshold_LTVal_16sc(const Nuv16sc* pSrc, Nuv16sc* pDst, int len, Nuv16s level, Nuv16sc value) { return cplxValue<true>(pSrc, pDst, len, level, value); }
NuvStatus nuvsThreshold_LTVal_16sc_I(Nuv16sc* pSrcDst, int len, Nuv16s level, Nuv16sc value) { return cplxValue<true>(pSrcDst, pSrcDst, len, level, value); }
NuvStatus nuvsThreshold_LTVal_32f(const Nuv32f* pSrc, Nuv32f* pDst, int len, Nuv32f level, Nuv32f value) { return thrValue<RuleLTVal>(pSrc, pDst, len, level, value); }
NuvStatus nuvsThreshold_LTVal_32f_I(Nuv32f* pSrcDst, int len, Nuv32f level, Nuv32f value) { return thrValue<RuleLTVal>(pSrcDst, pSrcDst, len, level, value); }
NuvStatus nuvsThreshold_LTVal_32fc(const Nuv32fc* pSrc, Nuv32fc* pDst, int len, Nuv32f level, Nuv32fc value) { return cplxValue<true>(pSrc, pDst, len, level, value); }
NuvStatus nuvsThreshold_LTVal_32fc_I(Nuv32fc* pSrcDst, int len, Nuv32f level, Nuv32fc value) { return cplxValue<true>(pSrcDst, pSrcDst, len, level, value); }
NuvStatus nuvsThreshold_LTVal_64f(const Nuv64f* pSrc, Nuv64f* pDst, int len, Nuv64f level, Nuv64f value) { return thrValue<RuleLTVal>(pSrc, pDst, len, level, value); }
NuvStatus nuvsThreshold_LTVal_64f_I(Nuv64f* pSrcDst, int len, Nuv64f level, Nuv64f value) { return thrValue<RuleLTVal>(pSrcDst, pSrcDst, len, level, value); }
NuvStatus nuvsThreshold_LTVal_64fc(const Nuv64fc* pSrc, Nuv64fc* pDst, int len, Nuv64f level, Nuv64fc value) { return cplxValue<true>(pSrc, pDst, len, level, value); }
NuvStatus nuvsThreshold_LTVal_64fc_I(Nuv64fc* pSrcDst, int len, Nuv64f level, Nuv64fc value) { return cplxValue<true>(pSrcDst, pSrcDst, len, level, value); }
// GTVal
NuvStatus nuvsThreshold_GTVal_16s(const Nuv16s* pSrc, Nuv16s* pDst, int len, Nuv16s level, Nuv16s value) { return thrValue<RuleGTVal>(pSrc, pDst, len, level, value); }
NuvStatus nuvsThreshold_GTVal_16s_I(Nuv16s* pSrcDst, int len, Nuv16s level, Nuv16s value) { return thrValue<RuleGTVal>(pSrcDst, pSrcDst, len, level, value); }
NuvStatus nuvsThreshold_GTVal_16sc(const Nuv16sc* pSrc, Nuv16sc* pDst, int len, Nuv16s level, Nuv16sc value) { return cplxValue<false>(pSrc, pDst, len, level, value); }
NuvStatus nuvsThreshold_GTVal_16sc_I(Nuv16sc* pSrcDst, int len, Nuv16s level, Nuv16sc value) { return cplxValue<false>(pSrcDst, pSrcDst, len, level, value); }
NuvStatus nuvsThreshold_GTVal_32f(const Nuv32f* pSrc, Nuv32f* pDst, int len, Nuv32f level, Nuv32f value) { return thrValue<RuleGTVal>(pSrc, pDst, len, level, value); }
NuvStatus nuvsThreshold_GTVal_32f_I(Nuv32f* pSrcDst, int len, Nuv32f level, Nuv32f value) { return thrValue<RuleGTVal>(pSrcDst, pSrcDst, len, level, value); }
NuvStatus nuvsThreshold_GTVal_32fc(const Nuv32fc* pSrc, Nuv32fc* pDst, int len, Nuv32f level, Nuv32fc value) { return cplxValue<false>(pSrc, pDst, len, level, value); }
NuvStatus nuvsThreshold_GTVal_32fc_I(Nuv32fc* pSrcDst, int len, Nuv32f level, Nuv32fc value) { return cplxValue<false>(pSrcDst, pSrcDst, len, level, value); }
NuvStatus nuvsThreshold_GTVal_64f(const Nuv64f* pSrc, Nuv64f* pDst, int len, Nuv64f level, Nuv64f value) { return thrValue<RuleGTVal>(pSrc, pDst, len, level, value); }
NuvStatus nuvsThreshold_GTVal_64f_I(Nuv64f* pSrcDst, int len, Nuv64f level, Nuv64f value) { return thrValue<RuleGTVal>(pSrcDst, pSrcDst, len, level, value); }
NuvStatus nuvsThreshold_GTVal_64fc(const Nuv64fc* pSrc, Nuv64fc* pDst, int len, Nuv64f level, Nuv64fc value) { return cplxValue<false>(pSrc, pDst, len, level, value); }
NuvStatus nuvsThreshold_GTVal_64fc_I(Nuv64fc* pSrcDst, int len, Nuv64f level, Nuv64fc value) { return cplxValue<false>(pSrcDst, pSrcDst, len, level, value); }
// LTAbs
NuvStatus nuvsThreshold_LTAbs_16s(const Nuv16s* pSrc, Nuv16s* pDst, int len, Nuv16s level) { return thrAbs<RuleLTAbs>(pSrc, pDst, len, level); }
NuvStatus nuvsThreshold_LTAbs_16s_I(Nuv16s* pSrcDst, int len, Nuv16s level) { return thrAbs<RuleLTAbs>(pSrcDst, pSrcDst, len, level); }
NuvStatus nuvsThreshold_LTAbs_32f(const Nuv32f* pSrc, Nuv32f* pDst, int len, Nuv32f level) { return thrAbs<RuleLTAbs>(pSrc, pDst, len, level); }
NuvStatus nuvsThreshold_LTAbs_32f_I(Nuv32f* pSrcDst, int len, Nuv32f level) { return thrAbs<RuleLTAbs>(pSrcDst, pSrcDst, len, level); }
NuvStatus nuvsThreshold_LTAbs_32s(const Nuv32s* pSrc, Nuv32s* pDst, int len, Nuv32s level) { return thrAbs<RuleLTAbs>(pSrc, pDst, len, level); }
NuvStatus nuvsThreshold_LTAbs_32s_I(Nuv32s* pSrcDst, int len, Nuv32s level) { return thrAbs<RuleLTAbs>(pSrcDst, pSrcDst, len, level); }
NuvStatus nuvsThreshold_LTAbs_64f(const Nuv64f* pSrc, Nuv64f* pDst, int len, Nuv64f level) { return thrAbs<RuleLTAbs>(pSrc, pDst, len, level); }
NuvStatus nuvsThreshold_LTAbs_64f_I(Nuv64f* pSrcDst, int len, Nuv64f level) { return thrAbs<RuleLTAbs>(pSrcDst, pSrcDst, len, level); }
// GTAbs
NuvStatus nuvsThreshold_GTAbs_16s(const Nuv16s* pSrc, Nuv16s* pDst, int len, Nuv16s level) { return thrAbs<RuleGTAbs>(pSrc, pDst, len, level); }
NuvStatus nuvsThreshold_GTAbs_16s_I(Nuv16s* pSrcDst, int len, Nuv16s level) { return thrAbs<RuleGTAbs>(pSrcDst, pSrcDst, len, level); }
NuvStatus nuvsThreshold_GTAbs_32f(const Nuv32f* pSrc, Nuv32f* pDst, int len, Nuv32f level) { return thrAbs<RuleGTAbs>(pSrc, pDst, len, level); }
NuvStatus nuvsThreshold_GTAbs_32f_I(Nuv32f* pSrcDst, int len, Nuv32f level) { return thrAbs<RuleGTAbs>(pSrcDst, pSrcDst, len, level); }
NuvStatus nuvsThreshold_GTAbs_32s(const Nuv32s* pSrc, Nuv32s* pDst, int len, Nuv32s level) { return thrAbs<RuleGTAbs>(pSrc, pDst, len, level); }
NuvStatus nuvsThreshold_GTAbs_32s_I(Nuv32s* pSrcDst, int len, Nuv32s level) { return thrAbs<RuleGTAbs>(pSrcDst, pSrcDst, len, level); }
NuvStatus nuvsThreshold_GTAbs_64f(const Nuv64f* pSrc, Nuv64f* pDst, int len, Nuv64f level) { return thrAbs<RuleGTAbs>(pSrc, pDst, len, level); }
NuvStatus nuvsThreshold_GTAbs_64f_I(Nuv64f* pSrcDst, int len, Nuv64f level) { return thrAbs<RuleGTAbs>(pSrcDst, pSrcDst, len, level); }
// LTInv
NuvStatus nuvsThreshold_LTInv_32f(const Nuv32f* pSrc, Nuv32f* pDst, int len, Nuv32f level) { return thrInv(pSrc, pDst, len, level); }
NuvStatus nuvsThreshold_LTInv_32f_I(Nuv32f* pSrcDst, int len, Nuv32f level) { return thrInv(pSrcDst, pSrcDst, len, level); }
NuvStatus nuvsThreshold_LTInv_32fc(const Nuv32fc* pSrc, Nuv32fc* pDst, int len, Nuv32f level) { return cplxInv(pSrc, pDst, len, level); }
NuvStatus nuvsThreshold_LTInv_32fc_I(Nuv32fc* pSrcDst, int len, Nuv32f level) { return cplxInv(pSrcDst, pSrcDst, len, level); }
NuvStatus nuvsThreshold_LTInv_64f(const Nuv64f* pSrc, Nuv64f* pDst, int len, Nuv64f level) { return thrInv(pSrc, pDst, len, level); }
NuvStatus nuvsThreshold_LTInv_64f_I(Nuv64f* pSrcDst, int len, Nuv64f level) { return thrInv(pSrcDst, pSrcDst, len, level); }
NuvStatus nuvsThreshold_LTInv_64fc(const Nuv64fc* pSrc, Nuv64fc* pDst, int len, Nuv64f level) { return cplxInv(pSrc, pDst, len, level); }
NuvStatus nuvsThreshold_LTInv_64fc_I(Nuv64fc* pSrcDst, int len, Nuv64f level) { return cplxInv(pSrcDst, pSrcDst, len, level); }
// LTValGTVal
NuvStatus nuvsThreshold_LTValGTVal_16s(const Nuv16s* pSrc, Nuv16s* pDst, int len, Nuv16s levelLT, Nuv16s valueLT, Nuv16s levelGT, Nuv16s valueGT) { return thrTwo(pSrc, pDst, len, levelLT, valueLT, levelGT, valueGT); }
NuvStatus nuvsThreshold_LTValGTVal_16s_I(Nuv16s* pSrcDst, int len, Nuv16s levelLT, Nuv16s valueLT, Nuv16s levelGT, Nuv16s valueGT) { return thrTwo(pSrcDst, pSrcDst, len, levelLT, valueLT, levelGT, valueGT); }
NuvStatus nuvsThreshold_LTValGTVal_32f(const Nuv32f* pSrc, Nuv32f* pDst, int len, Nuv32f levelLT, Nuv32f valueLT, Nuv32f levelGT, Nuv32f valueGT) { return thrTwo(pSrc, pDst, len, levelLT, valueLT, levelGT, valueGT); }
NuvStatus nuvsThreshold_LTValGTVal_32f_I(Nuv32f* pSrcDst, int len, Nuv32f levelLT, Nuv32f valueLT, Nuv32f levelGT, Nuv32f valueGT) { return thrTwo(pSrcDst, pSrcDst, len, levelLT, valueLT, levelGT, valueGT); }
NuvStatus nuvsThreshold_LTValGTVal_32s(const Nuv32s* pSrc, Nuv32s* pDst, int len, Nuv32s levelLT, Nuv32s valueLT, Nuv32s levelGT, Nuv32s valueGT) { return thrTwo(pSrc, pDst, len, levelLT, valueLT, levelGT, valueGT); }
NuvStatus nuvsThreshold_LTValGTVal_32s_I(Nuv32s* pSrcDst, int len, Nuv32s levelLT, Nuv32s valueLT, Nuv32s levelGT, Nuv32s valueGT) { return thrTwo(pSrcDst, pSrcDst, len, levelLT, valueLT, levelGT, valueGT); }
NuvStatus nuvsThreshold_LTValGTVal_64f(const Nuv64f* pSrc, Nuv64f* pDst, int len, Nuv64f levelLT, Nuv64f valueLT, Nuv64f levelGT, Nuv64f valueGT) { return thrTwo(pSrc, pDst, len, levelLT, valueLT, levelGT, valueGT); }
NuvStatus nuvsThreshold_LTValGTVal_64f_I(Nuv64f* pSrcDst, int len, Nuv64f levelLT, Nuv64f valueLT, Nuv64f levelGT, Nuv64f valueGT) { return thrTwo(pSrcDst, pSrcDst, len, levelLT, valueLT, levelGT, valueGT); }
}

// Bit logic and shifts: differential tests against scalar models in 64-bit integers, and the
// order of checks where neutral or overlong constants turn into Copy and Zero.
#include <climits>
#include <functional>

#include "support/support.h"

namespace {

// ---------------------------------------------------------------- models

enum class LogicOp { And, Or, Xor };

template <class T>
T logicModel(LogicOp op, T a, T b) {
    const uint64_t x = uint64_t(a), y = uint64_t(b);
    const uint64_t r = op == LogicOp::And ? (x & y) : op == LogicOp::Or ? (x | y) : (x ^ y);
    return T(r);
}

// Shifts on the value widened to 64 bits: left keeps the low w bits, right is logical on
// unsigned and arithmetic on signed elements, and a count of w or more runs out naturally.
template <class T>
T shiftModel(bool left, T x, int k) {
    constexpr int w = int(8 * sizeof(T));
    if (left) {
        if (k >= w) return T(0);
        const uint64_t u = uint64_t(std::make_unsigned_t<T>(x)) << k;
        return T(std::make_unsigned_t<T>(u & ((uint64_t(1) << w) - 1)));
    }
    const int64_t v = int64_t(x);  // sign-extends signed T, zero-extends unsigned T
    return T(v >> (k < 63 ? k : 63));
}

// Element pointers: a few element-aligned and one register-unaligned position.
template <class T>
std::vector<size_t> offsets() {
    return {0, sizeof(T), 7 * sizeof(T)};
}

// ---------------------------------------------------------------- And, Or, Xor, AndC, OrC, XorC, Not

template <class T>
struct LogicFns {
    using Bin = NuvStatus (*)(const T*, const T*, T*, int);
    using BinI = NuvStatus (*)(const T*, T*, int);
    using Con = NuvStatus (*)(const T*, T, T*, int);
    using ConI = NuvStatus (*)(T, T*, int);
    Bin bin[3];
    BinI binI[3];
    Con con[3];
    ConI conI[3];
    NuvStatus (*notN)(const T*, T*, int);
    NuvStatus (*notI)(T*, int);
};

template <class T> LogicFns<T> logicFns();
template <> LogicFns<Nuv8u> logicFns() {
    return {{nuvsAnd_8u, nuvsOr_8u, nuvsXor_8u}, {nuvsAnd_8u_I, nuvsOr_8u_I, nuvsXor_8u_I},
            {nuvsAndC_8u, nuvsOrC_8u, nuvsXorC_8u}, {nuvsAndC_8u_I, nuvsOrC_8u_I, nuvsXorC_8u_I},
            nuvsNot_8u, nuvsNot_8u_I};
}
template <> LogicFns<Nuv16u> logicFns() {
    return {{nuvsAnd_16u, nuvsOr_16u, nuvsXor_16u}, {nuvsAnd_16u_I, nuvsOr_16u_I, nuvsXor_16u_I},
            {nuvsAndC_16u, nuvsOrC_16u, nuvsXorC_16u}, {nuvsAndC_16u_I, nuvsOrC_16u_I, nuvsXorC_16u_I},
            nuvsNot_16u, nuvsNot_16u_I};
}
template <> LogicFns<Nuv32u> logicFns() {
    return {{nuvsAnd_32u, nuvsOr_32u, nuvsXor_32u}, {nuvsAnd_32u_I, nuvsOr_32u_I, nuvsXor_32u_I},
            {nuvsAndC_32u, nuvsOrC_32u, nuvsXorC_32u}, {nuvsAndC_32u_I, nuvsOrC_32u_I, nuvsXorC_32u_I},
            nuvsNot_32u, nuvsNot_32u_I};
}

template <class T>
class LogicVectors : public ::testing::Test {};
using LogicTypes = ::testing::Types<Nuv8u, Nuv16u, Nuv32u>;
TYPED_TEST_SUITE(LogicVectors, LogicTypes);

// Runs `call` on a guarded destination (the in-place forms get the source copied into it first)
// and compares every element with `model`.
template <class T, class Call, class Model>
void expectElements(int n, size_t off, bool inPlace, const std::vector<T>& src, Call&& call, Model&& model,
                    const std::string& what) {
    nt::Buf<T> dst(n, off);
    if (inPlace) dst.copyFrom(src);
    ASSERT_EQ(call(dst.data()), nuvStsOk) << what << " len " << n;
    ASSERT_TRUE(dst.intact()) << what << " len " << n;
    for (int i = 0; i < n; ++i)
        ASSERT_EQ(uint64_t(dst[i]), uint64_t(model(i))) << what << " len " << n << " at " << i;
}

TYPED_TEST(LogicVectors, TwoArraysMatchModel) {
    using T = TypeParam;
    const auto f = logicFns<T>();
    for (int n : nt::sweepLengths())
        for (size_t off : offsets<T>())
            for (int op = 0; op < 3; ++op) {
                nt::Buf<T> a(n, off), b(n, sizeof(T) * 3);
                a.copyFrom(nt::randomInts<T>(n));
                b.copyFrom(nt::randomInts<T>(n));
                const auto B = b.vec();
                auto model = [&](int i) { return logicModel(LogicOp(op), a[i], B[size_t(i)]); };
                const std::string what = "op " + std::to_string(op) + " off " + std::to_string(off);
                expectElements<T>(n, off, false, {}, [&](T* d) { return f.bin[op](a.data(), b.data(), d, n); }, model, what);
                expectElements<T>(n, off, true, B, [&](T* d) { return f.binI[op](a.data(), d, n); }, model, what + " _I");
                // The same array as both operands.
                expectElements<T>(n, off, true, B, [&](T* d) { return f.binI[op](d, d, n); },
                                  [&](int i) { return logicModel(LogicOp(op), B[size_t(i)], B[size_t(i)]); }, what + " self");
            }
}

TYPED_TEST(LogicVectors, ConstantAndNotMatchModel) {
    using T = TypeParam;
    const auto f = logicFns<T>();
    const T ones = T(~T(0));
    for (int n : nt::sweepLengths())
        for (size_t off : offsets<T>()) {
            nt::Buf<T> a(n, off ^ sizeof(T));
            a.copyFrom(nt::randomInts<T>(n));
            const auto A = a.vec();
            // 0 and all ones are the neutral and absorbing values; the others have mixed bits.
            for (T val : {T(0), ones, T(0x5A), T(0xA5C3u), T(nt::randomInts<T>(3)[1])})
                for (int op = 0; op < 3; ++op) {
                    auto model = [&](int i) { return logicModel(LogicOp(op), A[size_t(i)], val); };
                    const std::string what = "op " + std::to_string(op) + " val " + std::to_string(uint64_t(val));
                    expectElements<T>(n, off, false, {}, [&](T* d) { return f.con[op](a.data(), val, d, n); }, model, what);
                    expectElements<T>(n, off, true, A, [&](T* d) { return f.conI[op](val, d, n); }, model, what + " _I");
                }
            auto notModel = [&](int i) { return T(~A[size_t(i)]); };
            expectElements<T>(n, off, false, {}, [&](T* d) { return f.notN(a.data(), d, n); }, notModel, "Not");
            expectElements<T>(n, off, true, A, [&](T* d) { return f.notI(d, n); }, notModel, "Not_I");
        }
}

// ---------------------------------------------------------------- LShiftC, RShiftC

template <class T>
struct ShiftFns {
    NuvStatus (*left)(const T*, int, T*, int);
    NuvStatus (*leftI)(int, T*, int);
    NuvStatus (*right)(const T*, int, T*, int);
    NuvStatus (*rightI)(int, T*, int);
};
template <class T> ShiftFns<T> shiftFns();
template <> ShiftFns<Nuv8u> shiftFns() { return {nuvsLShiftC_8u, nuvsLShiftC_8u_I, nuvsRShiftC_8u, nuvsRShiftC_8u_I}; }
template <> ShiftFns<Nuv16u> shiftFns() { return {nuvsLShiftC_16u, nuvsLShiftC_16u_I, nuvsRShiftC_16u, nuvsRShiftC_16u_I}; }
template <> ShiftFns<Nuv16s> shiftFns() { return {nuvsLShiftC_16s, nuvsLShiftC_16s_I, nuvsRShiftC_16s, nuvsRShiftC_16s_I}; }
template <> ShiftFns<Nuv32s> shiftFns() { return {nuvsLShiftC_32s, nuvsLShiftC_32s_I, nuvsRShiftC_32s, nuvsRShiftC_32s_I}; }

template <class T>
class ShiftLogicVectors : public ::testing::Test {};
using ShiftTypes = ::testing::Types<Nuv8u, Nuv16u, Nuv16s, Nuv32s>;
TYPED_TEST_SUITE(ShiftLogicVectors, ShiftTypes);

// Every count from -1 to 40 and a few far beyond the width, where logical shifts give 0 and
// arithmetic ones the sign.
TYPED_TEST(ShiftLogicVectors, EveryCountMatchesModel) {
    using T = TypeParam;
    const auto f = shiftFns<T>();
    std::vector<int> counts = {INT_MIN, 1000, INT_MAX};
    for (int k = -1; k <= 40; ++k) counts.push_back(k);
    for (int n : nt::sweepLengths())
        for (size_t off : offsets<T>()) {
            nt::Buf<T> a(n, off == 0 ? sizeof(T) : 0);
            a.copyFrom(nt::randomInts<T>(n));
            const auto A = a.vec();
            for (int k : counts)
                for (bool left : {true, false}) {
                    const std::string what = std::string(left ? "L" : "R") + " by " + std::to_string(k);
                    auto op = left ? f.left : f.right;
                    auto opI = left ? f.leftI : f.rightI;
                    if (k < 0) {
                        nt::Buf<T> d(n, off);
                        EXPECT_EQ(op(a.data(), k, d.data(), n), nuvStsShift) << what;
                        EXPECT_EQ(opI(k, d.data(), n), nuvStsShift) << what;
                        EXPECT_TRUE(d.untouched()) << what;
                        continue;
                    }
                    auto model = [&](int i) { return shiftModel(left, A[size_t(i)], k); };
                    expectElements<T>(n, off, false, {}, [&](T* d) { return op(a.data(), k, d, n); }, model, what);
                    expectElements<T>(n, off, true, A, [&](T* d) { return opI(k, d, n); }, model, what + " _I");
                }
        }
}

// A left shift moves bits into the sign bit of a signed element without saturating: the result is
// the bit pattern, so 0x4000 by 1 is 0x8000 (-32768) and 0x0001 by 15 likewise.
TEST(ShiftWorked, LeftShiftIntoTheSignBit) {
    const struct { Nuv16s x; int k; uint16_t want; } rows[] = {
        {0x4000, 1, 0x8000}, {0x0001, 15, 0x8000}, {0x6000, 1, 0xC000}, {-1, 15, 0x8000}, {0x4001, 2, 0x0004},
    };
    for (const auto& r : rows)
        for (int len : {1, 17, 64}) {  // the single path and the block loop
            const std::vector<Nuv16s> src(size_t(len), r.x);
            nt::Buf<Nuv16s> d(len), dI(len);
            dI.copyFrom(src);
            ASSERT_EQ(nuvsLShiftC_16s(src.data(), r.k, d.data(), len), nuvStsOk);
            ASSERT_EQ(nuvsLShiftC_16s_I(r.k, dI.data(), len), nuvStsOk);
            for (int i = 0; i < len; ++i) {
                EXPECT_EQ(uint16_t(d[i]), r.want) << std::hex << r.x << " << " << r.k << " len " << len << " at " << i;
                EXPECT_EQ(uint16_t(dI[i]), r.want) << std::hex << r.x << " << " << r.k << " in place, len " << len;
            }
        }
}

// ---------------------------------------------------------------- order of checks

// One call on guarded arrays of 8 elements, with any array replaced by null and any length.
struct OrderCase {
    const char* what;
    bool nullSrc, nullDst;
    int len;
    NuvStatus expected;
    std::function<NuvStatus(const void* src, void* dst, int len)> call;
};

template <class T, class V>
std::function<NuvStatus(const void*, void*, int)> outOfPlace(NuvStatus (*fn)(const T*, V, T*, int), V val) {
    return [=](const void* s, void* d, int n) { return fn(static_cast<const T*>(s), val, static_cast<T*>(d), n); };
}
// In-place forms have only the destination array; `nullDst` nulls it.
template <class T, class V>
std::function<NuvStatus(const void*, void*, int)> inPlace(NuvStatus (*fn)(V, T*, int), V val) {
    return [=](const void*, void* d, int n) { return fn(val, static_cast<T*>(d), n); };
}

TEST(LogicCheckOrder, NeutralAndOverlongConstants) {
    const NuvStatus Ok = nuvStsOk, Null = nuvStsNullPtr, Size = nuvStsSize, Shift = nuvStsShift;
    const std::vector<OrderCase> cases = {
        // AndC by 0 becomes Zero on the destination once the source is known.
        {"AndC_8u 0", true, false, 5, Null, outOfPlace<Nuv8u, Nuv8u>(nuvsAndC_8u, 0)},
        {"AndC_8u 0", true, false, 0, Null, outOfPlace<Nuv8u, Nuv8u>(nuvsAndC_8u, 0)},
        {"AndC_8u 0", false, true, 5, Null, outOfPlace<Nuv8u, Nuv8u>(nuvsAndC_8u, 0)},
        {"AndC_8u 0", false, false, 0, Size, outOfPlace<Nuv8u, Nuv8u>(nuvsAndC_8u, 0)},
        {"AndC_8u 0", false, false, -1, Size, outOfPlace<Nuv8u, Nuv8u>(nuvsAndC_8u, 0)},
        {"AndC_32u 0", false, false, 8, Ok, outOfPlace<Nuv32u, Nuv32u>(nuvsAndC_32u, 0)},
        {"AndC_16u_I 0", false, true, 5, Null, inPlace<Nuv16u, Nuv16u>(nuvsAndC_16u_I, 0)},
        {"AndC_16u_I 0", false, false, 0, Size, inPlace<Nuv16u, Nuv16u>(nuvsAndC_16u_I, 0)},
        // OrC and XorC by 0 become Copy.
        {"OrC_16u 0", true, false, 5, Null, outOfPlace<Nuv16u, Nuv16u>(nuvsOrC_16u, 0)},
        {"OrC_16u 0", false, true, 0, Null, outOfPlace<Nuv16u, Nuv16u>(nuvsOrC_16u, 0)},
        {"OrC_16u 0", false, false, 0, Size, outOfPlace<Nuv16u, Nuv16u>(nuvsOrC_16u, 0)},
        {"OrC_16u 0", false, false, 8, Ok, outOfPlace<Nuv16u, Nuv16u>(nuvsOrC_16u, 0)},
        {"XorC_32u 0", false, false, -1, Size, outOfPlace<Nuv32u, Nuv32u>(nuvsXorC_32u, 0)},
        {"XorC_8u_I 0", false, true, 0, Null, inPlace<Nuv8u, Nuv8u>(nuvsXorC_8u_I, 0)},
        {"XorC_8u_I 0", false, false, 0, Size, inPlace<Nuv8u, Nuv8u>(nuvsXorC_8u_I, 0)},
        {"XorC_8u_I 0", false, false, 8, Ok, inPlace<Nuv8u, Nuv8u>(nuvsXorC_8u_I, 0)},
        // Shift by 0 becomes Copy.
        {"LShiftC_32s 0", true, false, 5, Null, outOfPlace<Nuv32s, int>(nuvsLShiftC_32s, 0)},
        {"RShiftC_16s 0", false, false, 0, Size, outOfPlace<Nuv16s, int>(nuvsRShiftC_16s, 0)},
        {"RShiftC_8u_I 0", false, true, -1, Null, inPlace<Nuv8u, int>(nuvsRShiftC_8u_I, 0)},
        {"RShiftC_8u_I 0", false, false, 8, Ok, inPlace<Nuv8u, int>(nuvsRShiftC_8u_I, 0)},
        // Overlong logical shifts become Zero once the source is known.
        {"LShiftC_32s 32", true, false, 0, Null, outOfPlace<Nuv32s, int>(nuvsLShiftC_32s, 32)},
        {"LShiftC_32s 32", false, true, 5, Null, outOfPlace<Nuv32s, int>(nuvsLShiftC_32s, 32)},
        {"LShiftC_32s 32", false, false, 0, Size, outOfPlace<Nuv32s, int>(nuvsLShiftC_32s, 32)},
        {"LShiftC_16s 16", false, false, 8, Ok, outOfPlace<Nuv16s, int>(nuvsLShiftC_16s, 16)},
        {"RShiftC_16u 16", false, false, -1, Size, outOfPlace<Nuv16u, int>(nuvsRShiftC_16u, 16)},
        {"LShiftC_8u_I 8", false, true, 5, Null, inPlace<Nuv8u, int>(nuvsLShiftC_8u_I, 8)},
        {"LShiftC_8u_I INT_MAX", false, false, 0, Size, inPlace<Nuv8u, int>(nuvsLShiftC_8u_I, INT_MAX)},
        // Arithmetic right shifts take the ordinary path at any count.
        {"RShiftC_32s 40", true, false, 5, Null, outOfPlace<Nuv32s, int>(nuvsRShiftC_32s, 40)},
        {"RShiftC_16s 16", false, false, 0, Size, outOfPlace<Nuv16s, int>(nuvsRShiftC_16s, 16)},
        {"RShiftC_16s INT_MAX", false, false, 8, Ok, outOfPlace<Nuv16s, int>(nuvsRShiftC_16s, INT_MAX)},
        // A negative count is refused only after pointers and length.
        {"LShiftC_32s -1", true, false, 5, Null, outOfPlace<Nuv32s, int>(nuvsLShiftC_32s, -1)},
        {"LShiftC_32s -1", false, true, 0, Null, outOfPlace<Nuv32s, int>(nuvsLShiftC_32s, -1)},
        {"LShiftC_32s -1", false, false, 0, Size, outOfPlace<Nuv32s, int>(nuvsLShiftC_32s, -1)},
        {"LShiftC_32s -1", false, false, 5, Shift, outOfPlace<Nuv32s, int>(nuvsLShiftC_32s, -1)},
        {"RShiftC_16s INT_MIN", false, false, 5, Shift, outOfPlace<Nuv16s, int>(nuvsRShiftC_16s, INT_MIN)},
        {"RShiftC_8u_I -3", false, true, 5, Null, inPlace<Nuv8u, int>(nuvsRShiftC_8u_I, -3)},
        {"RShiftC_16u_I -3", false, false, -1, Size, inPlace<Nuv16u, int>(nuvsRShiftC_16u_I, -3)},
        {"LShiftC_16s_I -1", false, false, 5, Shift, inPlace<Nuv16s, int>(nuvsLShiftC_16s_I, -1)},
    };
    for (const auto& c : cases) {
        nt::Guarded src(64), dst(64);
        const NuvStatus got = c.call(c.nullSrc ? nullptr : src.data(), c.nullDst ? nullptr : dst.data(), c.len);
        EXPECT_EQ(got, c.expected) << c.what << " nullSrc " << c.nullSrc << " nullDst " << c.nullDst << " len " << c.len;
        EXPECT_TRUE(src.intact(true)) << c.what;  // sources are never written
        if (got != nuvStsOk) {
            EXPECT_TRUE(dst.intact(true)) << c.what << ": written on failure";
        }
    }
}

}  // namespace

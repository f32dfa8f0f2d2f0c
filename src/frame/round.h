// Number rules of every integer result: exact value, scaled by 2^-scaleFactor, rounded to nearest
// with ties to even, saturated to the destination type.
#pragma once
#include <bit>
#include <cstdint>
#include <limits>
#include <type_traits>

namespace nuv {

using i128 = __int128;

template <class T> inline constexpr int64_t lowest = int64_t(std::numeric_limits<T>::min());
template <class T> inline constexpr int64_t highest = int64_t(std::numeric_limits<T>::max());

// Saturate a wide value to T.
template <class T, class W>
constexpr T sat(W v) noexcept {
    if constexpr (std::is_same_v<T, uint64_t>) {
        return v < 0 ? T(0) : T(v);
    } else {
        if (v < W(lowest<T>)) return T(lowest<T>);
        if (v > W(highest<T>)) return T(highest<T>);
        return T(v);
    }
}

// Integer bias rule: shift right by k >= 1, rounding to nearest with ties to even.  The added bit
// is 1 exactly when the truncated result is odd, which pushes a tie up to the even neighbour.
template <class W>
constexpr W rshiftRne(W x, int k) noexcept {
    return (x + ((W(1) << (k - 1)) - 1) + ((x >> k) & 1)) >> k;
}

// The rule in full for an exact value held in 128 bits and any scale.
template <class T>
constexpr T scaleRne(i128 x, int sf) noexcept {
    if (sf > 0) return sf >= 127 ? T(0) : sat<T>(rshiftRne<i128>(x, sf));
    if (sf < 0) {
        if (x == 0) return T(0);
        if (sf <= -64) return x > 0 ? T(highest<T>) : T(lowest<T>);
        // |x| < 2^64 here, so the shifted value fits 128 bits.
        return sat<T>(x * (i128(1) << -sf));
    }
    return sat<T>(x);
}

// 2^-sf as a float built from its exponent field, sf limited to [lo, hi]: the defaults keep the word
// normal; [-128, 127] reaches infinity and zero at the ends.
constexpr float pow2f(int sf, int lo = -127, int hi = 126) noexcept {
    sf = sf < lo ? lo : (sf > hi ? hi : sf);
    return std::bit_cast<float>(uint32_t(0x3F800000 - (sf << 23)));
}
constexpr double pow2d(int sf, int lo = -1024, int hi = 1023) noexcept {
    sf = sf < lo ? lo : (sf > hi ? hi : sf);
    return std::bit_cast<double>(uint64_t(0x3FF0000000000000ull - (uint64_t(int64_t(sf)) << 52)));
}

// Worked examples of the rule.
static_assert(rshiftRne<int32_t>(3, 1) == 2);    // 3/2 is a tie, goes to 2
static_assert(rshiftRne<int32_t>(1, 1) == 0);    // 1/2 is a tie, goes to 0
static_assert(rshiftRne<int32_t>(-1, 1) == 0);
static_assert(rshiftRne<int32_t>(-3, 1) == -2);
static_assert(scaleRne<int16_t>(int64_t(-32768) * -32768, 30) == 1);
static_assert(scaleRne<int16_t>(int64_t(-32768) * -32768, 31) == 0);
static_assert(scaleRne<int16_t>(1, -16) == 32767 && scaleRne<int16_t>(-1, -16) == -32768);
static_assert(pow2f(1) == 0.5f && pow2f(-3) == 8.0f && pow2d(2) == 0.25);

}  // namespace nuv

// The number rule of every scaled integer result, computed the slow way in 128 bits, as the
// reference for the families' own kernels.
#pragma once

namespace nt {

using i128 = __int128;

// x * 2^-sf, rounded (mode 1: ties to even, 0: toward zero, any other: ties away from zero),
// saturated to [lo, hi].  Right shifts are floor division with the remainder compared against one
// half; a left shift saturates by the exact value.  |x| < 2^126.
inline i128 scaleRule(i128 x, int sf, i128 lo, i128 hi, int mode = 1) {
    i128 v;
    if (sf > 126) {
        v = 0;
    } else if (sf > 0) {
        const i128 d = i128(1) << sf;
        i128 q = x / d, r = x % d;
        if (r < 0) r += d, q -= 1;  // now x = q d + r with 0 <= r < d
        if (mode == 0) q += (x < 0 && r != 0);
        else if (2 * r > d) q += 1;
        else if (2 * r == d) q += mode == 1 ? (q & 1) : (x > 0);
        v = q;
    } else {
        // A value beyond a limit stays beyond it when shifted left, so clamp first to stay in range.
        x = x < lo - 1 ? lo - 1 : (x > hi + 1 ? hi + 1 : x);
        const int64_t k = -int64_t(sf);
        if (k <= 62) v = x * (i128(1) << k);
        else if (x == 0) v = 0;
        else if (k == 63 && (x == 1 || x == -1)) v = x * (i128(1) << 63);
        else v = x > 0 ? hi + 1 : lo - 1;
    }
    return v < lo ? lo : (v > hi ? hi : v);
}

}  // namespace nt

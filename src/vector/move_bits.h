// Bit-string kernels: copies of bit runs at any offsets, in either numbering within a byte, and
// the packing of variable-width words into a bit stream.
#pragma once
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace nuv::bits {

using u8 = uint8_t;
using u64 = uint64_t;

// A numbering of the bits of a byte string.  Bits are gathered into a 64-bit "stream word" in
// which stream bit 0 is at the front: the least significant bit for bottom-first numbering, the
// most significant for top-first numbering.
struct BottomFirst {
    static u64 load8(const u8* p) {
        u64 w;
        std::memcpy(&w, p, 8);
        return w;
    }
    static void store8(u8* p, u64 w) { std::memcpy(p, &w, 8); }
    static u64 drop(u64 w, unsigned k) { return w >> k; }    // remove k bits at the front
    static u64 delay(u64 w, unsigned k) { return w << k; }   // insert k positions at the front
    static u64 byteAtFront(u8 b) { return b; }
    static u8 frontByte(u64 w) { return u8(w); }
    static u8 mask(unsigned from, unsigned to) { return u8((0xFFu << from) & ~(0xFFu << to)); }  // bits [from, to)
};

struct TopFirst {
    static u64 load8(const u8* p) { return __builtin_bswap64(BottomFirst::load8(p)); }
    static void store8(u8* p, u64 w) { BottomFirst::store8(p, __builtin_bswap64(w)); }
    static u64 drop(u64 w, unsigned k) { return w << k; }
    static u64 delay(u64 w, unsigned k) { return w >> k; }
    static u64 byteAtFront(u8 b) { return u64(b) << 56; }
    static u8 frontByte(u64 w) { return u8(w >> 56); }
    static u8 mask(unsigned from, unsigned to) { return u8((0xFFu >> from) & ~(0xFFu >> to)); }
};

// Stream bits [sh, sh + n) of p as a stream word at the front, sh < 8, sh + n <= 64; reads only the
// bytes that hold them.
template <class O>
inline u64 gather(const u8* p, unsigned sh, unsigned n) {
    const unsigned nbytes = (sh + n + 7) / 8;
    u64 w = 0;
    for (unsigned k = 0; k < nbytes; ++k) w |= O::delay(O::byteAtFront(p[k]), 8 * k);
    return O::drop(w, sh);
}

// Writes the first n < 8 stream bits of w into byte *d at bits [at, at + n), keeping its others.
template <class O>
[[gnu::always_inline]] inline void mergeByte(u8* d, unsigned at, unsigned n, u64 w) {
    const u8 m = O::mask(at, at + n);
    const u8 v = O::frontByte(O::delay(w, at));
    *d = u8((*d & ~m) | (v & m));
}

// Copies `len` bits from bit `so` of s to bit `dof` of d.  Bits of d outside the run keep their
// values.  Runs shorter than 16 bits go bit by bit; otherwise the destination is brought to a byte
// boundary, 64 bits move per step through a shift pair, and the rest by bytes.
template <class O>
inline void ownsCopyBits(const u8* s, int64_t so, u8* d, int64_t dof, int64_t len) {
    s += so >> 3;
    d += dof >> 3;
    unsigned sb = unsigned(so & 7), db = unsigned(dof & 7);
    if (len < 16) {
        for (int64_t k = 0; k < len; ++k) {
            const int64_t a = sb + k, b = db + k;
            const u64 bit = O::drop(O::byteAtFront(s[a >> 3]), unsigned(a & 7));
            mergeByte<O>(d + (b >> 3), unsigned(b & 7), 1, bit);
        }
        return;
    }
    if (db) {
        const unsigned n = 8 - db;
        mergeByte<O>(d, db, n, gather<O>(s, sb, n));
        sb += n;
        s += sb >> 3;
        sb &= 7;
        ++d;
        len -= n;
    }
    if (sb == 0) {
        for (; len >= 64; len -= 64, s += 8, d += 8) std::memcpy(d, s, 8);
    } else {
        for (; len >= 64; len -= 64, s += 8, d += 8)
            O::store8(d, O::drop(O::load8(s), sb) | O::delay(O::byteAtFront(s[8]), 64 - sb));
    }
    while (len >= 8) {
        const unsigned n = len >= 56 ? 56 : unsigned(len & ~int64_t(7));
        u64 w = gather<O>(s, sb, n);
        for (unsigned k = 0; k < n; k += 8, w = O::drop(w, 8)) *d++ = O::frontByte(w);
        s += n / 8;
        len -= n;
    }
    if (len) mergeByte<O>(d, 0, unsigned(len), gather<O>(s, sb, unsigned(len)));
}

// Appends the low pSrcBitsLen[i] bits of each word, most significant first, to a top-first bit
// stream at bit `dof` of d.  Widths above 32 count as 32 and negative ones as 0; the result tells
// whether any was out of range.  Leading bits of the first byte are kept, the unused trailing bits
// of a last partial byte are written as zero.
inline bool ownsPackBits(const uint32_t* src, const int* widths, int srcLen, u8* d, int dof, int64_t* total) {
    d += dof >> 3;
    const unsigned lead = unsigned(dof & 7);
    u64 acc = lead ? u64(d[0] >> (8 - lead)) : 0;  // pending bits, the newest lowest
    unsigned pending = lead;
    bool outOfRange = false;
    int64_t sum = 0;
    for (int i = 0; i < srcLen; ++i) {
        const int w = widths[i];
        outOfRange |= unsigned(w) > 32u;
        const unsigned n = w < 0 ? 0u : w > 32 ? 32u : unsigned(w);
        const u64 v = u64(src[i]) & ((u64(1) << n) - 1);
        acc = (acc << n) | v;
        pending += n;
        sum += n;
        for (; pending >= 8; pending -= 8) *d++ = u8(acc >> (pending - 8));
    }
    if (pending && sum) *d = u8(acc << (8 - pending));
    *total = sum;
    return outOfRange;
}

}  // namespace nuv::bits

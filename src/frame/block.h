// The blocked loop of the element-wise families: a scalar zone for short runs, a zone without
// alignment work, and above it a peel to a 32-byte boundary of the destination, blocks of
// `block` elements, tail blocks of `tail` elements, then single elements, all ascending.
#pragma once
#include <cstddef>
#include <cstdint>

namespace nuv {

struct BlockPlan {
    int scalarBelow;   // below this length everything runs singly
    int noPeelBelow;   // below this length the vector part starts at element 0
    int block;         // elements per main step
    int tail;          // elements per tail step: one vector register
};

//                                      scalar below, no peel below, block, tail
inline constexpr BlockPlan kPlan4B      {16, 57, 16, 8};   // 32f
inline constexpr BlockPlan kPlan4BInPl  {16, 33, 16, 8};   // 32f in place, AddProductC
inline constexpr BlockPlan kPlan8B      {16, 29, 16, 4};   // 64f
inline constexpr BlockPlan kPlan8BInPl  {16, 17, 16, 4};   // 64f in place
inline constexpr BlockPlan kPlan8BCplx  { 8, 29,  8, 4};   // 32fc
inline constexpr BlockPlan kPlan8BCplxI { 8, 17,  8, 4};   // 32fc in place
inline constexpr BlockPlan kPlan16B     { 8, 15,  8, 2};   // 64fc
inline constexpr BlockPlan kPlan16BInPl { 8,  9,  8, 2};   // 64fc in place

// Out-of-place maps write destinations of this many bytes or more with non-temporal stores.  Below
// it, a result that the caller reads next is still in a cache when written the ordinary way; from
// here on streaming is faster even counting the consumer's reads from memory (measured with a sum
// over the result right after the map).
inline constexpr size_t kStreamFrom = size_t(2) << 20;

// The zones of the blocked loop for a length: the peel, the end of the blocks, and whether any
// vector work runs at all.
struct BlockZones {
    int peel;
    int end;
    bool vector;
};
template <BlockPlan P, size_t ElemSize>
[[gnu::always_inline]] inline BlockZones blockZones(const void* dst, int len) {
    if (len < P.scalarBelow) return {0, 0, false};
    int peel = 0;
    if (len >= P.noPeelBelow) {
        // An aligned destination (the allocator's, for one) goes straight through.
        if (const size_t r = reinterpret_cast<uintptr_t>(dst) % 32; r != 0) [[unlikely]] {
            if (r % ElemSize) return {0, 0, false};
            peel = int((32 - r) / ElemSize);
            if (len < peel + P.block) return {0, 0, false};
        }
    }
    return {peel, len - (len - peel) % P.block, true};
}

// Runs `vec(i)` for `P.tail` elements at index i (a block is P.block / P.tail of them) and
// `one(i)` for single elements, over [0, len).  `dst` decides the peel; ElemSize is its element
// size in bytes.  A destination that is not element-aligned runs singly.
template <BlockPlan P, size_t ElemSize, class Vec, class One>
[[gnu::always_inline]] inline void blocked(const void* dst, int len, Vec&& vec, One&& one) {
    static_assert(P.block % P.tail == 0);
    const BlockZones z = blockZones<P, ElemSize>(dst, len);
    int i = 0;
    if (z.vector) {
        for (; i < z.peel; ++i) one(i);
        for (; i < z.end; i += P.block) {
#pragma GCC unroll 8
            for (int j = 0; j < P.block; j += P.tail) vec(i + j);
        }
        for (; len - i >= P.tail; i += P.tail) vec(i);
    }
    for (; i < len; ++i) one(i);
}

}  // namespace nuv

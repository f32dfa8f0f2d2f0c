// Test support: guarded buffers, seeded random data, and allocator controls.
#pragma once
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <random>
#include <vector>

#include "nuvcore.h"
#include "nuvs.h"

namespace nt {

// A byte region with red zones on both sides: `data()` lies `offset` bytes past a 64-byte
// boundary, and everything around the `bytes` in use is filled with a pattern that intact()
// verifies.
class Guarded {
public:
    static constexpr size_t kZone = 64;
    static constexpr uint8_t kFill = 0xA5;

    explicit Guarded(size_t bytes, size_t offset = 0)
        : bytes_(bytes), offset_(offset), raw_(bytes + offset + 2 * kZone + 64, kFill) {
        base_ = reinterpret_cast<uint8_t*>((reinterpret_cast<uintptr_t>(raw_.data()) + 63) & ~uintptr_t(63));
    }
    uint8_t* data() { return base_ + kZone + offset_; }
    const uint8_t* data() const { return base_ + kZone + offset_; }
    template <class T> T* as() { return reinterpret_cast<T*>(data()); }
    size_t size() const { return bytes_; }

    // Red zones (and, if requested, the payload) still hold the fill pattern.
    bool intact(bool payloadToo = false) const {
        const uint8_t* lo = base_;
        const uint8_t* end = raw_.data() + raw_.size();
        for (const uint8_t* p = raw_.data(); p < end; ++p) {
            bool inPayload = p >= data() && p < data() + bytes_;
            if (inPayload && !payloadToo) continue;
            if (p < lo) continue;  // before the aligned base: never touched by anything
            if (*p != kFill) return false;
        }
        return true;
    }

private:
    size_t bytes_, offset_;
    std::vector<uint8_t> raw_;
    uint8_t* base_;
};

// Typed guarded array of n elements, `offset` bytes off a 64-byte boundary.
template <class T>
class Buf {
public:
    explicit Buf(int n, size_t offset = 0) : g_(size_t(n > 0 ? n : 0) * sizeof(T), offset), n_(n) {}
    T* data() { return g_.as<T>(); }
    const T* data() const { return reinterpret_cast<const T*>(g_.data()); }
    T& operator[](int i) { return data()[i]; }
    const T& operator[](int i) const { return data()[i]; }
    int size() const { return n_; }
    bool intact() const { return g_.intact(); }
    bool untouched() const { return g_.intact(true); }
    void copyFrom(const std::vector<T>& v) { std::memcpy(data(), v.data(), v.size() * sizeof(T)); }
    std::vector<T> vec() const { return std::vector<T>(data(), data() + n_); }

private:
    Guarded g_;
    int n_;
};

inline std::mt19937_64& rng() {
    static std::mt19937_64 g(20261122);
    return g;
}

// Uniform integers over the whole range of T (or [lo, hi]), with the extremes mixed in.
template <class T>
std::vector<T> randomInts(int n, int64_t lo = int64_t(std::numeric_limits<T>::min()),
                          int64_t hi = int64_t(std::numeric_limits<T>::max())) {
    std::uniform_int_distribution<int64_t> d(lo, hi);
    std::vector<T> v(size_t(n > 0 ? n : 0));
    for (auto& x : v) x = T(d(rng()));
    if (n > 0) v[0] = T(lo);
    if (n > 1) v[size_t(n) - 1] = T(hi);
    return v;
}

template <class T>
std::vector<T> randomReals(int n, double lo = -100.0, double hi = 100.0) {
    std::uniform_real_distribution<double> d(lo, hi);
    std::vector<T> v(size_t(n > 0 ? n : 0));
    for (auto& x : v) x = T(d(rng()));
    return v;
}

// Bitwise equality of floats (NaN payloads and signed zeros included).
template <class T>
bool sameBits(T a, T b) {
    return std::memcmp(&a, &b, sizeof(T)) == 0;
}

// Lengths around the block boundaries of the element-wise loops, plus a long odd one.
inline const std::vector<int>& sweepLengths() {
    static const std::vector<int> v = {1, 2, 3, 4, 5, 7, 8, 9, 15, 16, 17, 24, 28, 29, 31, 32, 33, 40,
                                       56, 57, 58, 63, 64, 65, 100, 127, 128, 129, 255, 1000, 1023, 4099};
    return v;
}

// Allocation failure on demand, and a leak check for the scope.
class AllocScope {
public:
    AllocScope() : live_(nuvcoreTestLiveBlocks()) {}
    ~AllocScope() { nuvcoreTestFailAllocAfter(-1); }
    void failAfter(int n) { nuvcoreTestFailAllocAfter(n); }
    int leaked() const { return nuvcoreTestLiveBlocks() - live_; }

private:
    int live_;
};

}  // namespace nt

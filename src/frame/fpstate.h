// Scoped change of the processor's floating-point control word (per thread).
#pragma once
#include <immintrin.h>

#include <cstdint>

namespace nuv {

enum : unsigned {
    kMxcsrFlags = 0x003F,      // sticky exception flags
    kMxcsrMasks = 0x1F80,      // all exceptions masked
    kMxcsrRcMask = 0x6000,     // rounding control
    kMxcsrRcNear = 0x0000,
    kMxcsrRcZero = 0x6000,
    kMxcsrZeroDivFlag = 0x0004,
};

// Sets the bits of `mask` to `value` on entry and puts the caller's word back on exit; the
// register is written only where the word differs, so a caller already in the wanted state pays
// nothing.  Flags raised inside the scope are cleared with the restore.
class ScopedMxcsr {
public:
    ScopedMxcsr(unsigned value, unsigned mask) noexcept : saved_(_mm_getcsr()) {
        const unsigned want = (saved_ & ~mask) | (value & mask);
        if (want != saved_) _mm_setcsr(want);
    }
    ~ScopedMxcsr() {
        if (_mm_getcsr() != saved_) _mm_setcsr(saved_);
    }
    ScopedMxcsr(const ScopedMxcsr&) = delete;
    ScopedMxcsr& operator=(const ScopedMxcsr&) = delete;

private:
    unsigned saved_;
};

// The x87 control word for extended-precision kernels: 64-bit significand and rounding to
// nearest on entry, the caller's word back on exit, written only where it differs.  The memory
// clobbers keep the kernel's loads and stores, and so its arithmetic, inside the scope.
class ScopedX87Nearest {
public:
    ScopedX87Nearest() noexcept {
        __asm__ volatile("fnstcw %0" : "=m"(saved_) : : "memory");
        const unsigned short want = static_cast<unsigned short>((saved_ & ~0x0F00u) | 0x0300u);
        if (want != saved_) {
            __asm__ volatile("fldcw %0" : : "m"(want) : "memory");
            changed_ = true;
        }
    }
    ~ScopedX87Nearest() {
        if (changed_) __asm__ volatile("fldcw %0" : : "m"(saved_) : "memory");
    }
    ScopedX87Nearest(const ScopedX87Nearest&) = delete;
    ScopedX87Nearest& operator=(const ScopedX87Nearest&) = delete;

private:
    unsigned short saved_;
    bool changed_ = false;
};

// The x87 store to a 64-bit integer, rounding by the control word: to nearest inside a
// ScopedX87Nearest.  x must lie within the 64-bit range.
inline int64_t x87StoreInt64(long double x) {
    int64_t r;
    __asm__("fistpll %0" : "=m"(r) : "t"(x) : "st");
    return r;
}

}  // namespace nuv

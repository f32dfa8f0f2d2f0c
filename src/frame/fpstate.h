// Scoped change of the processor's floating-point control word (per thread).
#pragma once
#include <immintrin.h>

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

}  // namespace nuv

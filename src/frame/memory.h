// Work buffers and owned blocks: the library's only way to memory is nuvsMalloc_8u / nuvsFree.
#pragma once
#include <cstdint>

#include "nuvs.h"

namespace nuv {

// Rounds a caller's pointer up to the next multiple of 64 bytes by adding the two's complement
// of its address modulo 64.
inline Nuv8u* alignUp64(void* p) noexcept {
    const uintptr_t a = reinterpret_cast<uintptr_t>(p);
    return reinterpret_cast<Nuv8u*>(a + ((0 - a) & 63));
}

// A work buffer of `size` bytes for one call.  size <= 0: none, whatever the caller passed.
// A caller's buffer is used from its next 64-byte boundary and never released; with none given,
// one is allocated and released when this object goes out of scope, on every path.
class WorkBuffer {
public:
    WorkBuffer(void* caller, int size) noexcept {
        if (size <= 0) return;
        if (caller) {
            ptr_ = alignUp64(caller);
        } else {
            ptr_ = owned_ = nuvsMalloc_8u(size);
            failed_ = owned_ == nullptr;
        }
    }
    ~WorkBuffer() {
        if (owned_) nuvsFree(owned_);
    }
    WorkBuffer(const WorkBuffer&) = delete;
    WorkBuffer& operator=(const WorkBuffer&) = delete;

    bool failed() const noexcept { return failed_; }
    Nuv8u* get() const noexcept { return ptr_; }

private:
    Nuv8u* ptr_ = nullptr;
    Nuv8u* owned_ = nullptr;
    bool failed_ = false;
};

// A block from nuvsMalloc_8u that is released unless handed over with release(): the pattern of
// InitAlloc, which gives back everything it obtained when a later step fails.
class OwnedBlock {
public:
    explicit OwnedBlock(int size) noexcept : p_(nuvsMalloc_8u(size)) {}
    ~OwnedBlock() {
        if (p_) nuvsFree(p_);
    }
    OwnedBlock(const OwnedBlock&) = delete;
    OwnedBlock& operator=(const OwnedBlock&) = delete;

    Nuv8u* get() const noexcept { return p_; }
    explicit operator bool() const noexcept { return p_ != nullptr; }
    Nuv8u* release() noexcept {
        Nuv8u* p = p_;
        p_ = nullptr;
        return p;
    }

private:
    Nuv8u* p_;
};

}  // namespace nuv

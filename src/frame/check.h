// Argument checks in the library's fixed order: data pointers left to right, then the length.
#pragma once
#include "nuvs.h"

namespace nuv {

template <class... P>
[[gnu::always_inline]] inline bool anyNull(const P*... p) noexcept {
    return ((p == nullptr) || ...);
}

// Pointers, then `len` below 1.
template <class... P>
[[gnu::always_inline]] inline NuvStatus check(int len, const P*... p) noexcept {
    if (anyNull(p...)) return nuvStsNullPtr;
    return len < 1 ? nuvStsSize : nuvStsOk;
}

// Length before pointers: the complex scaled forms that split very long vectors.
template <class... P>
[[gnu::always_inline]] inline NuvStatus checkLenFirst(int len, const P*... p) noexcept {
    if (len < 1) return nuvStsSize;
    return anyNull(p...) ? nuvStsNullPtr : nuvStsOk;
}

}  // namespace nuv

// Exports that can't differ share one implementation: the later names are other names of the
// first, so a call reaches the kernel without a jump in between.
#pragma once

#define NUV_SAME_AS(first) __attribute__((alias(#first)))

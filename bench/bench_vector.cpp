// Element-wise kernels side by side with their peers: VOLK as it dispatches on this machine, VOLK
// capped at AVX2, the C library (memcpy, memset, memmove) and a plain loop compiled at -O3 for
// this target.  Rows are named <kernel>/<impl>/<len>; tools/bench_ratio.py turns them into ratios.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "nuvs.h"
#ifdef NUVS_HAVE_VOLK
#include <volk/volk.h>
#endif

namespace {

const int kLens[] = {256, 4096, 65536, 4 << 20};

struct Buffer {
    explicit Buffer(size_t bytes) : p(std::aligned_alloc(64, (bytes + 63) & ~size_t(63))) {}
    ~Buffer() { std::free(p); }
    Buffer(const Buffer&) = delete;
    void* p;
};

// Fills with values in [1, 2) for float buffers and small integers otherwise: no denormals, no
// saturation, nothing that makes one implementation take a slow path.
void fill(void* p, size_t bytes, bool floats) {
    std::mt19937 g(7);
    if (floats) {
        auto* f = static_cast<float*>(p);
        for (size_t i = 0; i < bytes / 4; ++i) f[i] = 1.0f + float(g() % 1000) / 1000.0f;
    } else {
        auto* b = static_cast<uint8_t*>(p);
        for (size_t i = 0; i < bytes; ++i) b[i] = uint8_t(g() & 0x3F);
    }
}

using Body = std::function<void(void** a, int len)>;

struct Kernel {
    std::string name;
    int arrays;           // buffers the kernel touches
    size_t elemBytes;     // bytes per element of each buffer (the largest one)
    bool floats;
    std::vector<std::pair<std::string, Body>> impls;
};

// Rows of one kernel and length are registered side by side, so that a drift in the machine's
// speed touches nuvs and its peers alike.
void registerKernel(const Kernel& k) {
    for (int len : kLens) {
        for (const auto& [impl, body] : k.impls) {
            std::string name = k.name + "/" + impl + "/" + std::to_string(len);
            benchmark::RegisterBenchmark(name.c_str(), [k, body = body, len](benchmark::State& st) {
                const size_t bytes = size_t(len) * k.elemBytes;
                std::vector<std::unique_ptr<Buffer>> bufs;
                void* a[4] = {};
                for (int i = 0; i < k.arrays; ++i) {
                    bufs.push_back(std::make_unique<Buffer>(bytes));
                    fill(bufs.back()->p, bytes, k.floats);
                    a[i] = bufs.back()->p;
                }
                for (auto _ : st) {
                    body(a, len);
                    benchmark::ClobberMemory();
                }
                st.SetBytesProcessed(int64_t(st.iterations()) * int64_t(bytes) * k.arrays);
                st.SetItemsProcessed(int64_t(st.iterations()) * len);
            });
        }
    }
}

#ifdef NUVS_HAVE_VOLK
// The best implementation that needs no more than AVX2, for aligned buffers.
std::string volkAvx2(volk_func_desc_t d) {
    for (const char* want : {"a_avx2_fma", "a_avx2", "a_avx_fma", "a_avx", "a_sse4_1", "a_sse3", "a_sse2", "a_sse"})
        for (size_t i = 0; i < d.n_impls; ++i)
            if (std::strcmp(d.impl_names[i], want) == 0) return want;
    return "generic";
}
#define VOLK_ROWS(fn, ...)                                                                        \
    {"volk", [](void** a, int n) { fn(__VA_ARGS__); }},                                           \
    {"volk_avx2", [impl = volkAvx2(fn##_get_func_desc())](void** a, int n) { fn##_manual(__VA_ARGS__, impl.c_str()); }}
#define F(i) static_cast<float*>(a[i])
#define C(i) static_cast<lv_32fc_t*>(a[i])
#endif

#define NUV(...) {"nuvs", [](void** a, int n) { __VA_ARGS__; }}
#define LOOP(...) {"loop", [](void** a, int n) { __VA_ARGS__; }}
#define LIBC(...) {"libc", [](void** a, int n) { __VA_ARGS__; }}

template <class T> T* P(void** a, int i) { return static_cast<T*>(a[i]); }

std::vector<Kernel> kernels() {
    return {
        {"Add_32f", 3, 4, true, {
            NUV(nuvsAdd_32f(P<float>(a, 0), P<float>(a, 1), P<float>(a, 2), n)),
            LOOP(auto* x = P<float>(a, 0); auto* y = P<float>(a, 1); auto* z = P<float>(a, 2);
                 for (int i = 0; i < n; ++i) z[i] = x[i] + y[i]),
#ifdef NUVS_HAVE_VOLK
            VOLK_ROWS(volk_32f_x2_add_32f, F(2), F(0), F(1), unsigned(n)),
#endif
        }},
        {"Mul_32f", 3, 4, true, {
            NUV(nuvsMul_32f(P<float>(a, 0), P<float>(a, 1), P<float>(a, 2), n)),
            LOOP(auto* x = P<float>(a, 0); auto* y = P<float>(a, 1); auto* z = P<float>(a, 2);
                 for (int i = 0; i < n; ++i) z[i] = x[i] * y[i]),
#ifdef NUVS_HAVE_VOLK
            VOLK_ROWS(volk_32f_x2_multiply_32f, F(2), F(0), F(1), unsigned(n)),
#endif
        }},
        {"Mul_32fc", 3, 8, true, {
            NUV(nuvsMul_32fc(P<Nuv32fc>(a, 0), P<Nuv32fc>(a, 1), P<Nuv32fc>(a, 2), n)),
            LOOP(auto* x = P<Nuv32fc>(a, 0); auto* y = P<Nuv32fc>(a, 1); auto* z = P<Nuv32fc>(a, 2);
                 for (int i = 0; i < n; ++i) z[i] = {x[i].re * y[i].re - x[i].im * y[i].im,
                                                     x[i].re * y[i].im + x[i].im * y[i].re}),
#ifdef NUVS_HAVE_VOLK
            VOLK_ROWS(volk_32fc_x2_multiply_32fc, C(2), C(0), C(1), unsigned(n)),
#endif
        }},
        {"AddProduct_32f", 3, 4, true, {
            NUV(nuvsAddProduct_32f(P<float>(a, 0), P<float>(a, 1), P<float>(a, 2), n)),
            LOOP(auto* x = P<float>(a, 0); auto* y = P<float>(a, 1); auto* z = P<float>(a, 2);
                 for (int i = 0; i < n; ++i) z[i] = std::fma(x[i], y[i], z[i])),
        }},
        {"Copy_8u", 2, 1, false, {
            NUV(nuvsCopy_8u(P<Nuv8u>(a, 0), P<Nuv8u>(a, 1), n)),
            LIBC(std::memcpy(a[1], a[0], size_t(n))),
            LOOP(auto* x = P<Nuv8u>(a, 0); auto* y = P<Nuv8u>(a, 1); for (int i = 0; i < n; ++i) y[i] = x[i]),
        }},
        {"Move_8u", 1, 1, false, {
            // Overlapping by 64 bytes: the destination lies above the source.
            NUV(nuvsMove_8u(P<Nuv8u>(a, 0), P<Nuv8u>(a, 0) + 64, n - 64)),
            LIBC(std::memmove(P<Nuv8u>(a, 0) + 64, a[0], size_t(n - 64))),
            LOOP(auto* x = P<Nuv8u>(a, 0); for (int i = n - 65; i >= 0; --i) x[i + 64] = x[i]),
        }},
        {"Set_32f", 1, 4, true, {
            NUV(nuvsSet_32f(1.5f, P<float>(a, 0), n)),
            LIBC(std::memset(a[0], 0x3F, size_t(n) * 4)),
            LOOP(auto* x = P<float>(a, 0); for (int i = 0; i < n; ++i) x[i] = 1.5f),
        }},
        {"Zero_32f", 1, 4, true, {
            NUV(nuvsZero_32f(P<float>(a, 0), n)),
            LIBC(std::memset(a[0], 0, size_t(n) * 4)),
            LOOP(auto* x = P<float>(a, 0); for (int i = 0; i < n; ++i) x[i] = 0.0f),
        }},
        {"Convert_32f16s_Sfs", 2, 4, true, {
            NUV(nuvsConvert_32f16s_Sfs(P<float>(a, 0), P<Nuv16s>(a, 1), n, nuvRndNear, -14)),
            LOOP(auto* x = P<float>(a, 0); auto* y = P<Nuv16s>(a, 1);
                 for (int i = 0; i < n; ++i) y[i] = Nuv16s(std::clamp(std::nearbyint(x[i] * 16384.0f), -32768.0f, 32767.0f))),
#ifdef NUVS_HAVE_VOLK
            VOLK_ROWS(volk_32f_s32f_convert_16i, P<int16_t>(a, 1), F(0), 16384.0f, unsigned(n)),
#endif
        }},
        {"Convert_16s32f", 2, 4, false, {
            NUV(nuvsConvert_16s32f(P<Nuv16s>(a, 0), P<float>(a, 1), n)),
            LOOP(auto* x = P<Nuv16s>(a, 0); auto* y = P<float>(a, 1); for (int i = 0; i < n; ++i) y[i] = float(x[i])),
#ifdef NUVS_HAVE_VOLK
            VOLK_ROWS(volk_16i_s32f_convert_32f, F(1), P<int16_t>(a, 0), 1.0f, unsigned(n)),
#endif
        }},
        {"Magnitude_32fc", 2, 8, true, {
            NUV(nuvsMagnitude_32fc(P<Nuv32fc>(a, 0), P<float>(a, 1), n)),
            LOOP(auto* x = P<Nuv32fc>(a, 0); auto* y = P<float>(a, 1);
                 for (int i = 0; i < n; ++i) y[i] = std::sqrt(x[i].re * x[i].re + x[i].im * x[i].im)),
#ifdef NUVS_HAVE_VOLK
            VOLK_ROWS(volk_32fc_magnitude_32f, F(1), C(0), unsigned(n)),
#endif
        }},
        {"PowerSpectr_32fc", 2, 8, true, {
            NUV(nuvsPowerSpectr_32fc(P<Nuv32fc>(a, 0), P<float>(a, 1), n)),
            LOOP(auto* x = P<Nuv32fc>(a, 0); auto* y = P<float>(a, 1);
                 for (int i = 0; i < n; ++i) y[i] = x[i].re * x[i].re + x[i].im * x[i].im),
#ifdef NUVS_HAVE_VOLK
            VOLK_ROWS(volk_32fc_magnitude_squared_32f, F(1), C(0), unsigned(n)),
#endif
        }},
        {"Phase_32fc", 2, 8, true, {
            NUV(nuvsPhase_32fc(P<Nuv32fc>(a, 0), P<float>(a, 1), n)),
            LOOP(auto* x = P<Nuv32fc>(a, 0); auto* y = P<float>(a, 1);
                 for (int i = 0; i < n; ++i) y[i] = std::atan2(x[i].im, x[i].re)),
#ifdef NUVS_HAVE_VOLK
            VOLK_ROWS(volk_32fc_s32f_atan2_32f, F(1), C(0), 1.0f, unsigned(n)),
#endif
        }},
        {"Conj_32fc", 2, 8, true, {
            NUV(nuvsConj_32fc(P<Nuv32fc>(a, 0), P<Nuv32fc>(a, 1), n)),
            LOOP(auto* x = P<Nuv32fc>(a, 0); auto* y = P<Nuv32fc>(a, 1);
                 for (int i = 0; i < n; ++i) y[i] = {x[i].re, -x[i].im}),
#ifdef NUVS_HAVE_VOLK
            VOLK_ROWS(volk_32fc_conjugate_32fc, C(1), C(0), unsigned(n)),
#endif
        }},
        {"Flip_32f", 2, 4, true, {
            NUV(nuvsFlip_32f(P<float>(a, 0), P<float>(a, 1), n)),
            LOOP(auto* x = P<float>(a, 0); auto* y = P<float>(a, 1); for (int i = 0; i < n; ++i) y[i] = x[n - 1 - i]),
        }},
    };
}

}  // namespace

int main(int argc, char** argv) {
    for (const Kernel& k : kernels()) registerKernel(k);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}

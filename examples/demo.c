/* A tour of libnuvsx7: the version record, a float path and a 16-bit fixed-point path over
 * generated signals, and the throughput of a few kernels against a plain C loop. */
#define _POSIX_C_SOURCE 199309L
#include <math.h>
#include <stdio.h>
#include <time.h>

#include "nuvs.h"

enum { N = 1 << 16, REPS = 2000 };

static double now(void) {
    struct timespec t;
    clock_gettime(CLOCK_MONOTONIC, &t);
    return (double)t.tv_sec + 1e-9 * (double)t.tv_nsec;
}

/* Best time of several rounds of REPS calls, in seconds per call. */
#define TIME(result, stmt)                                          \
    do {                                                            \
        double best_ = 1e30;                                        \
        for (int round_ = 0; round_ < 5; ++round_) {                \
            double t0_ = now();                                     \
            for (int rep_ = 0; rep_ < REPS; ++rep_) { stmt; }       \
            double t_ = (now() - t0_) / REPS;                       \
            if (t_ < best_) best_ = t_;                             \
        }                                                           \
        (result) = best_;                                           \
    } while (0)

static void report(const char* what, double bytes, double tLib, double tLoop) {
    printf("  %-28s %7.1f GB/s   plain loop %7.1f GB/s   x%.2f\n", what, bytes / tLib * 1e-9,
           bytes / tLoop * 1e-9, tLoop / tLib);
}

static void check(NuvStatus st, const char* what) {
    if (st != nuvStsOk) printf("  %s returned status %d\n", what, st);
}

int main(void) {
    const NuvLibraryVersion* v = nuvsGetLibVersion();
    printf("%s, version %s (%d.%d.%d.%d), target %s, built %s\n\n", v->Name, v->Version, v->major, v->minor,
           v->majorBuild, v->build, v->targetCpu, v->BuildDate);

    Nuv32f* x = nuvsMalloc_32f(N);
    Nuv32f* y = nuvsMalloc_32f(N);
    Nuv32f* z = nuvsMalloc_32f(N);
    Nuv16s* a = nuvsMalloc_16s(N);
    Nuv16s* b = nuvsMalloc_16s(N);
    Nuv16s* c = nuvsMalloc_16s(N);
    if (!x || !y || !z || !a || !b || !c) {
        printf("allocation failed\n");
        return 1;
    }

    /* Two tones at 440 Hz and 1 kHz, 48 kHz sampling, amplitude 0.8 and 0.5. */
    for (int i = 0; i < N; ++i) {
        x[i] = 0.8f * (float)sin(2.0 * 3.141592653589793 * 440.0 * i / 48000.0);
        y[i] = 0.5f * (float)sin(2.0 * 3.141592653589793 * 1000.0 * i / 48000.0);
    }

    printf("Float path, %d samples:\n", N);
    double tl, tp;
    TIME(tl, check(nuvsAdd_32f(x, y, z, N), "Add_32f"));
    TIME(tp, for (int i = 0; i < N; ++i) z[i] = x[i] + y[i]);
    report("Add_32f  (mix)", 12.0 * N, tl, tp);
    TIME(tl, check(nuvsMul_32f(x, y, z, N), "Mul_32f"));
    TIME(tp, for (int i = 0; i < N; ++i) z[i] = x[i] * y[i]);
    report("Mul_32f  (ring modulation)", 12.0 * N, tl, tp);
    TIME(tl, check(nuvsAddProduct_32f(x, y, z, N), "AddProduct_32f"));
    TIME(tp, for (int i = 0; i < N; ++i) z[i] += x[i] * y[i]);
    report("AddProduct_32f", 12.0 * N, tl, tp);

    printf("\nFixed-point path: the tones as 16-bit audio (Q15), a gain of 1.5 and a mix:\n");
    /* Float to Q15: times 2^15, rounded to nearest even, saturated. */
    check(nuvsConvert_32f16s_Sfs(x, a, N, nuvRndNear, -15), "Convert_32f16s_Sfs");
    check(nuvsConvert_32f16s_Sfs(y, b, N, nuvRndNear, -15), "Convert_32f16s_Sfs");
    /* Gain 1.5 = 3 * 2^-1: the product is rounded and saturated, so peaks clip at 32767. */
    check(nuvsMulC_16s_Sfs(a, 3, c, N, 1), "MulC_16s_Sfs");
    int clipped = 0, peakIn = 0, peakOut = 0;
    for (int i = 0; i < N; ++i) {
        clipped += c[i] == 32767 || c[i] == -32768;
        if (a[i] > peakIn) peakIn = a[i];
        if (c[i] > peakOut) peakOut = c[i];
    }
    printf("  peak in %d, after gain %d; %d of %d samples saturated\n", peakIn, peakOut, clipped, N);
    /* Mix at half level: (a + b) / 2, the halving rounded to nearest even. */
    check(nuvsAdd_16s_Sfs(a, b, c, N, 1), "Add_16s_Sfs");
    check(nuvsConvert_16s32f_Sfs(c, z, N, 15), "Convert_16s32f_Sfs");
    double err = 0;
    for (int i = 0; i < N; ++i) {
        double e = fabs((double)z[i] - 0.5 * ((double)x[i] + (double)y[i]));
        if (e > err) err = e;
    }
    printf("  mix back in float: largest error against the float mix %.2e (Q15 step %.2e)\n", err, 1.0 / 32768);

    TIME(tl, check(nuvsMulC_16s_Sfs(a, 3, c, N, 1), "MulC_16s_Sfs"));
    TIME(tp, for (int i = 0; i < N; ++i) {
        int p = a[i] * 3;
        int r = (p >> 1) + ((p & 1) & ((p >> 1) & 1)); /* half to even */
        c[i] = (Nuv16s)(r > 32767 ? 32767 : r < -32768 ? -32768 : r);
    });
    report("MulC_16s_Sfs (gain)", 4.0 * N, tl, tp);
    TIME(tl, check(nuvsConvert_32f16s_Sfs(x, a, N, nuvRndNear, -15), "Convert_32f16s_Sfs"));
    TIME(tp, for (int i = 0; i < N; ++i) {
        float f = nearbyintf(x[i] * 32768.0f);
        a[i] = (Nuv16s)(f > 32767.0f ? 32767 : f < -32768.0f ? -32768 : (int)f);
    });
    report("Convert_32f16s_Sfs", 6.0 * N, tl, tp);

    nuvsFree(x);
    nuvsFree(y);
    nuvsFree(z);
    nuvsFree(a);
    nuvsFree(b);
    nuvsFree(c);
    return 0;
}

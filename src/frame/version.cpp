// The version record and the load-time entry.
#include "nuvcore.h"
#include "nuvs.h"

namespace {

constexpr NuvLibraryVersion kVersion = {8, 1, 1, 42291, {'x', '7', 0, 0},
                                        "nuvSP AVX2 (x7)", "8.1.1 (r42291)", "Apr 10 2014"};

// Set once at load, read by nothing: the entry has no duty that other code depends on.  Volatile,
// so that the store is made although nothing reads it.
volatile int g_loadFeatureFlag = 0;

[[gnu::constructor]] void onLoad() {
    const uint64_t f = nuvGetEnabledCpuFeatures();
    g_loadFeatureFlag = (f & 0x30) == 0x30 ? 1 : 0;
}

}  // namespace

extern "C" const NuvLibraryVersion* nuvsGetLibVersion(void) { return &kVersion; }

// The exported surface: exactly the declared functions, the slot table in byte order of names,
// and for every export that takes arrays the common argument checks (null pointers, then length)
// with nothing written when they fail.
#include <dlfcn.h>
#include <immintrin.h>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <set>
#include <sstream>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>

#include "support/generic.h"
#include "support/support.h"

namespace {

struct Export {
    const char* name;
    const char* params;
};

#define NUV_EXPORT(name, result, params) {#name, params},
const Export kExports[] = {
#include "exports.inc"
};
#undef NUV_EXPORT

std::vector<std::string> paramNames(const std::string& params) {
    std::vector<std::string> out;
    std::stringstream ss(params);
    std::string piece;
    while (std::getline(ss, piece, ',')) {
        size_t e = piece.find_last_not_of(" \t");
        size_t b = piece.find_last_of(" *\t&", e);
        out.push_back(piece.substr(b + 1, e - b));
    }
    return out;
}

TEST(Exports, DynamicSymbolsAreExactlyTheDeclaredOnes) {
    std::set<std::string> declared;
    for (const auto& e : kExports) declared.insert(e.name);
    declared.insert("NuvExportSlotTable");

    std::set<std::string> defined;
    FILE* p = popen("nm -D --defined-only " NUVS_LIBRARY_PATH, "r");
    ASSERT_NE(p, nullptr);
    char line[512];
    while (std::fgets(line, sizeof line, p)) {
        std::string s(line);
        s.erase(s.find_last_not_of("\r\n") + 1);
        size_t sp = s.find_last_of(' ');
        defined.insert(s.substr(sp + 1));
    }
    ASSERT_EQ(pclose(p), 0);
    EXPECT_EQ(defined, declared);
}

TEST(Exports, SlotTableListsExportsInByteOrder) {
    void* lib = dlopen(NUVS_LIBRARY_PATH, RTLD_NOW | RTLD_NOLOAD);
    ASSERT_NE(lib, nullptr);
    for (size_t i = 0; i < NUV_EXPORT_COUNT; ++i) {
        if (i > 0) {
            EXPECT_LT(std::strcmp(kExports[i - 1].name, kExports[i].name), 0);
        }
        EXPECT_EQ(NuvExportSlotTable[i], dlsym(lib, kExports[i].name)) << kExports[i].name;
    }
    dlclose(lib);
}

TEST(Exports, VersionRecord) {
    const NuvLibraryVersion* v = nuvsGetLibVersion();
    ASSERT_EQ(v, nuvsGetLibVersion());
    EXPECT_EQ(v->major, 8);
    EXPECT_EQ(v->minor, 1);
    EXPECT_EQ(v->majorBuild, 1);
    EXPECT_EQ(v->build, 42291);
    EXPECT_EQ(std::memcmp(v->targetCpu, "x7\0\0", 4), 0);
    EXPECT_STREQ(v->Name, "nuvSP AVX2 (x7)");
    EXPECT_STREQ(v->Version, "8.1.1 (r42291)");
    EXPECT_STREQ(v->BuildDate, "Apr 10 2014");
}

// Exports that can't differ are one implementation under several names.  A group is checked once
// all its members are exported.  Set_32fc/32sc and Set_64f/64s stay apart: their values arrive in
// different registers.
TEST(Exports, SharingGroupsAreOneFunction) {
    const std::vector<std::vector<const char*>> groups = {
        {"nuvsCopy_16sc", "nuvsCopy_32f", "nuvsCopy_32s"},
        {"nuvsCopy_32fc", "nuvsCopy_32sc", "nuvsCopy_64f", "nuvsCopy_64s"},
        {"nuvsCopy_64fc", "nuvsCopy_64sc"},
        {"nuvsMove_16sc", "nuvsMove_32f", "nuvsMove_32s"},
        {"nuvsMove_32fc", "nuvsMove_32sc", "nuvsMove_64f", "nuvsMove_64s"},
        {"nuvsMove_64fc", "nuvsMove_64sc"},
        {"nuvsZero_16sc", "nuvsZero_32f", "nuvsZero_32s"},
        {"nuvsZero_32fc", "nuvsZero_32sc", "nuvsZero_64f", "nuvsZero_64s"},
        {"nuvsZero_64fc", "nuvsZero_64sc"},
        {"nuvsMalloc_8s", "nuvsMalloc_8u"},
        {"nuvsMalloc_16s", "nuvsMalloc_16u", "nuvsMalloc_8sc"},
        {"nuvsMalloc_16sc", "nuvsMalloc_32f", "nuvsMalloc_32s", "nuvsMalloc_32u"},
        {"nuvsMalloc_32fc", "nuvsMalloc_32sc", "nuvsMalloc_64f", "nuvsMalloc_64s"},
        {"nuvsMalloc_64fc", "nuvsMalloc_64sc"},
        {"nuvsSampleUp_16sc", "nuvsSampleUp_32f"},
        {"nuvsSampleUp_32fc", "nuvsSampleUp_64f"},
        {"nuvsFFTGetSize_C_32s", "nuvsFFTGetSize_C_32sc"},
        {"nuvsFIRGetStateSize32f_16s", "nuvsFIRGetStateSize_32f", "nuvsFIRStreamGetStateSize_32f"},
        {"nuvsFIRGetStateSize32fc_16sc", "nuvsFIRGetStateSize_32fc"},
        {"nuvsFIRGetStateSize64f_16s", "nuvsFIRGetStateSize64f_32f", "nuvsFIRGetStateSize64f_32s",
         "nuvsFIRGetStateSize_64f"},
        {"nuvsFIRGetStateSize64fc_16sc", "nuvsFIRGetStateSize64fc_32fc", "nuvsFIRGetStateSize64fc_32sc",
         "nuvsFIRGetStateSize_64fc"},
        {"nuvsFIRMRGetStateSize32fc_16sc", "nuvsFIRMRGetStateSize_32fc"},
        {"nuvsFIRMRGetStateSize64fc_16sc", "nuvsFIRMRGetStateSize64fc_32fc", "nuvsFIRMRGetStateSize64fc_32sc",
         "nuvsFIRMRGetStateSize_64fc"},
        {"nuvsFIROne64f_32s_Sfs", "nuvsFIROne_32s_Sfs"},
        {"nuvsIIRGetStateSize32s_16s32f", "nuvsIIRGetStateSize32s_16s"},
        {"nuvsIIRGetStateSize32s_BiQuad_16s32f", "nuvsIIRGetStateSize32s_BiQuad_16s"},
        {"nuvsIIRGetStateSize32sc_16sc32fc", "nuvsIIRGetStateSize32sc_16sc"},
        {"nuvsIIRGetStateSize32sc_BiQuad_16sc32fc", "nuvsIIRGetStateSize32sc_BiQuad_16sc"},
        {"nuvsIIRSetTaps32sc_16sc32fc", "nuvsIIRSetTaps_32fc"},
        {"nuvsRandGaussGetSize_16s", "nuvsRandGaussGetSize_8u"},
        {"nuvsRandUniformGetSize_16s", "nuvsRandUniformGetSize_32f", "nuvsRandUniformGetSize_8u"},
    };
    void* lib = dlopen(NUVS_LIBRARY_PATH, RTLD_NOW | RTLD_NOLOAD);
    ASSERT_NE(lib, nullptr);
    int checked = 0;
    for (const auto& g : groups) {
        std::vector<void*> fns;
        for (const char* name : g) fns.push_back(dlsym(lib, name));
        if (std::count(fns.begin(), fns.end(), nullptr) != 0) continue;
        ++checked;
        for (size_t i = 1; i < g.size(); ++i) EXPECT_EQ(fns[i], fns[0]) << g[i] << " is not " << g[0];
    }
    EXPECT_GE(checked, 14);
    dlclose(lib);
}

// ---- generic argument checks -------------------------------------------------------------

// Arguments for one call: a guarded buffer behind every pointer, benign values for scalars.
class Call {
public:
    Call(std::vector<std::string> names, int len, int nullIndex)
        : names_(std::move(names)), len_(len), null_(nullIndex) {}

    template <class A>
    A arg(size_t i) {
        const std::string& n = names_[i];
        if constexpr (std::is_pointer_v<A>) {
            if (int(i) == null_) return nullptr;
            using P = std::remove_cv_t<std::remove_pointer_t<A>>;
            nt::Guarded* g = bufs_.emplace_back(std::make_unique<nt::Guarded>(256)).get();
            if constexpr (std::is_pointer_v<P>) {
                // An array of channel pointers: each points to a guarded buffer of its own.
                auto* slots = reinterpret_cast<void**>(g->data());
                for (int c = 0; c < 4; ++c) slots[c] = bufs_.emplace_back(std::make_unique<nt::Guarded>(256))->data();
                channelArrays_.push_back(g);
            }
            return reinterpret_cast<A>(g->data());
        } else if constexpr (std::is_integral_v<A>) {
            if (n == "len" || n == "srcLen" || n == "chanLen") return A(len_);
            if (n == "nChannels") return A(len_ < 1 ? len_ : 2);
            if (n == "rndMode") return A(1);
            if (n == "relOp" || n == "scaleFactor" || n.find("ScaleFactor") != std::string::npos) return A(0);
            if (n == "levelGT") return A(2);
            if (n == "phaseFixedPoint" || n.find("Offset") != std::string::npos) return A(0);
            return A(3);
        } else if constexpr (std::is_floating_point_v<A>) {
            if (n == "levelGT") return A(2);
            return A(3);
        } else {
            A v{};
            std::memset(&v, 3, sizeof v);
            return v;
        }
    }

    // Nothing written anywhere: every buffer still holds its fill pattern, except the slots of a
    // channel-pointer array, which the test itself wrote.
    bool nothingWritten() const {
        for (const auto& b : bufs_) {
            bool isChannelArray = std::find(channelArrays_.begin(), channelArrays_.end(), b.get()) != channelArrays_.end();
            if (!isChannelArray && !b->intact(true)) return false;
        }
        return true;
    }

private:
    std::vector<std::string> names_;
    int len_, null_;
    std::vector<std::unique_ptr<nt::Guarded>> bufs_;
    std::vector<const nt::Guarded*> channelArrays_;
};

template <class... A, size_t... I>
NuvStatus invoke(NuvStatus (*fn)(A...), Call& c, std::index_sequence<I...>) {
    // Build arguments left to right, then call.
    std::tuple<A...> args{c.template arg<A>(I)...};
    return std::apply(fn, args);
}

struct Probe {
    std::string name;
    std::vector<std::string> params;
    std::vector<int> pointerIndices;
    std::function<NuvStatus(Call&)> run;
};

template <class... A>
Probe makeProbe(const char* name, NuvStatus (*fn)(A...), const char* params) {
    Probe p{name, paramNames(params), {}, [fn](Call& c) { return invoke(fn, c, std::index_sequence_for<A...>{}); }};
    int i = 0;
    ((std::is_pointer_v<A> ? p.pointerIndices.push_back(i++) : void(i++)), ...);
    return p;
}
template <class R, class... A>
Probe makeProbe(const char* name, R (*)(A...), const char*) {
    return Probe{name, {}, {}, nullptr};  // not a status-returning export
}

std::vector<Probe> probes() {
    std::vector<Probe> v;
#define NUV_EXPORT(name, result, params) v.push_back(makeProbe(#name, &name, params));
#include "exports.inc"
#undef NUV_EXPORT
    std::erase_if(v, [](const Probe& p) {
        if (!p.run || p.pointerIndices.empty()) return true;
        bool hasLen = std::any_of(p.params.begin(), p.params.end(),
                                  [](const std::string& n) { return n == "len" || n == "srcLen" || n == "chanLen"; });
        return !hasLen || (nt::genericRules().count(p.name) && (nt::genericRules()[p.name] & nt::SkipGeneric));
    });
    return v;
}

void PrintTo(const Probe& p, std::ostream* os) { *os << p.name; }

class GenericChecks : public ::testing::TestWithParam<Probe> {};

TEST_P(GenericChecks, NullPointersThenLength) {
    const Probe& p = GetParam();
    const unsigned rule = nt::genericRules().count(p.name) ? nt::genericRules()[p.name] : 0;
    // The most negative lengths too: doubled for a complex count they would wrap to a small positive one.
    for (int bad : {0, -1, INT_MIN, INT_MIN + 1}) {
        if (bad < 0 && (rule & nt::NoNegativeLen)) continue;
        Call c(p.params, bad, -1);
        EXPECT_EQ(p.run(c), nuvStsSize) << p.name << " len " << bad;
        EXPECT_TRUE(c.nothingWritten()) << p.name << " len " << bad;
    }
    for (int idx : p.pointerIndices) {
        if ((rule & nt::NullableSources) && p.params[size_t(idx)].rfind("pSrc", 0) == 0) continue;
        for (int len : {0, 5}) {
            if (len == 0 && (rule & nt::LenFirst)) continue;
            Call c(p.params, len, idx);
            EXPECT_EQ(p.run(c), nuvStsNullPtr) << p.name << " null " << p.params[size_t(idx)] << " len " << len;
            EXPECT_TRUE(c.nothingWritten()) << p.name << " null " << p.params[size_t(idx)];
        }
    }
}

// A valid call leaves the caller's SSE control word (flags aside) and x87 control word as it found
// them, with a directed rounding mode and flush-to-zero set and the x87 unit at 53 bits toward zero.
TEST_P(GenericChecks, LeavesTheCallersControlWords) {
    const Probe& p = GetParam();
    const unsigned savedCsr = _mm_getcsr();
    unsigned short savedCw;
    __asm__ volatile("fnstcw %0" : "=m"(savedCw));
    const unsigned csr = (savedCsr & ~0x603Fu) | 0x4000u | 0x8040u;
    const unsigned short cw = static_cast<unsigned short>((savedCw & ~0x0F00u) | 0x0E00u);
    Call c(p.params, 9, -1);
    _mm_setcsr(csr);
    __asm__ volatile("fldcw %0" : : "m"(cw));
    p.run(c);
    const unsigned csrAfter = _mm_getcsr();
    unsigned short cwAfter;
    __asm__ volatile("fnstcw %0" : "=m"(cwAfter));
    __asm__ volatile("fldcw %0" : : "m"(savedCw));
    _mm_setcsr(savedCsr);
    EXPECT_EQ(csrAfter & ~0x3Fu, csr) << p.name;
    EXPECT_EQ(cwAfter, cw) << p.name;
}

INSTANTIATE_TEST_SUITE_P(All, GenericChecks, ::testing::ValuesIn(probes()),
                         [](const auto& probe) { return probe.param.name; });
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(GenericChecks);

}  // namespace

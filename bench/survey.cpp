// Every export that takes a length, timed once over plain arguments: nanoseconds per element, the
// best of a few runs, slowest first.  A map of where the library is slow, not a comparison; the
// peer comparisons are in bench_vector.
//   nuvs_survey [len]      (default 2048)
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <sstream>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

#include "nuvs.h"

namespace {

int gLen = 2048;
constexpr size_t kBufBytes = size_t(1) << 20;

std::vector<std::string> paramNames(const std::string& params) {
    std::vector<std::string> out;
    std::stringstream ss(params);
    std::string piece;
    while (std::getline(ss, piece, ',')) {
        const size_t e = piece.find_last_not_of(" \t");
        const size_t b = piece.find_last_of(" *\t&", e);
        out.push_back(piece.substr(b + 1, e - b));
    }
    return out;
}

struct FreeDeleter {
    void operator()(void* p) const { std::free(p); }
};

// Arguments by parameter name: arrays filled with the byte 0x3F (0.75 as a float, about 16000 as a
// 16-bit integer), lengths gLen, scale 3, rounding to nearest, the floor rule, small levels.
class Args {
public:
    explicit Args(std::vector<std::string> names) : names_(std::move(names)) {}

    template <class A>
    A arg(size_t i) {
        const std::string& n = names_[i];
        if constexpr (std::is_pointer_v<A>) {
            using P = std::remove_cv_t<std::remove_pointer_t<A>>;
            void* b = buffer();
            if constexpr (std::is_pointer_v<P>) {
                auto** slots = static_cast<void**>(b);
                for (int c = 0; c < 8; ++c) slots[c] = buffer();
            }
            if (n == "pSrcBitsLen")
                for (int k = 0; k < gLen; ++k) static_cast<int*>(b)[k] = 7;
            return reinterpret_cast<A>(b);
        } else if constexpr (std::is_integral_v<A>) {
            if (n == "len" || n == "srcLen") return A(gLen);
            if (n == "chanLen") return A(gLen / 4);
            if (n == "nChannels") return A(4);
            if (n == "rndMode") return A(1);
            if (n == "relOp" || n.find("Offset") != std::string::npos) return A(0);
            if (n == "phaseFixedPoint") return A(8);
            if (n == "levelGT") return A(20);
            return A(3);  // scale factors, shift counts, levels, constants
        } else if constexpr (std::is_floating_point_v<A>) {
            return A(n == "levelGT" ? 2 : 0.75);
        } else {
            A v{};
            std::memset(&v, 0x3F, sizeof v);
            return v;
        }
    }

private:
    void* buffer() {
        void* p = std::aligned_alloc(64, kBufBytes);
        std::memset(p, 0x3F, kBufBytes);
        bufs_.emplace_back(p);
        return p;
    }
    std::vector<std::string> names_;
    std::vector<std::unique_ptr<void, FreeDeleter>> bufs_;
};

struct Row {
    std::string name;
    double nsPerElement;
    NuvStatus status;
};

template <class... A, size_t... I>
Row time(const char* name, NuvStatus (*fn)(A...), Args& args, std::index_sequence<I...>) {
    std::tuple<A...> a{args.template arg<A>(I)...};
    double best = 1e30;
    NuvStatus st = nuvStsOk;
    for (int r = 0; r < 20; ++r) {
        const auto t0 = std::chrono::steady_clock::now();
        st = std::apply(fn, a);
        const auto t1 = std::chrono::steady_clock::now();
        best = std::min(best, std::chrono::duration<double, std::nano>(t1 - t0).count());
    }
    return Row{name, best / gLen, st};
}

template <class... A>
void survey(std::vector<Row>& rows, const char* name, NuvStatus (*fn)(A...), const char* params) {
    std::vector<std::string> names = paramNames(params);
    const bool hasLen = std::find(names.begin(), names.end(), "len") != names.end() ||
                        std::find(names.begin(), names.end(), "srcLen") != names.end() ||
                        std::find(names.begin(), names.end(), "chanLen") != names.end();
    if (!hasLen || std::strncmp(name, "nuvsMalloc", 10) == 0) return;
    Args args(std::move(names));
    rows.push_back(time(name, fn, args, std::index_sequence_for<A...>{}));
}
template <class R, class... A>
void survey(std::vector<Row>&, const char*, R (*)(A...), const char*) {}

}  // namespace

int main(int argc, char** argv) {
    if (argc > 1) gLen = std::max(8, std::min(std::atoi(argv[1]), 16384));
    std::vector<Row> rows;
#define NUV_EXPORT(name, result, params) survey(rows, #name, &name, params);
#include "exports.inc"
#undef NUV_EXPORT
    std::sort(rows.begin(), rows.end(), [](const Row& a, const Row& b) { return a.nsPerElement > b.nsPerElement; });
    std::printf("%d elements, best of 20 runs\n", gLen);
    for (const Row& r : rows) std::printf("%-34s %9.3f ns/element%s\n", r.name.c_str(), r.nsPerElement, r.status ? "  (status not 0)" : "");
}

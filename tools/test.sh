#!/usr/bin/env bash
# Builds libnuvsx7 and runs the whole test suite.
#   tools/test.sh             g++, optimised build
#   tools/test.sh --sanitize  g++ with address and undefined-behaviour sanitizers
#   tools/test.sh --clang     clang++
set -euo pipefail
cd "$(dirname "$0")/.."
mode=${1:-}
pkgs=(cmake ninja-build g++ python3 libgtest-dev binutils)
[ "$mode" = --clang ] && pkgs+=(clang)
need=()
for p in "${pkgs[@]}"; do dpkg -s "$p" >/dev/null 2>&1 || need+=("$p"); done
if [ ${#need[@]} -gt 0 ]; then apt-get update -qq && DEBIAN_FRONTEND=noninteractive apt-get install -y -qq "${need[@]}"; fi
case "$mode" in
  --sanitize) dir=build-asan; opts=(-DNUVS_SANITIZE=ON -DCMAKE_BUILD_TYPE=RelWithDebInfo) ;;
  --clang)    dir=build-clang; opts=(-DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++) ;;
  "")         dir=build-test; opts=() ;;
  *) echo "unknown option $mode" >&2; exit 2 ;;
esac
cmake -S . -B "$dir" -G Ninja "${opts[@]}" >/dev/null
ninja -C "$dir"
export ASAN_OPTIONS=detect_leaks=1:abort_on_error=1 UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
ctest --test-dir "$dir" -j"$(nproc)" --output-on-failure

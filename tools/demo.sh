#!/usr/bin/env bash
# Builds libnuvsx7 and runs its demo program.
set -euo pipefail
cd "$(dirname "$0")/.."
need=()
for p in cmake ninja-build g++ python3; do dpkg -s "$p" >/dev/null 2>&1 || need+=("$p"); done
if [ ${#need[@]} -gt 0 ]; then apt-get update -qq && DEBIAN_FRONTEND=noninteractive apt-get install -y -qq "${need[@]}"; fi
cmake -S . -B build -G Ninja -DNUVS_TESTS=OFF >/dev/null
ninja -C build nuvsx7 nuvs_demo
build/nuvs_demo

#!/usr/bin/env bash
# Builds the library and runs the demo: the built-in test image through every
# family, written as PNG files into demo-out/ (or the folder given).
set -euo pipefail
cd "$(dirname "$0")/.."
root=$(pwd)
need=(cmake g++ make libpng-dev pkg-config)
missing=()
for p in "${need[@]}"; do dpkg -s "$p" >/dev/null 2>&1 || missing+=("$p"); done
if [ ${#missing[@]} -gt 0 ] && [ "$(id -u)" = 0 ]; then
  apt-get update -qq && DEBIAN_FRONTEND=noninteractive apt-get install -y -qq "${missing[@]}" >/dev/null
fi
cmake -S "$root" -B "$root/build/demo" -DCMAKE_BUILD_TYPE=Release -DNMQ_TESTS=OFF -DNMQ_BENCH=OFF >/dev/null
cmake --build "$root/build/demo" -j "$(nproc 2>/dev/null || echo 2)" --target nmqdemo >/dev/null
"$root/build/demo/tools/nmqdemo" "${1:-$root/demo-out}"

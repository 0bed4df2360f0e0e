#!/usr/bin/env bash
# Builds the library and nmqconv and runs `nmqconv demo`: the built-in test
# image through every family, written as PNG files with an HTML contact sheet
# (index.html) into demo-out/ (or the folder given). Installs the Debian
# packages it needs when they are missing and it runs as root.
set -euo pipefail
cd "$(dirname "$0")/.."
root=$(pwd)
need=(cmake g++ make libpng-dev libjpeg-dev pkg-config)
missing=()
for p in "${need[@]}"; do dpkg -s "$p" >/dev/null 2>&1 || missing+=("$p"); done
if [ ${#missing[@]} -gt 0 ]; then
  if [ "$(id -u)" = 0 ]; then
    apt-get update -qq && DEBIAN_FRONTEND=noninteractive apt-get install -y -qq "${missing[@]}" >/dev/null
  else
    echo "missing packages: ${missing[*]} (run as root or install them)" >&2
    exit 1
  fi
fi
cmake -S "$root" -B "$root/build/demo" -DCMAKE_BUILD_TYPE=Release -DNMQ_TESTS=OFF -DNMQ_BENCH=OFF >/dev/null
cmake --build "$root/build/demo" -j "$(nproc 2>/dev/null || echo 2)" --target nmqconv >/dev/null
out="${1:-$root/demo-out}"
"$root/build/demo/tools/nmqconv" demo "$out"
echo "open $(cd "$out" && pwd)/index.html"

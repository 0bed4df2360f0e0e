#!/usr/bin/env bash
# Builds and tests nmqcc three ways: x86-64 release, i686 release (-m32 -msse2
# -mfpmath=sse) and x86-64 with AddressSanitizer + UndefinedBehaviorSanitizer.
# Installs the Debian packages it needs when they are missing (as root).
# Usage: tools/run-tests.sh [x64|i686|asan ...]   (default: all three)
set -euo pipefail
cd "$(dirname "$0")/.."
root=$(pwd)

need=(cmake g++ g++-multilib make googletest libgtest-dev libpng-dev libjpeg-dev libbenchmark-dev pkg-config)
missing=()
for p in "${need[@]}"; do dpkg -s "$p" >/dev/null 2>&1 || missing+=("$p"); done
if [ ${#missing[@]} -gt 0 ]; then
  if [ "$(id -u)" = 0 ]; then
    echo "installing: ${missing[*]}"
    apt-get update -qq && DEBIAN_FRONTEND=noninteractive apt-get install -y -qq "${missing[@]}" >/dev/null
  else
    echo "missing packages: ${missing[*]} (run as root or install them)" >&2
    exit 1
  fi
fi

jobs=$(nproc 2>/dev/null || echo 2)
configs=("$@")
[ ${#configs[@]} -gt 0 ] || configs=(x64 i686 asan)

for c in "${configs[@]}"; do
  case "$c" in
    x64)  flags=(-DCMAKE_BUILD_TYPE=Release) ;;
    i686) flags=(-DCMAKE_BUILD_TYPE=Release -DNMQ_I686=ON -DNMQ_TOOLS=OFF -DNMQ_BENCH=OFF) ;;
    asan) flags=(-DCMAKE_BUILD_TYPE=RelWithDebInfo -DNMQ_SANITIZE=ON -DNMQ_TOOLS=OFF -DNMQ_BENCH=OFF) ;;
    *) echo "unknown configuration $c" >&2; exit 2 ;;
  esac
  echo "== $c =="
  cmake -S "$root" -B "$root/build/$c" "${flags[@]}" >/dev/null
  cmake --build "$root/build/$c" -j "$jobs"
  ASAN_OPTIONS=detect_leaks=1:abort_on_error=1 UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
    ctest --test-dir "$root/build/$c" -j "$jobs" --output-on-failure
done

#!/usr/bin/env bash
# Builds and tests nmqcc: x86-64 release, i686 release (-m32 -msse2
# -mfpmath=sse), x86-64 with AddressSanitizer + UndefinedBehaviorSanitizer,
# libFuzzer over every export (clang; bounded by NMQ_FUZZ_SECONDS, default
# 240) and the threads test under ThreadSanitizer (clang).
# Installs the Debian packages it needs when they are missing (as root).
# Usage: tools/run-tests.sh [x64|i686|asan|fuzz|tsan ...]   (default: all five)
set -euo pipefail
cd "$(dirname "$0")/.."
root=$(pwd)

configs=("$@")
[ ${#configs[@]} -gt 0 ] || configs=(x64 i686 asan fuzz tsan)

need=(cmake g++ g++-multilib make python3 googletest libgtest-dev libpng-dev libjpeg-dev libbenchmark-dev pkg-config)
case " ${configs[*]} " in *" fuzz "*|*" tsan "*) need+=(clang-14 libclang-rt-14-dev) ;; esac
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
passed=0

for c in "${configs[@]}"; do
  case "$c" in
    x64)  flags=(-DCMAKE_BUILD_TYPE=Release) ;;
    i686) flags=(-DCMAKE_BUILD_TYPE=Release -DNMQ_I686=ON -DNMQ_TOOLS=OFF -DNMQ_BENCH=OFF) ;;
    asan) flags=(-DCMAKE_BUILD_TYPE=RelWithDebInfo -DNMQ_SANITIZE=ON -DNMQ_TOOLS=OFF -DNMQ_BENCH=OFF) ;;
    fuzz|tsan)
      echo "== $c =="
      flags=(-DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_C_COMPILER=clang-14 -DCMAKE_CXX_COMPILER=clang++-14
             -DNMQ_TESTS=OFF -DNMQ_TOOLS=OFF -DNMQ_BENCH=OFF)
      if [ "$c" = fuzz ]; then flags+=(-DNMQ_SANITIZE=ON -DNMQ_FUZZ=ON); else flags+=(-DNMQ_TSAN=ON); fi
      cmake -S "$root" -B "$root/build/$c" "${flags[@]}" >/dev/null
      if [ "$c" = fuzz ]; then
        cmake --build "$root/build/$c" -j "$jobs" --target nmq_fuzz nmq_fuzz_replay
        "$root/build/$c/fuzz/nmq_fuzz_replay" "$root/fuzz/corpus"
        # New inputs go to the build tree; the committed corpus only seeds.
        rm -rf "$root/build/$c/corpus" && mkdir -p "$root/build/$c/corpus" "$root/build/$c/artifacts"
        "$root/build/$c/fuzz/nmq_fuzz" -max_total_time="${NMQ_FUZZ_SECONDS:-240}" -timeout=20 -rss_limit_mb=3072 \
          -print_final_stats=1 -artifact_prefix="$root/build/$c/artifacts/" \
          "$root/build/$c/corpus" "$root/fuzz/corpus"
      else
        cmake --build "$root/build/$c" -j "$jobs" --target test_robust_threads
        TSAN_OPTIONS=halt_on_error=1:second_deadlock_stack=1 "$root/build/$c/tests/robust/test_robust_threads"
      fi
      passed=$((passed + 1))
      continue ;;
    *) echo "unknown configuration $c" >&2; exit 2 ;;
  esac
  echo "== $c =="
  cmake -S "$root" -B "$root/build/$c" "${flags[@]}" >/dev/null
  cmake --build "$root/build/$c" -j "$jobs"
  ASAN_OPTIONS=detect_leaks=1:abort_on_error=1 UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
    ctest --test-dir "$root/build/$c" -j "$jobs" --output-on-failure | tee "$root/build/$c/ctest.log"
  n=$(sed -n 's/.*tests passed, 0 tests failed out of \([0-9]*\).*/\1/p' "$root/build/$c/ctest.log" | tail -1)
  passed=$((passed + ${n:-0}))
done
# Every configuration passed (the script stops at the first failure).
echo "all configurations (${configs[*]}): ${passed} tests passed"
echo "tests: ${passed} passed, 0 failed"

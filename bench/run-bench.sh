#!/bin/sh
# Builds the benchmarks in Release and prints, single thread:
#   1. the hot function of every family at 1920x1080 and 64x64 (Google
#      Benchmark, CPU time, median of the repetitions), and
#   2. the side-by-side table against libyuv, OpenCV and swscale (when they
#      are installed: Debian libyuv-dev, libopencv-dev, libswscale-dev).
# With --i686 it also builds the 32-bit library and prints its columns
# (our kernels only: the peers are 64-bit).
#
# Environment: BUILD (build directory, default build/bench), JOBS (default 2),
# REPS (repetitions, default 5).
set -e
ROOT=$(cd "$(dirname "$0")/.." && pwd)
BUILD=${BUILD:-$ROOT/build/bench}
JOBS=${JOBS:-2}
REPS=${REPS:-5}
I686=0
for a in "$@"; do
  case "$a" in
    --i686) I686=1 ;;
    *) echo "usage: $0 [--i686]" >&2; exit 2 ;;
  esac
done

cmake -S "$ROOT" -B "$BUILD" -DCMAKE_BUILD_TYPE=Release -DNMQ_TOOLS=OFF -DNMQ_TESTS=OFF -DNMQ_BENCH=ON >/dev/null
cmake --build "$BUILD" -j"$JOBS" --target nmqbench >/dev/null
if cmake --build "$BUILD" --target help 2>/dev/null | grep nmqpeers >/dev/null; then
  cmake --build "$BUILD" -j"$JOBS" --target nmqpeers >/dev/null
fi

echo "== CPU: $(grep -m1 'model name' /proc/cpuinfo | cut -d: -f2 | sed 's/^ //')"
echo "== Hot functions, one thread (median of $REPS)"
"$BUILD/bench/nmqbench" --benchmark_filter='^hot/' --benchmark_repetitions="$REPS" \
  --benchmark_report_aggregates_only=true --benchmark_display_aggregates_only=true 2>/dev/null |
  grep -E '_median|^Benchmark|^---' | sed 's/_median//'

if [ -x "$BUILD/bench/peers/nmqpeers" ]; then
  echo
  echo "== Side by side with the peers"
  "$BUILD/bench/peers/nmqpeers" --reps="$REPS"
fi

if [ "$I686" = 1 ]; then
  B32="$BUILD-i686"
  cmake -S "$ROOT" -B "$B32" -DCMAKE_BUILD_TYPE=Release -DNMQ_I686=ON -DNMQ_TOOLS=OFF -DNMQ_TESTS=OFF >/dev/null
  cmake --build "$B32" -j"$JOBS" --target nmqpeers >/dev/null
  echo
  echo "== 32-bit build (ours/2: the SSE2 kernels)"
  "$B32/bench/peers/nmqpeers" --reps="$REPS"
fi

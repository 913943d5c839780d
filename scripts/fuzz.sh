#!/usr/bin/env bash
# Builds a fuzz target with clang and libFuzzer in build-fuzz/ and runs it.
#   scripts/fuzz.sh TARGET SECONDS [libFuzzer options…]
#   scripts/fuzz.sh viiteaineisto 600
# The saved inputs in tests/fuzz/TARGET/ seed the run, and tests/fuzz/TARGET.dict, when there is
# one, lends it tokens. What the fuzzer finds new goes to build-fuzz/corpus/TARGET/, a crashing or
# hanging input to build-fuzz/artifacts/TARGET/. Copy an input that found a fault into
# tests/fuzz/TARGET/ with the fix: the ordinary tests replay them.
set -euo pipefail
cd "$(dirname "$0")/.."
ROOT=$(pwd)

if [ $# -lt 2 ]; then
  echo "käyttö: scripts/fuzz.sh KOHDE SEKUNTIA [libFuzzerin valitsimia]" >&2
  ls tests/fuzz/*.cpp 2>/dev/null | sed 's|.*/fuzz_||; s|\.cpp$||; s|^|  |' >&2
  exit 2
fi
TARGET=$1
SECONDS_TO_RUN=$2
shift 2
if [ ! -f "tests/fuzz/fuzz_$TARGET.cpp" ]; then
  echo "fuzz.sh: tuntematon kohde $TARGET" >&2
  exit 2
fi

bash scripts/deps.sh

BUILD=build-fuzz
export CCACHE_BASEDIR="$ROOT" CCACHE_NOHASHDIR=1
cmake -S tests/fuzz -B "$BUILD" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DCMAKE_CXX_COMPILER=clang++-14 -DCMAKE_CXX_COMPILER_LAUNCHER=ccache >/dev/null
cmake --build "$BUILD" --target "fuzz_$TARGET"

CORPUS="$BUILD/corpus/$TARGET"
ARTIFACTS="$BUILD/artifacts/$TARGET"
mkdir -p "$CORPUS" "$ARTIFACTS"
# Leaks are faults too; the sanitizers stop at the first report.
export ASAN_OPTIONS="detect_leaks=1:abort_on_error=1:${ASAN_OPTIONS:-}"
export UBSAN_OPTIONS="print_stacktrace=1:halt_on_error=1:${UBSAN_OPTIONS:-}"
DICT=()
if [ -f "tests/fuzz/$TARGET.dict" ]; then
  DICT=(-dict="tests/fuzz/$TARGET.dict")
fi
exec "$BUILD/fuzz_$TARGET" "$CORPUS" "tests/fuzz/$TARGET" "${DICT[@]}" \
  -max_total_time="$SECONDS_TO_RUN" -timeout=10 -rss_limit_mb=4096 -max_len=65536 \
  -artifact_prefix="$ARTIFACTS/" -print_final_stats=1 "$@"

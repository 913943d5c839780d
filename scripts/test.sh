#!/usr/bin/env bash
# Installs what is missing, builds, and runs every test.
#   scripts/test.sh            ordinary build in build/
#   scripts/test.sh --sanitize AddressSanitizer + UndefinedBehaviorSanitizer build in build-asan/
set -euo pipefail
cd "$(dirname "$0")/.."
ROOT=$(pwd)

SANITIZE=OFF
BUILD=build
for arg in "$@"; do
  case "$arg" in
    --sanitize) SANITIZE=ON; BUILD=build-asan ;;
    *) echo "test.sh: tuntematon valitsin $arg" >&2; exit 2 ;;
  esac
done

bash scripts/deps.sh

export CCACHE_BASEDIR="$ROOT" CCACHE_NOHASHDIR=1
cmake -S . -B "$BUILD" -G Ninja -DVONARI_SANITIZE=$SANITIZE -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build "$BUILD" -j"$(nproc)" || {
  # A stale moc cache can miss windows that arrived with an update: redo it once.
  rm -rf "$BUILD"/src/vonari_ui_autogen "$BUILD"/src/vonari_logic_autogen "$BUILD"/tests/vonari_testsupport_autogen
  cmake --build "$BUILD" -j"$(nproc)"
}

# The tests' environment (offscreen windows; in the sanitizer build leak checks with
# tests/lsan.supp) is set by tests/CMakeLists.txt, so ctest run by hand checks the same.
cd "$BUILD"
ctest --output-on-failure -j2 --timeout 900

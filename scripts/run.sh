#!/usr/bin/env bash
# Installs what is missing, builds, and starts Vonari.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/deps.sh
export CCACHE_BASEDIR="$(pwd)" CCACHE_NOHASHDIR=1
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build build -j"$(nproc)" --target vonari || {
  # A stale moc cache can miss windows that arrived with an update: redo it once.
  rm -rf build/src/vonari_ui_autogen build/src/vonari_logic_autogen
  cmake --build build -j"$(nproc)" --target vonari
}
exec build/src/vonari "$@"

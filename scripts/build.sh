#!/usr/bin/env bash
# Configures (once) and builds a preset of CMakePresets.json: scripts/build.sh [preset] [target...]
set -euo pipefail
cd "$(dirname "$0")/.."

preset=${1:-release}
shift || true
targets=()
[ $# -eq 0 ] || targets=(--target "$@")
if [ ! -f "build/$preset/build.ninja" ]; then
    cmake --preset "$preset"
fi
cmake --build --preset "$preset" --parallel "$(nproc)" "${targets[@]}"

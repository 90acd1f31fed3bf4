#!/usr/bin/env bash
# Installs what is missing, then checks the sources, builds, and runs all tests.
#   ./test.sh          everything
#   ./test.sh quick    the release build and its tests only
set -euo pipefail
cd "$(dirname "$0")"

scripts/deps.sh test
if [ "${1:-all}" != quick ]; then
    scripts/check.sh changed
    scripts/build.sh sanitizers
    ctest --preset sanitizers --label-exclude slow
fi
scripts/build.sh release
ctest --preset release

#!/usr/bin/env bash
# Installs what is missing, then checks the sources, builds, and runs all tests.
#   ./test.sh          everything
#   ./test.sh quick    the release build and its tests only
#   ./test.sh weekly   what takes longer: the logic under the thread sanitizer, the slow tests, and
#                      the planted faults
set -euo pipefail
cd "$(dirname "$0")"

scripts/deps.sh test
if [ "${1:-all}" = weekly ]; then
    scripts/build.sh threads
    # The time limits of kill loops are made for a program at its own speed.
    ctest --preset threads --label-exclude slow
    scripts/build.sh release
    ctest --preset release --label-regex slow
    exec scripts/plant_faults.sh
fi
if [ "${1:-all}" != quick ]; then
    scripts/check.sh changed
    scripts/build.sh sanitizers
    ctest --preset sanitizers --label-exclude slow
fi
scripts/build.sh release
ctest --preset release

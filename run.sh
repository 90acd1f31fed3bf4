#!/usr/bin/env bash
# Installs what is missing, builds, and opens Velmora on the demo network. Without a display it draws
# the demo headless under out/ and says so. Arguments replace the demo: ./run.sh my.net
set -euo pipefail
cd "$(dirname "$0")"

scripts/deps.sh run
scripts/build.sh release velmora velmora-cli

program=build/release/bin
if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    exec "$program/velmora" "${@:-demo/cumberland.net}"
fi
network=${1:-demo/cumberland.net}
mkdir -p out
"$program/velmora-cli" draw "$network" -o out/demo.bmp
"$program/velmora-cli" evaluate "$network" >out/demo-links.csv
"$program/velmora-cli" lines "$network" >out/demo-lines.csv
echo "No display: the picture of $network is out/demo.bmp, its links are out/demo-links.csv and out/demo-lines.csv."

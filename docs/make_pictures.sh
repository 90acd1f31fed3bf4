#!/usr/bin/env bash
# Makes the pictures of the manual's first steps again, docs/images/premiers-*.png, from the program
# as it is built from these sources. No display is needed. Debian: python3-pil makes them small.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/build.sh release manualpictures
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
QT_QPA_PLATFORM=offscreen HOME=$folder XDG_CONFIG_HOME=$folder XDG_DATA_HOME=$folder \
    build/release/bin/manualpictures "$PWD" "$folder"
python3 - "$folder" docs/images <<'END'
import pathlib
import sys

from PIL import Image

for path in sorted(pathlib.Path(sys.argv[1]).glob("premiers-*.png")):
    image = Image.open(path).convert("RGB").quantize(128, dither=Image.Dither.NONE)
    image.save(pathlib.Path(sys.argv[2]) / path.name, optimize=True)
    print(path.name, (pathlib.Path(sys.argv[2]) / path.name).stat().st_size // 1024, "KB")
END

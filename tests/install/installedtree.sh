#!/usr/bin/env bash
# Installs a build as packagers do, and holds that
#   - programs find their data in the build tree, in the installed tree and in that tree moved,
#     whatever the current folder is;
#   - without its data a program draws no towns (so that the first check can fail);
#   - no installed file names the folder of the sources.
# Usage: installedtree.sh BUILD SOURCES BINDIR DATADIR
set -euo pipefail
build=$1 sources=$2 bin=$3 data=$4

place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT
export HOME=$place/home
mkdir "$HOME"
unset XDG_DATA_HOME VELMORA_HOME

fail() {
    echo "$*" >&2
    exit 1
}

# render PROGRAM PICTURE [OPTION...]: the demo's map with the towns of the program's gazetteer.
render() {
    local program=$1 picture=$2
    shift 2
    (cd / && "$program" render "$sources/demo/cumberland.map" --cities -o "$picture" --quiet "$@")
}

DESTDIR=$place/staged cmake --install "$build" --prefix /usr >"$place/log" || {
    cat "$place/log"
    fail "it does not install"
}
tree=$place/staged/usr
render "$build/bin/velmora-cli" "$place/built.bmp"
render "$tree/$bin/velmora-cli" "$place/expected.bmp" --data "$sources/data"
render "$tree/$bin/velmora-cli" "$place/installed.bmp"
mv "$tree" "$place/moved"
render "$place/moved/$bin/velmora-cli" "$place/moved.bmp"
for where in built installed moved; do
    cmp "$place/expected.bmp" "$place/$where.bmp" || fail "the towns are not found: $where"
done

while IFS= read -r file; do
    cp "$file" "$place/stripped"
    objcopy --strip-debug "$place/stripped" 2>/dev/null || true # what is no program is left as it is
    ! grep -qF "$sources/" "$place/stripped" || fail "$file names the folder of the sources"
done < <(find "$place/moved" -type f)

"$place/moved/$bin/velmora" --version >/dev/null || fail "the desktop program does not start"
rm "$place/moved/$data/velmora/cities.dat"
render "$place/moved/$bin/velmora-cli" "$place/without.bmp" 2>/dev/null || true
! cmp -s "$place/expected.bmp" "$place/without.bmp" || fail "the picture shows no towns"

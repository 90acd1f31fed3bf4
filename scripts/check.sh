#!/usr/bin/env bash
# Checks of the sources themselves: format, includes, rings of rooms, sizes, header blocks; on demand also
# clang-tidy, on what changed (see scripts/tidy.sh), on the logic floors, or on all of src/.
#   scripts/check.sh [changed|tidy|tidy-all]
set -euo pipefail
cd "$(dirname "$0")/.."

sources() { git ls-files -co --exclude-standard '*.cpp' '*.h'; }

echo "format"
sources | xargs clang-format --dry-run --Werror

echo "includes"
if git grep -nE '#include "\.\./' -- '*.cpp' '*.h'; then
    echo "Include by room: \"room/file.h\"." >&2
    exit 1
fi
if git grep -nE '#include <Q' -- 'src/*.cpp' 'src/*.h' \
    ':!src/*/paint/*' ':!src/*/windows/*' ':!src/cli/*' ':!src/app/*.cpp'; then
    echo "The logic floor has no Qt." >&2
    exit 1
fi

if git grep -nE '#include "[a-z/]+/(paint|windows)/' -- 'src/*.cpp' 'src/*.h' ':!src/*/paint/*' \
    ':!src/*/windows/*' ':!src/cli/*' ':!src/app/*.cpp'; then
    echo "Logic includes neither paint nor windows." >&2
    exit 1
fi

echo "objects of the process"
missing=0
for name in $(git grep -hE '^extern [^"]*;$' -- 'src/*.h' | grep -v '^extern const' |
    sed -E 's/^extern .*\(\*([a-z0-9_]+)\).*/\1/; s/^extern .*[ *>]([A-Za-z0-9_]+)(\[.*)?;$/\1/'); do
    grep -qF "\`$name\`" docs/ARCHITECTURE.md ||
        grep -qE "\`[A-Za-z]+ $name\`" docs/ARCHITECTURE.md || { echo "$name" >&2; missing=1; }
done
if [ "$missing" = 1 ]; then
    echo "docs/ARCHITECTURE.md, \"The data\", names every object that outlives a call." >&2
    exit 1
fi

echo "rooms, sizes, header blocks"
python3 scripts/rooms.py
python3 scripts/sizes.py
python3 scripts/doccount.py

case "${1:-}" in
tidy) scripts/tidy.sh logic ;;
tidy-all) scripts/tidy.sh all ;;
changed) scripts/tidy.sh changed ;;
esac
echo "sources are clean"

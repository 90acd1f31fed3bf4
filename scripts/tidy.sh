#!/usr/bin/env bash
# clang-tidy on all cores, with a list of compile commands of its own without precompiled headers.
#   scripts/tidy.sh changed   sources changed since the branch left main; on main itself since the commit
#                             before the last; what is not committed counts. A changed header is seen
#                             through the source of its name, or else through the first that includes it.
#   scripts/tidy.sh logic     the logic floors
#   scripts/tidy.sh all       all of src/
set -euo pipefail
cd "$(dirname "$0")/.."

base() {
    local main
    for main in main origin/main; do
        if git rev-parse -q --verify "$main" >/dev/null && ! git merge-base --is-ancestor HEAD "$main"; then
            git merge-base HEAD "$main"
            return
        fi
    done
    git rev-parse -q --verify HEAD~1 || git hash-object -t tree /dev/null
}

# The source through which a header is seen.
through() {
    local own=${1%.h}.cpp
    if [ -f "$own" ]; then
        echo "$own"
    else
        git grep -l "#include \"${1#*/}\"" -- '*.cpp' | head -n 1
    fi
}

changed() {
    local file
    {
        git diff --name-only --diff-filter=d "$(base)" -- '*.cpp' '*.h'
        git ls-files -o --exclude-standard -- '*.cpp' '*.h'
    } | while read -r file; do
        case "$file" in
        *.h) through "$file" ;;
        *) echo "$file" ;;
        esac
    done | sort -u
}

case "${1:-all}" in
changed) sources=$(changed) ;;
logic) sources=$(git ls-files 'src/*.cpp' ':!src/*/paint/*' ':!src/*/windows/*' ':!src/cli/*' ':!src/app/*') ;;
all) sources=$(git ls-files 'src/*.cpp') ;;
*) echo "changed, logic or all?" >&2; exit 2 ;;
esac

cmake -S . -B build/tidy -G Ninja -DVELMORA_PCH=OFF >/dev/null
# What the list of commands does not name (a part that is not built here) is left out.
known=$(grep -o '"file": "[^"]*"' build/tidy/compile_commands.json | cut -d '"' -f 4 | sort -u)
picked=$(for source in $sources; do echo "$PWD/$source"; done | sort -u | comm -12 - <(echo "$known"))
echo "clang-tidy: $(echo "$picked" | grep -c . || true) sources"
[ -n "$picked" ] || exit 0
# The name of a file is a pattern to run-clang-tidy.
# shellcheck disable=SC2046
run-clang-tidy -p build/tidy -quiet -j "$(nproc)" $(echo "$picked" | sed 's/[.+]/\\&/g; s/^/^/; s/$/$/') |
    grep -vE '^(clang-tidy|[0-9]+ warnings? (generated|treated))' || [ "${PIPESTATUS[0]}" -eq 0 ]

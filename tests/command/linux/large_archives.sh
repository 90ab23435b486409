#!/usr/bin/env bash
# The recipe of the guide's page on large archives, as it stands there: four processes over an archive of several
# folders, some pages damaged, and their results joined. Usage: large_archives.sh BUILD_FOLDER TULSAMPLES GUIDE_FOLDER
set -euo pipefail
build=$1 samples=$2 guide=$3
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
export HOME=$work XDG_CONFIG_HOME=$work/config
unset DISPLAY WAYLAND_DISPLAY
fail() {
    echo "FAILED: $*" >&2
    cat jobs.log log >&2 || true
    exit 1
}

cmake --install "$build" --prefix dist >/dev/null
for folder in one two "three and a half"; do "$samples" "archive/$folder" >/dev/null; done
sound=$(find archive -maxdepth 2 -name '*.MUS' | wc -l)
all=$(find archive -name '*.MUS' | wc -l)

sed -n '/^```bash$/,/^```$/p' "$guide/large-archives.md" | sed '/^```/d' >recipe
[ -s recipe ] || fail "the guide has no recipe"
bash -euo pipefail recipe >log 2>&1 || fail "the recipe"

grep -q "Jobs that did not end with 0: 3 " log || fail "three folders of damaged pages"
total=$(jq -s '[.[].runs[].pages[]] | length' results/*.json)
[ "$total" -eq "$all" ] || fail "$total of $all pages"
count() { sed -n "s/.*\"$1\": \([0-9]*\).*/\1/p" log; }
[ "$(count unchanged)" -gt "$sound" ] || fail "$(count unchanged) pages are sound"
[ "$(wc -l <damaged.txt)" -eq "$(count damaged)" ] || fail "the list of damaged pages"
[ "$(($(count unchanged) + $(count damaged) + $(count "not checked")))" -eq "$all" ] || fail "the counts"
[ -z "$(grep -v '/damaged/' damaged.txt)" ] || fail "a sound page counts as damaged"
[ "$(find archive -name '*.MUS' | wc -l)" -eq "$all" ] || fail "something was written into the archive"

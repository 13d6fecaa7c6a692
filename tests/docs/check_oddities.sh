#!/usr/bin/env bash
# Every [ink-...] tag in the code is registered in docs/oddities.md, every registered tag is in the code, and every
# row names at least one test that exists.
# usage: check_oddities.sh PROJECT_FOLDER
set -euo pipefail
cd "$1"
export LC_ALL=C

page=docs/oddities.md
failed=0
complain() {
    echo "$*" >&2
    failed=1
}

used=$(grep -rhoE '\[ink-[a-z0-9-]+\]' src include board | tr -d '[]' | sort -u)
mentioned=$(grep -rhoE '\bink-[a-z0-9]+-[a-z0-9-]+' include docs README.md | sort -u)
registered=$(sed -n 's/^## \(ink-[a-z0-9-]*\)$/\1/p' "$page" | sort)

for tag in $(uniq -d <<<"$registered"); do complain "$page registers $tag twice"; done
for tag in $(comm -23 <(echo "$used") <(sort -u <<<"$registered")); do complain "$tag is used and not in $page"; done
for tag in $(comm -13 <(echo "$used") <(sort -u <<<"$registered")); do complain "$tag is in $page and nowhere used"; done
for tag in $(comm -23 <(echo "$mentioned") <(sort -u <<<"$registered")); do complain "$tag is mentioned and not in $page"; done

for tag in $registered; do
    tests=$(sed -n "/^## $tag\$/,/^## /s/^Pinned by: *//p" "$page" | grep -oE '[A-Za-z0-9_]+\.[A-Za-z0-9_]+' || true)
    [ -n "$tests" ] || complain "$page names no test for $tag"
    for name in $tests; do
        grep -rqE "TEST(_F|_P)?\(${name%.*}, ${name#*.}\)" tests || complain "$page names $name for $tag: no such test"
    done
done

[ "$failed" -eq 0 ] && echo "$(wc -w <<<"$registered") oddities registered and pinned"
exit "$failed"

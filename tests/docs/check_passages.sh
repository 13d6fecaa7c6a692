#!/usr/bin/env bash
# Every C++ block of the guides is, letter for letter, a passage of a source that is compiled, and every marked
# passage stands in one. A block is announced by the line `<!-- passage FILE NAME -->`, a passage lies between two
# lines `//! [NAME]`; the passage's common indentation is left out.
# usage: check_passages.sh PROJECT_FOLDER
set -euo pipefail
cd "$1"
export LC_ALL=C

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failed=0
complain() {
    echo "$*" >&2
    failed=1
}

passage() { # FILE NAME
    awk -v mark="//! [$2]" '
        { line = $0; sub(/^ +/, "", line) }
        line == mark { inside = !inside; next }
        inside {
            lines[++count] = $0
            match($0, /^ */)
            if (length($0) > 0 && (count == 1 || RLENGTH < least)) least = RLENGTH
        }
        END { for (i = 1; i <= count; ++i) print substr(lines[i], least + 1) }
    ' "$1"
}

# One line a block: page, number, file and name; the last two are missing where the block is not announced.
awk -v work="$work" '
    FNR == 1 { inside = 0; announced = "" }
    /^<!-- passage .* -->$/ { announced = $3 " " $4; next }
    /^```cpp$/ { inside = 1; ++count; print FILENAME, count, announced; announced = ""; out = work "/" count; printf "" > out; next }
    /^```$/ && inside { inside = 0; close(out); next }
    inside { print > out }
' docs/host-guide.md docs/guide/*.md docs/lesson.md >"$work/blocks"

while read -r page number file name; do
    if [ -z "$name" ]; then
        complain "$page: block $number names no passage: $(head -1 "$work/$number")"
    elif ! passage "$file" "$name" | diff "$work/$number" - >"$work/difference"; then
        complain "$page: block $number is not [$name] of $file:"
        cat "$work/difference" >&2
    fi
done <"$work/blocks"

awk '{ print $3, $4 }' "$work/blocks" | sort -u >"$work/shown"
grep -roE '//! \[[a-z]+\]' examples/guide tests/package/lesson | sed -E 's,://! \[(.*)\]$, \1,' | sort >"$work/marks"
sort -u "$work/marks" | comm -23 - "$work/shown" >"$work/unshown"
while read -r file name; do complain "[$name] of $file stands nowhere in a guide"; done <"$work/unshown"

blocks=$(wc -l <"$work/blocks")
[ "$blocks" -gt 0 ] || complain "the guides have no block"
[ "$failed" -eq 0 ] && echo "$blocks blocks are passages of compiled sources"
exit "$failed"

#!/usr/bin/env bash
# Each room of the board has a row in docs/architecture.md that names all rooms it includes. No room includes, by
# whatever way, one that includes it; nor does any of the lesson.
# usage: check_rooms.sh PROJECT_FOLDER
set -euo pipefail
cd "$1"
export LC_ALL=C

page=docs/architecture.md
failed=0
complain() {
    echo "$*" >&2
    failed=1
}

# One line for each room and each that it includes: "canvas tools".
arrows() {
    grep -roE --include='*.h' --include='*.cpp' "#include \"$1/[a-z]+/" "$1" |
        sed -E "s|^$1/([a-z]+)/.*\"$1/([a-z]+)/\$|\1 \2|" | awk '$1 != $2' | sort -u
}

for place in board lesson; do
    loops=$(arrows "$place" | tsort 2>&1 >/dev/null | sed 's/^tsort: //') || complain "$place/: rooms that include each other: $loops"
done

rooms=$(find board -mindepth 2 -maxdepth 2 -name '*.h' | cut -d / -f 2 | sort -u)
for room in $rooms; do
    row=$(grep -F "| \`board/$room/\` |" "$page" || true)
    [ -n "$row" ] || complain "$page has no row for board/$room/"
    told=$(sed -E 's/.*\| ([^|]*) \|$/\1/; s/, /\n/g' <<<"$row" | sort | tr '\n' ' ')
    found=$(arrows board | sed -n "s/^$room //p" | tr '\n' ' ')
    [ "$told" = "${found:-– }" ] || complain "$page: board/$room/ includes ${found:-none}, not $told"
done
for room in $(sed -nE 's/^\| `board\/([a-z]+)\/` \|.*/\1/p' "$page"); do
    [ -d "board/$room" ] || complain "$page has a row for board/$room/, which is not there"
done

[ "$failed" -eq 0 ] && echo "$(wc -w <<<"$rooms") rooms of the board, with arrows one way"
exit "$failed"

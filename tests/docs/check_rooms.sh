#!/usr/bin/env bash
# Each room of the board and of the door has a row in docs/architecture.md that names all rooms there that it includes. No
# room includes, by whatever way, one that includes it; nor does any of the lesson.
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

for place in board door lesson; do
    loops=$(arrows "$place" | tsort 2>&1 >/dev/null | sed 's/^tsort: //') || complain "$place/: rooms that include each other: $loops"
done

count=0
for place in board door; do
    rooms=$(find "$place" -mindepth 2 -maxdepth 2 -name '*.h' | cut -d / -f 2 | sort -u)
    count=$((count + $(wc -w <<<"$rooms")))
    for room in $rooms; do
        row=$(grep -F "| \`$place/$room/\` |" "$page" || true)
        [ -n "$row" ] || complain "$page has no row for $place/$room/"
        told=$(sed -E 's/.*\| ([^|]*) \|$/\1/; s/, /\n/g' <<<"$row" | sort | tr '\n' ' ')
        found=$(arrows "$place" | sed -n "s/^$room //p" | tr '\n' ' ')
        [ "$told" = "${found:-– }" ] || complain "$page: $place/$room/ includes ${found:-none}, not $told"
    done
    for room in $(sed -nE "s/^\\| \`$place\\/([a-z]+)\\/\` \\|.*/\\1/p" "$page"); do
        [ -d "$place/$room" ] || complain "$page has a row for $place/$room/, which is not there"
    done
done

[ "$failed" -eq 0 ] && echo "$count rooms of board and door, with arrows one way"
exit "$failed"

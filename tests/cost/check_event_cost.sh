#!/usr/bin/env bash
# Counts the instructions of a live event, which must not grow with the stroke: check_event_cost.sh VALGRIND EVENT_COST
#
# Compilers and processors differ, so a count is compared with that of the bare drawPath of the same segments in the same
# build. What is stored is the ratio of the two; more than 5 percent above it fails.
set -euo pipefail
valgrind=$1
event_cost=$2

# Instructions of the whole program.
count() {
    "$valgrind" --tool=callgrind --callgrind-out-file=/dev/null "$event_cost" "$@" 2>&1 >/dev/null |
        sed -n 's/.*Collected : \([0-9]*\).*/\1/p'
}

# Of one event: what ten more of them take, in tenths.
per_event() {
    local one eleven
    one=$(count "$1" "$2" 1)
    eleven=$(count "$1" "$2" 11)
    echo $(((eleven - one) / 10))
}

failed=0
while read -r points stored; do
    ours=$(per_event ours "$points")
    bare=$(per_event bare "$points")
    limit=$((stored * 105 / 100))
    ratio=$((ours * 1000 / bare))
    printf '%s points: %s instructions, the bare drawPath %s: %s thousandths (stored %s, at most %s)\n' \
        "$points" "$ours" "$bare" "$ratio" "$stored" "$limit"
    [ "$ratio" -le "$limit" ] || failed=1
done <<'STORED'
1000 1070
10000 1165
STORED
exit $failed

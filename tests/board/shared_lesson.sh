#!/bin/sh
# shared_lesson.sh INKBOARD DOOR
#
# A lesson of four boards without a window, over a real door: who shares it begins with a house, the others join and draw
# beside it. All have the same page in the end, and each object of the others is told of once.

set -eu
inkboard=$1
PATH=$(dirname "$2"):$PATH # where the board looks for a door
export PATH
folder=$(mktemp -d)
boards=
clean_up() {
    for board in $boards; do
        kill "$board" 2>/dev/null || true
        wait "$board" 2>/dev/null || true
    done
    rm -rf "$folder"
}
trap clean_up EXIT
trap 'exit 1' INT TERM
cd "$folder"

fail() {
    echo "$*" >&2
    exit 1
}

# strokes LEFT: ten lines of 40 pixels below each other, from LEFT on
strokes() {
    printf '{"width": 400, "height": 300, "strokes": ['
    for row in 1 2 3 4 5 6 7 8 9 10; do
        [ $row -eq 1 ] || printf ', '
        printf '{"color": "#aa0000", "width": 4, "points": [[%d, %d], [%d, %d], [%d, %d]]}' \
            "$1" $((row * 20)) $(($1 + 20)) $((row * 20)) $(($1 + 40)) $((row * 20))
    done
    printf ']}\n'
}

for name in 0 1 2 3; do
    strokes $((name * 90 + 10)) >$name.json
done
"$inkboard" --share --port 0 --link-file link --name Teacher --play 0.json --pace 0 --until 40 --png 0.png &
boards="$boards $!"
tries=600
until [ -s link ]; do
    tries=$((tries - 1))
    [ $tries -gt 0 ] || fail "no link"
    sleep 0.1
done
for name in 1 2 3; do
    "$inkboard" --join "$(cat link)" --name "Pupil $name" --play $name.json --pace 60 --until 40 --png $name.png \
        --record-latency $name.txt &
    boards="$boards $!"
done
for board in $boards; do
    wait "$board" || fail "a board ended with $?"
done
boards=
for name in 1 2 3; do
    cmp 0.png $name.png || fail "the page of $name is another one"
    [ "$(cut -d ' ' -f 1,2 $name.txt | sort -u | wc -l)" -eq 30 ] || fail "not all objects of others came to $name"
done

# A lesson that is not there, and one that takes too long.
if "$inkboard" --join "$(sed 's/#.*/#nobody/' link)" --timeout 2 2>said; then fail "joined what is not there"; fi
grep -q . said || fail "nothing was said of it"
if "$inkboard" --join "nonsense" 2>said; then fail "joined nonsense"; fi
grep -q "nonsense: no link to a lesson" said || fail "nothing was said of nonsense: $(cat said)"
status=0
"$inkboard" --share --port 0 --until 1 --timeout 2 2>said || status=$?
[ $status -eq 1 ] || fail "too late, and ended with $status"
grep -q "it took longer than 2 s; 0 of 1 objects are there, 0 steps are not with the others" said ||
    fail "said of the time: $(cat said)"

#!/bin/sh
# two_windows.sh INKBOARD DOOR PAGE_PROBE [OUT]
#
# A teacher shares the lesson of a window, a pupil joins it with another one. The teacher draws a star, the pupil moves it, the
# teacher takes back own steps only. Then the teacher's board is killed, the pupil goes on, and the teacher comes back. With OUT
# pictures of the screen are left there.

set -eu
inkboard=$1
PATH=$(dirname "$2"):$PATH # where the board looks for a door
export PATH
page_probe=$3
out=${4:-}
. "$(dirname "$0")/display.sh"

pupil_pid=
trap 'kill -9 $pupil_pid 2>/dev/null || true; clean_up' EXIT

teacher_journals=$folder/data/inkboard/journals
pupil_journals=$folder/pupil/inkboard/journals
journal() { ls -t "$1"/*.inkboard 2>/dev/null | head -n 1; }
picture() { [ -z "$out" ] || import -window root "$out/$1.png"; }
keys() { xdotool key "$@"; }
# use WINDOW: it lies on top and gets the keys
uses() { [ "$(xdotool getwindowfocus 2>/dev/null)" = "$1" ]; }
use() {
    xdotool windowraise "$1" windowfocus "$1"
    wait_for uses "$1" || fail "a window takes no keys"
}
drag() {
    point "$1" "$2"
    xdotool mousedown 1
    point $((($1 + $3) / 2)) $((($2 + $4) / 2))
    point "$3" "$4"
    xdotool mouseup 1
}
link() { sed -n 's/.*"address":"\([^"]*\)".*/\1/p;q' "$1" 2>/dev/null; }
is_shared() { [ -n "$(link "$(journal "$teacher_journals")")" ]; }
# has JOURNALS COUNT WHAT: so many lines hold it
has() { [ "$(cat "$1"/*.inkboard 2>/dev/null | grep -c "$3")" -ge "$2" ]; }
# page JOURNALS: as its journal tells it now, into page.png
page() {
    cp "$(journal "$1")" "$folder/now.inkboard"
    "$inkboard" --play "$folder/now.inkboard" --png "$folder/page.png" 2>/dev/null
}
shows() { page "$1" && [ "$("$page_probe" "$folder/page.png" "$2")" = "$3" ]; }
# both_show X,Y COLOUR
both_show() {
    for journals in "$teacher_journals" "$pupil_journals"; do
        wait_for shows "$journals" "$1" "$2" || fail "$1 does not get $2 in $journals"
    done
}

start_board 700 500
teacher=$window
keys F6
wait_for is_shared || fail "the lesson is not shared"
focus "Share this lesson"
picture share
keys Escape
wait_for is_hidden "Share this lesson" || fail "the dialog stays"
lesson=$(link "$(journal "$teacher_journals")")

has_another() { [ "$(titled Inkboard | wc -l)" -eq 2 ]; }
XDG_DATA_HOME=$folder/pupil "$inkboard" "$lesson" &
pupil_pid=$!
wait_for has_another || fail "no window of the pupil"
pupil=$(titled Inkboard | grep -v "^$teacher\$")
has_joined() { [ -n "$(journal "$pupil_journals")" ] && has "$pupil_journals" 1 '"inkboard":3'; }
wait_for has_joined || fail "the pupil has not joined"

# The window of the pupil lies over that of the teacher, as large, so that the page is where the teacher's is.
use "$pupil"
use "$teacher"
keys 5 ctrl+5
drag 100 100 300 300
picture held
wait_for has "$pupil_journals" 1 '"do":"draw"' || fail "the pupil has no star"
keys Escape

# The tip of the star. While it is in the teacher's hand nobody else takes it, so this may take several attempts.
move_star() {
    use "$pupil"
    keys v
    drag 200 102 300 152
    keys Escape
    wait_at_most 2 has "$teacher_journals" 1 '"by":\[100,50\]'
}
wait_for move_star || fail "the star was not moved"
picture moved
both_show 300,152 '#2a9d4a'
use "$teacher"
keys l
drag 400 400 600 400
keys Escape
both_show 500,400 '#2a9d4a'

# What the pupil has done stays: once the star is there again, it is where the pupil has put it.
keys ctrl+z
both_show 500,400 '#ffffff'
keys ctrl+z ctrl+z
both_show 300,152 '#ffffff'
keys ctrl+y
both_show 300,152 '#2a9d4a'
shows "$teacher_journals" 200,102 '#ffffff' || fail "the star is where it was"
picture undone

# While the teacher's board is away the pupil goes on.
kill -9 $board_pid
wait $board_pid 2>/dev/null || true
use "$pupil"
keys 3 l
drag 400 450 600 450
keys Escape
wait_for shows "$pupil_journals" 500,450 '#d62839' || fail "the pupil could not go on"
picture alone
"$inkboard" --size 700x500 &
board_pid=$!
focus "A lesson was not closed"
keys Return
focus "The lesson was shared"
picture again
keys Return
wait_for is_hidden "The lesson was shared" || fail "the question stays"
both_show 500,450 '#d62839'
both_show 300,152 '#2a9d4a'
[ "$(link "$(journal "$teacher_journals")")" = "$lesson" ] || fail "the lesson is elsewhere"
picture back

#!/bin/sh
# lesson_in_window.sh INKBOARD SAME_PIXELS EXPECTED [OUT]
#
# A lesson in the real window: text, shapes, a fill, a picture, stencils and pens on three pages. Then the board is killed,
# started again, opens what was left, and exports each page as PNG, SVG and PDF. The PNG files are compared with those in
# the folder EXPECTED, pixel for pixel but for the text, whose font is the machine's. With OUT all files are left there.

set -eu
inkboard=$1
same_pixels=$2
expected=$3
out=${4:-}
. "$(dirname "$0")/display.sh"

leave_pages() {
    [ -z "$out" ] || cp "$folder"/page-* "$out" 2>/dev/null || true
}
trap 'leave_pages; clean_up' EXIT

# The object that was deleted before it was let go is none of them.
has_steps() { [ "$(grep -c '"do":' "$folder"/data/inkboard/journals/*.inkboard)" -eq 26 ]; }
# What a lesson was opened from is called so only then, and the window takes no key before.
is_open() { ls "$folder"/data/inkboard/journals/*.kept >"$folder/kept" 2>/dev/null; }
# has_file NAME: to its last line or chunk
has_file() { tail -c 20 "$folder/$1" 2>/dev/null | grep -aqE 'IEND|</svg>|%%EOF'; }
keys() { xdotool key "$@"; }
# drag FROM_X FROM_Y TO_X TO_Y: with a single move, for the window system may join several to one
drag() {
    point "$1" "$2"
    xdotool mousedown 1
    point "$3" "$4"
    xdotool mouseup 1
}
# is_refused TITLE: the dialog tells, under its own title, that there is no such file
is_refused() { [ "$(titled "$1" | wc -l)" -gt 1 ]; }
is_accepted() { ! is_refused "$1"; }
# is_answered TITLE: has gone, or refuses
is_answered() { is_hidden "$1" || is_refused "$1"; }
# in_dialog TITLE TEXT: enters a file name. A dialog that has just come may take no letter yet, and its list of completions,
# which comes when it has read the folder, may take a Return for itself: all is entered again then. It is sent to the window
# of the dialog by its number, for what comes once that has gone must reach no other.
in_dialog() {
    focus "$1"
    dialog=$window
    for seconds in 5 10 20 40 80 160; do
        xdotool key --window "$dialog" ctrl+a type --window "$dialog" --delay 20 "$2" >"$folder/entered" 2>&1 || true
        xdotool key --window "$dialog" Return >>"$folder/entered" 2>&1 || true
        xdotool keyup Return # which had no window to go to, if the dialog went at the press
        wait_at_most $seconds is_answered "$1" || continue
        is_refused "$1" || break
        focus "$1"
        keys Return
        wait_for is_accepted "$1" || fail "the refusal of \"$1\" stays"
    done
    is_hidden "$1" || fail "the dialog \"$1\" stays: $(cat "$folder/entered")"
    focus Inkboard
}

# The first page: a title, a house, its door filled, and the sun.
start_board 1020 700
keys shift+a
drag 40 30 420 110
xdotool type "Our house"
keys Escape 8 r
drag 120 320 420 600
keys Escape
drag 230 460 310 600
keys Escape 3 t
drag 90 180 450 320
keys Escape 4 e
drag 760 60 900 200
keys Escape shift+f
point 830 130
xdotool click 1
keys 6
point 270 530
xdotool click 1
keys 5 a
drag 620 480 470 540
keys Escape

# The second: a picture on ruled paper, underlined with the pens.
keys ctrl+n ctrl+shift+r ctrl+i
in_dialog "Put a picture on the page" "$(cd "$expected" && pwd)/picture.png"
keys Escape p 1
drag 380 520 640 520
keys b 2
drag 380 550 640 560
keys h 4
drag 380 600 640 600
keys k 3
drag 380 630 640 640
keys x
drag 500 500 520 660

# The third: shapes on squared paper, one of which is taken back and done again, another removed.
keys ctrl+n ctrl+shift+q d 7
drag 96 96 256 256
keys Escape ctrl+5 3
drag 320 96 480 256
keys Escape l 1
drag 96 352 800 352
keys Escape u 6
drag 544 96 800 256
keys Escape ctrl+z ctrl+y
drag 600 400 700 500
keys Delete
wait_for has_steps || fail "not every step is in the journal: $(cut -c 1-60 "$folder"/data/inkboard/journals/*.inkboard)"

kill -9 $board_pid
wait $board_pid 2>/dev/null || true
start_board 1020 700
focus "A lesson was not closed"
keys Return
wait_for is_hidden "A lesson was not closed" || fail "the question stays"
wait_for is_open || fail "the lesson is not opened"
focus Inkboard
keys Prior Prior Prior
for page in 1 2 3; do
    for kind in png svg pdf; do
        keys ctrl+e
        in_dialog "Export the page" "$folder/page-$page.$kind"
        wait_for has_file "page-$page.$kind" || fail "no page-$page.$kind"
    done
    keys Next
done

grep -q '<svg' "$folder/page-1.svg" || fail "page-1.svg is none"
[ "$(head -c 5 "$folder/page-1.pdf")" = "%PDF-" ] || fail "page-1.pdf is none"
"$same_pixels" "$expected/page-1.png" "$folder/page-1.png" 40 30 380 80
"$same_pixels" "$expected/page-2.png" "$folder/page-2.png"
"$same_pixels" "$expected/page-3.png" "$folder/page-3.png"

#!/bin/sh
# lesson_in_window.sh INKBOARD SAME_PIXELS EXPECTED [OUT]
#
# A lesson in the real window: text, shapes, a fill, a picture, stencils and pens on three pages. Then the board is killed,
# started again, opens what was left, and exports each page as PNG, SVG and PDF. The PNG files are compared with those in
# the folder EXPECTED, pixel for pixel but for the text, whose font is the machine's. With OUT all files are left there.
# Needs Xvfb and xdotool, but no window manager.

set -eu
inkboard=$1
same_pixels=$2
expected=$3
out=${4:-}
page_width=1020
page_height=700
bar_height=64 # above the page
strip_width=168 # of the pages, between the page and the right edge of the window

folder=$(mktemp -d)
board_pid=
server_pid=
clean_up() {
    [ -z "$out" ] || cp "$folder"/page-* "$out" 2>/dev/null || true
    for pid in $board_pid $server_pid; do
        kill "$pid" 2>/dev/null || true
        wait "$pid" 2>/dev/null || true
    done
    rm -rf "$folder"
}
trap clean_up EXIT
trap 'exit 1' INT TERM

fail() {
    echo "$*" >&2
    exit 1
}

# wait_for SECONDS COMMAND...: until the command succeeds
wait_for() {
    tries=$(($1 * 20))
    shift
    until "$@"; do
        tries=$((tries - 1))
        [ "$tries" -gt 0 ] || return 1
        sleep 0.05
    done
}

has_display() { [ -s "$folder/display" ]; }
# is_shown TITLE: its window is then $window
is_shown() {
    window=$(xdotool search --onlyvisible --name "^$1\$" 2>/dev/null | head -n 1)
    [ -n "$window" ]
}
has_file() { [ -s "$folder/$1" ]; }
is_hidden() { ! is_shown "$1"; }
focus() {
    wait_for 30 is_shown "$1" || fail "no window \"$1\""
    xdotool windowfocus --sync "$window"
}

Xvfb -displayfd 3 -noreset -screen 0 1400x900x24 -nolisten tcp 3>"$folder/display" 2>"$folder/server.log" &
server_pid=$!
wait_for 20 has_display || fail "no display: $(cat "$folder/server.log")"
DISPLAY=:$(cat "$folder/display")
QT_QPA_PLATFORM=xcb
LC_ALL=C.UTF-8
XDG_CONFIG_HOME=/dev/null
XDG_DATA_HOME=$folder/data
export DISPLAY QT_QPA_PLATFORM LC_ALL XDG_CONFIG_HOME XDG_DATA_HOME

start_board() {
    "$inkboard" --size ${page_width}x$page_height &
    board_pid=$!
    focus Inkboard
    eval "$(xdotool getwindowgeometry --shell "$window")"
    page_left=$((X + WIDTH - strip_width - page_width))
    page_top=$((Y + bar_height))
}

keys() {
    for key in "$@"; do
        xdotool key "$key"
        sleep 0.1
    done
}
point() { xdotool mousemove $((page_left + $1)) $((page_top + $2)); }
# drag FROM_X FROM_Y TO_X TO_Y: with a single move, for the window system may join several to one
drag() {
    point "$1" "$2"
    xdotool mousedown 1
    sleep 0.05
    point "$3" "$4"
    sleep 0.05
    xdotool mouseup 1
    sleep 0.05
}
# in_dialog TITLE TEXT: enters a file name
in_dialog() {
    focus "$1"
    sleep 0.2
    xdotool type --delay 5 "$2"
    for try in 1 2 3 4 5; do # the list of completions may take one for itself
        xdotool key Return
        wait_for 4 is_hidden "$1" && break
    done
    is_hidden "$1" || fail "the dialog \"$1\" stays"
    focus Inkboard
}

# The first page: a title, a house, its door filled, and the sun.
start_board
keys shift+a
drag 40 30 420 110
xdotool type --delay 20 "Our house"
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
sleep 0.5

kill -9 $board_pid
wait $board_pid 2>/dev/null || true
start_board
focus "A lesson was not closed"
keys Return
wait_for 20 is_hidden "A lesson was not closed" || fail "the question stays"
focus Inkboard
keys Prior Prior Prior
for page in 1 2 3; do
    for kind in png svg pdf; do
        keys ctrl+e
        in_dialog "Export the page" "$folder/page-$page.$kind"
        wait_for 20 has_file "page-$page.$kind" || fail "no page-$page.$kind"
    done
    keys Next
done

grep -q '<svg' "$folder/page-1.svg" || fail "page-1.svg is none"
[ "$(head -c 5 "$folder/page-1.pdf")" = "%PDF-" ] || fail "page-1.pdf is none"
"$same_pixels" "$expected/page-1.png" "$folder/page-1.png" 40 30 380 80
"$same_pixels" "$expected/page-2.png" "$folder/page-2.png"
"$same_pixels" "$expected/page-3.png" "$folder/page-3.png"

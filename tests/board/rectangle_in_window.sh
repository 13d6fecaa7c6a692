#!/bin/sh
# rectangle_in_window.sh INKBOARD PAGE_PROBE
#
# Works on the real window with a real pointer: draws a rectangle, stretches it by its lower right handle, turns it by
# the knob, moves it, lets it go with a press beside it, quits, and looks at the page that was exported.

set -eu
inkboard=$1
page_probe=$2
. "$(dirname "$0")/display.sh"

start_board 1020 700 --export "$folder/page.png"

# drag FROM_X FROM_Y TO_X TO_Y
drag() {
    point "$1" "$2"
    xdotool mousedown 1
    point $((($1 + $3) / 2)) $((($2 + $4) / 2))
    point "$3" "$4"
    xdotool mouseup 1
}

# The rectangle's key. Corners (200,200) and (400,300); the frame lies 10 pixels outside: (190,190)-(410,310).
xdotool key r
drag 200 200 400 300

# The lower right handle is that corner of the frame. Dragged to (630,430) it makes the frame 440 wide instead of 220
# and 240 high instead of 120: twice as large seen from (190,190), so the corners are (210,210) and (610,410).
drag 410 310 630 430

# The knob stands 30 pixels above the middle of the frame's upper edge, at (410,160), and the centre is (410,310).
# Dragged to the right of the centre it has a bearing of 90 degrees. A pixel (x,y) goes to (720-y, x-100).
drag 410 160 560 310

# Anywhere inside moves it: by (150,50), so the centre is (560,360).
drag 410 310 560 360

# Beside it: the frame now spans (440,140)-(680,580) and the knob lies at (710,360).
drag 1000 60 1000 60
xdotool key ctrl+q
wait_for has_ended || fail "the board did not quit"
status=0
wait "$board_pid" || status=$?
board_pid=
[ "$status" -eq 0 ] || fail "the board ended with $status"

# The outline is 4 pixels wide. It lies on (360,260)-(761,461) before the turn, one pixel beyond the far corner as
# every outline of a box does, and on (459,160)-(660,561) after it.
expect() {
    color=$1
    shift
    for pixel in "$@"; do
        found=$("$page_probe" "$folder/page.png" "$pixel")
        [ "$found" = "$color" ] || fail "pixel $pixel is $found, not $color"
    done
}
expect '#1b1f24' 459,360 660,360 560,160 560,561
# Inside it, on its earlier outlines, on its handles and where the last press was, the page is blank.
expect '#ffffff' 560,360 200,250 210,310 310,310 440,140 680,580 710,360 1000,60

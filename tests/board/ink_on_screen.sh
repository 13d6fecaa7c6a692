#!/bin/sh
# ink_on_screen.sh INKBOARD CLICK_PROBE
#
# Writes on the screen over another window, with a real pointer: a pen keeps its presses to itself, the pointer in hand
# lets them through to what lies below, the next pen keeps them again, and the board comes back. Once with a compositor,
# in name only, and once without.

set -eu
inkboard=$1
click_probe=$2

. "$(dirname "$0")/display.sh"

has_clicks() { [ "$(wc -l <"$folder/clicks")" -eq "$1" ]; }
# One more that does not come is only found out by one that does.
expect_clicks() {
    wait_for has_clicks "$1" || fail "$what: $(wc -l <"$folder/clicks") clicks came through, not $1"
}

click() { xdotool mousemove "$1" "$2" click 1; }
# lies_at X Y TITLE: a click there goes to that window
lies_at() {
    is_shown "$3" || return 1
    WINDOW=
    eval "$(xdotool mousemove "$1" "$2" getmouselocation --shell)"
    [ "$WINDOW" = "$window" ]
}
# The middles of the first two buttons of the bar, the pointer and the pencil.
click_button() {
    wait_for is_shown "Tools for the screen" || fail "$what: no tools"
    eval "$(xdotool getwindowgeometry --shell "$window")"
    case $1 in
    pointer) set -- $((X + 64)) $((Y + 26)) ;;
    pencil) set -- $((X + 110)) $((Y + 26)) ;;
    esac
    wait_for lies_at "$1" "$2" "Tools for the screen" || fail "$what: the tools are not on top"
    click "$1" "$2"
}

for what in --composes ""; do
    "$click_probe" $what >"$folder/clicks" &
    below_pid=$!
    wait_for is_shown "Click probe" || fail "no window below"
    start_board 600 400
    xdotool key F9
    wait_for is_shown "Ink on the screen" || fail "$what: no page over the screen"
    wait_for is_shown "Tools for the screen" || fail "$what: no tools"

    wait_for lies_at 700 600 "Ink on the screen" || fail "$what: the page is not on top"
    click 700 600 # the pen's
    click_button pointer
    wait_for lies_at 710 610 "Click probe" || fail "$what: the pointer does not let clicks through"
    click 710 610
    expect_clicks 1
    grep -qx 'click 710 610' "$folder/clicks" || fail "$what: not the click with the pointer: $(cat "$folder/clicks")"

    click_button pencil
    wait_for lies_at 720 620 "Ink on the screen" || fail "$what: the pencil lets clicks through"
    click 720 620
    wait_for is_shown "Tools for the screen" || fail "$what: the tools did not come back"
    click_button pointer
    wait_for lies_at 730 630 "Click probe" || fail "$what: the pointer lets no second click through"
    click 730 630
    expect_clicks 2
    grep -qx 'click 730 630' "$folder/clicks" || fail "$what: not the second click: $(cat "$folder/clicks")"

    click_button pencil
    wait_for lies_at 720 620 "Ink on the screen" || fail "$what: the page did not come back"
    focus "Ink on the screen"
    xdotool key F9
    wait_for is_hidden "Tools for the screen" || fail "$what: the tools did not go"
    wait_for is_shown Inkboard || fail "$what: the board did not come back"
    for pid in $board_pid $below_pid; do
        kill "$pid"
        wait "$pid" 2>/dev/null || true
    done
    board_pid=
    below_pid=
    wait_for is_hidden "Click probe" || fail "$what: the window below stays"
done

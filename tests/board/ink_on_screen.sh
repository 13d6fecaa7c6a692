#!/bin/sh
# ink_on_screen.sh INKBOARD CLICK_PROBE
#
# Writes on the screen over another window, with a real pointer: a pen keeps its presses to itself, the pointer in hand
# lets them through to what lies below, the next pen keeps them again, and the board comes back. Once with a compositor,
# in name only, and once without. Needs Xvfb and xdotool, but no window manager.

set -eu
inkboard=$1
click_probe=$2

folder=$(mktemp -d)
board_pid=
probe_pid=
server_pid=
clean_up() {
    for pid in $board_pid $probe_pid $server_pid; do
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
is_hidden() { ! is_shown "$1"; }
has_clicks() { [ "$(wc -l <"$folder/clicks")" -eq "$1" ]; }
# One more that does not come is only found out by one that does.
expect_clicks() {
    wait_for 10 has_clicks "$1" || fail "$what: $(wc -l <"$folder/clicks") clicks came through, not $1"
}

Xvfb -displayfd 3 -noreset -screen 0 1400x900x24 -nolisten tcp 3>"$folder/display" 2>"$folder/server.log" &
server_pid=$!
wait_for 20 has_display || fail "no display: $(cat "$folder/server.log")"
DISPLAY=:$(cat "$folder/display")
export DISPLAY
QT_QPA_PLATFORM=xcb
export QT_QPA_PLATFORM
XDG_DATA_HOME=$folder
export XDG_DATA_HOME

click() { xdotool mousemove "$1" "$2" click 1; }
# The middles of the first two buttons of the bar, the pointer and the pencil.
click_button() {
    is_shown "Tools for the screen" || fail "$what: no tools"
    eval "$(xdotool getwindowgeometry --shell "$window")"
    case $1 in
    pointer) click $((X + 64)) $((Y + 26)) ;;
    pencil) click $((X + 110)) $((Y + 26)) ;;
    esac
}

for what in --composes ""; do
    "$click_probe" $what >"$folder/clicks" &
    probe_pid=$!
    wait_for 30 is_shown "Click probe" || fail "no window below"
    "$inkboard" --size 600x400 &
    board_pid=$!
    wait_for 30 is_shown Inkboard || fail "the board did not start"
    xdotool windowfocus --sync "$window" key F9
    wait_for 20 is_shown "Ink on the screen" || fail "$what: no page over the screen"
    wait_for 20 is_shown "Tools for the screen" || fail "$what: no tools"

    click 700 600 # the pen's
    click_button pointer
    [ -n "$what" ] || wait_for 20 is_hidden "Ink on the screen" || fail "the page did not step aside"
    click 710 610
    expect_clicks 1
    grep -qx 'click 710 610' "$folder/clicks" || fail "$what: not the click with the pointer: $(cat "$folder/clicks")"

    click_button pencil
    sleep 0.2 # without a compositor the tools go while the screen is grabbed
    wait_for 20 is_shown "Tools for the screen" || fail "$what: the tools did not come back"
    wait_for 20 is_shown "Ink on the screen" || fail "$what: the page did not come back"
    click 720 620 # the pen's again
    click_button pointer
    [ -n "$what" ] || wait_for 20 is_hidden "Ink on the screen" || fail "the page did not step aside again"
    click 730 630
    expect_clicks 2
    grep -qx 'click 730 630' "$folder/clicks" || fail "$what: not the second click: $(cat "$folder/clicks")"

    click_button pencil
    sleep 0.2
    wait_for 20 is_shown "Tools for the screen" || fail "$what: the tools did not come back"
    wait_for 20 is_shown "Ink on the screen" || fail "$what: the page did not come back"
    xdotool windowfocus --sync "$window"
    xdotool key F9
    wait_for 20 is_hidden "Tools for the screen" || fail "$what: the tools did not go"
    wait_for 20 is_shown Inkboard || fail "$what: the board did not come back"
    for pid in $board_pid $probe_pid; do
        kill "$pid"
        wait "$pid" 2>/dev/null || true
    done
    board_pid=
    probe_pid=
done

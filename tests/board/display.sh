# A display of its own, for tests that work on the real window with a real pointer. Source it. Needs Xvfb and xdotool, but
# no window manager.
#
# What is typed and clicked reaches a window in its order however late it looks, but only once that window is there: so wait for
# what is seen, and for nothing by the clock.

patience=120 # seconds at least, for a machine that is busy with other things

folder=$(mktemp -d)
board_pid=
below_pid=
server_pid=
clean_up() {
    for pid in $board_pid $below_pid $server_pid; do
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

# wait_for COMMAND...: until the command succeeds
wait_for() { wait_at_most $patience "$@"; }
# wait_at_most SECONDS COMMAND...: which may wait itself
wait_at_most() {
    local tries
    tries=$(($1 * 20))
    shift
    until "$@"; do
        tries=$((tries - 1))
        [ "$tries" -gt 0 ] || return 1
        sleep 0.05
    done
}

has_ended() { ! kill -0 "$board_pid" 2>/dev/null; }
# titled TITLE: its windows, the topmost last, with or without the mark of what is not saved. A look during which any window goes ends with an error, and is repeated.
titled() {
    while :; do
        found=$(xdotool search --onlyvisible --name "^$1\\*?\$" 2>&1) || true
        case $found in
        *"X Error"*) ;;
        *) break ;;
        esac
    done
    [ -z "$found" ] || echo "$found"
}
# is_shown TITLE: its window is then $window
is_shown() {
    window=$(titled "$1" | tail -n 1)
    [ -n "$window" ]
}
is_hidden() { [ -z "$(titled "$1")" ]; }
gets_keys() {
    is_shown "$1" && xdotool windowfocus "$window" 2>/dev/null && [ "$(xdotool getwindowfocus 2>/dev/null)" = "$window" ]
}
# focus TITLE: waits for the window, which then gets the keys
focus() { wait_for gets_keys "$1" || fail "no window \"$1\" that takes keys"; }

# start_board WIDTH HEIGHT ARGUMENT...: with a page of that size, whose corner is then at $page_left, $page_top
start_board() {
    page_width=$1
    bar_height=64   # above the page
    strip_width=168 # of the pages, between the page and the right edge of the window
    size=$1x$2
    shift 2
    "$inkboard" --size "$size" "$@" &
    board_pid=$!
    focus Inkboard
    eval "$(xdotool getwindowgeometry --shell "$window")"
    page_left=$((X + WIDTH - strip_width - page_width))
    page_top=$((Y + bar_height))
}

# point X Y: to a pixel of the page
point() { xdotool mousemove $((page_left + $1)) $((page_top + $2)); }

# Without -noreset the server starts anew, and is deaf for a moment, whenever its last client leaves. Without -r it repeats a
# key whose release comes two thirds of a second late.
has_display() { [ -s "$folder/display" ]; }
Xvfb -displayfd 3 -noreset -r -screen 0 1400x900x24 -nolisten tcp 3>"$folder/display" 2>"$folder/server.log" &
server_pid=$!
wait_for has_display || fail "no display: $(cat "$folder/server.log")"
DISPLAY=:$(cat "$folder/display")
QT_QPA_PLATFORM=xcb
LC_ALL=C.UTF-8
XDG_CONFIG_HOME=/dev/null
XDG_DATA_HOME=$folder/data # where journals are kept
export DISPLAY QT_QPA_PLATFORM LC_ALL XDG_CONFIG_HOME XDG_DATA_HOME

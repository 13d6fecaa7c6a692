#!/usr/bin/env bash
# Where something is missing that the board alone needs, the library is built without it, with a word.
# usage: without_board.sh CMAKE SOURCES BUILD
set -euo pipefail

for module in Qt5LinguistTools Qt5Svg Qt5X11Extras; do
    rm -rf "$3"
    "$1" -G Ninja -S "$2" -B "$3" -D INK_BUILD_TESTS=OFF -D CMAKE_DISABLE_FIND_PACKAGE_$module=ON | tee "$3.log"
    grep --fixed-strings --line-regexp -e "-- $module not found: no inkboard" "$3.log"
    targets=$("$1" --build "$3" --target help)
    grep -q '^InkGraphics:' <<<"$targets"
    if grep '^inkboard:' <<<"$targets"; then
        echo "the board is to be built without $module" >&2
        exit 1
    fi
done

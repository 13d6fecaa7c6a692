#!/usr/bin/env bash
# Builds the static library beside PREFIX, unoptimised, and installs it there. Nothing of it may become part of the
# interface of what contains it.
# usage: install_static.sh CMAKE SOURCES PREFIX LIBDIR
set -euo pipefail

build=$(dirname "$3")/build
rm -rf "$build" "$3"
"$1" -G Ninja -S "$2" -B "$build" -D CMAKE_BUILD_TYPE=Debug -D BUILD_SHARED_LIBS=OFF \
    -D INK_BUILD_BOARD=OFF -D INK_BUILD_DOOR=OFF -D INK_BUILD_TESTS=OFF -D CMAKE_INSTALL_LIBDIR="$4"
"$1" --build "$build"
"$1" --install "$build" --prefix "$3"

library=$3/$4/libInkGraphics.a
readelf --syms --wide --demangle "$library" | grep -E 'GLOBAL +HIDDEN .* CInkLine::Draw\(' >/dev/null
if readelf --syms --wide --demangle "$library" | grep --max-count=3 -E '(GLOBAL|WEAK) +DEFAULT +[0-9]+ (vtable for )?(CInk|Lectern)'; then
    echo "$library has symbols that whatever contains it would export." >&2
    exit 1
fi

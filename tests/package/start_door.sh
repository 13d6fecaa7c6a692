#!/usr/bin/env bash
# The installed door starts where it was installed and where that tree was moved to, and has its manual page and its unit.
# usage: start_door.sh PREFIX MOVED VERSION
set -euo pipefail

unset LD_LIBRARY_PATH
rm -rf "$2"
cp -a "$1" "$2"
for prefix in "$1" "$2"; do
    [ "$("$prefix/bin/inkboard-door" --version)" = "inkboard-door $3" ]
    library=$(ldd "$prefix/bin/inkboard-door" | sed -n 's/.*libInkLesson.* => \(.*\) (.*/\1/p')
    [[ $(realpath "$library") == $(realpath "$prefix")/* ]]
done
rm -rf "$2"

page=$1/share/man/man1/inkboard-door.1
unit=$1/lib/systemd/system/inkboard-server.service
if grep '@[A-Z_]\+@' "$page" "$unit"; then
    echo "left as it was: a name between two @" >&2
    exit 1
fi
# Each option has its lines in the manual.
for option in $("$1/bin/inkboard-door" --help | grep -oE '^ +(-., )?--[a-z-]+' | grep -oE -- '--[a-z-]+'); do
    grep -qF -- "${option//-/\\-}" "$page" || { echo "the manual lacks $option" >&2; exit 1; }
done
if command -v man >/dev/null && [ "$(LC_ALL=C.UTF-8 MANROFFSEQ= man --warnings -E UTF-8 -l -Tutf8 -Z "$page" 2>&1 >/dev/null)" ]; then
    echo "man warns of $page" >&2
    exit 1
fi
grep -q '^ExecStart=.*/bin/inkboard-door ' "$unit"

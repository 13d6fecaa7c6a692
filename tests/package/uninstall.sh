#!/usr/bin/env bash
# Nothing that was installed is left, nor a folder of ours; what is not ours stays. A second time does no harm.
# usage: uninstall.sh CMAKE BUILD PREFIX
set -euo pipefail

[ -e "$3/include/InkGraphics/CInkLine.h" ] # there is something to be removed
touch "$3/include/not-ours"
"$1" --build "$2" --target uninstall
left=$(find "$3" -not -type d -o -iname '*ink*')
if [ "$left" != "$3/include/not-ours" ]; then
    echo "left are: $left" >&2
    exit 1
fi
"$1" --build "$2" --target uninstall | grep "nothing was installed"
rm "$3/include/not-ours"

#!/usr/bin/env bash
# The installed board starts with the library beside it, there and wherever the tree is moved, and brings all that a
# desktop asks for.
# usage: start_board.sh PREFIX MOVED VERSION
set -euo pipefail

unset LD_LIBRARY_PATH
rm -rf "$2"
cp -a "$1" "$2"
for prefix in "$1" "$2"; do
    [ "$("$prefix/bin/inkboard" --version)" = "inkboard $3" ]
    library=$(ldd "$prefix/bin/inkboard" | sed -n 's/.*libInkGraphics.* => \(.*\) (.*/\1/p')
    [[ $(realpath "$library") == $(realpath "$prefix")/* ]]
done

share=$2/share
for file in man/man1/inkboard.1 applications/inkboard.desktop icons/hicolor/scalable/apps/inkboard.svg \
    icons/hicolor/scalable/mimetypes/application-x-inkboard.svg mime/packages/inkboard.xml \
    metainfo/io.inkgraphics.inkboard.metainfo.xml inkboard/lessons/water-cycle.json; do
    [ -s "$share/$file" ] || { echo "$file is not installed" >&2 && exit 1; }
done
if grep '@' "$share/man/man1/inkboard.1"; then
    echo "the manual page has a name that was not filled in" >&2
    exit 1
fi

# The names by which these know each other.
grep -qx 'Icon=inkboard' "$share/applications/inkboard.desktop"
grep -qx 'MimeType=application/x-inkboard;' "$share/applications/inkboard.desktop"
grep -q '<mime-type type="application/x-inkboard">' "$share/mime/packages/inkboard.xml"
grep -q '<launchable type="desktop-id">inkboard.desktop</launchable>' "$share/metainfo/io.inkgraphics.inkboard.metainfo.xml"
if command -v appstreamcli >/dev/null; then
    appstreamcli validate --no-net "$share/metainfo/io.inkgraphics.inkboard.metainfo.xml"
fi
if command -v desktop-file-validate >/dev/null; then
    desktop-file-validate "$share/applications/inkboard.desktop"
fi

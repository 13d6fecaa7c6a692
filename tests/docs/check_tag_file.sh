#!/usr/bin/env bash
# The file by which the documents of a host link to ours knows classes and macros, and not where they were built.
# usage: check_tag_file.sh TAG_FILE
set -euo pipefail

for name in CInkEllipse INKGRAPHICS_VERSION_CHECK; do
    grep --quiet "<name>$name</name>" "$1"
done
if grep '<path>/' "$1"; then
    echo "$1 tells where it was built" >&2
    exit 1
fi

#!/bin/sh
# check_translation.sh LUPDATE TS ROOT SOURCES...
#
# Every text of the sources stands in the TS file with a finished translation, and nothing else does. Headers are included from ROOT.

set -eu
lupdate=$1
ts=$2
root=$3
shift 3

folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cp "$ts" "$folder/renewed.ts"
"$lupdate" -silent -locations none -no-obsolete -I "$root" "$@" -ts "$folder/renewed.ts" >"$folder/log" 2>&1 || {
    cat "$folder/log" >&2
    exit 1
}
status=0
if grep 'lacks Q_OBJECT' "$folder/log"; then
    echo "texts that are looked up elsewhere than they are listed" >&2
    status=1
fi
if ! diff -u "$ts" "$folder/renewed.ts"; then
    echo "not of the same texts as the sources: cmake --build --preset dev --target update_translations" >&2
    status=1
fi
if grep -B 1 -A 1 'type="unfinished"' "$folder/renewed.ts"; then
    echo "texts without a translation" >&2
    status=1
fi
exit $status

#!/usr/bin/env bash
# Compares what a library exports, and its soname, with the approved list.
# usage: check_exports.sh LIBRARY APPROVED
set -euo pipefail

actual=$(
    readelf -d "$1" | sed -n 's/.*(SONAME).*\[\(.*\)\]/soname \1/p'
    nm -D --defined-only --demangle "$1" | cut -d' ' -f3- | grep -vxE '__bss_start(__)?|_{1,2}bss_end__|__end__|_edata|_end' | LC_ALL=C sort -u
)
if ! diff --unified=0 "$2" <(printf '%s\n' "$actual"); then
    echo "The exports differ from $2: lines with - are missing, lines with + are new." >&2
    exit 1
fi

#!/usr/bin/env bash
# Compares the binary interface of a library that has debug information with the approved one, or renews that.
# usage: check_abi.sh LIBRARY APPROVED [--renew]
set -euo pipefail

library=$1 approved=$2
here=$(cd "$(dirname "$0")" && pwd)

# Without debug information only symbols would be compared, and any change of a class would pass.
if ! readelf --section-headers --wide "$library" | grep -q '\.debug_info'; then
    echo "$library has no debug information: its interface cannot be compared." >&2
    exit 1
fi

actual=$(mktemp --suffix=.abi)
reference=$(mktemp --suffix=.abi)
trap 'rm -f "$actual" "$reference"' EXIT

# Nothing that depends on the place or the optimisation of a build.
abidw --suppressions "$here/ours.suppr" --exported-interfaces-only --drop-undefined-syms --no-elf-needed \
    --no-show-locs --no-corpus-path --no-comp-dir-path --no-parameter-names --out-file "$actual" "$library"

if [ "${3:-}" = --renew ]; then
    gzip -9 --no-name --stdout "$actual" >"$approved"
    exit
fi

gzip --decompress --stdout "$approved" >"$reference"
status=0
# Symbols have a list of their own, exports.approved.txt.
abidiff --no-unreferenced-symbols "$reference" "$actual" || status=$?
if [ "$status" -ne 0 ]; then
    echo "The binary interface differs from $approved (abidiff: $status). See docs/abi.md." >&2
    exit 1
fi

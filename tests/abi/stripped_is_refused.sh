#!/usr/bin/env bash
# A library whose debug information is taken away is refused, and for that reason.
# usage: stripped_is_refused.sh OBJCOPY CHECK_ABI LIBRARY APPROVED
set -euo pipefail

stripped=$(mktemp --suffix=.so)
trap 'rm -f "$stripped"' EXIT
"$1" --strip-debug "$3" "$stripped"
if message=$("$2" "$stripped" "$4" 2>&1); then
    echo "a stripped library passed" >&2
    exit 1
fi
grep 'has no debug information' <<<"$message"

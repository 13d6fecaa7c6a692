#!/bin/sh
# Gives each oddity an anchor of its name, for the links from the headers.
sed -E \
    -e 's@^## (ink-[a-z0-9-]+)$@## \1 {#\1}@' \
    -e 's@^(# Required oddities)$@\1 {#oddities}@' \
    "$1"

#!/bin/sh
# Shows doxygen our comments: those above a declaration and those behind a field. Every line stays where it is. What needs no
# comment is left out where it has none: a destructor, and what a using brings in.
awk '
    !/^ *(virtual )?~/ && !/^ *using .*;$/ || above ~ /^ *\/\// { print; above = $0; next }
    { print ""; above = "" }
' "$1" | sed -E \
    -e 's@^( *)// (.*)$@\1/// \2@; s@^( *)//$@\1///@' \
    -e 's@(;|,) +// @\1 ///< @' \
    -e 's@\[?\b(ink-[a-z0-9]+-[a-z0-9-]+)\b\]?@[\1](\\ref \1)@g' \
    -e 's@/// *NOLINT.*@@' |
    # A header that declares something outside a class has a page of its own.
    if grep -qE '^(enum|namespace|#define INKGRAPHICS)' "$1"; then sed '1s@^#pragma once$@/// \\file@'; else cat; fi

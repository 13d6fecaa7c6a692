#!/bin/sh
# Shows doxygen our comments: those above a declaration and those behind a field. A destructor needs none.
sed -E \
    -e '/^ *(virtual )?~/d' \
    -e '/^ *using .*;$/d' \
    -e 's@^( *)// (.*)$@\1/// \2@; s@^( *)//$@\1///@' \
    -e 's@(;|,) +// @\1 ///< @' \
    -e 's@\[?\b(ink-[a-z0-9]+-[a-z0-9-]+)\b\]?@[\1](\\ref \1)@g' \
    -e 's@/// *NOLINT.*@@' \
    "$1"

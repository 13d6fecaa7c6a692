#!/bin/sh
# on_display.sh COMMAND...: runs it with a display of its own.
set -eu
. "$(dirname "$0")/display.sh"

"$@"

#!/usr/bin/env bash
# Installs the libraries, what a host is built with, and the board where it was built, into an empty folder.
# usage: install.sh CMAKE BUILD PREFIX
set -euo pipefail

rm -rf "$3"
for component in library development lesson-library lesson-development board; do
    "$1" --install "$2" --prefix "$3" --component "$component"
done

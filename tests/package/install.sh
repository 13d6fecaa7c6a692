#!/usr/bin/env bash
# Installs the library and what a host is built with into an empty folder.
# usage: install.sh CMAKE BUILD PREFIX
set -euo pipefail

rm -rf "$3"
for component in library development; do
    "$1" --install "$2" --prefix "$3" --component "$component"
done

#!/usr/bin/env bash
# Installs the libraries, what a host is built with, and board and door where they were built, into an empty folder.
# usage: install.sh CMAKE BUILD PREFIX
set -euo pipefail

rm -rf "$3"
for component in library development lesson-library lesson-development board door; do
    "$1" --install "$2" --prefix "$3" --component "$component"
done

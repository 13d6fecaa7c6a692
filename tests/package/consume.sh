#!/usr/bin/env bash
# Builds host.cpp in one of the ways in which a host finds the library, and runs it; or builds an example.
# usage: consume.sh find_package|add_subdirectory|pkg-config|qmake|minimal-host|guide BUILD PREFIX LIBDIR TOOL
# BUILD is a folder of its own; LIBDIR is relative to PREFIX; TOOL is the cmake, pkg-config or qmake to use.
set -euo pipefail

way=$1 build=$2 prefix=$3 libdir=$3/$4 tool=$5
here=$(cd "$(dirname "$0")" && pwd)
rm -rf "$build"
mkdir -p "$build"
cd "$build"

case $way in
find_package)
    "$tool" -S "$here/find_package" -B . -D CMAKE_PREFIX_PATH="$prefix" -D CMAKE_BUILD_TYPE=Release
    "$tool" --build .
    ;;
add_subdirectory) # unoptimised, since it compiles the library once more; what that exports is no different
    "$tool" -G Ninja -S "$here/add_subdirectory" -B . -D CMAKE_BUILD_TYPE=Debug
    "$tool" --build . --target host
    "$here/../abi/check_exports.sh" InkGraphics/src/libInkGraphics.so "$here/../abi/exports.approved.txt"
    ;;
pkg-config)
    export PKG_CONFIG_PATH=$libdir/pkgconfig
    "$tool" --exists --print-errors 'InkGraphics >= 2.7 InkGraphics < 3'
    g++ -std=c++17 -fPIC "$here/host.cpp" -o host $("$tool" --cflags --libs InkGraphics)
    ;;
qmake)
    cp "$here/host.cpp" "$here/qmake/host.pro" .
    "$tool" host.pro "INK_LIBDIR=$libdir"
    make
    ;;
minimal-host | guide) # which have windows, and are run by tests of their own
    "$tool" -S "$here/../../examples/$way" -B . -D CMAKE_PREFIX_PATH="$prefix" -D CMAKE_BUILD_TYPE=Release
    "$tool" --build .
    exit
    ;;
esac

LD_LIBRARY_PATH=$libdir ./host

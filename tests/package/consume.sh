#!/usr/bin/env bash
# Builds host.cpp in one of the ways in which a host finds the library, and runs it; or builds an example.
# usage: consume.sh find_package|add_subdirectory|pkg-config|qmake|qmake-module|components|lesson|minimal-host|guide
#            |whiteboard|two-people|quick BUILD PREFIX LIBDIR TOOL
# BUILD is a folder of its own; LIBDIR is relative to PREFIX; TOOL is the cmake, pkg-config or qmake to use.
set -euo pipefail

way=$1 build=$2 prefix=$3 libdir=$3/$4 tool=$5
here=$(cd "$(dirname "$0")" && pwd)
rm -rf "$build"
mkdir -p "$build"
cd "$build"

# Ends with what it says.
fail() {
    echo "$*" >&2
    exit 1
}

case $way in
find_package)
    "$tool" -S "$here/find_package" -B . -D CMAKE_PREFIX_PATH="$prefix" -D CMAKE_BUILD_TYPE=Release
    "$tool" --build .
    ;;
add_subdirectory) # unoptimised, since it compiles the library once more; what that exports is no different
    "$tool" -G Ninja -S "$here/add_subdirectory" -B . -D CMAKE_BUILD_TYPE=Debug
    "$tool" --build . --target host
    "$here/../abi/check_exports.sh" InkGraphics/src/libInkGraphics.so "$here/../abi/exports.approved.txt"
    "$tool" --install . --prefix unasked
    [ ! -e unasked ] || fail "a host that was not asked installs: $(find unasked -type f | head -n 3)"
    "$tool" . -D INK_INSTALL=ON
    "$tool" --install . --prefix asked
    [ -e "asked/include/InkGraphics/CInkLine.h" ] || fail "a host that was asked installs no header"
    ;;
pkg-config)
    export PKG_CONFIG_PATH=$libdir/pkgconfig
    "$tool" --exists --print-errors 'InkGraphics >= 2.7 InkGraphics < 3'
    told=$("$tool" --variable=prefix InkGraphics)
    [ -n "$told" ] && [ "$told" -ef "$prefix" ] || fail "the prefix is told to be '$told'"
    g++ -std=c++17 -fPIC "$here/host.cpp" -o host $("$tool" --cflags --libs InkGraphics)

    widgets=$(cd "$prefix/include/InkGraphics" && printf '#include "%s"\n' *.h |
        g++ -std=c++17 -fPIC -M -I. $("$tool" --cflags InkGraphics) -x c++ - | grep --max-count=1 QtWidgets/ || true)
    [ -z "$widgets" ] || fail "a header includes $widgets"
    ;;
qmake)
    cp "$here/host.cpp" "$here/qmake/host.pro" .
    "$tool" host.pro "INK_LIBDIR=$libdir"
    make
    ;;
qmake-module)
    cp "$here/host.cpp" "$here/qmake-module/host.pro" .
    QMAKEPATH=$libdir/qt5 "$tool" host.pro
    make
    ;;
components) # of which there are none
    configure=("$tool" -S "$here/components" -B . -D CMAKE_PREFIX_PATH="$prefix")
    "${configure[@]}" -D "WANTED=OPTIONAL_COMPONENTS;nonsense"
    if "${configure[@]}" -D "WANTED=COMPONENTS;nonsense" >log 2>&1; then
        fail "a component was found that there is not"
    fi
    grep --fixed-strings 'there is no "nonsense"' log
    exit
    ;;
lesson) # by CMake, then by pkg-config where that is
    "$tool" -S "$here/lesson" -B . -D CMAKE_PREFIX_PATH="$prefix" -D CMAKE_BUILD_TYPE=Release
    "$tool" --build .
    ./host
    if command -v pkg-config >/dev/null; then
        export PKG_CONFIG_PATH=$libdir/pkgconfig
        g++ -std=c++17 -fPIC "$here/lesson/main.cpp" -o host $(pkg-config --cflags --libs InkLesson)
    fi
    strange=$(nm --dynamic --defined-only --demangle "$libdir/libInkLesson.so" | grep --invert-match InkLesson:: || true)
    [ -z "$strange" ] || fail "libInkLesson exports what is not its own: $(head -n 3 <<<"$strange")"
    ;;
minimal-host | guide | whiteboard | two-people | quick) # which are run by tests of their own
    "$tool" -S "$here/../../examples/$way" -B . -D CMAKE_PREFIX_PATH="$prefix" -D CMAKE_BUILD_TYPE=Release
    "$tool" --build .
    exit
    ;;
esac

if [ -e "$libdir/libInkGraphics.a" ] && readelf --dynamic host | grep libInkGraphics; then
    fail "the host needs a shared library"
fi
LD_LIBRARY_PATH=$libdir ./host

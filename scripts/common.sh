# What the scripts share. Source it; the caller is named in every message.

set -euo pipefail

readonly root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
readonly self=scripts/$(basename "$0")

say() { printf '%s: %s\n' "$self" "$*"; }

# One line on stderr, then the end. The line before it, if any, is the failing tool's own.
die() {
    printf '%s: %s\n' "$self" "$*" >&2
    exit 1
}

# Runs a command; when it fails, says in one line what was being done.
step() {
    local what=$1
    shift
    say "$what"
    "$@" || die "failed: $what"
}

as_root() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo "$@"
    else
        die "must be root, or have sudo, to install: $missing"
    fi
}

# Installs those of the named Debian packages that are not there yet.
need_packages() {
    missing=
    local package
    for package in "$@"; do
        dpkg-query -W -f '${db:Status-Abbrev}' "$package" 2>/dev/null | grep -q '^.i' || missing="$missing $package"
    done
    [ -n "$missing" ] || return 0
    step "installing$missing" install_missing
}

install_missing() {
    as_root apt-get update -qq &&
        as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends $missing >/dev/null
}

configure_and_build() {
    local preset=$1
    cd "$root"
    step "configuring the $preset build" cmake --preset "$preset" --log-level=WARNING
    step "building $preset" cmake --build --preset "$preset"
}

readonly build_packages="g++ cmake ninja-build qtbase5-dev libqt5svg5-dev libqt5x11extras5-dev libqt5websockets5-dev libnats-dev libqrencode-dev libssl-dev libzstd-dev qttools5-dev qttools5-dev-tools"
readonly board_packages="fonts-dejavu-core qttranslations5-l10n"
readonly test_packages="nats-server openssl zbar-tools libgtest-dev libxcb1-dev binutils valgrind xvfb xauth xdotool make pkg-config qt5-qmake abigail-tools appstream desktop-file-utils qtdeclarative5-dev qml-module-qtquick2 qml-module-qtquick-window2"
readonly bench_packages="libbenchmark-dev libcairo2-dev libagg-dev libopencv-dev pkg-config python3"
readonly memcheck_packages="valgrind"
readonly docs_packages="doxygen qhelpgenerator-qt5 qtbase5-doc-dev python3"
readonly package_packages="build-essential debhelper dpkg-dev git lintian"
readonly fuzz_packages="clang libclang-rt-14-dev"
readonly coverage_packages="gcovr"
readonly arm64_packages="g++-aarch64-linux-gnu qemu-user-static"
readonly arm64_sysroot=${INK_ARM64_SYSROOT:-$root/build/arm64/sysroot} # what scripts/arm64 unpacks

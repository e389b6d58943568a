# Sourced by the project's commands: functions that install packages and build.
# shellcheck shell=bash
set -euo pipefail
unset CDPATH # with it, cd would print where it went

caller=$PWD
# ccache keeps objects that were made with a precompiled header only with this.
export CCACHE_SLOPPINESS=pch_defines,time_macros
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"

say() { printf '%s\n' "$*" >&2; }

# as_root COMMAND...: runs it as root, through sudo for other users.
as_root() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    else
        sudo "$@"
    fi
}

is_installed() { dpkg-query -W -f='${db:Status-Status}\n' "$1" 2>/dev/null | grep -qx installed; }

# need_packages NAME...: installs the Debian packages that are missing.
need_packages() {
    local missing=() name
    for name in "$@"; do
        is_installed "$name" || missing+=("$name")
    done
    [ ${#missing[@]} -gt 0 ] || return 0
    say "Installing ${missing[*]} ..."
    as_root apt-get update -qq
    as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" >&2
}

# need_server NAME: installs a package for its program only. The package's service starts neither now nor at the next
# boot, since nobody who tries a crawler wants a public web server.
need_server() (
    ! is_installed "$1" || return 0
    # The installer runs this file to ask whether it may start services.
    policy=/usr/sbin/policy-rc.d
    if [ ! -e "$policy" ]; then
        trap 'as_root rm -f "$policy"' EXIT
        trap 'exit 130' INT TERM
        printf '#!/bin/sh\nexit 101\n' | as_root tee "$policy" >/dev/null
        as_root chmod +x "$policy"
    fi
    need_packages "$1"
    if command -v systemctl >/dev/null; then
        as_root systemctl disable --quiet "$1.service" >&2
    else
        as_root update-rc.d "$1" disable >&2
    fi
)

# configure PRESET: installs what the build needs and configures, quietly unless something is wrong.
configure() {
    local preset=$1 log
    need_packages g++ cmake ninja-build qt6-base-dev qt6-webengine-dev qt6-translations-l10n \
        libsqlite3-dev zlib1g-dev python3
    log=$(mktemp)
    # ccache makes a second build fast and the first one a quarter slower. So it is used where somebody has installed it,
    # but not in CI, which begins with an empty cache.
    local launcher=
    [ -n "${CI:-}" ] || launcher=$(command -v ccache || true)
    # Warnings are errors in CI only: elsewhere somebody reads them.
    local strict=OFF
    [ -z "${CI:-}" ] || strict=ON
    if ! cmake --preset "$preset" -DCMAKE_CXX_COMPILER_LAUNCHER="$launcher" -DCMAKE_COMPILE_WARNING_AS_ERROR=$strict \
        -DTARNWICK_BENCH="${TARNWICK_BENCH:-OFF}" >"$log" 2>&1; then
        cat "$log" >&2
        rm -f "$log"
        return 1
    fi
    rm -f "$log"
}

# build PRESET [TARGET...]: configures and builds.
build() {
    local preset=$1 targets=()
    shift
    configure "$preset"
    [ $# -eq 0 ] || targets=(--target "$@")
    cmake --build --preset "$preset" "${targets[@]}" >&2
}

# use_commit_time: files of packages get the time of the commit, so that two builds of one commit give the same packages.
use_commit_time() {
    [ -n "${SOURCE_DATE_EPOCH:-}" ] || SOURCE_DATE_EPOCH=$(git log -1 --format=%ct 2>/dev/null) ||
        SOURCE_DATE_EPOCH=$(stat -c %Y CHANGELOG.md)
    export SOURCE_DATE_EPOCH
}

# checksum FILE: writes its SHA-256 checksum beside it, as sha256sum -c reads it.
checksum() { (cd "$(dirname "$1")" && sha256sum "$(basename "$1")" >"$(basename "$1").sha256"); }

# Sourced by the project's commands: what all of them need of the system, and the build.
# shellcheck shell=bash
set -euo pipefail

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

# need_packages NAME...: installs the Debian packages that are missing. None of them starts a service by this.
need_packages() {
    local missing=() name
    for name in "$@"; do
        [ "$(dpkg-query -W -f='${db:Status-Status}' "$name" 2>/dev/null)" = installed ] || missing+=("$name")
    done
    [ ${#missing[@]} -gt 0 ] || return 0
    say "Installing ${missing[*]} ..."
    as_root apt-get update -qq
    # A package that brings a service asks this file whether it may start it.
    local policy=/usr/sbin/policy-rc.d made=no
    if [ ! -e "$policy" ]; then
        printf '#!/bin/sh\nexit 101\n' | as_root tee "$policy" >/dev/null
        as_root chmod +x "$policy"
        made=yes
    fi
    local status=0
    as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" >&2 ||
        status=$?
    [ "$made" = no ] || as_root rm -f "$policy"
    return "$status"
}

# build PRESET [TARGET...]: configures and builds, quietly unless something is wrong.
build() {
    local preset=$1 log
    shift
    need_packages g++ cmake ninja-build ccache qt6-base-dev libgl-dev python3
    log=$(mktemp)
    local configure=(cmake --preset "$preset" -DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
    # Warnings stop a build only where nobody would read them.
    [ -z "${CI:-}" ] || configure+=(-DCMAKE_COMPILE_WARNING_AS_ERROR=ON)
    if ! "${configure[@]}" >"$log" 2>&1; then
        cat "$log" >&2
        rm -f "$log"
        return 1
    fi
    rm -f "$log"
    local targets=()
    [ $# -eq 0 ] || targets=(--target "$@")
    cmake --build --preset "$preset" "${targets[@]}" >&2
}

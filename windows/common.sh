# Sourced by the commands of this folder.
# shellcheck shell=bash
. "$(dirname "${BASH_SOURCE[0]}")/../cmake/setup.sh"

TARNWICK_WINDOWS_KIT=$(windows/kit)
export TARNWICK_WINDOWS_KIT
version=$(sed -n 's/^project(Tarnwick VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
# What every build of the Windows edition needs.
build_packages=(g++-mingw-w64-x86-64-posix libz-mingw-w64-dev)

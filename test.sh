#!/usr/bin/env bash
# Builds everything and runs every test. On a fresh Debian 12 it installs what is missing first.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"

# Builds in other folders, and of other commits, share what ccache keeps.
export CCACHE_BASEDIR=$PWD CCACHE_NOHASHDIR=1
. tools/packages.sh
tools/ensure-packages "${build_packages[@]}" "${run_packages[@]}" "${test_packages[@]}"
cmake --preset release -DBUILD_TESTING=ON
cmake --build --preset release
ctest --preset release -j "$(nproc)"

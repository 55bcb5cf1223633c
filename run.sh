#!/usr/bin/env bash
# Builds Quillon and starts it. On a fresh Debian 12 it installs what is missing first.
#
#   ./run.sh            build and start; without a display: a sample text on the command line
#   ./run.sh --build    build only
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"

usage() {
    sed -n '2,5s/^# \{0,1\}//p' "$0"
}

build_only=
for argument in "$@"; do
    case $argument in
        --build) build_only=yes ;;
        -h | --help) usage; exit 0 ;;
        *) usage >&2; exit 2 ;;
    esac
done

. tools/packages.sh
tools/ensure-packages "${build_packages[@]}" "${run_packages[@]}"
cmake --preset release >build-configure.log 2>&1 || { cat build-configure.log; exit 1; }
rm -f build-configure.log
cmake --build --preset release
[ -z "$build_only" ] || exit 0

sample="Three lamps burned late beside the quiet water."
echo
echo "English: $sample"
echo "Tengwar: $(build/app/quillon-cli transcribe --mode English <<<"$sample")"

#!/usr/bin/env bash
# Builds Quillon and starts it. On a fresh Debian 12 it installs what is missing first.
#
#   ./run.sh            build and start; without a display: do the main job on a virtual one
#   ./run.sh --build    build only
#   ./run.sh --package  make a Debian package and say where it is
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"

usage() {
    sed -n '2,6s/^# \{0,1\}//p' "$0"
}

task=run
for argument in "$@"; do
    case $argument in
        --build | --package) task=${argument#--} ;;
        -h | --help) usage; exit 0 ;;
        *) usage >&2; exit 2 ;;
    esac
done

. tools/packages.sh
tools/ensure-packages "${build_packages[@]}" "${run_packages[@]}"
cmake --preset release -DBUILD_TESTING=OFF -DQUILLON_BENCHMARKS=OFF >build-configure.log 2>&1 || { cat build-configure.log; exit 1; }
rm -f build-configure.log
cmake --build --preset release
if [ "$task" = package ]; then
    tools/ensure-packages "${package_packages[@]}"
    rm -rf build/packages
    cpack --config build/CPackConfig.cmake >/dev/null
    ls "$PWD"/build/packages/*.deb
fi
[ "$task" = run ] || exit 0

if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    exec build/app/quillon
fi

echo "There is no display; this is the program at work on a virtual one."
tools/ensure-packages "${virtual_display_packages[@]}"
verse='Three lamps burned late
beside the water;
the wind was gone,
the moon was low,
and one who wrote it
for her daughter
set down a song
the rivers know.'
QT_QPA_PLATFORM=xcb xvfb-run -a -s "-screen 0 1280x1024x24" \
    build/tools/demo/demo English "$verse" build/quillon.png

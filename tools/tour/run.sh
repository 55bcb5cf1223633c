#!/usr/bin/env bash
# Takes pictures of every window on a virtual display.
#
#   tools/tour/run.sh                    build/tour/{light,dark}-{100,150}/*.png, and index.html beside them
#   tools/tour/run.sh --help-pictures    those of the help anew: data/help/pictures/*.png
#
# It uses the build in build/, or in the folder that the variable BUILD names.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."

help_only=
case ${1:-} in
    --help-pictures) help_only=yes ;;
    '') ;;
    *) sed -n '2,7s/^# \{0,1\}//p' "$0" >&2; exit 2 ;;
esac

. tools/packages.sh
tools/ensure-packages "${build_packages[@]}" "${run_packages[@]}" "${virtual_display_packages[@]}"
build=${BUILD:-build}
[ -f "$build/CMakeCache.txt" ] || cmake --preset release
cmake --build "$build" --target tour quillon_font quillon_mode_files quillon_help_file

take() { # SCALE ARGUMENT...
    local scale=$1
    shift
    QT_QPA_PLATFORM=xcb QT_SCALE_FACTOR=$scale QT_FONT_DPI=96 \
        xvfb-run -a -s "-screen 0 2000x1600x24" "$build/tools/tour/tour" "$@"
}

if [ -n "$help_only" ]; then
    take 2 data/help/pictures --help-pictures
    exit
fi

tour=build/tour
rm -rf "$tour"
for scale in 1 1.5; do
    percent=$(awk "BEGIN { print $scale * 100 }")
    take "$scale" "$tour/light-$percent"
    take "$scale" "$tour/dark-$percent" --dark
done

{
    echo '<!DOCTYPE html><meta charset="utf-8"><title>Every window of Quillon</title>'
    echo '<style>body { font-family: sans-serif } figure { display: inline-block; vertical-align: top }</style>'
    for picture in "$tour"/light-100/*.png; do
        name=$(basename "$picture" .png)
        echo "<h2>$name</h2>"
        for look in light-100 dark-100 light-150 dark-150; do
            echo "<figure><img src='$look/$name.png' alt=''><figcaption>$look</figcaption></figure>"
        done
    done
} >"$tour/index.html"
echo "Look at $tour/index.html"

# What each task needs beyond Debian's base system; read by run.sh, test.sh and .ci/run.
build_packages=(g++ cmake ninja-build qt6-base-dev libgl1-mesa-dev
    fontforge-nox python3-fontforge)
run_packages=(libqt6svg6)
virtual_display_packages=(xvfb xauth)
package_packages=(dpkg-dev file)
test_packages=(ccache poppler-utils weston qt6-wayland
    at-spi2-core dbus gir1.2-atspi-2.0 python3-gi xdotool
    "${virtual_display_packages[@]}" "${package_packages[@]}")
lint_packages=(appstream desktop-file-utils mandoc
    clang clang-format clang-tidy libclang-rt-14-dev libbenchmark-dev)

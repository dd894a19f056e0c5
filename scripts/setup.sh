# Shared by ./run, ./test, .ci/run and other scripts, which source it from the root of the tree.
# shellcheck shell=bash

# The Debian 12 packages for each kind of work, beyond the base system.
declare -A packages=(
    [build]="g++ cmake ninja-build qt6-base-dev qt6-positioning-dev qt6-tools-dev qt6-tools-dev-tools
             qt6-l10n-tools qt6-translations-l10n gettext librsvg2-bin"
    [packages]="build-essential debhelper appstream shared-mime-info tzdata"
    # A virtual desktop, and programs to type, click and take pictures on it.
    [desktop]="xvfb x11-utils xauth openbox xdotool imagemagick fonts-dejavu-core dbus at-spi2-core
               python3 python3-gi gir1.2-atspi-2.0 locales util-linux"
    [wayland]="qt6-wayland"
    [tests]="weston gdal-bin gpsbabel libxml2-utils man-db python3-jsonschema strace
             lintian desktop-file-utils appstream shared-mime-info"
    [bench]="libbenchmark-dev gpsbabel time python3-xlib zenity gnuplot-nox"
    [checks]="git clang clang-format clang-tidy libclang-rt-14-dev libbenchmark-dev"
)

as_root() {
    if [[ $(id -u) == 0 ]]; then "$@"; else sudo "$@"; fi
}

# need_packages KIND...: installs the missing packages of these kinds.
need_packages() {
    local kind package missing=()
    for kind; do
        for package in ${packages[$kind]}; do
            [[ $(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null) == installed* ]] ||
                missing+=("$package")
        done
    done
    if ((${#missing[@]})); then
        echo "Installing from Debian: ${missing[*]}"
        as_root apt-get -q update
        as_root env DEBIAN_FRONTEND=noninteractive \
            apt-get -q install -y --no-install-recommends "${missing[@]}"
    fi
}

# need_locales NAME...: creates those UTF-8 locales that do not exist.
need_locales() {
    local name
    for name; do
        grep -qix "$name\.utf-\?8" <<<"$(locale -a)" ||
            as_root localedef -i "$name" -f UTF-8 "$name.UTF-8"
    done
}

# build PRESET [TARGET...]: configures build/PRESET and builds these targets, or all.
build() {
    cmake --preset "$1"
    cmake --build --preset "$1" -j "$(nproc)" ${2+--target "${@:2}"}
}

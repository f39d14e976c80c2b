#!/usr/bin/env bash
# Installs what is missing on a Debian 12 machine. Arguments name the groups: run, test, package.
set -euo pipefail

build=(g++ dpkg-dev cmake ninja-build pkg-config ccache mold git
    libsqlite3-dev libunistring-dev libplist-dev libpng-dev
    nlohmann-json3-dev libcli11-dev libsdbus-c++-dev libsystemd-dev gettext tzdata
    qt6-base-dev qt6-svg-dev qt6-qpa-plugins libgl-dev libxcb1-dev fonts-inter fonts-noto-core fonts-noto-cjk)
run=(sqlite3)
test=(libgtest-dev libgmock-dev libbenchmark-dev libsqlitecpp-dev
    clang clang-format clang-tidy libclang-rt-14-dev sqlite3
    procps dbus xvfb openbox tint2 dunst xdotool x11-utils imagemagick
    desktop-file-utils appstream man-db bash-completion
    systemd xdg-utils zsh fish doxygen)
package=(lintian file)

wanted=("${build[@]}")
for group in "$@"; do
    declare -n packages="$group"
    wanted+=("${packages[@]}")
done

missing=()
for package in "${wanted[@]}"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' ||
        missing+=("$package")
done
[ "${#missing[@]}" -gt 0 ] || exit 0

sudo=()
[ "$(id -u)" -eq 0 ] || sudo=(sudo)
echo "Installing: ${missing[*]}"
"${sudo[@]}" apt-get -qq update
DEBIAN_FRONTEND=noninteractive "${sudo[@]}" apt-get -qq install -y --no-install-recommends "${missing[@]}"

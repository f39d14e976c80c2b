#!/usr/bin/env bash
# Installs the build folder of the first argument into a folder of its own: the programs must run
# from there, the command line without a GUI library, and the libraries be found by both ways.
set -euo pipefail
build=$1
here=$(cd "$(dirname "$0")" && pwd)
root=$(mktemp -d)
trap 'rm -rf "$root"' EXIT
fail() { echo "$1" >&2; exit 1; }

cmake --install "$build" --prefix "$root/usr" >/dev/null
for file in bin/brevant-desktop libexec/brevant-session lib/systemd/user/brevant-desktop.service \
    share/applications/org.brevant.{Desktop,Links}.desktop share/man/man1/brevant{,-desktop}.1 \
    share/metainfo/org.brevant.Desktop.metainfo.xml share/bash-completion/completions/brevant \
    share/zsh/site-functions/_brevant share/fish/vendor_completions.d/brevant.fish \
    share/icons/hicolor/{scalable/apps/brevant,symbolic/apps/brevant-symbolic}.svg; do
    [ -e "$root/usr/$file" ] || fail "not installed: $file"
done
brevant="$root/usr/bin/brevant"
if ldd "$brevant" | grep -iE 'qt|xcb|x11|wayland'; then fail "the command line links a GUI library"; fi
"$brevant" sample "$root/log" >/dev/null
export BREVANT_CONTAINER="$root/log"
"$brevant" snapshot --json | grep -q '"png"' || fail "no icons beside the program"
LANGUAGE=de LC_ALL=C.UTF-8 "$brevant" reminders settings | grep -q Stunde || fail "no translations"
"$brevant" picture medium -o "$root/medium.png" || fail "no desktop host beside the program"

cmake -S "$here" -B "$root/consumer" -DCMAKE_PREFIX_PATH="$root/usr" >/dev/null
cmake --build "$root/consumer" >/dev/null
[ "$("$root/consumer/consumer" "$root/log")" = 2 ] || fail "the CMake package does not work"
export PKG_CONFIG_PATH="$root/usr/lib/pkgconfig"
# The flags are words.
# shellcheck disable=SC2046
c++ -std=c++20 "$here/consumer.cc" -o "$root/by_pkg_config" \
    $(pkg-config --cflags --libs --static brevant)
[ "$("$root/by_pkg_config" "$root/log")" = 2 ] || fail "the pkg-config file does not work"

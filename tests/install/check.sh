#!/usr/bin/env bash
# Installs the build folder of the first argument into a home of its own. The programs must run from
# there, the command line without a GUI library; the session, the shells and the desktop must find
# their parts of it where they look; and the libraries be found by both ways.
set -euo pipefail
build=$1
here=$(cd "$(dirname "$0")" && pwd)
root=$(mktemp -d)
trap 'rm -rf "$root"' EXIT
fail() { echo "$1" >&2; exit 1; }

export HOME="$root/home" XDG_RUNTIME_DIR="$root/run" LC_ALL=C.UTF-8
unset XDG_DATA_HOME XDG_DATA_DIRS XDG_CONFIG_HOME MANPATH
prefix="$HOME/.local"
share="$prefix/share"
mkdir -p "$HOME" "$XDG_RUNTIME_DIR"
cmake --install "$build" --prefix "$prefix" >/dev/null
export PATH="$prefix/bin:$PATH"

if ldd "$prefix/bin/brevant" | grep -iE 'qt|xcb|x11|wayland'; then
    fail "the command line links a GUI library"
fi
export BREVANT_CONTAINER="$root/log"
brevant sample "$root/log" >/dev/null
brevant snapshot --json | grep -q '"png"' || fail "no icons beside the program"
LANGUAGE=de brevant reminders settings | grep -q Stunde || fail "no translations"
brevant picture medium -o "$root/medium.png" || fail "no desktop host beside the program"

# Sessions do not have the home's programs on their PATH.
systemd-analyze verify --user "$share/systemd/user/brevant-desktop.service" || fail "the unit is wrong"
desktop-file-validate "$share"/applications/*.desktop || fail "a desktop file is wrong"
for launcher in "$share"/applications/*.desktop; do
    grep -E '^Exec=' "$launcher" | cut -d= -f2 | while read -r program _; do
        case $program in /*) [ -x "$program" ] ;; *) false ;; esac || fail "$launcher starts $program"
    done
    icon=$(sed -n 's/^Icon=//p' "$launcher")
    [ -e "$share/icons/hicolor/scalable/apps/$icon.svg" ] || fail "$launcher has no icon"
done
[ "$(xdg-mime query default x-scheme-handler/brevant)" = org.brevant.Links.desktop ] &&
    grep -q x-scheme-handler/brevant "$share/applications/mimeinfo.cache" || fail "no program opens links"
for program in brevant brevant-desktop; do
    man -w "$program" >/dev/null || fail "$program has no man page"
    # shellcheck disable=SC2016 # the shells' own variables
    bash -c '. /usr/share/bash-completion/bash_completion; __load_completion $0; complete -p $0' \
        "$program" >/dev/null || fail "bash does not complete $program"
    # shellcheck disable=SC2016
    zsh -fc 'fpath+=(~/.local/share/zsh/site-functions); autoload -Uz compinit; compinit -D
        [[ -n $_comps[$0] ]]' "$program" || fail "zsh does not complete $program"
    [ -n "$(fish -c "complete -C '$program --con'")" ] || fail "fish does not complete $program"
done

cmake -S "$here" -B "$root/consumer" -DCMAKE_PREFIX_PATH="$prefix" >/dev/null
cmake --build "$root/consumer" >/dev/null
[ "$("$root/consumer/consumer" "$root/log")" = 2 ] || fail "the CMake package does not work"
export PKG_CONFIG_PATH="$prefix/lib/pkgconfig"
# The flags are words.
# shellcheck disable=SC2046
c++ -std=c++20 "$here/consumer.cc" -o "$root/by_pkg_config" \
    $(pkg-config --cflags --libs --static brevant)
[ "$("$root/by_pkg_config" "$root/log")" = 2 ] || fail "the pkg-config file does not work"

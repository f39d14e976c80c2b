#!/usr/bin/env bash
# Runs what README and man page tell a new user to type, line for line, with the programs of the
# build folder that the first argument names.
set -euo pipefail
build=$(cd "$1" && pwd)
source=$(cd "$(dirname "$0")/../.." && pwd)
place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT

export HOME="$place" QT_QPA_PLATFORM=offscreen DBUS_SESSION_BUS_ADDRESS="unix:path=$place/none"
unset BREVANT_CONTAINER XDG_DATA_HOME XDG_CONFIG_HOME XDG_CACHE_HOME
cd "$place"
# What scripts/run.sh leaves behind.
mkdir -p build/dev
ln -s "$build/bin" build/dev/bin
build/dev/bin/brevant sample build/sample >/dev/null

walk() { # WHAT LINES
    [ "$(grep -c '^brevant' <<<"$2")" -ge 4 ] || { echo "$1 has no walk-through" >&2; exit 1; }
    bash -euo pipefail -c "$2
[ -z \"\${!:-}\" ] || { kill \$! && wait \$! || true; }" >/dev/null || {
        printf '%s: a line of this fails:\n%s\n' "$1" "$2" >&2
        exit 1
    }
}
walk README.md "$(awk '/^```/ { if (block ~ /BREVANT_CONTAINER=/) printf "%s", block
                                block = ""; inside = /^```sh/; next }
                       inside { block = block $0 "\n" }' "$source/README.md")"
export PATH="$build/bin:$PATH"
walk brevant.1 "$(awk '/^Try everything/ { on = 1 } on && /^\.Ed/ { exit } on && !/^[.T]/' \
    "$source/resources/man/brevant.1")"

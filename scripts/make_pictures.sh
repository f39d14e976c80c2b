#!/usr/bin/env bash
# Draws docs/pictures/, the pictures of the front page: every surface of one sample log at one moment
# of a clock that stands still, so that they change only when the drawing does. Run it after changing
# how something looks, and commit what is new. Needs the programs built (scripts/run.sh).
set -euo pipefail
cd "$(dirname "$0")/.."

export BREVANT="$PWD/build/dev/bin/brevant" LC_ALL=C.UTF-8 TZ=UTC
unset LANGUAGE
BREVANT_CONTAINER=$(mktemp -d)
export BREVANT_CONTAINER
trap 'rm -rf "$BREVANT_CONTAINER"' EXIT

moment=(--now 1795435200) # 2026-11-23, noon
"$BREVANT" "${moment[@]}" sample "$BREVANT_CONTAINER" >/dev/null
guid=$("$BREVANT" "${moment[@]}" activities --running | grep -oE '[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}')
"$BREVANT" "${moment[@]}" live start --activity "$guid" >/dev/null
for picture in small-dark medium-light lock-screen-light island-expanded-dark island-compact-dark \
    island-minimal-dark; do
    "$BREVANT" "${moment[@]}" picture "${picture%-*}" --color-scheme "${picture##*-}" \
        -o "docs/pictures/$picture.png"
done

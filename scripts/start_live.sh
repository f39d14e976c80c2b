#!/usr/bin/env bash
# Starts a Live Activity for the activity that runs, as the main application does when an activity
# starts. Takes $BREVANT (default: brevant on the PATH) and $BREVANT_CONTAINER; arguments are global
# options for every call, such as --now.
set -euo pipefail
brevant() { "${BREVANT:-brevant}" "$@"; }
value() { sed -nE "s/.*\"$1\": ?\"?([^\",}]*).*/\1/p" <<<"$2"; } # KEY RECORD: of the last such key

running=$(brevant "$@" status --json | sed -E 's/.*"running": ?\[\{([^}]*)\}.*/\1/')
category=$(brevant "$@" category --id "$(value categoryGuid "$running")" --json)
# A content state counts its seconds from 2001.
start=$(awk -v start="$(value start "$running")" 'BEGIN { printf "%.3f", start - 978307200 }')
printf '{"guid":"%s","typeName":"%s","icon":"%s","color":%s,"start":%s,"message":""}' \
    "$(value guid "$running")" "$(value name "$running")" "$(value imageGuid "$category")" \
    "$(value color "$category")" "$start" | brevant "$@" live start

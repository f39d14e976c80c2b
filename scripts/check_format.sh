#!/usr/bin/env bash
# Fails when a source is not formatted as .clang-format says, or does not name its licence first.
set -euo pipefail
cd "$(dirname "$0")/.."
git ls-files -z -- '*.h' '*.cc' | xargs -0 -r clang-format --dry-run --Werror

licence="// SPDX-License-Identifier: MIT"
unnamed=$(git ls-files -z -- '*.h' '*.cc' |
    xargs -0 -r awk -v first="$licence" 'FNR == 1 && $0 != first { print FILENAME }')
[ -z "$unnamed" ] || { printf 'The first line is not "%s":\n%s\n' "$licence" "$unnamed" >&2; exit 1; }

#!/usr/bin/env bash
# Runs clang-tidy over the product's sources with the compile commands of the given build folder.
# Files that are as they were when they last passed are skipped.
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build/dev}
stamps="$build/tidy"
mkdir -p "$stamps"

check() {
    local file=$1 key
    key="$stamps/$(sha256sum .clang-tidy "$file" *.txt */*.h */*/*.h | sha256sum | cut -c1-32)"
    [ ! -e "$key" ] || return 0
    clang-tidy --quiet -p "$build" --extra-arg=-Wno-unknown-warning-option "$file" 2>/dev/null || return 1
    touch "$key"
}
export -f check
export build stamps
git ls-files -z -- 'platform/*.cc' 'store/*.cc' 'manager/*.cc' 'widget/*.cc' 'live/*.cc' 'cli/*.cc' \
    'desktop/*.cc' | xargs -0 -r -n 1 -P "$(nproc)" bash -c 'set -o pipefail; check "$0"'

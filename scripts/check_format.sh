#!/usr/bin/env bash
# Fails when a source is not formatted as .clang-format says; names the lines.
set -euo pipefail
cd "$(dirname "$0")/.."
git ls-files -z -- '*.h' '*.cc' | xargs -0 -r clang-format --dry-run --Werror

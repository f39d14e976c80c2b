#!/usr/bin/env bash
# Everything that must hold before a change lands: style, layering, all tests, all tests again under
# the address and undefined-behaviour sanitizers, a short run of every fuzz target, the reference
# of the installed headers, and the lint for faults (scripts/check_tidy.sh alone lints the style too).
set -euo pipefail
cd "$(dirname "$0")/.."

step() { printf '\n== %s (%d s so far)\n' "$1" "$SECONDS"; }

step "Packages"
scripts/install_packages.sh test

step "Format"
scripts/check_format.sh

step "Build and test"
cmake --preset dev
cmake --build --preset dev
ctest --preset dev

step "Build and test under the sanitizers"
cmake --preset asan
cmake --build --preset asan
ctest --preset asan

step "Fuzz targets, a short run each"
scripts/fuzz.sh

step "Reference of the installed headers"
scripts/make_reference.sh

step "Lint"
scripts/check_tidy.sh build/dev faults

step "All passed"

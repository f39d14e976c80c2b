#!/usr/bin/env bash
# Builds the fuzz targets with Clang and runs each for some seconds (first argument, default 5) from
# its seed corpus. New findings end in build/fuzz and are named by the fuzzer.
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-5}
cmake -S . -B build/fuzz -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_CXX_COMPILER=clang++ \
    -DCMAKE_CXX_FLAGS_RELWITHDEBINFO="-O2 -g1 -DNDEBUG" \
    -DCMAKE_COMPILE_WARNING_AS_ERROR=ON -DBREVANT_FUZZ=ON -DBREVANT_TESTS=OFF -DBREVANT_DESKTOP=OFF >/dev/null
cmake --build build/fuzz --target fuzz_targets -j2
for corpus in tests/fuzz/corpus/*/; do
    name=$(basename "$corpus")
    found="build/fuzz/found/$name"
    mkdir -p "$found"
    log="build/fuzz/$name.log"
    if ! "build/fuzz/bin/fuzz_$name" -max_total_time="$seconds" -timeout=5 -rss_limit_mb=512 \
        -artifact_prefix="$found/" "$found" "$corpus" >"$log" 2>&1; then
        tail -n 40 "$log"
        echo "fuzz_$name: found something" >&2
        exit 1
    fi
    echo "fuzz_$name: nothing found in $seconds s"
done

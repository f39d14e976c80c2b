#!/usr/bin/env bash
# Builds the fuzz targets with Clang and runs each from its seed corpus: usage: fuzz.sh [SECONDS|--long],
# 5 seconds each unless told otherwise, 10 minutes with --long. The desktop host takes minutes to
# build: its target runs with --long only. New findings end in build/fuzz and are named by the fuzzer.
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-5}
desktop=OFF
[ "$seconds" != --long ] || { seconds=600 desktop=ON; }
cmake -S . -B build/fuzz -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_CXX_COMPILER=clang++ \
    -DCMAKE_CXX_FLAGS_RELWITHDEBINFO="-O2 -g1 -DNDEBUG" \
    -DCMAKE_COMPILE_WARNING_AS_ERROR=ON -DBREVANT_FUZZ=ON -DBREVANT_TESTS=OFF -DBREVANT_DESKTOP=$desktop >/dev/null
cmake --build build/fuzz --target fuzz_targets -j2
# What was freed is not kept for long, so that the limit of memory is one on what is used.
export ASAN_OPTIONS=quarantine_size_mb=32 LSAN_OPTIONS=suppressions=tests/fuzz/known_leaks.txt:print_suppressions=0
for corpus in tests/fuzz/corpus/*/; do
    name=$(basename "$corpus")
    [ "$name $desktop" != "view_tree OFF" ] || continue
    found="build/fuzz/found/$name"
    mkdir -p "$found"
    log="build/fuzz/$name.log"
    options=(-max_total_time="$seconds" -timeout=30 -rss_limit_mb=512 -max_len=65536 -artifact_prefix="$found/")
    dictionary="tests/fuzz/dictionaries/$name.dict"
    [ ! -f "$dictionary" ] || options+=(-dict="$dictionary")
    # Each statement that fails and each view that is left out is a line on stderr.
    case $name in database | view_tree) options+=(-close_fd_mask=2) ;; esac
    # The toolkit keeps much from one run to the next: leaks are looked for once, at the end.
    [ "$name" != view_tree ] || options+=(-detect_leaks=0)
    if ! "build/fuzz/bin/fuzz_$name" "${options[@]}" "$found" "$corpus" >"$log" 2>&1; then
        tail -n 40 "$log"
        echo "fuzz_$name: found something" >&2
        exit 1
    fi
    echo "fuzz_$name: nothing found in $seconds s"
done

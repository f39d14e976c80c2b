#!/usr/bin/env bash
# Fails when a file includes what its folder must not know. Run from anywhere.
set -euo pipefail
cd "$(dirname "$0")/.."
failed=0
complain() { echo "layering: $1" >&2; failed=1; }

# The folders in the order data flows through them; none includes one below it.
folders=(platform platform/linux store manager widget live cli desktop)
for ((i = 0; i < ${#folders[@]}; i++)); do
    for ((j = i + 1; j < ${#folders[@]}; j++)); do
        hits=$(grep -lE "^#include \"${folders[j]}/[^/\"]+\"" "${folders[i]}"/*.{h,cc} 2>/dev/null || true)
        [ -z "$hits" ] || complain "${folders[i]} includes ${folders[j]}: $(echo $hits)"
    done
done
# Only the program's edge knows that this is Linux.
hits=$(grep -lE '^#include "platform/linux/' {platform,store,manager,widget,live}/*.{h,cc} 2>/dev/null || true)
[ -z "$hits" ] || complain "the Linux platform is included by: $(echo $hits)"
# The desktop host knows the JSON contract and nothing of the system behind it.
hits=$(grep -lE '^#include "(platform|store|manager|widget|live|cli)/' desktop/*.{h,cc} 2>/dev/null || true)
[ -z "$hits" ] || complain "desktop includes the core: $(echo $hits)"
# SQLite is the store's secret.
hits=$(git grep -lE '^#include <sqlite3\.h>' -- '*.h' '*.cc' ':!store/*.cc' ':!tests' ':!bench' || true)
[ -z "$hits" ] || complain "sqlite3.h is included by: $(echo $hits)"
hits=$(git grep -lE '^#include <Q' -- '*.h' '*.cc' ':!desktop' ':!tests/desktop' ':!tests/fuzz/view_tree.cc' ':!bench' || true)
[ -z "$hits" ] || complain "Qt is included by: $(echo $hits)"
# Angle brackets in the core: the standard library only.
standard='algorithm|array|atomic|bit|charconv|chrono|cmath|compare|concepts|condition_variable|cstddef|cstdint|cstdio|cstdlib|cstring|ctime|deque|exception|filesystem|format|functional|future|initializer_list|iomanip|iostream|iterator|limits|list|map|memory|memory_resource|mutex|new|numbers|numeric|optional|ostream|queue|random|ranges|set|shared_mutex|span|sstream|stack|stdexcept|stop_token|string|string_view|system_error|thread|tuple|type_traits|typeinfo|unordered_map|unordered_set|utility|variant|vector|sqlite3\.h'
hits=$(grep -nE '^#include <' {platform,store,manager,widget,live}/*.{h,cc} platform/linux/*.h 2>/dev/null |
    grep -vE "#include <($standard)>" || true)
[ -z "$hits" ] || complain "a header of the system or a library in the core:"$'\n'"$hits"
# Nobody but the clock reads the time.
hits=$(grep -nE 'system_clock::now|steady_clock::now|[^_]time\(nullptr\)|clock_gettime|gettimeofday|currentDateTime' \
    {platform,store,manager,widget,live,cli}/*.{h,cc} platform/linux/*.cc 2>/dev/null |
    grep -v '^platform/linux/clock\.cc:' || true)
[ -z "$hits" ] || complain "the time is read outside the clock:"$'\n'"$hits"
exit "$failed"

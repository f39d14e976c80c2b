#!/usr/bin/env bash
# Fails each system call of each change, and kills the program at each, then compares what was told
# with what is stored: exit 0 only for the change, 1 only for the log as it was, nothing between.
# Then lets eight programs change one log at once. Prints a table and exits 1 on any loss. Takes the
# better part of an hour, so that the checks do not run it.
#   scripts/sweep_faults.sh [MODE ...]     journal modes; default: delete truncate persist wal
# $BREVANT names the program (default: that of the dev build), $DOOR a single change to try ("pause A");
# needs strace, sqlite3 and python3.
set -euo pipefail
cd "$(dirname "$0")/.."

program=${BREVANT:-$PWD/build/dev/bin/brevant}
modes=("$@")
[ $# -gt 0 ] || modes=(delete truncate persist wal)
calls=(pread64 pwrite64 fcntl openat fsync fdatasync rename renameat2 unlink ftruncate)
# Once, and from then on.
faults=(EIO EIO+ ENOSPC ENOSPC+ EINTR KILL)
link='brevant:///widget?type=running&action=pause&activity=A'
doors=("pause A" "stop A" "resume B" "start C" "intent StopActivityIntent A stop"
    "intent StopActivityLiveIntent A pause" "open $link")

[ -z "${DOOR:-}" ] || doors=("$DOOR")

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export BREVANT_CONTAINER=$work/container HOME=$work TZ=UTC LC_ALL=C.UTF-8

# New identities differ from run to run; everything else is the same each time.
stored() {
    sqlite3 "$BREVANT_CONTAINER/database.sqlite" "PRAGMA integrity_check;
        SELECT category_guid, state, start_date, updated_on, is_deleted FROM logs ORDER BY rowid;
        SELECT log_guid, start, finish, start_m, finish_m, is_deleted, updated_on
        FROM time_intervals ORDER BY rowid" 2>&1
}
fresh() {
    rm -rf "$BREVANT_CONTAINER"
    cp -r "$work/original" "$BREVANT_CONTAINER"
}
make_original() {
    rm -rf "$work/original"
    "$program" sample "$work/original" >/dev/null
    sqlite3 "$work/original/database.sqlite" "PRAGMA journal_mode = $1;
        DELETE FROM logs; DELETE FROM time_intervals;
        UPDATE categories SET guid = 'C' WHERE name = 'Reading';
        INSERT INTO logs (guid, category_guid, state, start_date) VALUES
            ('A', 'C', 1, 1699999000), ('B', 'C', 2, NULL);
        INSERT INTO time_intervals (guid, log_guid, category_guid, start, finish) VALUES
            ('IA', 'A', 'C', 1699990000, 1699990060), ('IB', 'B', 'C', 1699980000, 1699980060)" \
        >/dev/null
}
change() { "$@" "$program" --now 1700000000 "${words[@]}" >"$work/out" 2>"$work/err"; }

# One fault at the N-th call. Sets `reached` and judges.
inject() { # CALL FAULT N
    local what="error=${2%+}" when=$3 code=0 after
    [ "$2" != KILL ] || what=signal=KILL
    [[ "$2" != *+ ]] || when=$3+
    fresh
    { change strace -f -qq -o "$work/trace" -e "trace=$1" -e "inject=$1:$what:when=$when" || code=$?; } 2>/dev/null
    reached=0
    grep -qE 'INJECTED|SIGKILL' "$work/trace" && reached=1
    [ "$reached" = 1 ] || return 0
    runs=$((runs + 1))
    after=$(stored)
    if [ "$after" != "$before" ] && [ "$after" != "$done" ]; then
        loss "torn" "$@"
    elif [ "$code" = 0 ] && [ "$after" = "$before" ]; then
        loss "told as done, not stored" "$@"
    elif [ "$code" = 1 ] && [ "$after" = "$done" ]; then
        loss "told as not done, stored" "$@"
    fi
    # What cannot be removed stays, of course.
    [[ "$1 $2" =~ ^unlink|KILL$ ]] || ! ls "$BREVANT_CONTAINER/Library/Preferences/"*.new >/dev/null 2>&1 ||
        loss "a file left behind" "$@"
    return 0
}
loss() {
    local why=$1
    shift
    losses=$((losses + 1))
    echo "  LOSS: $mode, ${words[*]}, $*: $why: $(tail -n 1 "$work/err")"
}

total=0
printf '%-9s %-46s %6s %6s\n' journal change faults losses
for mode in "${modes[@]}"; do
    make_original "$mode"
    for door in "${doors[@]}"; do
        read -ra words <<<"$door"
        runs=0 losses=0
        fresh
        before=$(stored)
        change env || { echo "$door: does not work without a fault" >&2; exit 1; }
        done=$(stored)
        for call in "${calls[@]}"; do
            for fault in "${faults[@]}"; do
                for ((n = 1; n < 500; n++)); do
                    inject "$call" "$fault" "$n"
                    [ "$reached" = 1 ] || break
                done
            done
        done
        total=$((total + losses))
        printf '%-9s %-46s %6d %6d\n' "$mode" "${door:0:46}" "$runs" "$losses"
    done
done
for mode in "${modes[@]}"; do
    scripts/meeting_writers.py "$program" "$mode" "$work" || total=$((total + 1))
done
[ "$total" = 0 ] || exit 1

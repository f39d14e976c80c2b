#!/usr/bin/env bash
# Installs what is missing, builds, makes a sample container under the build folder and walks
# through the main job: what runs now, the widget's timeline, a pause, and what it changed.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install_packages.sh run
cmake --preset dev -DBREVANT_TESTS=OFF -DBREVANT_BENCH=OFF
cmake --build --preset dev --target brevant brevant-desktop resources

brevant="$PWD/build/dev/bin/brevant"
container="$PWD/build/sample"
pictures="$PWD/build/pictures"
export BREVANT_CONTAINER="$container"
rm -rf "$container" "$pictures"
mkdir -p "$pictures"

show() {
    printf '\n$ %s\n' "${*//$PWD\//}"
    "$@"
}
rows() {
    sqlite3 -readonly -header -column "$container/database.sqlite" \
        "SELECT substr(l.guid, 1, 8) AS log, l.state, datetime(l.start_date, 'unixepoch') AS start,
                l.sync_status AS sync, count(i.guid) AS intervals,
                round(sum(i.finish - i.start)) AS seconds
         FROM logs l LEFT JOIN time_intervals i ON i.log_guid = l.guid AND i.is_deleted = 0
         WHERE l.guid = '$1' GROUP BY l.guid"
}

show "$brevant" sample "$container"
show "$brevant" status
printf '\n$ brevant timeline --json   (the pictures in base64 cut short)\n'
"$brevant" timeline --json | sed -E 's/"png": ?"[^"]{24}[^"]*"/"png":"…"/g' | cut -c1-600

guid=$("$brevant" activities --running | grep -oE '[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}' | head -n 1)
printf '\nThe row of the running activity, before the pause button is pressed:\n'
rows "$guid"
show "$brevant" intent StopActivityIntent "$guid" pause
printf 'and after:\n'
rows "$guid"
show "$brevant" status
show "$brevant" resume "$guid"

printf '\nThe widgets, and the Live Activity that the tracker would have started, as pictures:\n'
"$brevant" live start --activity "$guid" >/dev/null
for surface in small medium lock-screen island-compact island-minimal island-expanded; do
    for scheme in light dark; do
        "$brevant" picture "$surface" --color-scheme "$scheme" -o "$pictures/$surface-$scheme.png"
        echo "  build/pictures/$surface-$scheme.png"
    done
done

if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    build/dev/bin/brevant-desktop >/dev/null 2>&1 &
    echo "The desktop host is running; its tray icon ends it."
fi
cat <<'NEXT'

Try next:
  export BREVANT_CONTAINER="$PWD/build/sample" PATH="$PWD/build/dev/bin:$PATH"
  brevant start Reading          start something; brevant categories lists what there is
  brevant doctor                 check a container
  brevant-desktop                the widgets on your desktop
NEXT

#!/usr/bin/env bash
# Works the desktop host as people do: on an X server with a window manager, a panel with a tray and
# a notification daemon, with a real pointer and keyboard, on a real log.
#   x11_session.sh BREVANT BREVANT_DESKTOP [FOLDER-FOR-SCREENSHOTS]
set -euo pipefail

if [ -z "${BREVANT_X11_SESSION:-}" ]; then
    for tool in Xvfb openbox tint2 dunst dbus-run-session xdotool xwininfo xprop import; do
        command -v "$tool" >/dev/null || { echo "skipped: $tool is missing"; exit 77; }
    done
    BREVANT_X11_SESSION=1 exec dbus-run-session -- "$0" "$@"
fi

export BREVANT=$1
desktop=$2
shots=${3:-}
work=$(mktemp -d)
pids=()
end() {
    for pid in "${pids[@]}"; do kill "$pid" 2>/dev/null || true; done
    rm -rf "$work"
}
trap end EXIT

export HOME=$work XDG_CONFIG_HOME=$work/config XDG_DATA_HOME=$work/data XDG_CACHE_HOME=$work/cache
export XDG_RUNTIME_DIR=$work/run BREVANT_CONTAINER=$work/log LC_ALL=C.UTF-8 TZ=UTC
unset WAYLAND_DISPLAY QT_QPA_PLATFORM
mkdir -m 700 "$XDG_RUNTIME_DIR"
mkdir "$XDG_CONFIG_HOME" "$XDG_DATA_HOME"

# --- What the checks are made of

until_true() { # DESCRIPTION COMMAND...: within a generous time
    local what=$1
    shift
    for _ in $(seq 300); do
        if "$@"; then
            echo "ok: $what"
            return
        fi
        sleep 0.1
    done
    echo "FAILED: $what" >&2
    shot failed
    cat "$work/host.log" >&2
    exit 1
}
shot() { [ -z "$shots" ] || import -window root "$shots/$1.png"; }
window() { xdotool search --onlyvisible --name "^$1\$" 2>/dev/null | head -n 1; }
is_shown() { [ -n "$(window "$1")" ]; }
is_hidden() { ! is_shown "$1"; }
status() { "$BREVANT" status --json; }
runs() { status | grep -q "\"running\":\[{\"guid\":\"$1\""; }
is_paused() { status | grep -q "\"paused\":\[.*\"guid\":\"$1\""; }
nothing_runs() { status | grep -q '"running":\[\]'; }
point_at() { # WINDOW X Y: in the window
    local X Y WIDTH HEIGHT WINDOW SCREEN
    eval "$(xdotool getwindowgeometry --shell "$1")"
    xdotool mousemove $((X + $2)) $((Y + $3))
}
has_state() { xprop -id "$1" _NET_WM_STATE | grep -q "$2"; } # WINDOW STATE
is_fixture() { # WINDOW
    xprop -id "$1" _NET_WM_DESKTOP | grep -q 4294967295 && has_state "$1" SKIP_TASKBAR
}
tray_icon() {
    xwininfo -root -tree |
        awk '/"brevant-desktop" "brevant-desktop"/ && match($0, / [0-9]+x[0-9]+\+/) {
                 split(substr($0, RSTART + 1), size, /[x+]/)
                 if (size[1] > 1 && size[1] <= 64 && size[1] == size[2]) { print $1; exit } }'
}
has_tray_icon() { [ -n "$(tray_icon)" ]; }
# Sweeps the card with clicks, row by row; of the controls the first that it meets is the pause
# button, and nothing else on the card does anything.
click_until() { # WINDOW CONDITION...
    local X Y WIDTH HEIGHT WINDOW SCREEN x y
    eval "$(xdotool getwindowgeometry --shell "$1")"
    shift
    for y in $(seq 32 10 174); do
        for x in $(seq 32 12 354); do xdotool mousemove $((X + x)) $((Y + y)) click 1; done
        sleep 0.5
        if "$@"; then return; fi
    done
    return 1
}

# --- The desktop

exec 3>"$work/display"
Xvfb -displayfd 3 -screen 0 1280x800x24 -nolisten tcp >/dev/null 2>&1 &
pids+=($!)
until [ -s "$work/display" ]; do sleep 0.05; done
DISPLAY=:$(cat "$work/display")
export DISPLAY
openbox >/dev/null 2>&1 &
pids+=($!)
tint2 >/dev/null 2>&1 &
pids+=($!)
dunst >/dev/null 2>&1 &
pids+=($!)

# --- First start, without any log; in a language that reads from the right, for a look

colors_at() { # WINDOW GEOMETRY: how many there are
    import -window "$1" -crop "$2" +repage png:- | identify -format %k png:-
}
LANGUAGE=ar "$desktop" >"$work/host.log" 2>&1 &
pids+=($!)
welcome() { xdotool search --onlyvisible --name "Brevant" 2>/dev/null | head -n 1; }
has_icon_at_right() {
    local WINDOW X Y WIDTH HEIGHT SCREEN
    [ -n "$(welcome)" ] || return
    eval "$(xdotool getwindowgeometry --shell "$(welcome)")"
    [ "$(colors_at "$WINDOW" 64x64+$((WIDTH - 88))+24)" -gt 1 ] &&
        [ "$(colors_at "$WINDOW" 64x64+24+24)" -eq 1 ]
}
until_true "an Arabic welcome is laid out from the right" has_icon_at_right
shot arabic
kill "${pids[-1]}"
until_true "and ends" sh -c "! kill -0 ${pids[-1]} 2>/dev/null"

# --- The first start of an English session

"$desktop" >"$work/host.log" 2>&1 &
host=$!
pids+=($host)
until_true "the welcome is shown where there is no log" is_shown "Welcome to Brevant"
shot welcome
"$BREVANT" sample "$BREVANT_CONTAINER" >/dev/null
activity=$(status | sed 's/.*"running":\[{"guid":"\([^"]*\)".*/\1/')
until_true "the widget comes as soon as there is a log" is_shown "Medium widget"
until_true "the welcome goes" is_hidden "Welcome to Brevant"
until_true "the tray has an icon" has_tray_icon
medium=$(window "Medium widget")
until_true "the widget is on every workspace and in no list" is_fixture "$medium"
shot widget

# --- Changes of other programs, and the island

live() {
    printf '{"guid":"%s","typeName":"Programming","icon":"cat_14","color":3900150,"start":%s,"message":""}' \
        "$activity" "$(($(date +%s) - 978307200 - 600))"
}
id=$(live | "$BREVANT" live start)
until_true "a Live Activity shows in the island" is_shown "Dynamic Island"
shot island
island=$(window "Dynamic Island")
closed=$(xwininfo -id "$island" | awk '/Height/ {print $2}')
is_open() { [ "$(xwininfo -id "$island" | awk '/Height/ {print $2}')" -gt "$closed" ]; }
point_at "$island" 100 40
until_true "the island opens under the pointer" is_open
shot island-open
xdotool mousemove 10 700
is_closed() { ! is_open; }
until_true "the island closes when the pointer leaves" is_closed
"$BREVANT" live end "$id"
until_true "the island goes with its Live Activity" is_hidden "Dynamic Island"
id=$(live | "$BREVANT" live start)
until_true "it comes again with the next" is_shown "Dynamic Island"
until_true "and is on every workspace again" is_fixture "$(window "Dynamic Island")"
"$BREVANT" live end "$id"
until_true "it goes again" is_hidden "Dynamic Island"

# --- Always on top: the fourth from the end of the menu

toggle_on_top() {
    point_at "$(tray_icon)" 8 8
    xdotool click 3
    sleep 1
    xdotool key Up Up Up Up Return
}
toggle_on_top
until_true "the widget is kept above others" has_state "$medium" ABOVE
is_not_above() { ! has_state "$medium" ABOVE; }
toggle_on_top
until_true "and no more when that is unchecked" is_not_above
sleep 1
until_true "it is on every workspace and in no list all the while" is_fixture "$medium"

# --- Controls

runs "$activity"
until_true "the pause button pauses the activity" click_until "$medium" is_paused "$activity"
shot paused
"$BREVANT" resume "$activity" >/dev/null
until_true "the activity runs again" runs "$activity"
sleep 1

# The first line, Pause, Stop.
point_at "$(tray_icon)" 8 8
xdotool click 3
sleep 1
shot menu
xdotool key Down Down Down Return
until_true "the tray's menu stops the activity" nothing_runs
shot stopped

# --- A second start, reminders, and the end

until_true "a second start leaves the log to the first" timeout 20 "$desktop"
reminders() { pgrep -P "$host" -f "reminders deliver --watch"; }
until_true "reminders are delivered while the host runs" reminders
child=$(reminders)
kill -TERM "$host"
until_true "the host ends in order when it is asked to" wait "$host"
is_gone() { ! kill -0 "$child" 2>/dev/null; }
until_true "the reminders end with it" is_gone

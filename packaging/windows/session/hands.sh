# SPDX-License-Identifier: MIT
# The operator's hands and eyes: xdotool for mouse and keyboard, pictures of the whole screen, the
# SDK's log and the simulator's journal for what came of it. Sourced by session/run.
#
# The script that sources it sets: results, folder (where the program is started), program (where it
# lies), log (the SDK's log), build_path (where the build's own DLLs lie).

steps=0
pictures=0
page=-
log_read=0
window=
pid=
exit_code=
declare -A places=()

# How long to wait for an effect, in tenths of a second. Long, because the machine may be busy.
patience=300

# patiently COMMAND...: repeats it until it succeeds.
patiently() {
    local i
    for ((i = 0; i < patience; i++)); do
        if "$@"; then return; fi
        sleep 0.1
    done
    picture 'given up'
    die "step $steps: this did not come true: $*"
}

step() {
    # What the step before looked like at its end.
    ((steps == 0)) || picture "$title"
    title=$1
    steps=$((steps + 1))
    echo "   $title"
}

picture() {
    pictures=$((pictures + 1))
    import -window root "$results/$(printf '%02d' "$pictures") $1.png"
}

require() {
    local what=$1
    shift
    "$@" || {
        picture 'not so'
        die "step $steps: not so: $what"
    }
}

# ---- the program

find_places() {
    local scratch on name x y
    scratch=$(mktemp -d)
    (cd "$scratch" && WINEPATH=$build_path wine "$tool/bin/widget_places.exe" >places 2>/dev/null)
    while read -r on name x y; do
        places[$name]="$on $x $y"
    done < <(tr -d '\r' <"$scratch/places")
    rm -rf "$scratch"
    ((${#places[@]})) || die 'no widget was found'
}

windows_shown() { xdotool search --onlyvisible --class tavrel.exe 2>/dev/null | wc -l; }

find_window() {
    window=$(xdotool search --onlyvisible --name 'Halvorn Technologies OBKV camera Tavrel' 2>/dev/null |
        head -n 1)
    [ -n "$window" ]
}

start_program() {
    (cd "$folder" && exec wine "$program/tavrel.exe") >>"$results/output.txt" 2>&1 &
    pid=$!
    page=-
    window=
    patiently find_window
    xdotool windowactivate --sync "$window"
    sleep 1
    log_read=$(log_lines)
}

close_program() {
    # The window manager asks the program to close, as the frame's cross does.
    xdotool windowactivate --sync "$window" key alt+F4
    exit_code=0
    wait "$pid" || exit_code=$?
    pid=
}

stop_program() {
    [ -z "$pid" ] || kill "$pid" 2>/dev/null || true
}

# control WORD...: what tavrelctl says to these words, in the session's folder.
control() {
    (cd "$folder" && wine "$program/tavrelctl.exe" "$@" 2>>"$results/output.txt") | tr -d '\r'
}

# ---- mouse and keyboard

# point_at NAME: moves the mouse to the middle of the widget, wherever the window stands.
point_at() {
    local on x y
    [ -n "${places[$1]:-}" ] || die "step $steps: there is no $1 in the window"
    read -r on x y <<<"${places[$1]}"
    [ "$on" = - ] || [ "$on" = "$page" ] || die "step $steps: $1 is on another page"
    xdotool mousemove --window "$window" "$x" "$y"
    sleep 0.2
}

click() {
    point_at "$1"
    xdotool click 1
    sleep 0.3
}

# drag NAME PIXELS: to the right.
drag() {
    local moved
    point_at "$1"
    xdotool mousedown 1
    for ((moved = 0; moved < $2; moved += 10)); do
        xdotool mousemove_relative 10 0
        sleep 0.05
    done
    xdotool mouseup 1
    sleep 0.3
}

tab() {
    click "tab$1"
    page=$1
}

key() {
    xdotool key "$1"
    sleep 0.3
}

# type_into NAME TEXT: replaces what a field holds and leaves it.
type_into() {
    click "$1"
    key ctrl+a
    xdotool type --delay 60 "$2"
    key Tab
}

# answer_box [KEY]: waits for a window in front of the main one, shows it, answers it.
answer_box() {
    patiently box_shown
    sleep 0.5
    picture "$title, box"
    xdotool key "${1:-Return}"
    patiently no_box_shown
    xdotool windowactivate --sync "$window"
    sleep 0.3
}

box_shown() { (($(windows_shown) > 1)); }
no_box_shown() { (($(windows_shown) == 1)); }

# ---- ports

ports_key='HKLM\HARDWARE\DEVICEMAP\SERIALCOMM'

unplug_all() {
    wine reg add "$ports_key" /f >/dev/null
    wine reg delete "$ports_key" /va /f >/dev/null
}
plug() { wine reg add "$ports_key" /v "\\Device\\Adapter$1" /t REG_SZ /d "$1" /f >/dev/null; }
unplug() { wine reg delete "$ports_key" /v "\\Device\\Adapter$1" /f >/dev/null; }

# ---- what came of it

log_lines() { { cat "$log" 2>/dev/null || true; } | wc -l; }

# expect TEXT...: waits for log lines that end so, in this order, none before the last one found.
expect() {
    local text
    for text in "$@"; do
        patiently log_continues_with "$text"
    done
}

log_continues_with() {
    local at
    at=$(tail -n +$((log_read + 1)) "$log" 2>/dev/null | tr -d '\r' |
        TEXT=$1 awk '{ t = ENVIRON["TEXT"]; n = length($0) - length(t) }
            n >= 0 && substr($0, n + 1) == t { print NR; exit }')
    [ -n "$at" ] || return 1
    log_read=$((log_read + at))
}

# logged_at TEXT: when the last line that ends so was logged, in milliseconds.
logged_at() {
    date -d "$(tr -d '\r' <"$log" | grep -- "$1\$" | tail -n 1 | cut -c 1-23)" +%s%3N
}

called() { grep -qF -- "$1" "$folder/calls.txt"; }
# sent OPERATION: the number that the camera got last.
sent() { sed -n "s/.* $1(\([0-9]*\)) = .*/\1/p" "$folder/calls.txt" | tail -n 1; }
called_times() { (($(grep -cF -- "$2" "$folder/calls.txt" || true) == $1)); }

#!/usr/bin/env bash
# The installed program on a screen of its own, under a user's mouse and keys: from the main panel to a
# validation and its report, and out. Usage: real_events.sh BUILD_FOLDER TULSAMPLES
set -euo pipefail
build=$1 samples=$2
work=$(mktemp -d)
home=$work/home
started=()
finish() {
    for process in "${started[@]}"; do kill "$process" 2>/dev/null || true; done
    rm -rf "$work"
}
trap finish EXIT
fail() {
    echo "FAILED: $*" >&2
    cat "$work/log" >&2
    exit 1
}

cmake --install "$build" --prefix "$home" >/dev/null
"$samples" "$home/samples" >/dev/null
export HOME=$home XDG_CONFIG_HOME=$home/config XDG_RUNTIME_DIR=$work
unset WAYLAND_DISPLAY DISPLAY QT_QPA_PLATFORM
chmod 700 "$work"
"$home/tulcmd" --no valid "$home"/samples/*.MUS >"$work/log" 2>&1 || fail "no selection"
"$home/tulcmd" --no --set chkBypassPlatformTest=1 options >"$work/log" 2>&1 || fail "no options"

Xvfb -displayfd 3 -screen 0 1600x1200x24 3>"$work/display" 2>"$work/log" &
started+=($!)
for _ in {1..200}; do [ -s "$work/display" ] && break || sleep 0.05; done
DISPLAY=:$(cat "$work/display")
export DISPLAY
"$home/tul" >"$work/log" 2>&1 &
program=$!
started+=("$program")

. "$(dirname "$0")/../support/user.sh"
gone() {
    for _ in {1..200}; do xdotool search --onlyvisible --name "$1" >/dev/null 2>&1 || return 0; sleep 0.05; done
    fail "$1 did not close"
}

window "TUL Control Center"
main=$id
eval "$(xdotool getwindowgeometry --shell "$main")"
xdotool mousemove --window "$main" $((WIDTH - 20)) 60 click --repeat 2 --delay 60 1
for _ in {1..200}; do
    [ "$(xdotool search --onlyvisible --name "TUL Control Center" | wc -l)" -gt 1 ] && break || sleep 0.05
done
box=$(xdotool search --onlyvisible --name "TUL Control Center" | grep -vx "$main") || fail "no details box"
xdotool windowfocus --sync "$box"
press Return
window "TUL Control Center"
press alt+t alt+a
window "TulValid"
press alt+s
window "TulNames"
press alt+n alt+s
xdotool type --delay 20 "song"
press Return Return
gone "TulNames"
window "TulValid"
press Return
window "TULVALID.PRN"
grep -q " 1 file(s)" "$home/TULVALID.PRN" || fail "not the page that was selected"
grep -q "SONG.MUS" "$home/TULVALID.PRN" || fail "the report lacks a page"
press ctrl+f
xdotool type --delay 20 "song"
press Return Escape
gone "TULVALID.PRN"
[ ! -e "$home/TULVALID.PRN" ] || fail "the report was not deleted"
window "TulValid"
press alt+n
window "TUL Control Center"
press alt+x
wait "$program" || fail "the program ended with status $?"
grep -rq "OFF " "$home/config" || fail "the end was not noted in the profile"

# What a companion without windows has to say to those who work in them.
"$home/TULSCORE.EXE" .,, </dev/null >>"$work/log" 2>&1 &
started+=($!)
window "TULSCORE"
press Return
! wait "${started[-1]}" || fail "a missing SCORE was not refused"

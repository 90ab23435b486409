#!/usr/bin/env bash
# The installed control centre under Wine, on a screen of its own and under real keys: its main panel, of which a
# picture is taken, a tool, the selection program, and out. Usage: control_centre.sh INSTALLATION PICTURE
set -euo pipefail
home=$1 picture=$2
wine=$(cd "$(dirname "$0")/../.." && pwd)/scripts/wine
key_delay=80 # Wine takes its time
settling=1
. "$(dirname "$0")/../support/user.sh"
log=$(mktemp)
started=()
finish() {
    "$wine" --end || true
    for process in "${started[@]}"; do kill "$process" 2>/dev/null || true; done
    rm -f "$log" "$log.display"
}
trap finish EXIT
fail() {
    echo "FAILED: $*" >&2
    cat "$log" >&2
    exit 1
}

# Only a program of the command line may bring up a console.
for program in "$home"/*.EXE; do
    kind=$(x86_64-w64-mingw32-objdump -p "$program" | grep -o 'Windows [GC]UI')
    wanted="Windows GUI"
    [ "$(basename "$program")" != TULCMD.EXE ] || wanted="Windows CUI"
    [ "$kind" = "$wanted" ] || fail "$program is a program of the kind $kind"
done

unset WAYLAND_DISPLAY QT_QPA_PLATFORM
Xvfb -displayfd 3 -screen 0 1280x960x24 3>"$log.display" 2>"$log" &
started+=($!)
for _ in {1..200}; do [ -s "$log.display" ] && break || sleep 0.05; done
DISPLAY=:$(cat "$log.display")
export DISPLAY
"$wine" --end || true # what has begun without this screen would go on without one
cd "$home"
rm -f TULCNTRL.INI
"$wine" TULCMD.EXE --no --set chkBypassPlatformTest=1 options </dev/null >"$log" 2>&1 || fail "no options"
"$wine" TULCMD.EXE --no valid samples/*.MUS </dev/null >"$log" 2>&1 || fail "no selection"
"$wine" TUL.EXE >"$log" 2>&1 &
program=$!
started+=("$program")

window "TUL Control Center"
import -window "$id" "$picture"
press alt+t alt+a
window "TulValid"
press alt+s
window "TulNames"
press alt+n alt+s
xdotool type --delay 40 "song"
press Return Return
window "TulValid"
press Return
window "TULVALID.PRN"
grep -q "SONG.MUS" TULVALID.PRN || fail "the report lacks the page that was selected"
press alt+F4 # the report stands in the editor of the system
for _ in {1..100}; do [ -e TULVALID.PRN ] && sleep 0.05 || break; done
[ ! -e TULVALID.PRN ] || fail "the report was not deleted"
window "TulValid"
xdotool mousemove --window "$id" 400 300 click 1 # without a window manager nobody else brings it to the front again
press alt+n
window "TUL Control Center"
press alt+x
wait "$program" || fail "the program ended with status $?"
grep -q "^StartTime=OFF " "${TUL_WINE:-$(dirname "$wine")/../build/windows/wine}/drive_c/windows/win.ini" || fail "the end was not noted in the profile"
echo "The control centre works under Wine; its picture is $picture"

#!/usr/bin/env bash
# The same runs of the command line on Linux and under Wine: every file, report, message and exit status must be the
# same, byte for byte but for the moments of the runs. Usage: same_on_both.sh LINUX_BUILD WINDOWS_BUILD
set -euo pipefail
linux=$1 windows=$2
wine=$(cd "$(dirname "$0")/../.." && pwd)/scripts/wine
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export TZ=UTC XDG_CONFIG_HOME=$work/config TUL_TALK=terminal
unset DISPLAY WAYLAND_DISPLAY

# Both systems find the installation in this place, which is in drive Z: for both.
home=$work/TUL

# Says what is to be run, with the program first: on Linux the file itself, else the file under Wine.
start() {
    local program=$1
    shift
    if [ "$system" = windows ]; then "$wine" "$program.EXE" "$@"; else "./$program.EXE" "$@"; fi
}

# Keeps the streams and the exit status of a run with its number.
run() {
    runs=$((runs + 1))
    local status=0 log=$work/logs/$runs
    { printf '%s\n' "$*"; start "$@" </dev/null; } >"$log.out" 2>"$log.err" || status=$?
    echo "status $status" >>"$log.out"
}

tulcmd() { run TULCMD "$@"; }

# What an engraver does, each part with new samples.
work_through() {
    tulcmd --no logo --press mnuNamesStatus
    tulcmd --no valid samples/*.MUS
    tulcmd --no valid samples/damaged/*.MUS
    tulcmd --yes valid samples/damaged/CUT.MUS
    tulcmd pmx samples/*.MUS
    tulcmd pmx samples/damaged/*.MUS
    tulcmd --set tabResiz=2 --set txtResizeStaffSize=0.8 resiz samples/*.MUS
    tulcmd --set chkResizeHalf=1 --set txtResizeNoteSize=1.2 resiz samples/PIANO.MUS samples/SONG.MUS
    tulcmd --set tabResiz=5 --set txtResizeLyrics=0.9 resiz samples/SONG.MUS
    tulcmd --set tabEdit=3 --set txtEditSearchString1=dwell --set txtEditSearchString2=live edit samples/*.MUS
    tulcmd --set tabEdit=6 --set txtp1=1 --set lstr1== --set txtv1=8 edit samples/*.MUS
    tulcmd --no logo --press cmdLogoBackupStatus samples/*.MUS
    tulcmd --yes logo --press cmdCycle samples/*.MUS
    tulcmd options --list
    tulcmd --set txtLyricsSize=0.7 options
    # Refusals
    chmod a-w samples/PART.MUS
    tulcmd --set tabResiz=2 --set txtResizeStaffSize=1.5 resiz samples/PIANO.MUS samples/PART.MUS samples/SONG.MUS
    chmod u+w samples/PART.MUS
    tulcmd valid samples/NONE.MUS
    tulcmd valid samples
    tulcmd valid --set none=1
    tulcmd --help
    run TULRECOV samples/damaged/SHORTN.MUS 3
    run TULRECOV samples/NONE.MUS 3
    run TULSKORE
    run TULOLE "STARTDIR=$drive\\TUL,NAMESFILE=NAMES.TUL,LIST=$drive\\TUL\\samples\\SONG.MUS,$drive\\TUL\\a  b, c.MUS,"
}

# The moments of the runs, and the system's own name, tell the systems apart; a text on a terminal ends its lines as
# the system does.
mask() {
    find "$1" -type f ! -name '*.EXE' -print0 | xargs -0 -r env LC_ALL=C sed -i -E \
        -e 's/[0-9]{2}-[0-9]{2}-[0-9]{4}([ ,]| at )[0-9]{2}:[0-9]{2}:[0-9]{2}/DATE\1TIME/g' \
        -e 's/^(LastExecuted=DATE,TIME),.*$/\1/'
    find "$1/logs" -type f -print0 | xargs -0 sed -i 's/\r$//'
}

on() {
    system=$1
    local build=$2
    drive=Z:$(echo "$work" | tr / '\\')
    rm -rf "$home" "$work/logs" "$XDG_CONFIG_HOME"
    mkdir -p "$home" "$work/logs"
    cp "$build"/src/{command,companions}/*.EXE "$build/src/companions/TULCNTRL.HLP" "$home"
    : >"$home/TULLOG.LOG"
    local name
    for name in TULNAMES TULFOLDR; do [ -e "$home/$name.EXE" ] || echo "not built" >"$home/$name.EXE"; done
    "$linux/samples/tulsamples" "$home/samples" >/dev/null
    find "$home/samples" -type f -exec touch -d 2026-01-02T03:04:06Z {} +
    runs=0
    (cd "$home" && work_through)
    mkdir "$work/$system"
    mv "$home" "$work/logs" "$work/$system"
    rm "$work/$system"/TUL/*.EXE
    mask "$work/$system"
}

on linux "$linux"
on windows "$windows"
if ! diff -r "$work/linux" "$work/windows"; then
    echo "FAILED: Linux and Windows differ" >&2
    exit 1
fi
echo "$(ls "$work"/linux/logs/*.out | wc -l) runs and $(find "$work/linux/TUL" -type f | wc -l) files are the same on both"

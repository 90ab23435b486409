# What a user does on a screen: waits for windows, and presses keys. For scripts that have a function `fail`.

# Waits for a window of this title, and makes it the one that the keys go to.
window() {
    id=$(timeout 60 xdotool search --sync --onlyvisible --name "$1" | tail -n 1) || fail "no window $1"
    xdotool windowfocus --sync "$id"
    sleep "${settling:-0}"
}
press() { xdotool key --clearmodifiers --delay "${key_delay:-50}" "$@"; }

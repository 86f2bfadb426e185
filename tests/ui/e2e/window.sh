#!/usr/bin/env bash
# The real program on an X display with a real engine: types positions, presses the update button,
# clicks a cell, and checks the deck, the windows and the saved profile.
#
#   window.sh BIN ARTEFACTS NAME SCREEN SCALE MODEL
#
# BIN holds the programs; screenshots NAME-*.png go to ARTEFACTS. SCREEN is WIDTHxHEIGHT, SCALE the
# toolkit's scale factor, MODEL the engine's number. Exit status 77: a tool is missing (1 in CI).
set -euo pipefail

bin=$1 artefacts=$2 name=$3 screen=$4 scale=$5 model=$6

for tool in Xvfb xdotool import identify; do
    if ! command -v "$tool" >/dev/null; then
        echo "window.sh: $tool is not installed" >&2
        [ "${CI:-}" = true ] && exit 1
        exit 77
    fi
done

folder=$(mktemp -d)
server='' program=''
CleanUp() {
    [ -z "$program" ] || kill "$program" 2>/dev/null || true
    [ -z "$server" ] || kill "$server" 2>/dev/null || true
    wait 2>/dev/null || true
    rm -rf "$folder"
}
trap CleanUp EXIT

Fail() {
    echo "window.sh: $*" >&2
    import -window root "$artefacts/$name-failed.png" 2>/dev/null || true
    exit 1
}

# Waits until a command succeeds.
Await() {
    local n
    for n in $(seq 200); do
        if "${@:2}" >/dev/null 2>&1; then return 0; fi
        if [ -n "$program" ] && ! kill -0 "$program" 2>/dev/null; then Fail "$1: the program has ended"; fi
        sleep 0.1
    done
    Fail "$1: waited in vain"
}

mkdir -p "$artefacts"
rm -f "$artefacts/$name"-*.png

# The server picks a free display and writes its number.
Xvfb -displayfd 3 -screen 0 "${screen}x24" -nolisten tcp 3>"$folder/display" 2>/dev/null &
server=$!
Await "display" test -s "$folder/display"
export DISPLAY=":$(cat "$folder/display")"

export HOME=$folder XDG_DATA_HOME=$folder/data XDG_CONFIG_HOME=$folder/config XDG_RUNTIME_DIR=$folder
export WINEPREFIX=$folder/wine QT_QPA_PLATFORM=xcb QT_SCALE_FACTOR=$scale
unset HOPCAST_ITSHFBC
root=$folder/data/hopcast/itshfbc
profile=$folder/profile.ini
printf '[Propagation Model]\nModel=%s\nSunSpot Option=False\nSunSpot Number=100\n' "$model" >"$profile"

"$bin/hopcast" --profile "$profile" 2>"$folder/errors" &
program=$!
Await "main window" xdotool search --onlyvisible --name '^Hopcast$'
window=$(xdotool search --onlyvisible --name '^Hopcast$' | head -1)
# From here on keys wait for the end of the run, as a user's keys would.
Await "first deck" grep -q '24\.00N' "$root/RUN/sound.dat"

# The receiver moves to 31 degrees north: the first field has the focus with its first digit
# selected.
xdotool windowfocus --sync "$window"
xdotool type --delay 50 31
sleep 2 # for the picture only
import -window root "$artefacts/$name-typed.png"
xdotool key alt+u
Await "deck with the typed position" grep -q '31\.00N' "$root/RUN/sound.dat"

# A cell in the lower half of the window.
eval "$(xdotool getwindowgeometry --shell "$window")"
xdotool mousemove $((X + WIDTH / 2)) $((Y + HEIGHT * 6 / 10)) click 1
Await "details window" xdotool search --onlyvisible --name '^Hopcast - Details by Frequency - [0-2][0-9]:00$'
details=$(xdotool search --onlyvisible --name '^Hopcast - Details by Frequency - ' | head -1)

# Both windows hold a table, so their pictures have many colours.
PictureTake() {
    import -window "$1" "$artefacts/$name-$2.png"
    [ "$(identify -format '%k' "$artefacts/$name-$2.png")" -gt 20 ]
}
Await "table of the details" PictureTake "$details" details
xdotool windowraise "$window"
Await "table" PictureTake "$window" main
xdotool windowraise "$details"
sleep 1 # for the picture only
import -window root "$artefacts/$name-screen.png"

[ $((X + WIDTH)) -le "${screen%x*}" ] && [ $((Y + HEIGHT)) -le "${screen#*x}" ] ||
    Fail "the main window is larger than the screen"

# Closing the program saves what was typed.
xdotool windowfocus --sync "$window"
xdotool key ctrl+q
for n in $(seq 100); do
    kill -0 "$program" 2>/dev/null || break
    [ "$n" -lt 100 ] || Fail "the program does not end"
    sleep 0.1
done
wait "$program" || Fail "exit status $?"
program=''
grep -q '^Latitude=31' "$profile" || Fail "the typed position is not in the profile"
grep -q '^\[Window Data\]' "$profile" || Fail "the window's place is not in the profile"
if [ -s "$folder/errors" ] && grep -v '^QStandardPaths' "$folder/errors" | grep -q .; then
    Fail "standard error: $(cat "$folder/errors")"
fi

#!/usr/bin/env bash
# Uses the zip of build.sh as a user would, under Wine on an X display of its own:
#
#   packaging/windows/test.sh [ZIP]
#
# A prediction in a console; the window's first start: its table, a typed position, a cell, the map
# with its overlay, the options, the end; a start below "Program Files". No window may appear that
# was not asked for. Screenshots stay in build/windows-package/artefacts. Needs the packages wine,
# wine64, fonts-wine, xvfb, xdotool, imagemagick and unzip.
set -euo pipefail
cd "$(dirname "$0")/../.."

zips=(build/Hopcast-*-win64.zip)
zip=$(realpath -e "${1:-${zips[-1]}}")
artefacts=$PWD/build/windows-package/artefacts
for tool in wine Xvfb xdotool import identify unzip; do
    if ! command -v "$tool" >/dev/null; then
        echo "test: $tool is not installed" >&2
        exit 1
    fi
done
fonts=/usr/share/wine/fonts
if [ ! -e $fonts/tahoma.ttf ]; then
    echo "test: fonts-wine is not installed" >&2
    exit 1
fi

folder=$(mktemp -d)
server='' program='' watch=''
export WINEPREFIX=$folder/prefix
CleanUp() {
    for process in $watch $program; do kill "$process" 2>/dev/null || true; done
    wineserver -k 2>/dev/null || true
    [ -z "$server" ] || kill "$server" 2>/dev/null || true
    wait 2>/dev/null || true
    rm -rf "$folder"
}
trap CleanUp EXIT
trap 'exit 130' INT
trap 'exit 143' TERM

Step() { echo "test: $*"; }

Fail() {
    echo "test: FAILED: $*" >&2
    import -window root "$artefacts/failed.png" 2>/dev/null || true
    exit 1
}

# Waits until a command succeeds: at most 20 seconds. Wine is slow.
Await() {
    local n
    for n in $(seq 200); do
        if "${@:2}" >/dev/null 2>&1; then return 0; fi
        if [ -n "$program" ] && ! kill -0 "$program" 2>/dev/null; then Fail "$1: the program has ended"; fi
        sleep 0.1
    done
    Fail "$1: waited in vain"
}

WindowFind() { xdotool search --onlyvisible --name "$1" | tail -n 1 | grep .; }

# Many colours, not one: something is painted in the window.
PictureTake() {
    import -window "$1" "$artefacts/$2.png" && [ "$(identify -format '%k' "$artefacts/$2.png")" -gt "$3" ]
}

# A window by its title, with its picture when it has more colours than that.
WindowAwait() {
    Await "window $1" WindowFind "$1"
    window=$(WindowFind "$1")
    xdotool windowraise "$window"
    sleep 0.5
    Await "picture of $1" PictureTake "$window" "$2" "$3"
}

KeysPress() {
    local key
    for key in "$@"; do
        xdotool key "$key"
        sleep 0.4
    done
}

# Keys for the main window, which a click at its empty top edge brings to the front.
MainKeys() {
    xdotool windowraise "$main" windowfocus --sync "$main"
    eval "$(xdotool getwindowgeometry --shell "$main")"
    xdotool mousemove $((X + WIDTH - 20)) $((Y + 6)) click 1
    sleep 0.5
    KeysPress "$@"
}

# Titles of all windows that are seen, for ever: an engine's console would be one.
WindowsWatch() {
    while :; do
        xdotool search --onlyvisible --name . 2>/dev/null |
            while read -r window; do
                echo "$window $(xdotool getwindowname "$window" 2>/dev/null)"
            done || true # no window at all
        sleep 0.02
    done >"$folder/windows"
}

# A message box has the main window's title, and stays until somebody reads it. So do menus while they
# are open.
BoxesNone() {
    sleep 0.5
    [ "$(xdotool search --onlyvisible --name '^Hopcast$' | wc -l)" = 1 ] || Fail "a message box"
}

ProgramEnd() {
    local n
    for n in $(seq 300); do
        kill -0 "$program" 2>/dev/null || break
        [ "$n" -lt 300 ] || Fail "the program does not end"
        sleep 0.1
    done
    wait "$program" || Fail "exit status $?"
    program=''
}

# A warmed prefix without a user's settings, and a display.
SetUp() {
    mkdir -p "$artefacts"
    rm -f "$artefacts"/*.png
    Xvfb -displayfd 3 -screen 0 1280x900x24 -nolisten tcp 3>"$folder/display" 2>/dev/null &
    server=$!
    Await "display" test -s "$folder/display"
    DISPLAY=:$(cat "$folder/display")
    export DISPLAY TZ=UTC LC_ALL=C.UTF-8
    # No questions about helper packages; no noise but that of the toolkit.
    export WINEDLLOVERRIDES='mscoree,mshtml=' WINEDEBUG=-all QT_FORCE_STDERR_LOGGING=1
    unset HOPCAST_ITSHFBC
    wine wineboot --init >/dev/null 2>&1
    drive=$WINEPREFIX/drive_c
    # Windows' dialogs are made for this font; what Wine takes instead has no usable line height.
    cp "$fonts"/tahoma*.ttf "$drive/windows/Fonts/"
    wineserver -k -w
    root=$drive/users/$(id -un)/AppData/Local/Hopcast/itshfbc
    profiles=$drive/users/$(id -un)/AppData/Roaming/Hopcast
    mkdir "$folder/zip"
    unzip -q "$zip" -d "$folder/zip"
    grep -q '<img ' "$folder"/zip/*/guide/guide.html || Fail "the guide is missing"
    mv "$folder"/zip/* "$drive/Hopcast"
    (cd "$drive/Hopcast" && wine rec533w.exe >/dev/null 2>&1) || [ $? = 2 ] ||
        Fail "rec533w.exe does not run"
    [ ! -e "$root" ] || Fail "there is an engine root before the first start"
}

ConsoleTest() {
    (cd "$drive/Hopcast" && wine hopcast-predict.exe --tx 38,-122 --rc 24,-110 --ssn 100 --month 6) \
        >"$folder/table" 2>"$folder/errors" || Fail "hopcast-predict.exe: $(cat "$folder/errors")"
    [ "$(grep -c '^ [0-2][0-9] ' "$folder/table")" = 24 ] || Fail "hopcast-predict.exe: no table"
    rm -rf "$root"
}

OutputIsWhole() { [ "$(grep -ac 'SNxx' "$root/RUN/sound.out")" = 24 ]; }

# The first start: nothing is there, and a table of the built-in engine is seen.
StartTest() {
    (cd "$drive/Hopcast" && exec wine hopcast.exe 2>"$folder/errors") &
    program=$!
    Await "main window" WindowFind '^Hopcast$'
    main=$(WindowFind '^Hopcast$')
    Await "engine" test -s "$root/bin_win/rec533w.exe"
    Await "first deck" grep -q '24\.00N' "$root/RUN/sound.dat"
    Await "first output" OutputIsWhole
    WindowAwait '^Hopcast$' main-first 60
    BoxesNone
}

# The receiver becomes 31 degrees north: the first field has the focus, its first digit is selected.
TypeTest() {
    xdotool windowfocus --sync "$main"
    sleep 0.5
    xdotool type --delay 100 31
    sleep 0.5
    PictureTake "$main" main-typed 60 || Fail "the table is gone"
    xdotool key alt+u
    Await "deck with the typed position" grep -q '31\.00N' "$root/RUN/sound.dat"
    Await "second output" OutputIsWhole
    BoxesNone
}

CellTest() {
    eval "$(xdotool getwindowgeometry --shell "$main")"
    xdotool mousemove $((X + WIDTH / 2)) $((Y + HEIGHT * 6 / 10)) click 1
    WindowAwait '^Hopcast - Details by Frequency - [0-2][0-9]:00$' details 10
    WindowAwait '^Hopcast$' main 60
    BoxesNone
}

MapTest() {
    MainKeys alt+v w
    WindowAwait '^Hopcast - World Map$' map 10
    # The ninth place of the focus, after both flags, is the overlay's menu; its third line draws the selected cell
    # over the world.
    xdotool windowfocus --sync "$window"
    KeysPress Tab Tab Tab Tab Tab Tab Tab Tab Tab space Down Down Down
    import -window root "$artefacts/map-menu.png"
    KeysPress Return
    WindowAwait '^Snr Overlay, ' map-overlay 10
    BoxesNone
}

OptionsTest() {
    MainKeys alt+o m
    WindowAwait '^Hopcast - Options' options 10
    MainKeys alt+h a
    WindowAwait '^Hopcast - About$' about 10
    xdotool windowfocus --sync "$window" key Escape
    BoxesNone
    import -window root "$artefacts/screen.png"
}

EndTest() {
    MainKeys ctrl+q
    ProgramEnd
    grep -q '^Latitude=31' "$drive/Hopcast/hopcast.ini" || Fail "the typed position is not in the profile"
    grep -q '^\[Window Data\]' "$drive/Hopcast/hopcast.ini" || Fail "no window's place in the profile"
    [ ! -e "$profiles" ] || Fail "a second profile in $profiles"
    [ ! -s "$folder/errors" ] || Fail "standard error: $(cat "$folder/errors")"
}

# Installed for all users: the profile goes to the user's own folder, seeded from the shipped one.
ProgramFilesTest() {
    mv "$drive/Hopcast" "$drive/Program Files/Hopcast"
    (cd "$drive/Program Files/Hopcast" && exec wine hopcast.exe --once >"$folder/once") &
    program=$!
    ProgramEnd
    [ "$(tr -d '\r' <"$folder/once")" -gt 0 ] || Fail "no time of the first table"
    grep -q '^Latitude=31' "$profiles/hopcast.ini" || Fail "no profile in $profiles"
}

WindowsCheck() {
    kill "$watch"
    watch=''
    sort -u "$folder/windows" >"$artefacts/windows.txt"
    ! cut -d ' ' -f 2- "$artefacts/windows.txt" | sort -u | grep -vxE \
        '|Hopcast|Hopcast - (Details by Frequency - [0-2][0-9]:00|World Map|Options.*|About)|Snr Overlay, .*' ||
        Fail "windows that nobody asked for, see above"
}

Main() {
    Step "warming Wine" && SetUp
    Step "a prediction in the console" && ConsoleTest
    WindowsWatch &
    watch=$!
    Step "first start of the window" && StartTest
    Step "a position is typed" && TypeTest
    Step "a cell is clicked" && CellTest
    Step "the map and its overlay" && MapTest
    Step "options, about" && OptionsTest
    Step "the end, and the profile" && EndTest
    Step "below Program Files" && ProgramFilesTest
    WindowsCheck
    Step "all is well; pictures in ${artefacts#"$PWD/"}"
}

Main

#!/usr/bin/env bash
# Uses the installer of build.sh under Wine as a user would, without questions:
#
#   packaging/windows/installer-test.sh [SETUP [OLD]]
#
# Installation, start, setting up over the folder of an older version (that of the zip OLD, by
# default the zip beside SETUP) with a profile of its user's, refusal while the program runs,
# removal. Needs the packages wine, wine64, xvfb and unzip.
set -euo pipefail
cd "$(dirname "$0")/../.."

Newest() { find build -maxdepth 1 -name "$1" | sort | tail -n 1 | grep . || { echo "test: no $1 in build" >&2; exit 1; }; }
setup=$(realpath -e "${1:-$(Newest 'Hopcast-*-setup.exe')}")
zip=$(realpath -e "${setup%-setup.exe}-win64.zip")
older=$(realpath -e "${2:-$zip}")
for tool in wine Xvfb unzip; do
    if ! command -v "$tool" >/dev/null; then
        echo "test: $tool is not installed" >&2
        exit 1
    fi
done

folder=$(mktemp -d)
server='' program=''
export WINEPREFIX=$folder/prefix WINEDEBUG=-all WINEDLLOVERRIDES='mscoree,mshtml=' TZ=UTC LC_ALL=C.UTF-8
CleanUp() {
    [ -z "$program" ] || kill "$program" 2>/dev/null || true
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
    exit 1
}
Await() { # WHAT COMMAND...: at most 30 seconds
    for _ in $(seq 300); do
        if "${@:2}" >/dev/null 2>&1; then return 0; fi
        sleep 0.1
    done
    Fail "$1: waited in vain"
}
key='HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\Hopcast'
RegistryHas() { wine reg query "$key" /v "$1" 2>/dev/null | tr -d '\r' | grep -qF -- "$2"; }
RegistryIsEmpty() { ! wine reg query "$key" >/dev/null 2>&1; }
IsGone() { [ ! -e "$1" ]; }
Files() { (cd "$1" && find . -type f | LC_ALL=C sort); }
Setup() { wine "$setup" /S "$@"; }
# The program has shown its first table.
StartTest() {
    (cd "$1" && timeout 60 wine hopcast.exe --once) >"$folder/once" || Fail "hopcast.exe --once: exit status $?"
    [ "$(tr -d '\r' <"$folder/once")" -gt 0 ] || Fail "no time of the first table"
}
Remove() {
    wine "$1/uninstall.exe" /S || Fail "uninstall.exe: exit status $?"
    Await "the end of the removal" IsGone "$1/uninstall.exe"
    Await "the removal's registry" RegistryIsEmpty
}

SetUp() {
    Xvfb -displayfd 3 -screen 0 1280x900x24 -nolisten tcp 3>"$folder/display" 2>/dev/null &
    server=$!
    Await "display" test -s "$folder/display"
    DISPLAY=:$(cat "$folder/display")
    export DISPLAY
    unset HOPCAST_ITSHFBC
    wine wineboot --init >/dev/null 2>&1
    local user
    user=$WINEPREFIX/drive_c/users/$(id -un)
    home=$user/AppData/Local/Programs/Hopcast
    link="$user/AppData/Roaming/Microsoft/Windows/Start Menu/Programs/Hopcast.lnk"
    engine=$user/AppData/Local/Hopcast
    old=$WINEPREFIX/drive_c/Hopcast
    unzip -q "$zip" -d "$folder/zip"
    unzip -q "$older" -d "$folder/older"
}

# Everything of the zip, and the uninstaller; nothing elsewhere but a link.
InstallTest() {
    Setup || Fail "exit status $?"
    diff <({ Files "$folder"/zip/*; echo ./uninstall.exe; } | LC_ALL=C sort) <(Files "$home") ||
        Fail "other files than those of the zip"
    [ -f "$link" ] || Fail "nothing in the Start menu"
    RegistryHas DisplayName Hopcast || Fail "nothing in the list of programs"
    StartTest "$home"
    [ -d "$engine/itshfbc" ] || Fail "no engine folder"
}

# A profile as it was shipped is no loss, the engine's folder neither.
RemoveTest() {
    cp "$folder"/zip/*/hopcast.ini "$home/"
    Remove "$home"
    Await "the folder's end" IsGone "$home"
    [ ! -e "$link" ] || Fail "the Start menu still has it"
    [ ! -e "$engine" ] || Fail "the engine's folder is left"
}

# Over a folder of an older version: what its user saved stays, its old pages do not.
UpgradeTest() {
    mv "$folder"/older/* "$old"
    # The first version asks about a missing Airmail unless the profile has a sunspot number.
    printf '[Receiver Data]\r\nLatitude=31\r\n[Propagation Model]\r\nSunSpot Option=False\r\nSunSpot Number=100\r\n' \
        >"$old/hopcast.ini"
    StartTest "$old"
    echo 'name,position,frequencies,note' >"$old/hopcast.places.csv"
    mkdir -p "$old/guide/images" # the first version has none
    echo old >"$old/guide/images/old.png"
    Setup '/D=C:\Hopcast' || Fail "exit status $?"
    grep -q '^Latitude=31' "$old/hopcast.ini" || Fail "the profile was overwritten"
    [ ! -e "$old/guide/images/old.png" ] || Fail "an old page is left"
    RegistryHas InstallLocation 'C:\Hopcast' || Fail "the folder is not known"
    StartTest "$old"
    Setup || Fail "exit status $?"
    [ ! -e "$home" ] || Fail "the folder in use was not taken again"
}

# A program that runs is neither replaced nor removed.
BusyTest() {
    (cd "$old" && exec wine hopcast.exe 2>/dev/null) &
    program=$!
    Await "the start" test -s "$engine/itshfbc/RUN/sound.out"
    local status=0
    Setup || status=$?
    [ $status = 2 ] || Fail "installed while the program runs: exit status $status"
    wine "$old/uninstall.exe" /S || true
    sleep 3
    if [ ! -f "$old/hopcast.exe" ] || RegistryIsEmpty; then Fail "removed while the program runs"; fi
    wineserver -k
    wait "$program" 2>/dev/null || true
    program=''
}

# What the user saved is left, and nothing else.
LeaveTest() {
    Remove "$old"
    [ "$(Files "$old" | tr '\n' ' ')" = './hopcast.ini ./hopcast.places.csv ' ] ||
        Fail "left: $(Files "$old")"
    [ ! -e "$engine" ] || Fail "the engine's folder is left"
}

Step "warming Wine" && SetUp
Step "installation and start" && InstallTest
Step "removal" && RemoveTest
Step "over an older version" && UpgradeTest
Step "while the program runs" && BusyTest
Step "removal of what a user has used" && LeaveTest
Step "all is well"

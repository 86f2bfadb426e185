#!/usr/bin/env bash
# A throw-away Wine prefix for tests: the user's own Wine is neither read nor changed.
#
#   prefix.sh make DIR                makes it and starts Wine once, so that later starts are quick
#   prefix.sh run DIR PROGRAM ...     runs a Windows program in it
#   WINE_LOCALE=zh_CN prefix.sh run DIR PROGRAM ...     with the system code page of that country
#   prefix.sh remove DIR              ends what runs in it and deletes it
set -euo pipefail

if [ $# -lt 2 ]; then
    echo "usage: prefix.sh make|run|remove DIR [PROGRAM ...]" >&2
    exit 2
fi
command=$1
folder=$2
shift 2

# Wine links the user's folders and writes desktop files: both go to a home of the prefix's own.
export WINEPREFIX=$folder/prefix HOME=$folder/home WINEARCH=win64
export XDG_DATA_HOME=$HOME XDG_CONFIG_HOME=$HOME XDG_CACHE_HOME=$HOME
export WINEDEBUG=-all WINEDLLOVERRIDES="winemenubuilder.exe,mscoree,mshtml=d"
export LC_ALL=C.UTF-8 TZ=UTC
# The tests write to drive C and to the registry.
export HOPCAST_THROWAWAY_DRIVE=1
unset DISPLAY WAYLAND_DISPLAY HOPCAST_ITSHFBC XDG_RUNTIME_DIR

ServerName() {
    if command -v wineserver >/dev/null; then
        echo wineserver
    else
        echo /usr/lib/wine/wineserver # Debian keeps it out of the search path
    fi
}

# Asks all programs to end and waits for them before deleting the folder.
Remove() {
    if [ -d "$WINEPREFIX" ]; then
        "$(ServerName)" --kill || true # status 1 if none is running
        "$(ServerName)" --wait
        # A program killed while Wine was starting it waits for its server for ever.
        for process in $(grep -lszFx "WINEPREFIX=$WINEPREFIX" /proc/[0-9]*/environ | cut -d / -f 3); do
            case $(readlink "/proc/$process/exe") in
            */wine*) kill -KILL "$process" || true ;;
            esac
        done
    fi
    rm -rf "$folder"
}

# Wine takes its code page from the name of the locale only, so a copy of another locale will do.
LocaleSet() {
    export LOCPATH=$folder/locale LC_ALL=$1.UTF-8
    [ -d "$LOCPATH/$1.utf8" ] || {
        mkdir -p "$LOCPATH"
        cp -rT /usr/lib/locale/C.utf8 "$LOCPATH/$1.utf8"
    }
}

# Passes the output on through files: what a killed program leaves behind in Wine keeps its output
# open, so that a reader of a pipe would wait for ever.
Run() {
    local status=0 output
    [ -z "${WINE_LOCALE:-}" ] || LocaleSet "$WINE_LOCALE"
    output=$(mktemp -d -p "$folder")
    touch "$output/1" "$output/2" # tail may start before the program does
    wine "$@" <&0 >"$output/1" 2>"$output/2" &
    local program=$!
    trap 'kill "$program"' INT TERM
    tail -q -n +1 -f -s 0.1 --pid=$program "$output/1" &
    tail -q -n +1 -f -s 0.1 --pid=$program "$output/2" >&2 &
    wait "$program" || status=$?
    wait
    rm -rf "$output"
    return "$status"
}

case $command in
make)
    Remove
    mkdir -p "$HOME"
    wine wineboot --init >"$folder/make.txt" 2>&1 || {
        cat "$folder/make.txt" >&2
        exit 1
    }
    ;;
run) Run "$@" ;;
remove) Remove ;;
*)
    echo "prefix.sh: unknown command $command" >&2
    exit 2
    ;;
esac

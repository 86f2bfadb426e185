#!/usr/bin/env bash
# The Debian package's round trip on this very machine: build, check, install, use, upgrade, remove.
#
# Needs root, the tools that CI=true scripts/setup.sh test installs, and a machine without hopcast.
# Exit status 77: it cannot be done here. What is used are three users who live for this test alone:
# no account is made for them.
set -euo pipefail
cd "$(dirname "$0")/../.."

Skip() {
    echo "package: not tested, $*" >&2
    exit 77
}

if [ "$(id -u)" != 0 ]; then
    sudo -n true 2>/dev/null || Skip "installing needs root"
    exec sudo -n --preserve-env=CI "packaging/debian/$(basename "$0")"
fi
if dpkg-query -W hopcast >/dev/null 2>&1; then
    Skip "a hopcast package is installed here already"
fi

artefacts=$PWD/build/deb/artefacts
folder=$(mktemp -d)
server='' program='' installed=''
CleanUp() {
    [ -z "$program" ] || kill "$program" 2>/dev/null || true
    [ -z "$server" ] || kill "$server" 2>/dev/null || true
    wait 2>/dev/null || true
    [ -z "$installed" ] || dpkg --purge hopcast >/dev/null || true
    chmod -R u+w "$folder"
    rm -rf "$folder"
}
trap CleanUp EXIT
trap 'exit 130' INT
trap 'exit 143' TERM

Say() { echo "package: $*" >&2; }
Fail() {
    Say "FAILED: $*"
    [ -z "${DISPLAY:-}" ] || import -window root "$artefacts/failed.png" 2>/dev/null || true
    exit 1
}
# Waits until a command succeeds.
Await() {
    local n
    for n in $(seq 300); do
        if "${@:2}" >/dev/null 2>&1; then return 0; fi
        [ -z "$program" ] || kill -0 "$program" 2>/dev/null || Fail "$1: the program has ended"
        sleep 0.1
    done
    Fail "$1: waited in vain"
}

# --- users: a number, a home folder of their own, and nothing of the caller's environment ----------
UserMake() { # NUMBER HOME
    mkdir -p "$2" "$folder/run$1" "$folder/tmp$1"
    chown "$1:$1" "$2" "$folder/run$1" "$folder/tmp$1"
    chmod 700 "$2" "$folder/run$1" "$folder/tmp$1"
}
As() { # NUMBER HOME COMMAND..., in a subshell, which becomes the command
    cd /
    exec setpriv --reuid="$1" --regid="$1" --clear-groups env -i HOME="$2" USER="user$1" \
        XDG_RUNTIME_DIR="$folder/run$1" TMPDIR="$folder/tmp$1" DISPLAY="${DISPLAY:-}" \
        PATH=/usr/local/bin:/usr/bin:/bin LANG=C.UTF-8 "${@:3}"
}
chmod 755 "$folder"
first=61181 first_home="$folder/Jörg Müller's home"
second=61182 second_home=$folder/second
third=61183 third_home=$folder/read-only
UserMake $first "$first_home"
UserMake $second "$second_home"
UserMake $third "$third_home"
chmod 500 "$third_home"
root=.local/share/hopcast/itshfbc
profile=.config/hopcast/hopcast.ini

Predict() { # NUMBER HOME MORE...: 24 hours, and not a word more
    (As "$1" "$2" hopcast-predict --tx 38,-122 --rc 24,-110 --ssn 100 --format json "${@:3}") \
        >"$folder/answer" 2>"$folder/errors" || Fail "hopcast-predict: $(cat "$folder/errors")"
    [ ! -s "$folder/errors" ] || Fail "hopcast-predict says: $(cat "$folder/errors")"
    [ "$(grep -c '"utc":' "$folder/answer")" = 24 ] || Fail "hopcast-predict: not 24 hours"
}

PredictVoacap() { # NUMBER HOME
    if command -v voacapl >/dev/null; then
        Predict "$@" --model voacap
    elif [ "${CI:-}" = true ]; then
        Fail "voacapl is missing"
    else
        Say "no prediction by VOACAP: voacapl is not installed"
    fi
}

# --- the window, started as the menu starts it ----------------------------------------------------
WindowStart() { # NUMBER HOME NAME
    local line
    line=$(sed -n 's/^Exec=//p' /usr/share/applications/hopcast.desktop)
    # shellcheck disable=SC2086 # words of a command line
    As "$1" "$2" $line 2>"$folder/errors" &
    program=$!
    Await "main window" xdotool search --onlyvisible --name '^Hopcast$'
    window=$(xdotool search --onlyvisible --name '^Hopcast$' | head -1)
    Await "table of $3" PictureTake "$3"
    xdotool windowfocus --sync "$window"
}
PictureTake() { # a table is in the window: thousands of pixels of an open path's colour
    import -window root "$artefacts/$1.png"
    convert "$artefacts/$1.png" -format %c histogram:info:- | grep -Eq '^ *[0-9]{4,}: .*#0000FF'
}
WindowEnd() {
    local status=0
    Await "end" eval "! kill -0 $program" # the shell has not waited for it yet
    wait "$program" || status=$?
    program=''
    [ $status = 0 ] || Fail "hopcast: exit status $status"
    ! grep -v '^QStandardPaths' "$folder/errors" | grep -q . ||
        Fail "hopcast says: $(cat "$folder/errors")"
}

# --- the package ----------------------------------------------------------------------------------
Install() {
    installed=yes
    apt-get -q -y -o DPkg::Lock::Timeout=300 install --no-install-recommends "$1" >"$folder/apt" 2>&1 ||
        Fail "apt-get install: $(cat "$folder/apt")"
}
Upgraded() { # the same package, but newer
    dpkg-deb -R "$1" "$folder/unpacked"
    sed -i 's/^Version: .*/&+next/' "$folder/unpacked/DEBIAN/control"
    dpkg-deb --root-owner-group -b "$folder/unpacked" "$folder/hopcast_next.deb" >/dev/null
    echo "$folder/hopcast_next.deb"
}
PathsPresent() { # which of the package's paths are there
    dpkg-deb --fsys-tarfile "$package" | tar t | sed 's,^\.,,; s,/$,,' | while read -r path; do
        [ ! -e "$path" ] && [ ! -L "$path" ] || echo "$path"
    done
}
Leavings() { find /usr /etc /var /opt -xdev -iname '*hopcast*' ! -path "$PWD/*" 2>/dev/null || true; }

Check() {
    Say "checks of $(basename "$package"), $(stat -c %s "$package") bytes"
    lintian --allow-root --fail-on error "$package" || Fail "lintian"
    local page
    desktop-file-validate /usr/share/applications/hopcast.desktop || Fail "desktop entry"
    appstreamcli validate --no-net /usr/share/metainfo/hopcast.metainfo.xml >"$folder/said" ||
        Fail "metainfo: $(cat "$folder/said")"
    for page in "$folder"/unpacked/usr/share/man/man1/*; do # a small machine may install none
        MANROFFSEQ='' MANWIDTH=80 man --warnings -E UTF-8 -l -Tutf8 -Z "$page" 2>"$folder/said" >/dev/null
        [ ! -s "$folder/said" ] || Fail "manual page $page: $(cat "$folder/said")"
    done
    packaging/hardening.sh "$folder"/unpacked/usr/bin/* "$folder"/unpacked/usr/libexec/hopcast/* ||
        Fail "programs are not hardened, see above"
    grep -q '<img ' "$folder/unpacked/usr/share/hopcast/guide/guide.html" || Fail "the guide is missing"
    dpkg-query -W -f '${Recommends}' hopcast | grep -q voacapl || Fail "voacapl is not recommended"
    [ "$(hopcast --version)" = "hopcast $(dpkg-query -W -f '${Version}' hopcast)" ] || Fail "version"
}

TwoUsersTest() {
    Say "two users, one with blanks and umlauts in the name of the home folder"
    Predict $first "$first_home"
    Predict $second "$second_home"
    [ "$(readlink "$first_home/$root/bin_win/rec533w.exe")" = /usr/libexec/hopcast/rec533w.exe ] ||
        Fail "the engine is not the installed one"
    PredictVoacap $first "$first_home"
    WindowStart $first "$first_home" first
    xdotool type --delay 50 31 # degrees of the receiver's latitude
    xdotool key alt+u
    Await "deck with the typed position" grep -q '31\.00N' "$first_home/$root/RUN/sound.dat"
    Await "table of the typed position" PictureTake first
    xdotool key ctrl+q
    WindowEnd
    WindowStart $second "$second_home" second
    xdotool key ctrl+q
    WindowEnd
    grep -q '^Latitude=31' "$first_home/$profile" || Fail "the first user's position is not kept"
    grep -q '^Latitude=24' "$second_home/$profile" || Fail "the second user has the first one's position"
    grep -q '24\.00N' "$second_home/$root/RUN/sound.dat" || Fail "the second user has the first one's deck"
    [ -z "$(find "$first_home" ! -uid $first)$(find "$second_home" ! -uid $second)" ] ||
        Fail "files of another user in a home folder"
}

MemoryTest() {
    local day='hopcast-predict --area 60,-30,0,60 --day --jobs 8 --rc 24,-110 --ssn 100 --month 6'
    Say "little memory"
    # shellcheck disable=SC2086 # words of a command line
    (ulimit -v 204800; As $first "$first_home" $day --grid 40 --frequencies 5000,10000) \
        >"$folder/answer" 2>"$folder/errors" || Fail "a day within 200 MB: $(cat "$folder/errors")"
    # shellcheck disable=SC2086
    ! (ulimit -v 61440; As $first "$first_home" $day --grid 70) >"$folder/answer" 2>"$folder/errors" ||
        Fail "a fine day within 60 MB"
    grep -q '^hopcast-predict: Out of memory[.]' "$folder/errors" ||
        Fail "no words without memory: $(cat "$folder/errors")"
    [ ! -s "$folder/answer" ] || Fail "half an answer"
}

ReadOnlyTest() {
    Say "a read-only home"
    Predict $third "$third_home"
    PredictVoacap $third "$third_home"
    WindowStart $third "$third_home" read-only
    xdotool key ctrl+q
    Await "message" eval '[ "$(xdotool search --onlyvisible --name "^Hopcast$" | wc -l)" = 2 ]'
    sleep 1 # for the picture only
    import -window root "$artefacts/read-only-message.png"
    xdotool windowfocus --sync "$(xdotool search --onlyvisible --name '^Hopcast$' | grep -vx "$window")"
    xdotool key Return # a second message would keep the program from its end
    WindowEnd
    [ -z "$(ls -A "$third_home")" ] || Fail "something was written to the read-only home"
}

UpgradeTest() {
    Say "upgrade: what an older Hopcast left is renewed"
    ln -sfn /usr/local/libexec/hopcast/rec533w.exe "$first_home/$root/bin_win/rec533w.exe"
    sed -i 's,^rec533w.*,rec533w.exe link /usr/local/libexec/hopcast/rec533w.exe,' \
        "$first_home/$root/hopcast-engines.txt"
    chown -R $first:$first "$first_home"
    Install "$next"
    dpkg-query -W -f '${Version}' hopcast | grep -q '+next$' || Fail "not upgraded"
    Predict $first "$first_home"
    [ "$(readlink "$first_home/$root/bin_win/rec533w.exe")" = /usr/libexec/hopcast/rec533w.exe ] ||
        Fail "the old link was not renewed"
}

RemovalTest() {
    Say "removal"
    local kept
    kept=$(cd "$folder" && find "$first_home" "$second_home" -type f -exec sha256sum {} + | sort)
    apt-get -q -y -o DPkg::Lock::Timeout=300 remove hopcast >"$folder/apt" 2>&1 || Fail "$(cat "$folder/apt")"
    ! dpkg-query -W -f '${db:Status-Status}' hopcast 2>/dev/null | grep -q . || Fail "not wholly removed"
    [ "$(PathsPresent)" = "$present" ] || Fail "left behind: $(diff <(echo "$present") <(PathsPresent))"
    [ "$(Leavings)" = "$before" ] || Fail "left behind: $(Leavings)"
    [ "$(cd "$folder" && find "$first_home" "$second_home" -type f -exec sha256sum {} + | sort)" = "$kept" ] ||
        Fail "the users' data changed"
    Say "installed anew, the users' folders of engines work again"
    [ ! -e "$first_home/$root/bin_win/rec533w.exe" ] || Fail "the engine is still there"
    Install "$next"
    Predict $first "$first_home"
    dpkg --purge hopcast >/dev/null
    installed=''
    [ "$(PathsPresent)$(Leavings)" = "$present$before" ] || Fail "left behind after the second time"
    [ -z "$(find "$folder"/tmp* -mindepth 1)" ] || Fail "temporary files: $(find "$folder"/tmp*)"
}

package=$PWD/$(packaging/debian/build.sh | tail -1)
mkdir -p "$artefacts"
cp "$package" "$folder/" # where apt's own user can read it
package=$folder/$(basename "$package")
next=$(Upgraded "$package")
before=$(Leavings)
present=$(PathsPresent)

Xvfb -displayfd 3 -screen 0 1280x900x24 -nolisten tcp -ac 3>"$folder/display" 2>/dev/null &
server=$!
Await "display" test -s "$folder/display"
DISPLAY=:$(cat "$folder/display")
export DISPLAY QT_QPA_PLATFORM=xcb

Install "$package"
Check
TwoUsersTest
MemoryTest
ReadOnlyTest
UpgradeTest
RemovalTest
Say "done"

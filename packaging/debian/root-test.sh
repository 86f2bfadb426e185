#!/usr/bin/env bash
# Installs the package of build.sh in a bare root of a Debian release, and uses it there:
#
#   packaging/debian/root-test.sh [SUITE [DEB]]      # trixie by default
#
# Nothing is in the root but what Debian itself needs, so that a dependency that the package does not
# name is missed. Needs root, debootstrap, 1 GB of disk, and one of this machine's own mirrors that
# has the release.
set -euo pipefail
cd "$(dirname "$0")/../.."

suite=${1:-trixie}
debs=(build/deb/hopcast_*.deb)
deb=$(realpath -e "${2:-${debs[-1]}}")
Fail() {
    echo "root: FAILED: $*" >&2
    exit 1
}
Step() { echo "root: $*" >&2; }
[ "$(id -u)" = 0 ] || Fail "root is needed"
command -v debootstrap >/dev/null || Fail "debootstrap is not installed"

# shellcheck disable=SC2016 # apt expands these
mirror=$(apt-get indextargets --no-release-info --format '$(REPO_URI) $(RELEASE)' 'Identifier: Packages' |
    awk '$2 ~ /^(bookworm|trixie|oldstable|stable)$/ { print $1; exit }')
[ -n "$mirror" ] || Fail "no Debian mirror in this machine's apt sources"

folder=$(mktemp -d)
root=$folder/root
CleanUp() {
    umount "$root/proc" 2>/dev/null || true
    rm -rf "$folder"
}
trap CleanUp EXIT
In() { # USER COMMAND...
    chroot "$root" setpriv --reuid="$1" --regid="$1" --clear-groups env -i HOME="/home/$1" TMPDIR=/tmp \
        PATH=/usr/sbin:/usr/bin:/sbin:/bin LANG=C.UTF-8 DEBIAN_FRONTEND=noninteractive "${@:2}"
}

Step "$suite, bare"
debootstrap --variant=minbase "$suite" "$root" "$mirror" >"$folder/log" 2>&1 ||
    { tail -n 5 "$folder/log" >&2; Fail "debootstrap"; }
mount -t proc proc "$root/proc"
# The mirror and the way to it are those of this machine.
echo "deb $mirror $suite main" >"$root/etc/apt/sources.list"
cp /etc/resolv.conf "$root/etc/resolv.conf" 2>/dev/null || true
for file in /etc/apt/apt.conf.d/*[Pp]roxy*; do
    [ ! -e "$file" ] || cp "$file" "$root/etc/apt/apt.conf.d/"
done

Step "installation"
cp "$deb" "$root/tmp/hopcast.deb"
In 0 apt-get -q update >"$folder/log" 2>&1 || Fail "apt-get update: $(tail -n 3 "$folder/log")"
In 0 apt-get -q install -y --no-install-recommends /tmp/hopcast.deb >"$folder/log" 2>&1 ||
    { tail -n 12 "$folder/log" >&2; Fail "apt-get install"; }

Step "use"
user=61181
install -d -m 700 -o $user -g $user "$root/home/$user"
In $user hopcast-predict --tx 38,-122 --rc 24,-110 --ssn 100 --month 6 >"$folder/table" ||
    Fail "hopcast-predict: exit status $?"
[ "$(grep -c '^ [0-2][0-9] ' "$folder/table")" = 24 ] || Fail "hopcast-predict: no table"
time=$(In $user env QT_QPA_PLATFORM=offscreen hopcast --once) || Fail "hopcast --once: exit status $?"
[ "$time" -gt 0 ] || Fail "hopcast --once: no time of the first table"
In $user hopcast --export "/home/$user/card.pdf" --tx 38,-122 --rc 24,-110 --ssn 100 || Fail "hopcast --export"
[ "$(head -c 5 "$root/home/$user/card.pdf")" = "%PDF-" ] || Fail "no card"
[ -f "$root/home/$user/.config/hopcast/hopcast.ini" ] || Fail "no profile"

Step "removal"
In 0 apt-get -q purge -y hopcast >"$folder/log" 2>&1 || Fail "apt-get purge"
left=$(find "$root/usr" -iname '*hopcast*' -print -quit)
[ -z "$left" ] || Fail "left: $left"
[ -f "$root/home/$user/.config/hopcast/hopcast.ini" ] || Fail "the user's settings are gone"
Step "all is well on $suite"

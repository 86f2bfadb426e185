#!/usr/bin/env bash
# Installs what Hopcast needs on Debian 12 or 13:
#   scripts/setup.sh [run|test|bench|coverage|package|windows]
#
# Quiet and offline when all is there. Says plainly what it could not get and what that costs, and
# goes on; the exit status is 1 only when the build cannot work without it.
set -euo pipefail

purpose=${1:-run}
case $purpose in
run | test | bench | coverage | package | windows) ;;
*)
    echo "usage: scripts/setup.sh [run|test|bench|coverage|package|windows]" >&2
    exit 2
    ;;
esac

scratch=
trap '[ -z "$scratch" ] || rm -rf "$scratch"' EXIT
trap 'exit 130' INT
trap 'exit 143' TERM

Say() { echo "setup: $*" >&2; }

# A tool that is there from elsewhere is as good as its package.
PackageIsThere() {
    case $1 in
    g++ | cmake | xvfb | clang) command -v "${1/xvfb/Xvfb}" >/dev/null && return 0 ;;
    ninja-build) command -v ninja >/dev/null && return 0 ;;
    g++-mingw-w64-x86-64) command -v x86_64-w64-mingw32-g++-posix >/dev/null && return 0 ;;
    esac
    [ "$(dpkg-query -W -f '${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

PackagesMissing() {
    local package
    for package in "$@"; do
        PackageIsThere "$package" || echo "$package"
    done
}

# Runs a command with the rights to install packages.
AsRoot() {
    if [ "$(id -u)" = 0 ]; then
        "$@"
    elif [ -t 0 ]; then
        sudo "$@"
    else
        sudo -n "$@" # nobody is there to type a password
    fi
}

Apt() {
    AsRoot env DEBIAN_FRONTEND=noninteractive apt-get -q -y -o DPkg::Lock::Timeout=300 \
        -o Acquire::http::Timeout=30 -o Acquire::https::Timeout=30 "$@" >&2
}

InstallIsPossible() {
    if ! command -v apt-get >/dev/null; then
        Say "this is no Debian system (no apt-get), so nothing can be installed"
        return 1
    fi
    if [ "$(id -u)" != 0 ] && ! command -v sudo >/dev/null; then
        Say "not root and no sudo, so nothing can be installed"
        return 1
    fi
}

# All at once, and one by one where that fails, so that one bad package does not cost the others.
PackagesInstall() {
    local package
    Apt install --no-install-recommends "$@" && return 0
    [ $# -gt 1 ] || return 0
    for package in "$@"; do
        Apt install --no-install-recommends "$package" || true
    done
}

# Debian 12 has no voacapl. The next release's package runs on it as it is, so these two packages
# alone are taken from there: the same mirror, in a scratch configuration that apt forgets, and with
# every other package of that release forbidden.
VoacaplFromNextRelease() {
    local mirror
    # shellcheck disable=SC2016 # apt expands these
    mirror=$(apt-get indextargets --no-release-info --format '$(REPO_URI) $(RELEASE)' \
        'Identifier: Packages' 2>/dev/null |
        awk '$2 ~ /^(bookworm|oldstable|stable)$/ { print $1; exit }')
    if [ -z "$mirror" ]; then
        Say "no Debian mirror in this machine's apt sources"
        return 1
    fi
    PackageIsThere libgfortran5 || Apt install --no-install-recommends libgfortran5 || return 1

    scratch=$(mktemp -d)
    chmod 755 "$scratch" # apt fetches as a user of its own
    mkdir -p "$scratch/sources" "$scratch/preferences" "$scratch/lists/partial"
    {
        echo "Types: deb"
        echo "URIs: $mirror"
        echo "Suites: trixie"
        echo "Components: main"
        echo "Signed-By: /usr/share/keyrings/debian-archive-keyring.gpg"
    } >"$scratch/sources/next.sources"
    {
        printf 'Package: voacapl voacapl-data\nPin: release n=trixie\nPin-Priority: 990\n\n'
        printf 'Package: *\nPin: release n=trixie\nPin-Priority: -1\n'
    } >"$scratch/preferences/next"
    local options=(
        -o "Dir::Etc::sourcelist=/dev/null" -o "Dir::Etc::sourceparts=$scratch/sources"
        -o "Dir::Etc::preferences=/dev/null" -o "Dir::Etc::preferencesparts=$scratch/preferences"
        -o "Dir::State::lists=$scratch/lists" -o "Dir::Cache::pkgcache=" -o "Dir::Cache::srcpkgcache="
    )
    Apt "${options[@]}" update --error-on=any &&
        Apt "${options[@]}" install --no-upgrade --no-remove --no-install-recommends voacapl voacapl-data
}

VoacaplInstall() {
    local codename
    # shellcheck source=/dev/null
    codename=$(. /etc/os-release && echo "${VERSION_CODENAME:-}")
    if [ -n "$(apt-cache search --names-only '^voacapl$' 2>/dev/null)" ]; then
        PackagesInstall voacapl voacapl-data
    elif [ "$codename" = bookworm ]; then
        VoacaplFromNextRelease || true
    fi
}

# What the absence of a package costs.
LossGet() {
    case $1 in
    qt6-base-dev) echo "the window program is left out" ;;
    python3-markdown) echo "the guide does not travel with the program" ;;
    voacapl*) echo "VOACAP will be \"not found.\"" ;;
    poppler-utils) echo "no tests of the text in PDF files" ;;
    xvfb | xdotool | imagemagick) echo "no tests of the window on an X display" ;;
    g++-mingw* | googletest | zip | nsis) echo "no build for Windows" ;;
    wine | wine64) echo "no tests of the Windows programs" ;;
    clang | libclang-rt-dev) echo "no fuzzing" ;;
    libbenchmark-dev) echo "no benchmarks" ;;
    mold) echo "linking takes longer" ;;
    gcovr) echo "no count of the lines that the tests run" ;;
    dpkg-dev | file) echo "no package" ;;
    lintian | appstream | desktop-file-utils | man-db) echo "the Debian package is not checked" ;;
    *) echo "Hopcast cannot be built" ;;
    esac
}

Main() {
    local needed=(g++ cmake ninja-build qt6-base-dev python3-markdown)
    local voacapl=(voacapl voacapl-data)
    case $purpose in
    test | coverage)
        needed+=(mold libgtest-dev libgmock-dev libbenchmark-dev xvfb xdotool imagemagick poppler-utils)
        [ "$purpose" = test ] || needed+=(gcovr)
        # Only CI builds for Windows, tests that under Wine, fuzzes and installs the package.
        [ "${CI:-}" != true ] || needed+=(g++-mingw-w64-x86-64 googletest wine wine64 clang libclang-rt-dev
            dpkg-dev file lintian appstream desktop-file-utils man-db)
        ;;
    bench)
        needed+=(libbenchmark-dev)
        voacapl=()
        ;;
    package) # packaging/debian
        needed+=(dpkg-dev file)
        voacapl=()
        ;;
    windows) # packaging/windows
        needed+=(g++-mingw-w64-x86-64 dpkg-dev zip nsis)
        voacapl=()
        ;;
    esac

    local missing voacapl_missing
    mapfile -t missing < <(PackagesMissing "${needed[@]}")
    mapfile -t voacapl_missing < <(PackagesMissing "${voacapl[@]}")
    [ $((${#missing[@]} + ${#voacapl_missing[@]})) -gt 0 ] || return 0

    Say "missing:" "${missing[@]}" "${voacapl_missing[@]}"
    if InstallIsPossible; then
        Apt update --error-on=any || Say "some package lists could not be renewed"
        [ ${#missing[@]} = 0 ] || PackagesInstall "${missing[@]}"
        [ ${#voacapl_missing[@]} = 0 ] || VoacaplInstall
    fi

    local package loss status=0
    while read -r package; do
        loss=$(LossGet "$package")
        Say "could not get $package: $loss"
        [ "$loss" != "Hopcast cannot be built" ] && [ "$purpose" != windows ] || status=1
    done < <(PackagesMissing "${needed[@]}" "${voacapl[@]}")
    return $status
}

Main

#!/usr/bin/env bash
# Makes the static Qt that hopcast.exe is linked with, once, and prints its folder.
#
# The source is Debian's own qt6-base of the release in use, the same version as the installed
# qt6-base-dev: its moc, rcc and uic run in this build and in Hopcast's. The result is kept in a
# cache folder (below HOPCAST_CACHE), so that a second run needs neither the time nor a network.
# About 30 minutes on two cores.
set -euo pipefail
cd "$(dirname "$0")/../.."

Say() { echo "qt: $*" >&2; }

cmake_dir=/usr/lib/$(dpkg-architecture -q DEB_HOST_MULTIARCH)/cmake
# shellcheck disable=SC2016 # dpkg-query expands these
version=$(dpkg-query -W -f '${source:Version}' qt6-base-dev)
upstream=${version%%+*}
upstream=${upstream%%-*}
cache=${HOPCAST_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/hopcast}/qt-$upstream-mingw

# Tablets, Direct2D and DirectWrite: the source package lacks the tablet headers, and DirectWrite
# does not link without Direct2D. The pictures of Hopcast are PNG. What no feature needs
# is left out to keep the program small.
options=(
    -DCMAKE_BUILD_TYPE=Release
    -DBUILD_SHARED_LIBS=OFF
    -DQT_BUILD_TESTS=OFF
    -DQT_BUILD_EXAMPLES=OFF
    -DQT_HOST_PATH=/usr
    "-DQT_HOST_PATH_CMAKE_DIR=$cmake_dir"
    -DINPUT_opengl=no # the feature alone would leave the choice at run time on
)
for feature in vulkan sql network dbus printsupport xml concurrent icu zstd jpeg gif \
    system_pcre2 system_zlib system_png system_freetype system_harfbuzz tabletevent direct2d \
    directwrite3; do
    options+=("-DFEATURE_$feature=OFF")
done

# What the finished Qt was made of. A Qt made of something else, or not made to the end, is made anew.
Recipe() {
    echo "qt6-base $version"
    x86_64-w64-mingw32-g++-posix --version | head -n 1
    printf '%s\n' "${options[@]}"
}

# Fetches the source package into a folder, by a scratch configuration of apt that has the source
# lists of this machine's own mirrors and that apt forgets. apt verifies the signatures and sums.
SourceFetch() {
    local folder=$1 scratch=$2 codename
    # shellcheck source=/dev/null
    codename=$(. /etc/os-release && echo "${VERSION_CODENAME:-}")
    mkdir -p "$scratch/sources" "$scratch/lists/partial" "$scratch/cache/archives/partial"
    # shellcheck disable=SC2016 # apt expands these
    apt-get indextargets --no-release-info --format '$(REPO_URI) $(RELEASE)' \
        'Identifier: Packages' |
        awk -v codename="$codename" '
            ($2 ~ "^" codename "(-|$)" || $2 ~ /^(old)?stable(-|$)/) && !seen[$0]++ {
                print "Types: deb-src\nURIs: " $1 "\nSuites: " $2 "\nComponents: main"
                print "Signed-By: /usr/share/keyrings/debian-archive-keyring.gpg\n"
            }' >"$scratch/sources/source.sources"
    local apt=(
        apt-get -q -o "Acquire::http::Timeout=30" -o "Acquire::https::Timeout=30"
        -o "Dir::Etc::sourcelist=/dev/null" -o "Dir::Etc::sourceparts=$scratch/sources"
        -o "Dir::State::lists=$scratch/lists" -o "Dir::Cache=$scratch/cache" -o "APT::Sandbox::User="
    )
    "${apt[@]}" update >&2 || return 1
    (cd "$folder" && "${apt[@]}" source --download-only "qt6-base=$version" >&2)
}

QtBuild() {
    local work=$cache/work
    rm -rf "$cache"
    mkdir -p "$work" "$cache/source"
    if ! SourceFetch "$cache/source" "$work/apt"; then
        Say "could not get the source package qt6-base $version; if the mirror has a newer one," \
            "upgrade qt6-base-dev first"
        return 1
    fi
    dpkg-source --no-copy -x "$cache/source"/qt6-base_*.dsc "$work/source" >&2
    cmake -G Ninja -S "$work/source" -B "$work/build" -DCMAKE_INSTALL_PREFIX="$cache/prefix" \
        -DCMAKE_TOOLCHAIN_FILE="$PWD/cmake/mingw-w64.cmake" "${options[@]}" >&2
    cmake --build "$work/build" --parallel "$(nproc)" >&2
    cmake --install "$work/build" --strip >"$work/install.log"
    LicencesKeep "$work/source" "$cache/prefix/licenses"
    rm -rf "$work"
    Recipe >"$cache/recipe"
}

# The texts that must travel with a program that has Qt in it: its licences, and the notices of the
# parts by others that Qt brings.
LicencesKeep() {
    local source=$1 folder=$2 file
    mkdir -p "$folder"
    cp "$source"/LICENSES/{LGPL-3.0,GPL-3.0,GPL-2.0}-only.txt "$folder/"
    cp "$source/debian/copyright" "$folder/copyright.txt"
    (cd "$source/src" && find 3rdparty corelib gui -type f \
        \( -name '*LICEN[CS]E*' -o -name 'COPYING*' -o -name FTL.TXT \) | LC_ALL=C sort |
        while read -r file; do
            printf '======== %s\n\n' "$file"
            cat "$file"
            printf '\n\n'
        done) >"$folder/notices.txt"
}

Main() {
    mkdir -p "${cache%/*}"
    exec 9>"$cache.lock"
    flock 9 # one build at a time
    if ! cmp -s "$cache/recipe" <(Recipe); then
        Say "making the static Qt $upstream in $cache; this takes a while"
        QtBuild
    fi
    echo "$cache/prefix"
}

Main

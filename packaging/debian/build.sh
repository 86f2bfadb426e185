#!/usr/bin/env bash
# Makes build/deb/hopcast_VERSION_ARCHITECTURE.deb.
set -euo pipefail
cd "$(dirname "$0")/../.."

scripts/setup.sh package
for tool in dpkg-shlibdeps file; do # without them the package would not tell what it depends on
    command -v $tool >/dev/null || { echo "build: $tool is missing" >&2; exit 1; }
done
if command -v ccache >/dev/null; then
    export CMAKE_CXX_COMPILER_LAUNCHER=ccache
fi
# One date for everything that the package tells, and no path of this machine in its programs.
export SOURCE_DATE_EPOCH=${SOURCE_DATE_EPOCH:-$(git log -1 --format=%ct 2>/dev/null || stat -c %Y CHANGELOG.md)}
export QT_RCC_SOURCE_DATE_OVERRIDE=$SOURCE_DATE_EPOCH
build=build/deb
# Pictures that were packed for an older state keep its date: they are packed again.
[ ! -d "$build" ] || find "$build" -name 'qrc_*.cpp' -delete
cmake --preset release -B $build -DCMAKE_INSTALL_PREFIX=/usr -DCMAKE_REQUIRE_FIND_PACKAGE_Qt6=ON \
    -DCMAKE_CXX_FLAGS="-ffile-prefix-map=$PWD=." >&2
cmake --build $build --target all hopcast_guide --parallel "$(nproc)" >&2 # no package without the guide

maintainer=$(sed -n 's/^set(CPACK_PACKAGE_CONTACT "\(.*\)")/\1/p' packaging/debian/Package.cmake)
awk -v maintainer="$maintainer" -v today="$(date -Ru -d "@$SOURCE_DATE_EPOCH")" \
    -f packaging/debian/changelog.awk CHANGELOG.md | gzip -9n >$build/changelog.gz
rm -f $build/hopcast_*.deb
(umask 022 && cd $build && cpack >&2)
echo "$build"/hopcast_*.deb

#!/usr/bin/env bash
# Sets up, builds and runs every test. CI=true also builds for Windows, runs those tests under Wine,
# makes, installs and removes the Debian package, and fuzzes.
# Arguments go to ctest: ./test.sh -L unit
set -euo pipefail
cd "$(dirname "$0")"

scripts/setup.sh test
if command -v ccache >/dev/null; then
    export CMAKE_CXX_COMPILER_LAUNCHER=ccache
fi
if [ "${CI:-}" = true ]; then
    cmake --preset windows
    cmake --build --preset windows
    ctest --preset windows # under Wine
    packaging/debian/test.sh || [ $? = 77 ] # 77: it has said why it cannot be done here
fi
cmake --preset dev
cmake --build --preset dev
if [ "${CI:-}" = true ]; then
    scripts/fuzz.sh 20
fi
exec ctest --preset dev --parallel "$(nproc)" "$@"

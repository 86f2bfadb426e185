#!/usr/bin/env bash
# Sets up, builds and runs every test. CI=true also builds for Windows and fuzzes for a moment.
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
    if command -v clang++ >/dev/null; then # scripts/setup.sh has told when there is none
        scripts/fuzz.sh 20
    fi
fi
cmake --preset dev
cmake --build --preset dev
exec ctest --preset dev --parallel "$(nproc)" "$@"

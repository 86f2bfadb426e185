#!/usr/bin/env bash
# Runs the soak tests with all their rounds in a release build in build/soak, where resident memory
# tells the truth:  scripts/soak.sh [TESTS]     TESTS is a filter of GoogleTest's: 'TwoPrograms.*'
set -euo pipefail
cd "$(dirname "$0")/.."

if [ $# -gt 1 ]; then
    echo "usage: scripts/soak.sh [TESTS]" >&2
    exit 2
fi

scripts/setup.sh test
if command -v ccache >/dev/null; then
    export CMAKE_CXX_COMPILER_LAUNCHER=ccache
fi
cmake --preset release -B build/soak -DHOPCAST_TESTS=ON --log-level=WARNING >/dev/null
cmake --build build/soak --target SoakTest PredictFaultTest -j "$(nproc)"
# With sanitizers, which want all addresses there are, memory cannot be made scarce.
TZ=UTC LC_ALL=C build/soak/tests/bin/PredictFaultTest --gtest_filter='PredictMemory.*'
# Freed blocks that the C library holds ready for each thread would count as allocated.
GLIBC_TUNABLES=glibc.malloc.tcache_count=0 \
    HOPCAST_SOAK=full QT_QPA_PLATFORM=offscreen TZ=UTC LC_ALL=C \
    build/soak/tests/bin/SoakTest --gtest_filter="${1:-*}" 2>&1 |
    grep -v '^This plugin does not support'

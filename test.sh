#!/usr/bin/env bash
# Sets up, builds and runs every test. CI=true also builds for Windows, runs those tests under Wine,
# makes, installs and removes the Debian package, runs what has threads under the thread sanitizer, and fuzzes.
# Arguments go to ctest: ./test.sh -L unit
set -euo pipefail
cd "$(dirname "$0")"

# In CI the seconds of each step are printed before the tests, whose own time is in CTest's last lines.
steps=
Step() { # NAME COMMAND...
    local name=$1 start=$SECONDS
    shift
    "$@"
    steps+=$(printf '%6d s  %s' $((SECONDS - start)) "$name")$'\n'
}
StepsShow() { [ "${CI:-}" != true ] || printf 'test.sh:\n%s' "$steps"; }
trap StepsShow EXIT
# 77: it has said why it cannot be done here
DebianPackage() { packaging/debian/test.sh || [ $? = 77 ]; }

Step setup scripts/setup.sh test
if command -v ccache >/dev/null; then
    export CMAKE_CXX_COMPILER_LAUNCHER=ccache
fi
if [ "${CI:-}" = true ]; then
    Step "Windows: configure" cmake --preset windows
    Step "Windows: build" cmake --build --preset windows
    # Seen under Wine: one of some ten thousand starts of a program fails, of another one each time. What is broken
    # fails twice.
    Step "Windows: tests under Wine" ctest --preset windows --repeat until-pass:2
    Step "Debian package" DebianPackage
    Step "threads: configure" cmake --preset thread -DCMAKE_CXX_FLAGS_DEBUG=-g1
    Step "threads: build" cmake --build --preset thread
    # It starts 150 programs, each of which takes a second under this sanitizer.
    Step "threads: tests" ctest --preset thread -L thread -E ReachVoacap
fi
# In CI without what only a debugger needs.
Step configure cmake --preset dev -DCMAKE_CXX_FLAGS_DEBUG=$([ "${CI:-}" = true ] && echo -g1 || echo -g)
Step build cmake --build --preset dev
if [ "${CI:-}" = true ]; then
    Step fuzz scripts/fuzz.sh 6
fi
StepsShow
# One more than there are cores: many tests wait for a program, a window or a limit.
exec ctest --preset dev --parallel $(($(nproc) + 1)) "$@"

#!/usr/bin/env bash
# Sets up, builds and starts Hopcast. Without a display it prints a prediction.
# Arguments go to the program that is started, hopcast or, without a display, hopcast-predict:
#   ./run.sh --profile pacific.ini        DISPLAY= WAYLAND_DISPLAY= ./run.sh --month 6 --rc 52,5
set -euo pipefail
cd "$(dirname "$0")"

scripts/setup.sh run
if command -v ccache >/dev/null; then
    export CMAKE_CXX_COMPILER_LAUNCHER=ccache
fi
cmake --preset release >&2
cmake --build --preset release >&2

bin=build/release/bin
if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ] && [ -x "$bin/hopcast" ]; then
    exec "$bin/hopcast" "$@"
fi
if [ ! -x "$bin/hopcast-predict" ]; then
    echo "run: this build has no program that can be started here" >&2
    exit 1
fi
model=()
if [ ! -x "$bin/rec533w.exe" ]; then
    model=(--model voacap) # no built-in engine in this build
fi
exec "$bin/hopcast-predict" --profile "$bin/hopcast.ini" "${model[@]}" "$@"

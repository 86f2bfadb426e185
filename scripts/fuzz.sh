#!/usr/bin/env bash
# Feeds odd bytes to the readers of foreign files:  scripts/fuzz.sh [SECONDS]
#
# Builds with clang and its sanitizers in build/fuzz and runs each fuzz program for SECONDS
# (default 60). The seeds are sample files; what is found in a run stays in build/fuzz/corpus for
# the next. An input that breaks a reader is kept in build/fuzz/crash, and the exit status is 1.
set -euo pipefail
cd "$(dirname "$0")/.."

seconds=${1:-60}
if ! [[ $seconds =~ ^[1-9][0-9]*$ ]] || [ $# -gt 1 ]; then
    echo "usage: scripts/fuzz.sh [SECONDS]" >&2
    exit 2
fi
compiler=$(command -v clang++ || command -v clang++-14) || {
    echo "fuzz: needs clang++ (packages clang and libclang-rt-dev)" >&2
    exit 1
}

cmake -S . -B build/fuzz -G Ninja --log-level=WARNING \
    -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_COMPILER="$compiler" \
    -DCMAKE_CXX_FLAGS="-O1 -fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=undefined" \
    -DHOPCAST_FUZZ=ON -DHOPCAST_TESTS=OFF -DHOPCAST_UI=OFF
cmake --build build/fuzz --target fuzz -j "$(nproc)"

# The inputs go through files: on a disk in memory where there is one.
scratch=$(mktemp -d "$([ -w /dev/shm ] && echo /dev/shm || echo "${TMPDIR:-/tmp}")/hopcast-fuzz.XXXXXX")
trap 'rm -rf "$scratch"' EXIT
trap 'exit 130' INT
trap 'exit 143' TERM

status=0
mkdir -p build/fuzz/crash
for source in tests/fuzz/fuzz_*.cpp; do
    name=$(basename "$source" .cpp)
    log=build/fuzz/$name.log
    mkdir -p "build/fuzz/corpus/$name"
    if TMPDIR=$scratch "build/fuzz/bin/$name" -max_total_time="$seconds" -max_len=8192 -timeout=10 \
        -artifact_prefix="build/fuzz/crash/$name-" -print_final_stats=1 \
        "build/fuzz/corpus/$name" tests/airmail/data tests/fuzz/data >"$log" 2>&1; then
        echo "fuzz: $name: $(awk '/number_of_executed_units/ { print $2 }' "$log") inputs, none broke it"
    else
        tail -n 40 "$log" >&2
        echo "fuzz: $name broke; its log is $log, the input lies in build/fuzz/crash" >&2
        status=1
    fi
done
exit $status

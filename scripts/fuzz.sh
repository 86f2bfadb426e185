#!/usr/bin/env bash
# Feeds odd bytes to the readers of foreign files:  scripts/fuzz.sh [SECONDS [READER...]]
#
# Builds with clang and its sanitizers in build/fuzz and runs the program of each reader (all of
# tests/fuzz/fuzz_*.cpp unless named: scripts/fuzz.sh 600 grid antenna) for SECONDS (default 60), as
# many at once as there are processors. The seeds are sample files; what is found in a run stays in
# build/fuzz/corpus for the next. An input that breaks a reader is kept in build/fuzz/crash, and the
# exit status is 1. Where CI=true the inputs come in the same order at every run: a change is judged
# by what the state before it was, and chance is left to the long runs.
set -euo pipefail
cd "$(dirname "$0")/.."

seconds=${1:-60}
shift || true
if ! [[ $seconds =~ ^[1-9][0-9]*$ ]]; then
    echo "usage: scripts/fuzz.sh [SECONDS [READER...]]" >&2
    exit 2
fi
readers=("$@")
if [ $# = 0 ]; then
    for source in tests/fuzz/fuzz_*.cpp; do
        readers+=("$(basename "${source#*/fuzz_}" .cpp)")
    done
fi
for reader in "${readers[@]}"; do
    if ! [ -f "tests/fuzz/fuzz_$reader.cpp" ]; then
        echo "fuzz: no reader \"$reader\": there is no tests/fuzz/fuzz_$reader.cpp" >&2
        exit 2
    fi
done
compiler=$(command -v clang++ || command -v clang++-14) || {
    echo "fuzz: needs clang++ (packages clang and libclang-rt-dev)" >&2
    exit 1
}

cmake -S . -B build/fuzz -G Ninja --log-level=WARNING \
    -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_COMPILER="$compiler" \
    -DCMAKE_CXX_FLAGS="-O1 -fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=undefined" \
    -DHOPCAST_FUZZ=ON -DHOPCAST_PCH=ON -DHOPCAST_TESTS=OFF -DHOPCAST_UI=OFF
cmake --build build/fuzz -j "$(nproc)" --target "${readers[@]/#/fuzz_}"

order=()
[ "${CI:-}" != true ] || order=(-seed=1)
# The inputs go through files: on a disk in memory where there is one.
scratch=$(mktemp -d "$([ -w /dev/shm ] && echo /dev/shm || echo "${TMPDIR:-/tmp}")/hopcast-fuzz.XXXXXX")
trap 'rm -rf "$scratch"' EXIT
trap 'kill $(jobs -p) 2>/dev/null || true; exit 130' INT
trap 'kill $(jobs -p) 2>/dev/null || true; exit 143' TERM

# The sample files that a reader begins with: its own, and those that other tests use.
Seeds() {
    case $1 in
    airmail_ini) echo tests/airmail/data/Airmail.ini ;;
    forecast) echo tests/settings/data/* ;;
    grid) echo tests/propagation/data/engines/failures/*area*.[rv]g1 ;;
    install_log) echo tests/airmail/data/Install.log ;;
    point_deck) echo tests/engine/data/decks/p2p_*.dat ;;
    reader_rec533) echo tests/propagation/data/engines/{rec533/p2p_0[1-3],failures/rec533_*}.out ;;
    reader_voacap) echo tests/propagation/data/engines/{voacap/p2p_0[1-3],failures/voacap_*}.out ;;
    profile) echo assets/profile/hopcast.ini ;;
    stations) echo tests/airmail/data/System.*.ini ;;
    voacap_deck) echo tests/propagation/data/engines/voacap/{p2p_0[1-3].dat,area_0[1-3].voa} ;;
    esac
}

# Inputs tried since the start of the log, and how much of the program they reached.
Counts() {
    awk '/cov:/ { for (i = 1; i < NF; ++i) if ($i == "cov:") cov = $(i + 1) }
        /number_of_executed_units/ { runs = $2 }
        END { print runs " inputs, " cov " edges" }' "$1"
}

# One reader's run; its end, also by a signal, is the end of its program.
Fuzz() {
    local reader=$1 log=build/fuzz/fuzz_$1.log crash=build/fuzz/crash/$1- own=tests/fuzz/data/$1
    local seeds=$scratch/$1 found
    mkdir -p "build/fuzz/corpus/$reader" "$seeds/tmp" "$seeds/seeds"
    # shellcheck disable=SC2046 # a list
    cp $(Seeds "$reader") $(find "$own" -type f 2>/dev/null) "$seeds/seeds"
    TMPDIR=$seeds/tmp "build/fuzz/bin/fuzz_$reader" -max_total_time="$seconds" -max_len=8192 \
        -timeout=25 -dict=tests/fuzz/texts.dict -artifact_prefix="$crash" -print_final_stats=1 \
        "${order[@]}" "build/fuzz/corpus/$reader" "$seeds/seeds" >"$log" 2>&1 &
    # shellcheck disable=SC2064 # this program
    trap "kill $! 2>/dev/null; exit 143" TERM
    if wait $!; then
        echo "fuzz: $reader: $(Counts "$log"), none broke it"
        return 0
    fi
    tail -n 30 "$log" >&2
    found=$(sed -n 's/.*Test unit written to //p' "$log")
    echo "fuzz: $reader broke, its log is $log${found:+; to see it again:}" >&2
    [ -z "$found" ] || echo "  build/fuzz/bin/fuzz_$reader $found" >&2
    return 1
}

mkdir -p build/fuzz/crash
status=0
running=0
for reader in "${readers[@]}"; do
    if [ "$running" -ge "$(nproc)" ]; then
        wait -n || status=1
        running=$((running - 1))
    fi
    Fuzz "$reader" &
    running=$((running + 1))
done
while [ "$running" -gt 0 ]; do
    wait -n || status=1
    running=$((running - 1))
done
exit $status

#!/usr/bin/env bash
# Counts the lines that the tests run:  scripts/coverage.sh [FOLDER...]
#
# Builds in build/coverage, runs every test and prints the share of lines run of each folder of src/
# beside the share that it owes. The exit status is 1 when a folder stays below. The lines left
# out, file by file, are in build/coverage/lines.txt. With FOLDERs (src/geo) those alone are printed.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/setup.sh coverage
# No compiler cache: the counters are found by the paths that the compiler saw.
cmake --preset coverage --log-level=WARNING >/dev/null
cmake --build --preset coverage -j "$(nproc)" >/dev/null
find build/coverage -name '*.gcda' -delete
# A program on a full disk spoils its counters, and one that may write nowhere must not say so. A test
# that fails here has its say in ./test.sh; its lines count all the same.
GCOV_ERROR_FILE=/dev/null ctest --preset coverage --exclude-regex FullDisk --parallel "$(nproc)" >build/coverage/tests.txt || tail -n 20 build/coverage/tests.txt >&2

gcovr --root . --object-directory build/coverage --gcov-ignore-parse-errors --filter 'src/' \
    --exclude-directories '.*/CMakeFiles/3.*' --json build/coverage/lines.json --txt build/coverage/lines.txt -j "$(nproc)" build/coverage

status=0
Owe() { # FOLDER PERCENT
    local folder=$1 least=$2 share
    share=$(gcovr --root . -a build/coverage/lines.json --filter "$folder/" --json-summary - |
        sed -n 's/.*"line_percent": \([0-9.]*\).*/\1/p' | tail -n 1)
    if awk -v share="$share" -v least="$least" 'BEGIN { exit !(share < least) }'; then
        printf '%-16s %6.1f %% of %d %%  too little\n' "$folder" "$share" "$least"
        status=1
    else
        printf '%-16s %6.1f %% of %d %%\n' "$folder" "$share" "$least"
    fi
}

Each() { # FOLDER
    case $1 in
    src/ui* | src/app*) Owe "$1" 93 ;;
    *) Owe "$1" 95 ;;
    esac
}

for folder in "${@:-all}"; do
    case $folder in
    all) for floor in src/*/; do Each "${floor%/}"; done ;;
    *) Each "${folder%/}" ;;
    esac
done
exit $status

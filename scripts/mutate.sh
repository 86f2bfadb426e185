#!/usr/bin/env bash
# Breaks one rule at a time and looks whether a test turns red:  scripts/mutate.sh [--check] [NAME...]
#
# Every tests/mutation/NAME.patch names a rule and the test programs that ought to guard it. A copy
# of the tree in build/mutation is broken by it, those programs are built and run, and the first
# test that fails is printed. The exit status is 1 when a broken rule goes unnoticed by more than
# one patch of thirty, or a patch cannot be tried. --check only looks whether all patches apply.
set -euo pipefail
cd "$(dirname "$0")/.."

check=
if [ "${1:-}" = --check ]; then
    check=1
    shift
fi
patches=()
for name in "${@:-*}"; do
    # shellcheck disable=SC2206 # the star is meant
    patches+=(tests/mutation/$name.patch)
done

HeadGet() { sed -n "s/^$1: //p;/^---/q" "$2"; }
Apply() { patch --batch --silent --strip=1 --fuzz=2 --no-backup-if-mismatch "$@"; }

if [ -n "$check" ]; then
    status=0
    for file in "${patches[@]}"; do
        Apply --dry-run <"$file" >/dev/null || {
            echo "mutate: $file no longer applies" >&2
            status=1
        }
    done
    exit $status
fi

tree=build/mutation/tree
mkdir -p "$tree"
tar --exclude=./build --exclude=./.git -cf - . | tar -xmf - -C "$tree"
if command -v ccache >/dev/null; then
    export CMAKE_CXX_COMPILER_LAUNCHER=ccache
fi
cmake -S "$tree" -B build/mutation/build -G Ninja --log-level=WARNING -DCMAKE_BUILD_TYPE=Debug >/dev/null
export QT_QPA_PLATFORM=offscreen TZ=UTC LC_ALL=C

Build() { cmake --build build/mutation/build --target "$@" -j "$(nproc)" >build/mutation/build.log 2>&1; }

# The first test that fails in these programs; nothing where none does.
FailureFirst() {
    local program log=build/mutation/test.log
    for program in "$@"; do
        if ! timeout 600 "build/mutation/build/tests/bin/$program" >"$log" 2>&1; then
            # Where the program ended early it is the test that ran last.
            { grep -m 1 '^\[  FAILED  \]' "$log" || grep '^\[ RUN ' "$log" | tail -n 1; } |
                sed "s|^\[[^]]*\] *||; s|[ ,].*||; s|^|$program: |"
            return
        fi
    done
}

mapfile -t programs < <(for file in "${patches[@]}"; do HeadGet Tests "$file" | tr ' ' '\n'; done | sort -u)
Build "${programs[@]}" || { tail -n 30 build/mutation/build.log >&2; exit 1; }
before=$(FailureFirst "${programs[@]}")
if [ -n "$before" ]; then
    echo "mutate: fails without a broken rule: $before" >&2
    exit 1
fi

tried=0 caught=0 status=0
for file in "${patches[@]}"; do
    name=$(basename "$file" .patch)
    read -r -a programs < <(HeadGet Tests "$file")
    # Tried dry first: a patch that fits in part would be left there.
    if ! Apply --dry-run --directory="$tree" <"$file" >/dev/null || ! Apply --directory="$tree" <"$file"; then
        echo "mutate: $name no longer applies" >&2
        status=1
        continue
    fi
    found=
    if ! Build "${programs[@]}"; then
        echo "mutate: $name does not compile" >&2
        status=1
    else
        tried=$((tried + 1))
        found=$(FailureFirst "${programs[@]}")
        [ -z "$found" ] || caught=$((caught + 1))
        printf '%-20s %s\n%-20s %s\n' "$name" "$(HeadGet Rule "$file")" '' "${found:-NOT NOTICED}"
    fi
    Apply --reverse --directory="$tree" <"$file"
done
echo "mutate: $caught of $tried broken rules were noticed"
[ $((caught * 30)) -ge $((tried * 29)) ] || status=1
exit $status

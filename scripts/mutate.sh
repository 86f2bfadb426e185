#!/usr/bin/env bash
# Breaks one rule at a time and looks whether a test turns red:  scripts/mutate.sh [--check] [NAME...]
#
# Every paragraph of tests/mutation/rules.txt is a rule with a text of its source, what that becomes
# and the test programs that ought to guard it. A copy of the tree in build/mutation is broken by it,
# those programs are built and run, and the first test that fails is printed. The exit status is 1
# when more than one broken rule of thirty goes unnoticed, or a rule cannot be tried. --check only
# looks whether every rule finds its text once and its test programs exist.
set -euo pipefail
cd "$(dirname "$0")/.."

table=tests/mutation/rules.txt
check=
if [ "${1:-}" = --check ]; then
    check=1
    shift
fi

Say() { echo "mutate: $*" >&2; }

names=()
declare -A row # by NAME.COLUMN
TableRead() {
    local line name='' nLine=0 status=0
    while IFS= read -r line; do
        nLine=$((nLine + 1))
        if [[ $line =~ ^\[([a-z0-9-]+)\]$ ]]; then
            name=${BASH_REMATCH[1]}
            names+=("$name")
        elif [[ $line =~ ^(rule|file|text|becomes|tests)\ *=\ (.*[^ ])$ && -n $name &&
            -z ${row[$name.${BASH_REMATCH[1]}]:-} ]]; then
            row[$name.${BASH_REMATCH[1]}]=${BASH_REMATCH[2]}
        elif [[ -n $line && $line != '#'* ]]; then
            Say "$table:$nLine: neither a [name] nor a new \"column = value\": $line"
            status=1
        fi
    done <"$table"
    return $status
}

# True when the file has the text no second time.
OnceIs() {
    local all
    all=$(<"$1")
    [[ ${all#*"$2"} != *"$2"* ]]
}

# Prints the file to break: the one of the table or, when the text has moved, the only one with it.
FileFind() {
    local name=$1 file=${row[$1.file]} text=${row[$1.text]} files=()
    if ! grep -qsF -e "$text" "$file"; then
        mapfile -t files < <(grep -rlF -e "$text" src)
        if [ ${#files[@]} != 1 ]; then
            Say "$name: $file has no \"$text\", and ${#files[@]} other files have it: ${files[*]:-none}"
            return 1
        fi
        Say "$name: its text has moved from $file to ${files[0]}: correct $table"
        file=${files[0]}
    fi
    if ! OnceIs "$file" "$text"; then
        Say "$name: $file has its text more than once: $text"
        return 1
    fi
    echo "$file"
}

# True when every column is there, the text is found and the test programs are known.
RowCheck() {
    local name=$1 column program status=0
    for column in rule file text becomes tests; do
        [ -n "${row[$name.$column]:-}" ] || { Say "$name: no \"$column\""; return 1; }
    done
    FileFind "$name" >/dev/null || status=1
    for program in ${row[$name.tests]}; do
        grep -rqE --include=CMakeLists.txt "^ *hopcast_test\(${program%%:*}( |$)" tests ||
            { Say "$name: no test program ${program%%:*}"; status=1; }
    done
    return $status
}

status=0
TableRead || status=1
[ $# = 0 ] || names=("$@")
for name in "${names[@]}"; do
    RowCheck "$name" || status=1
done
if [ -n "$check" ] || [ $status = 1 ]; then
    exit $status
fi

tree=build/mutation/tree
rm -rf "$tree"
mkdir -p "$tree"
tar --exclude=./build --exclude=./.git -cf - . | tar -xmf - -C "$tree"
if command -v ccache >/dev/null; then
    export CMAKE_CXX_COMPILER_LAUNCHER=ccache
fi
cmake -S "$tree" -B build/mutation/build -G Ninja --log-level=WARNING -DCMAKE_BUILD_TYPE=Debug \
    -DCMAKE_CXX_FLAGS_DEBUG=-O0 -DHOPCAST_PCH=ON -DHOPCAST_FAST_LINK=ON >/dev/null
export QT_QPA_PLATFORM=offscreen TZ=UTC LC_ALL=C

Build() { cmake --build build/mutation/build --target "${@%%:*}" -j "$(nproc)" >build/mutation/build.log 2>&1; }

# The first test that fails in these programs, or why there is none to name; nothing where all pass.
FailureFirst() {
    local program filter log=build/mutation/test.log
    for program in "$@"; do
        [[ $program == *:* ]] && filter=${program#*:} || filter='*'
        program=${program%%:*}
        if ! timeout 600 "build/mutation/build/tests/bin/$program" "--gtest_filter=$filter" >"$log" 2>&1; then
            # Where the program ended early it is the test that ran last.
            { grep -m 1 '^\[  FAILED  \]' "$log" || grep '^\[ RUN ' "$log" | tail -n 1 | grep . || echo "before_its_first_test"; } |
                sed "s|^\[[^]]*\] *||; s|[ ,].*||; s|^|$program: |"
            return
        elif grep -q 'Running 0 tests' "$log"; then
            echo "$program: no test matches $filter"
            return
        fi
    done
}

mapfile -t programs < <(for name in "${names[@]}"; do tr ' ' '\n' <<<"${row[$name.tests]}"; done | sort -u)
Build "${programs[@]}" || { tail -n 30 build/mutation/build.log >&2; exit 1; }
before=$(FailureFirst "${programs[@]}")
if [ -n "$before" ]; then
    Say "fails without a broken rule: $before"
    exit 1
fi

tried=0 caught=0
for name in "${names[@]}"; do
    read -r -a programs <<<"${row[$name.tests]}"
    file=$(FileFind "$name" 2>/dev/null)
    all=$(<"$file")
    printf '%s%s%s\n' "${all%%"${row[$name.text]}"*}" "${row[$name.becomes]}" "${all#*"${row[$name.text]}"}" >"$tree/$file"
    if ! Build "${programs[@]}"; then
        Say "$name does not compile"
        status=1
    else
        tried=$((tried + 1))
        failure=$(FailureFirst "${programs[@]}")
        [ -z "$failure" ] || caught=$((caught + 1))
        printf '%-24s %s\n%-24s %s\n' "$name" "${row[$name.rule]}" '' "${failure:-NOT NOTICED}"
    fi
    # Written anew: with the time of the original the broken object would pass for the newer one.
    cat "$file" >"$tree/$file"
done
echo "mutate: $caught of $tried broken rules were noticed"
[ $((caught * 30)) -ge $((tried * 29)) ] || status=1
exit $status

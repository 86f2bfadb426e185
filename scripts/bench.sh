#!/usr/bin/env bash
# Builds the benchmarks and runs them:
#   scripts/bench.sh [FILTER]    prints machine and table; FILTER is a regular expression of names
#   scripts/bench.sh --renew     all of them, into docs/performance.md when all keep their limits
#
# A release build in build/bench. A benchmark's median is held against the time that it may take;
# the exit status is 1 when one takes longer or breaks.
set -euo pipefail
cd "$(dirname "$0")/.."

if [ $# -gt 1 ]; then
    echo "usage: scripts/bench.sh [FILTER|--renew]" >&2
    exit 2
fi
filter=${1:-.}
document=docs/performance.md
mark='<!-- below: written by scripts/bench.sh --renew -->'
[ "$filter" != --renew ] || filter=.

scripts/setup.sh bench
cmake --preset bench --log-level=WARNING >/dev/null
cmake --build --preset bench --target benches -j "$(nproc)" >&2

Machine() {
    local model memory voacapl
    model=$(sed -n 's/^model name[^:]*: *//p' /proc/cpuinfo | head -n 1)
    memory=$(awk '/^MemTotal/ { printf "%.0f GB", $2 / 1e6 }' /proc/meminfo)
    voacapl=$(dpkg-query -W -f '${Version}' voacapl 2>/dev/null) || voacapl=none
    echo "- Measured $(date -u +%Y-%m-%d); load of the machine before: $(cut -d ' ' -f 1 /proc/loadavg)"
    echo "- ${model:-unknown processor}, $(nproc) cores, $memory"
    echo "- $(sed -n 's/^PRETTY_NAME="\(.*\)"/\1/p' /etc/os-release), $(uname -m)"
    echo "- $(c++ --version | head -n 1), release build"
    echo "- voacapl $voacapl"
}

# CSV of every benchmark program, one after the other.
Rounds() {
    local program
    for program in build/bench/bin/bench/*; do
        "$program" --benchmark_filter="$filter" --benchmark_min_time=0.1 --benchmark_repetitions=11 \
            --benchmark_format=csv 2>/dev/null || echo "broke,$(basename "$program")"
    done
}

Table() {
    awk -F, '
        function median(list, parts, n, i, j, x) {
            n = split(list, parts, " ")
            for (i = 2; i <= n; i++) {
                x = parts[i] + 0
                for (j = i - 1; j > 0 && parts[j] + 0 > x; j--) parts[j + 1] = parts[j]
                parts[j + 1] = x
            }
            return parts[int((n + 1) / 2)] + 0
        }
        { gsub(/"/, "") }
        $1 == "broke" { print $2 " broke" > "/dev/stderr"; bad = 1; next }
        $1 == "name" { delete column; for (i = 1; i <= NF; i++) column[$i] = i; next }
        !("name" in column) || NF < 3 || $1 ~ /_(mean|median|stddev|cv)$/ { next }
        {
            name = $1
            gsub(/\/(real_time|manual_time|iterations:[0-9]+|repeats:[0-9]+)/, "", name)
            sub(/Bench/, "", name)
            if (!(name in times)) order[++count] = name
            times[name] = times[name] " " $column["real_time"]
            limits[name] = limits[name] " " $column["limit_us"]
            if ("beside_us" in column) others[name] = others[name] " " $column["beside_us"]
            if ($column["error_occurred"] == "true") broken[name] = 1
        }
        END {
            format = "| %-27s | %10s | %10s | %11s | %5s |\n"
            printf format, "benchmark", "median, us", "limit, us", "beside, us", "ratio"
            print "|---|--:|--:|--:|--:|"
            for (i = 1; i <= count; i++) {
                name = order[i]
                time = median(times[name])
                limit = median(limits[name])
                other = median(others[name])
                verdict = name in broken ? " broke" : time > limit ? " too slow" : ""
                if (verdict != "") bad = 1
                beside = other > 0 ? sprintf("%.0f", other) : ""
                ratio = other > 0 ? sprintf("%.2f", time / other) : ""
                printf format, name, sprintf("%.1f", time) verdict, sprintf("%.0f", limit), beside, ratio
            }
            exit bad || !count
        }'
}

status=0
report=$(Machine && echo && Rounds | Table) || status=1
printf '%s\n' "$report"
if [ "${1:-}" = --renew ] && [ $status = 0 ]; then
    prose=$(sed "\\|^$mark\$|q" "$document")
    printf '%s\n\n%s\n' "$prose" "$report" >"$document"
fi
exit $status

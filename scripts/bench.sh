#!/usr/bin/env bash
# Builds the benchmarks and runs them:  scripts/bench.sh [FILTER]
#
# A release build in build/bench. Each benchmark is measured against the time that it may take; the
# exit status is 1 when one takes longer or breaks. FILTER is a regular expression of names.
set -euo pipefail
cd "$(dirname "$0")/.."

if [ $# -gt 1 ]; then
    echo "usage: scripts/bench.sh [FILTER]" >&2
    exit 2
fi
filter=${1:-.}

scripts/setup.sh bench
cmake --preset bench --log-level=WARNING >/dev/null
cmake --build --preset bench --target benches -j "$(nproc)"

# The fastest of several rounds counts: the others tell how busy the machine was.
printf '%-32s %12s %12s\n' benchmark microseconds limit
status=0
for program in build/bench/bin/bench/*; do
    "$program" --benchmark_filter="$filter" --benchmark_min_time=0.1 --benchmark_repetitions=5 \
        --benchmark_format=csv 2>/dev/null |
        awk -F, '
            { gsub(/"/, "") }
            $1 == "name" { for (i = 1; i <= NF; i++) column[$i] = i; next }
            !("name" in column) || NF < 3 || $1 ~ /_(mean|median|stddev|cv)$/ { next }
            {
                if (!($1 in fastest)) order[++count] = $1
                if (!($1 in fastest) || $column["real_time"] + 0 < fastest[$1]) fastest[$1] = $column["real_time"] + 0
                limit[$1] = $column["limit_us"] + 0
                if ("voacapl_us" in column) voacapl[$1] = $column["voacapl_us"] + 0
                if ($column["error_occurred"] == "true") broken[$1] = 1
            }
            END {
                for (i = 1; i <= count; i++) {
                    name = order[i]
                    beside = voacapl[name] > 0 ? sprintf("  (voacapl: %.1f)", voacapl[name]) : ""
                    verdict = name in broken ? "  broke" : fastest[name] > limit[name] ? "  too slow" : ""
                    if (verdict != "") bad = 1
                    printf "%-32s %12.1f %12.0f%s%s\n", name, fastest[name], limit[name], beside, verdict
                }
                exit bad
            }' || status=1
done
exit $status

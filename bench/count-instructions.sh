#!/bin/sh
# Instructions per stereo frame of every bench case, counted by callgrind: stable where
# wall-clock times on a shared machine are not.
#   bench/count-instructions.sh [path/to/zephyra_bench] [frames]
set -eu
bench=${1:-build/bench/zephyra_bench}
frames=${2:-88064}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT INT TERM

printf '%-28s %14s\n' case "instr/frame"
for case in $("$bench" --cases); do
    valgrind --tool=callgrind --callgrind-out-file="$work/out" --toggle-collect='*CountedRun*' \
        "$bench" --count "$case" "$frames" >"$work/log" 2>&1
    counted=$(sed -n 's/.*: \([0-9]*\) frames counted$/\1/p' "$work/log")
    total=$(sed -n 's/^summary: //p' "$work/out")
    awk -v name="$case" -v total="$total" -v counted="$counted" \
        'BEGIN { printf "%-28s %14.1f\n", name, total / counted }'
done

#!/bin/sh
# Runs every measurement behind the README's performance table and prints the table:
# times per stereo frame and their ratios from one zephyra_bench run, instruction counts
# from callgrind, and two third-party equalisers timed against the module by the
# command-line host's bench --compare (alternating runs, so each ratio comes from one run).
#   bench/performance-table.sh [build folder]
set -eu
build=${1:-build}
here=$(dirname "$0")
bench=$build/bench/zephyra_bench
host=$build/zephyra
module=$build/Zephyra.so
pair=/usr/lib/vst/ZamEQ2-vst.so
multi=/usr/lib/vst/lsp-plugins/para-equalizer-x16-stereo.so
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT INT TERM

"$bench" --benchmark_color=false >"$work/times" 2>&1
"$here/count-instructions.sh" "$bench" >"$work/counts"

# The third-party plug-in, set to two bands like the module's, against the module as it
# starts (both bands active); a mono plug-in runs as two instances.
host_bench() {
    plugin=$1
    shift
    "$host" --plugin "$plugin" bench --block 256 --rate 44100 --seconds 1 --repeat 7 "$@" \
        --compare "$module"
}
# Instructions per frame inside the host's timed loop: one warm-up run and one timed run
# of 4410 frames each.
host_count() {
    plugin=$1
    shift
    valgrind --tool=callgrind --callgrind-out-file="$work/host.cg" \
        --toggle-collect='*RackBenchmark::runWith*' "$host" --plugin "$plugin" bench \
        --block 256 --rate 44100 --seconds 0.1 --repeat 1 "$@" >/dev/null 2>&1
    sed -n 's/^summary: //p' "$work/host.cg" | awk '{ printf "%.0f", $1 / 8820 }'
}
host_bench "$pair" --set "Boost/Cut 1=4" --set "Frequency 1=120" --set "Boost/Cut 2=-3" \
    --set "Frequency 2=2500" >"$work/pair"
host_bench "$multi" --set ft_0=Bell --set ft_1=Bell --set f_0=120 --set f_1=2500 \
    --set g_0=+4 --set g_1=-3 --set q_0=0.7 --set q_1=1.5 >"$work/multi"
pair_count=$(host_count "$pair" --set "Boost/Cut 1=4" --set "Boost/Cut 2=-3")
multi_count=$(host_count "$multi" --set ft_0=Bell --set ft_1=Bell --set g_0=+4 --set g_1=-3)

awk -v pair="$pair" -v multi="$multi" -v pairCount="$pair_count" -v multiCount="$multi_count" \
    -v pairFile="$work/pair" -v multiFile="$work/multi" '
    FILENAME ~ /counts$/ && NF == 2 { count[$1] = $2 }
    FILENAME ~ /times$/ && /^[a-z_]+(\/[a-z_0-9]+)? +[0-9.]+/ { ns[$1] = $2 }
    # The host prints the main plug-in first, then the module.
    function medians(file, m,   line, n, fields) {
        n = 0
        while ((getline line < file) > 0) {
            if (line ~ /ns per stereo frame/) {
                split(line, fields, /median |, /)
                m[++n] = fields[2]
            }
        }
        close(file)
    }
    function row(label, name, base, baseLabel) {
        printf "| %s | %.2f | %.2fx %s | %.1f |\n", label, ns[name], ns[name] / ns[base], \
            baseLabel, count[name]
    }
    END {
        print "| measurement | ns per stereo frame | ratio | instructions per frame |"
        print "|---|---:|---:|---:|"
        row("recursion bound: the four recursions and nothing else", "recursion_bound", \
            "recursion_bound", "the bound")
        row("**whole effect** through the entry point, both bands", "effect/both_bands", \
            "recursion_bound", "the bound")
        row("plain reference, one pass per stage", "plain_reference/both_bands", \
            "recursion_bound", "the bound")
        row("whole effect, decaying tail (2 s of silence after noise)", "effect/tail", \
            "effect/both_bands", "noise")
        row("plain reference, decaying tail", "plain_reference/tail", \
            "plain_reference/both_bands", "its noise")
        row("whole effect, both bands off (ON/OFF between 0 and 1)", "effect/bands_off", \
            "effect/both_bands", "both bands")
        row("whole effect, switched off", "effect/switched_off", "effect/both_bands", \
            "both bands")
        row("engine alone, both bands", "engine/both_bands", "recursion_bound", "the bound")
        row("engine alone, band 0 only", "engine/band_0_only", "engine/both_bands", \
            "both bands")
        row("engine alone, band 1 only", "engine/band_1_only", "engine/both_bands", \
            "both bands")
        medians(pairFile, p)
        medians(multiFile, q)
        printf "| `%s`, two mono instances, two bands | %.2f | %.1fx the effect | %d |\n", \
            pair, p[1], p[1] / p[2], pairCount
        printf "| `%s`, two bell filters | %.2f | %.1fx the effect | %d |\n", multi, q[1], \
            q[1] / q[2], multiCount
    }' "$work/counts" "$work/times"

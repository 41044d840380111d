#!/bin/sh
# Runs the editor bench on the in-memory screen and on an X server (the one of DISPLAY, or
# a virtual one when there is none) and prints the README's table of editor costs. The
# editor's scale follows ZEPHYRA_SCALE, as the plug-in's does.
#   bench/editor-costs.sh [build folder] [seconds per load measurement]
set -eu
build=${1:-build}
seconds=${2:-10}
bench=$build/bench/zephyra_editor_bench
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT INT TERM

"$bench" --headless --seconds "$seconds" --benchmark_color=false >"$work/headless"
if [ -n "${DISPLAY:-}" ]; then
    "$bench" --seconds "$seconds" --benchmark_color=false >"$work/x11"
else
    xvfb-run -a -s "-screen 0 1280x1024x24 -noreset" \
        "$bench" --seconds "$seconds" --benchmark_color=false >"$work/x11"
fi

awk '
    $1 == "summary" { value[FILENAME ~ /headless$/ ? "headless" : "x11", $2] = $3 }
    function us(name) {
        printf "| %s | %.1f µs | %.1f µs |", label[name], 1000 * value["headless", name], \
            1000 * value["x11", name]
    }
    function share(name) {
        printf "%.2f %% | %.2f %% |", 100 * value["headless", name], 100 * value["x11", name]
    }
    # The editor'"'"'s share: the process with the editor open, less the same host with it closed.
    function editorShare(name, title, target) {
        printf "| %s | %.2f %% | %.2f %% | %s |\n", title, \
            100 * (value["headless", name] - value["headless", "core_share_editor_closed_music"]), \
            100 * (value["x11", name] - value["x11", "core_share_editor_closed_music"]), target
    }
    function kib(name, title) {
        printf "| %s | %.0f KiB heap, %.0f KiB resident | %.0f KiB heap, %.0f KiB resident | |\n", \
            title, value["headless", name "_heap_kib"], value["headless", name "_resident_kib"], \
            value["x11", name "_heap_kib"], value["x11", name "_resident_kib"]
    }
    END {
        label["full_repaint_ms"] = "full repaint of the panel (effEditDraw)"
        label["meter_tick_ms"] = "meter tick: four meters moved and drawn"
        label["quiet_idle_ms"] = "idle call with nothing to draw"
        label["open_editor_ms"] = "opening the editor, up to its first paint"
        print "| measurement | in memory | X server (Xvfb) | target |"
        print "|---|---:|---:|---:|"
        us("full_repaint_ms"); print " under 2000 µs |"
        us("meter_tick_ms"); print " under 200 µs |"
        us("quiet_idle_ms"); print " |"
        us("open_editor_ms"); print " |"
        editorShare("core_share_editor_open_silence", \
            "one core taken by an open editor, silence (meters at rest)", "under 1 %")
        editorShare("core_share_editor_open_music", \
            "one core taken by an open editor, music (meters moving)", "under 1 %")
        printf "| one core taken by the host loop with the editor closed, music | "
        share("core_share_editor_closed_music"); print " |"
        kib("instance", "memory per instance, editor closed")
        kib("open_editor", "memory an open editor adds")
    }' "$work/headless" "$work/x11"

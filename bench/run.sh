#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The signaltreelist developers
# SPDX-License-Identifier: BSD-3-Clause

# Runs every benchmark case and writes the tables of BENCHMARKS.md.
#
#   bench/run.sh
#
# Builds the Release benchmark in build-bench/ (BUILD_DIR overrides; set
# SKIP_BUILD=1 to use it as it is), then, headless (QT_QPA_PLATFORM=offscreen):
#   - one timing process per look (Qt's default, reference style sheet) and
#     size (16x16, 64x16, 256x16, 1024x4), REPS repetitions each (default 5);
#   - one memory process per look, design and size (and an empty window),
#     so that peaks do not mix.
# Raw lines and report.md go to OUT_DIR (default BUILD_DIR/bench-results).
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
build=${BUILD_DIR:-$root/build-bench}
reps=${REPS:-5}
out=${OUT_DIR:-$build/bench-results}
sizes=${SIZES:-"16x16 64x16 256x16 1024x4"}
looks=${LOOKS:-"none sheet"}
subjects="stl tree treewidgets floor floorfull"

if [ "${SKIP_BUILD:-0}" != 1 ]; then
    cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release \
        -DSIGNALTREELIST_BUILD_BENCH=ON >/dev/null
    cmake --build "$build" -j 2 --target signaltreelist_bench
fi
bench=$build/bench/signaltreelist_bench
export QT_QPA_PLATFORM=offscreen
mkdir -p "$out"
: >"$out/timing.txt"
: >"$out/memory.txt"

{
    echo "date: $(date -u '+%Y-%m-%d %H:%M UTC')"
    echo "cpu: $(grep -m1 'model name' /proc/cpuinfo | cut -d: -f2- | sed 's/^ *//'), $(nproc) cores"
    echo "memory: $(free -g | awk '/Mem:/{print $2}') GB"
    echo "kernel: $(uname -sr)"
    echo "compiler: $(c++ --version | head -1)"
    echo "qt: $(qmake -query QT_VERSION 2>/dev/null || pkg-config --modversion Qt5Widgets)"
    echo "load average at start: $(cut -d' ' -f1-3 /proc/loadavg)"
    echo "reps: $reps"
} | tee "$out/machine.txt"

for look in $looks; do
    for size in $sizes; do
        echo "timing $size $look" >&2
        "$bench" --case timing --size "$size" --look "$look" --reps "$reps" >>"$out/timing.txt"
    done
done
for look in $looks; do
    for subject in $subjects; do
        for size in 0x0 $sizes; do
            "$bench" --case memory --size "$size" --look "$look" --subject "$subject" \
                >>"$out/memory.txt" 2>/dev/null
        done
    done
done
echo "load average at end: $(cut -d' ' -f1-3 /proc/loadavg)" | tee -a "$out/machine.txt"
"$bench" --case report "$out/timing.txt" "$out/memory.txt" >"$out/report.md"
echo "report: $out/report.md" >&2

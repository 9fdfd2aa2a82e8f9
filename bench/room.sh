#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The signaltreelist developers
# SPDX-License-Identifier: BSD-3-Clause

# The large control room: a list of ROOTS x 16 signals, every group collapsed
# as the list starts them, beside a QTreeWidget holding the same records.
#
#   bench/room.sh [BENCH_BINARY]
#
# One process per design, look and size (the resident set is per process),
# REPS repetitions (default 3) of: first paint (fill, show, painted), one
# group expanded to painted, then every group expanded to painted. Prints
# the medians (thread CPU time, ms) and the resident set after the first
# paint (MB) as a Markdown table. SIZES (default "256x16 1024x16"), LOOKS
# (default "none sheet") and SUBJECTS (default "stl tree") adjust it.
# Then the same rooms with every group open (OPEN_SIZES, default
# "128x16 1024x16"; empty for none): first paint with every group open, the
# resident set after it, and paging down through the room one page at a
# time: the median and worst page (scroll to painted) and the median work
# done once idle after a page. The
# binary defaults to build-bench/bench/signaltreelist_bench (bench/run.sh
# builds it; configure a Qt 6 one with -DQT_MAJOR_VERSION=6).
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
bench=${1:-$root/build-bench/bench/signaltreelist_bench}
reps=${REPS:-3}
sizes=${SIZES:-"256x16 1024x16"}
looks=${LOOKS:-"none sheet"}
subjects=${SUBJECTS:-"stl tree"}
export QT_QPA_PLATFORM=offscreen

ms() { awk -v ns="$1" 'BEGIN { printf "%.1f", ns / 1e6 }'; }

echo "| size | look | design | first paint (ms) | resident after it (MB) | expand one group (ms) | expand every group (ms) |"
echo "|---|---|---|---|---|---|---|"
for size in $sizes; do
    for look in $looks; do
        for subject in $subjects; do
            out=$("$bench" --case room --size "$size" --look "$look" --subject "$subject" --reps "$reps" 2>/dev/null)
            value() { echo "$out" | awk -v op="$1" '$1 == "RESULT" && $5 == op { print $6 }'; }
            rss=$(echo "$out" | awk '$1 == "ROOMRSS" { printf "%.0f", $5 / 1024 }')
            name=$([ "$subject" = stl ] && echo SignalTreeList || echo "QTreeWidget items")
            echo "| $size | $look | $name | $(ms "$(value room-first-paint)") | $rss | $(ms "$(value room-expand-one)") | $(ms "$(value room-expand-all)") |"
        done
    done
done

open_sizes=${OPEN_SIZES-"128x16 1024x16"}
[ -n "$open_sizes" ] || exit 0
echo
echo "| size, every group open | look | design | first paint (ms) | resident after it (MB) | page, median (ms) | page, worst (ms) | idle after a page, median (ms) |"
echo "|---|---|---|---|---|---|---|---|"
for size in $open_sizes; do
    for look in $looks; do
        for subject in $subjects; do
            out=$("$bench" --case open-room --size "$size" --look "$look" --subject "$subject" --reps "$reps" 2>/dev/null)
            column() { echo "$out" | awk -v op="$1" -v col="$2" '$1 == "RESULT" && $5 == op { print $col }'; }
            rss=$(echo "$out" | awk '$1 == "ROOMRSS" { printf "%.0f", $5 / 1024 }')
            name=$([ "$subject" = stl ] && echo SignalTreeList || echo "QTreeWidget items")
            echo "| $size | $look | $name | $(ms "$(column open-first-paint 6)") | $rss | $(ms "$(column page 6)") | $(ms "$(column page 8)") | $(ms "$(column page-idle 6)") |"
        done
    done
done

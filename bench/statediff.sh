#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The signaltreelist developers
# SPDX-License-Identifier: BSD-3-Clause

# Checks that a change to the library is invisible to hosts: builds the
# library at git revision REF (default HEAD) and as it is in the working
# tree, runs bench/statedump against each, without and with the reference
# style sheet, and lists the steps whose dumps differ.
#
#   bench/statediff.sh [REF]
#
# WORK_DIR (default a new temporary directory) holds the two builds and the
# dumps. Exit status 1 when a step after the first event loop differs: the
# two steps before it may differ in the palette and font of rows that Qt
# has not polished yet, which nothing reads before their first show.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
ref=${1:-HEAD}
work=${WORK_DIR:-$(mktemp -d)}
qss=$root/signaltreelist/resource/signaltreelist-dark.qss
export QT_QPA_PLATFORM=offscreen
mkdir -p "$work/ref-src"

git -C "$root" archive "$ref" | tar -x -C "$work/ref-src"
build_side() { # name source
    cmake -S "$2" -B "$work/$1-lib" -G Ninja -DCMAKE_BUILD_TYPE=Release \
        -DSIGNALTREELIST_BUILD_TESTS=OFF -DSIGNALTREELIST_BUILD_EXAMPLES=OFF >/dev/null
    cmake --build "$work/$1-lib" -j 2 --target signaltreelist >/dev/null
    cmake -S "$root/bench/statedump" -B "$work/$1-dump" -G Ninja -DCMAKE_BUILD_TYPE=Release \
        -DSIGNALTREELIST_SOURCE="$2" -DSIGNALTREELIST_BUILD="$work/$1-lib" >/dev/null
    cmake --build "$work/$1-dump" -j 2 >/dev/null
}
build_side ref "$work/ref-src"
build_side tree "$root"

status=0
for look in none sheet; do
    for side in ref tree; do
        "$work/$side-dump/signaltreelist_statedump" "$look" "$qss" >"$work/$side-$look.txt"
    done
    # Step by step: "same" or "DIFFERS".
    report=$(awk '
        FNR == 1 { file++ }
        /^=== / { step = substr($0, 5); if (file == 1) order[++n] = step; next }
        { text[file, step] = text[file, step] $0 "\n" }
        END { for (i = 1; i <= n; i++) printf "%s\t%s\n", (text[1, order[i]] == text[2, order[i]]) ? "same" : "DIFFERS", order[i] }
    ' "$work/ref-$look.txt" "$work/tree-$look.txt")
    echo "== look: $look ($ref against the working tree)"
    echo "$report"
    if echo "$report" | grep '^DIFFERS' | grep -vq 'before the event loop'; then
        status=1
    fi
done
echo "dumps: $work"
exit $status

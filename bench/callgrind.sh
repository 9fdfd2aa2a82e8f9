#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The signaltreelist developers
# SPDX-License-Identifier: BSD-3-Clause

# Instruction counts (valgrind --tool=callgrind, Ir) of SignalTreeList's
# operations: repeatable where timings on a shared machine are not. Used for
# the before/after numbers of each optimisation in BENCHMARKS.md.
#
#   bench/callgrind.sh [BUILD_DIR] [OUT_DIR]
#
# BUILD_DIR is a build with -DSIGNALTREELIST_BUILD_BENCH=ON (default
# build-bench); one line per case is printed: case, Ir.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
build=${1:-$root/build-bench}
out=${2:-$(mktemp -d)}
bench=$build/bench/signaltreelist_bench
export QT_QPA_PLATFORM=offscreen
mkdir -p "$out"

# name  size  look  subject  ops  functions-to-collect...
cases=(
  "build+show|16x16|none|stl|build,show|opBuild opShow"
  "build+show|16x16|sheet|stl|build,show|opBuild opShow"
  "build|256x4|none|stl|build|opBuild"
  "build|64x16|sheet|stl|build|opBuild"
  "click(x7)|16x16|sheet|stl|click|opClick"
  "click(x7)|16x16|none|stl|click|opClick"
  "collapse+expand|16x16|sheet|stl|collapse+expand|opCollapseExpand"
  "addRootItem|256x1|none|stl|addRootItem|opAddOneByOne"
  "updateTreeList|16x16|sheet|stl|updateTreeList|opUpdateFromMap"
)
for c in "${cases[@]}"; do
  IFS='|' read -r name size look subject ops funcs <<<"$c"
  toggles=()
  for f in $funcs; do toggles+=("--toggle-collect=BenchRunner::$f*"); done
  file=$out/$name-$size-$look-$subject.out
  valgrind --tool=callgrind --callgrind-out-file="$file" --collect-atstart=no "${toggles[@]}" \
      "$bench" --case timing --size "$size" --look "$look" --reps 1 --no-warmup \
      --subjects "$subject" --ops "$ops" >/dev/null 2>"$file.log"
  ir=$(grep -m1 '^summary:' "$file" | awk '{print $2}')
  printf '%-16s %-7s %-6s %-5s %15s\n' "$name" "$size" "$look" "$subject" "$(printf "%'d" "$ir")"
done

#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The signaltreelist developers
# SPDX-License-Identifier: BSD-3-Clause

# Regenerates the pictures under docs/ from the demo host, headless:
#
#   docs/demo.png                          the whole demo window
#   docs/rootitem-{normal,hover,press}.png   a root row in each look state
#   docs/seconditem-{normal,hover,press}.png a child row in each look state
#   docs/demo-qt6-200.png                  the demo on Qt 6 on a screen at 200 %
#
# BUILD_DIR overrides the build directory.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/setup.sh"

ensure_build_packages
build_dir=${BUILD_DIR:-$SIGNALTREELIST_ROOT/build}
configure_and_build "$build_dir" -DSIGNALTREELIST_BUILD_EXAMPLES=ON
demo="$build_dir/examples/demohost/signaltreelist_demo"

docs="$SIGNALTREELIST_ROOT/docs"
mkdir -p "$docs"
QT_QPA_PLATFORM=offscreen QT_LOGGING_RULES="qt.qpa.*=false" \
    "$demo" --screenshot "$docs/demo.png" --closeups "$docs" --scale 2 >/dev/null 2>&1 || {
    echo "The demo failed to render; run it by hand to see why:" >&2
    echo "  QT_QPA_PLATFORM=offscreen $demo --screenshot $docs/demo.png --closeups $docs" >&2
    exit 1
}
# On Qt 6 at a scale of 2, as on a 4K control-room monitor.
ensure_build_packages 6
qt6_build=${QT6_BUILD_DIR:-$SIGNALTREELIST_ROOT/build-qt6}
configure_and_build "$qt6_build" -DQT_MAJOR_VERSION=6 -DSIGNALTREELIST_BUILD_EXAMPLES=ON
QT_QPA_PLATFORM=offscreen QT_SCALE_FACTOR=2 QT_LOGGING_RULES="qt.qpa.*=false" \
    "$qt6_build/examples/demohost/signaltreelist_demo" --screenshot "$docs/demo-qt6-200.png" >/dev/null 2>&1

for picture in demo demo-qt6-200 rootitem-normal rootitem-hover rootitem-press \
               seconditem-normal seconditem-hover seconditem-press; do
    if [ ! -s "$docs/$picture.png" ]; then
        echo "missing $docs/$picture.png" >&2
        exit 1
    fi
    echo "wrote docs/$picture.png"
done

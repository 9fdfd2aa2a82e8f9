#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The signaltreelist developers
# SPDX-License-Identifier: BSD-3-Clause

# Sets up a fresh Debian 12 machine, builds everything and runs the demo host.
#
#   scripts/demo.sh [--qt6] [DEMO ARGS...]
#                                      extra arguments go to the demo; --qt6
#                                      builds and runs it on Qt 6 (build-qt6/)
#
# With a display ($DISPLAY or $WAYLAND_DISPLAY) the demo window opens. Without
# one, the demo renders a screenshot to build/demo.png headless (or does what
# the given --screenshot/--closeups arguments ask) and the script says how to
# see the real window. BUILD_DIR overrides the build directory.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/setup.sh"

qt=5
if [ "${1:-}" = --qt6 ]; then
    qt=6
    shift
fi
ensure_build_packages "$qt"
build_dir=${BUILD_DIR:-$SIGNALTREELIST_ROOT/build$(flavour_suffix "$qt")}
configure_and_build "$build_dir" -DQT_MAJOR_VERSION="$qt" -DSIGNALTREELIST_BUILD_EXAMPLES=ON
demo="$build_dir/examples/demohost/signaltreelist_demo"

if [ -n "${DISPLAY:-}" ] || [ -n "${WAYLAND_DISPLAY:-}" ]; then
    echo "Starting $demo"
    exec "$demo" "$@"
fi

# No display: prove that the demo works by rendering it headless.
renders_itself=false
for arg in "$@"; do
    case "$arg" in
        --screenshot|--screenshot=*|--closeups|--closeups=*|-h|--help) renders_itself=true ;;
    esac
done

cat <<MSG
No display found (neither \$DISPLAY nor \$WAYLAND_DISPLAY is set), so the demo
window cannot open here. Ways to see it:
  - render it to a PNG without any display:
      QT_QPA_PLATFORM=offscreen $demo --screenshot FILE.png
      QT_QPA_PLATFORM=offscreen $demo --closeups DIR      (row close-ups)
  - run it under a virtual X server (package xvfb):
      xvfb-run -a scripts/demo.sh
  - or run scripts/demo.sh from a desktop session.
MSG

# The library's debug traces and the platform plugin's notes stay quiet here.
export QT_QPA_PLATFORM=offscreen
export QT_LOGGING_RULES="${QT_LOGGING_RULES:-qt.qpa.*=false;default.debug=false}"
echo
if $renders_itself; then
    "$demo" "$@"
else
    echo "Rendering the demo headless (its signal log follows):"
    "$demo" --screenshot "$build_dir/demo.png" "$@"
    echo "Rendered the demo headless to $build_dir/demo.png"
fi

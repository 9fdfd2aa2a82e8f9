#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The signaltreelist developers
# SPDX-License-Identifier: BSD-3-Clause

# Runs a test program where Qt's accessibility is live, so that the events
# the library raises reach QAccessible's update handler: a private X server
# (Xvfb), a private session bus and the accessibility bus that Qt's AT-SPI
# bridge connects to, with the bridge forced on and the xcb platform.
#   with_a11y_bus.sh PROGRAM [ARGS...]
set -eu
work=$(mktemp -d)
export XDG_RUNTIME_DIR=$work
cleanup() {
    [ -n "${xvfb:-}" ] && kill "$xvfb" 2>/dev/null
    rm -rf "$work"
}
trap cleanup EXIT

exec 3>"$work/display"
Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp -noreset >"$work/xvfb.log" 2>&1 &
xvfb=$!
exec 3>&-
for _ in $(seq 100); do [ -s "$work/display" ] && break; sleep 0.1; done
export DISPLAY=":$(head -n1 "$work/display")"

# No OpenGL: the tests draw nothing with it, and the GL drivers it loads are
# unloaded before the leak checker of the sanitizer build can name them.
export QT_QPA_PLATFORM=xcb QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1 QT_XCB_GL_INTEGRATION=none
dbus-run-session -- bash -c '
    /usr/libexec/at-spi-bus-launcher --launch-immediately --a11y=1 >/dev/null 2>&1 &
    launcher=$!
    "$@"
    rc=$?
    kill "$launcher" 2>/dev/null
    exit $rc' bash "$@" 2> >(grep -v "Failed to set fd limit" >&2)

#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The signaltreelist developers
# SPDX-License-Identifier: BSD-3-Clause

# Sets up a fresh Debian 12 machine, builds the libraries and every test,
# runs them all headless and prints CTest's summary.
#
#   scripts/test.sh              build in build/ and run every test
#   scripts/test.sh --sanitize   the same under AddressSanitizer (with
#                                LeakSanitizer) and UndefinedBehaviorSanitizer,
#                                in build-sanitize/
#   scripts/test.sh --qt6 [--sanitize]
#                                the same on Qt 6 (installs qt6-base-dev when
#                                missing), in build-qt6/ or build-qt6-sanitize/
#   scripts/test.sh [--sanitize] -- CTEST_ARGS...
#                                pass arguments to ctest, e.g. -R stress
#
# BUILD_DIR overrides the build directory.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/setup.sh"

sanitize=0
qt=5
ctest_args=()
while [ $# -gt 0 ]; do
    case "$1" in
    --sanitize) sanitize=1 ;;
    --qt6) qt=6 ;;
    --) shift; ctest_args=("$@"); break ;;
    -h|--help) sed -n '2,15p' "${BASH_SOURCE[0]}"; exit 0 ;;
    *) echo "unknown argument: $1 (see --help)" >&2; exit 2 ;;
    esac
    shift
done

ensure_build_packages "$qt"
# The accessibility events are checked where Qt's accessibility is live:
# under Xvfb with a private session bus and accessibility bus.
ensure_packages xvfb dbus-bin dbus-daemon at-spi2-core
suffix=$(flavour_suffix "$qt")
if [ "$sanitize" -eq 1 ]; then
    build_dir=${BUILD_DIR:-$SIGNALTREELIST_ROOT/build$suffix-sanitize}
    configure_and_build "$build_dir" -DQT_MAJOR_VERSION="$qt" -DSIGNALTREELIST_BUILD_TESTS=ON -DSIGNALTREELIST_SANITIZE=ON
else
    build_dir=${BUILD_DIR:-$SIGNALTREELIST_ROOT/build$suffix}
    configure_and_build "$build_dir" -DQT_MAJOR_VERSION="$qt" -DSIGNALTREELIST_BUILD_TESTS=ON -DSIGNALTREELIST_SANITIZE=OFF
fi

cd "$build_dir"
# Each test sets its own Qt platform (offscreen, or minimal for real drags)
# and, in the sanitizer build, the ASAN/UBSAN/LSAN options.
ctest --output-on-failure "${ctest_args[@]}"

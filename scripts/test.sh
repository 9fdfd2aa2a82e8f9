#!/usr/bin/env bash
# Sets up a fresh Debian 12 machine, builds the libraries and every test,
# runs them all headless and prints CTest's summary.
#
#   scripts/test.sh            build in build/ and run every test
#
# BUILD_DIR overrides the build directory.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/setup.sh"

ensure_build_packages
build_dir=${BUILD_DIR:-$SIGNALTREELIST_ROOT/build}
configure_and_build "$build_dir" -DSIGNALTREELIST_BUILD_TESTS=ON

cd "$build_dir"
# Each test sets its own Qt platform (offscreen, or minimal for real drags).
ctest --output-on-failure

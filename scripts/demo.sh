#!/usr/bin/env bash
# Sets up a fresh Debian 12 machine, builds everything and runs the demo host.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/setup.sh"

ensure_build_packages
build_dir=${BUILD_DIR:-$SIGNALTREELIST_ROOT/build}
configure_and_build "$build_dir"
echo "Built the libraries and tests in $build_dir."

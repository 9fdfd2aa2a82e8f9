#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The signaltreelist developers
# SPDX-License-Identifier: BSD-3-Clause

# Builds the Debian packages of one flavour into packages/:
#   scripts/package.sh          Qt 5: libsignaltreelist1, libsignaltreelist-dev
#   scripts/package.sh --qt6    Qt 6: libsignaltreelist-qt6-1, libsignaltreelist-qt6-dev
# Release build for /usr (multiarch library directory), no RPATH, with the
# API reference; installs what a fresh Debian 12 machine lacks.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/setup.sh"

qt=5
case "${1:-}" in
    --qt6) qt=6 ;;
    "") ;;
    *) echo "usage: $0 [--qt6]" >&2; exit 2 ;;
esac

ensure_build_packages "$qt"
ensure_packages doxygen dpkg-dev file

build=$SIGNALTREELIST_ROOT/build-package$(flavour_suffix "$qt")
out=$SIGNALTREELIST_ROOT/packages
cmake -S "$SIGNALTREELIST_ROOT" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release \
      -DCMAKE_INSTALL_PREFIX=/usr -DQT_MAJOR_VERSION="$qt" \
      -DSIGNALTREELIST_BUILD_TESTS=OFF -DSIGNALTREELIST_BUILD_EXAMPLES=OFF \
      -DSIGNALTREELIST_RELOCATABLE=OFF -DSIGNALTREELIST_INSTALL_DOCS=ON
cmake --build "$build" -j "$(nproc)"
mkdir -p "$out"
(cd "$build" && cpack -G DEB -B "$out")
rm -rf "$out/_CPack_Packages"
ls -l "$out"/*.deb

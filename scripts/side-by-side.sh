#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The signaltreelist developers
# SPDX-License-Identifier: BSD-3-Clause

# Installs the Qt 5 and the Qt 6 flavour into one prefix and builds and runs
# one host program per flavour against it (find_package and pkg-config):
# the two must not clash. Uses build/ and build-qt6/, building them when
# they are missing.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/setup.sh"

ensure_build_packages 5
ensure_build_packages 6
qt5_build=$SIGNALTREELIST_ROOT/build
qt6_build=$SIGNALTREELIST_ROOT/build-qt6
[ -f "$qt5_build/build.ninja" ] || configure_and_build "$qt5_build" -DQT_MAJOR_VERSION=5
[ -f "$qt6_build/build.ninja" ] || configure_and_build "$qt6_build" -DQT_MAJOR_VERSION=6
cmake --build "$qt5_build" -j "$(nproc)"
cmake --build "$qt6_build" -j "$(nproc)"

work=$SIGNALTREELIST_ROOT/build-side-by-side
# Each flavour is installed over the other one and must still build and run.
cmake -DBUILD_DIR="$qt5_build" -DOTHER_BUILD_DIR="$qt6_build" -DPACKAGE=signaltreelist \
      -DSOURCE_DIR="$SIGNALTREELIST_ROOT/tests/consumer" -DWORK_DIR="$work/qt5" \
      -P "$SIGNALTREELIST_ROOT/tests/consumer/run_consumer.cmake"
cmake -DBUILD_DIR="$qt6_build" -DOTHER_BUILD_DIR="$qt5_build" -DPACKAGE=signaltreelist-qt6 \
      -DSOURCE_DIR="$SIGNALTREELIST_ROOT/tests/consumer" -DWORK_DIR="$work/qt6" \
      -P "$SIGNALTREELIST_ROOT/tests/consumer/run_consumer.cmake"
# Both builds' last install went into the same prefix: no file in common.
shared=$(comm -12 <(sort "$qt5_build/install_manifest.txt") <(sort "$qt6_build/install_manifest.txt"))
if [ -n "$shared" ]; then
    echo "The two flavours install the same files:" >&2
    echo "$shared" >&2
    exit 1
fi
echo "Both flavours installed side by side in one prefix, no file in common; a host of each built and ran:"
(cd "$work/qt6/prefix" && find . -name '*.so.1' -o -name '*.pc' -o -name '*Config.cmake' | sort)

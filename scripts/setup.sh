# SPDX-FileCopyrightText: 2026 The signaltreelist developers
# SPDX-License-Identifier: BSD-3-Clause

# Sourced by the other scripts: installs what a fresh Debian 12 machine lacks.
# Packages are installed with apt-get only when missing.

SIGNALTREELIST_ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

# ensure_packages PKG... : apt-get install the packages that are not installed.
ensure_packages() {
    local missing=()
    local pkg
    for pkg in "$@"; do
        if ! dpkg-query -W -f='${Status}' "$pkg" 2>/dev/null | grep -q "install ok installed"; then
            missing+=("$pkg")
        fi
    done
    [ ${#missing[@]} -eq 0 ] && return 0
    echo "Installing missing packages: ${missing[*]}"
    local sudo=()
    if [ "$(id -u)" -ne 0 ]; then
        sudo=(sudo)
    fi
    "${sudo[@]}" apt-get update -qq
    DEBIAN_FRONTEND=noninteractive "${sudo[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}"
}

# ensure_build_packages [5|6]: the tool chain, Qt 5 (default) or Qt 6, and a
# font for headless rendering.
ensure_build_packages() {
    # Linguist tools: lrelease builds the catalogues into the library.
    local qt=(qtbase5-dev qtbase5-dev-tools qttools5-dev qttools5-dev-tools)
    if [ "${1:-5}" = 6 ]; then
        qt=(qt6-base-dev qt6-base-dev-tools qt6-tools-dev qt6-l10n-tools)
    fi
    ensure_packages cmake ninja-build g++ pkg-config binutils "${qt[@]}" fonts-dejavu-core
}

# flavour_suffix 5|6: "" or "-qt6", for build directories.
flavour_suffix() {
    [ "$1" = 6 ] && echo "-qt6" || true
}

# configure_and_build BUILD_DIR [CMAKE_ARGS...]
configure_and_build() {
    local build_dir=$1
    shift
    cmake -S "$SIGNALTREELIST_ROOT" -B "$build_dir" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo "$@"
    cmake --build "$build_dir" -j "$(nproc)"
}

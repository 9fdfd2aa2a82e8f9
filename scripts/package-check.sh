#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The signaltreelist developers
# SPDX-License-Identifier: BSD-3-Clause

# Checks the four Debian packages in packages/ (scripts/package.sh and
# scripts/package.sh --qt6 build them): lintian reports no error; they
# install together with apt-get; a Qt 5 and a Qt 6 host build against /usr
# (find_package and pkg-config) and run; the API reference, licence and
# changelog are in place; removing the packages leaves none of their files.
# Needs root (or sudo): it installs into and removes from the system.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/setup.sh"

out=$SIGNALTREELIST_ROOT/packages
runtime5=libsignaltreelist1
dev5=libsignaltreelist-dev
runtime6=libsignaltreelist-qt6-1
dev6=libsignaltreelist-qt6-dev
packages=($runtime5 $dev5 $runtime6 $dev6)
debs=()
for p in "${packages[@]}"; do
    deb=$(ls "$out/${p}_"*.deb 2>/dev/null | head -n1 || true)
    if [ -z "$deb" ]; then
        echo "missing $out/${p}_*.deb: run scripts/package.sh and scripts/package.sh --qt6 first" >&2
        exit 1
    fi
    debs+=("$deb")
done

sudo=()
[ "$(id -u)" -ne 0 ] && sudo=(sudo)
ensure_packages lintian

echo "== lintian"
lintian_out=$(lintian --allow-root "${debs[@]}" 2>&1 || true)
echo "$lintian_out"
if echo "$lintian_out" | grep -q '^E: '; then
    echo "lintian reports errors" >&2
    exit 1
fi

echo "== install all four"
DEBIAN_FRONTEND=noninteractive "${sudo[@]}" apt-get install -y -qq --no-install-recommends "${debs[@]}"
files=$(mktemp)
for p in "${packages[@]}"; do
    dpkg -L "$p" >> "$files"
    test -f "/usr/share/doc/$p/copyright" || { echo "$p lacks its copyright file" >&2; exit 1; }
done
for p in $dev5 $dev6; do
    test -f "/usr/share/doc/$p/html/index.html" || { echo "$p lacks the API reference" >&2; exit 1; }
    test -f "/usr/share/doc/$p/html/classSignalTreeList.html" || { echo "$p lacks the class page" >&2; exit 1; }
done

work=$(mktemp -d)
trap 'rm -rf "$work" "$files"' EXIT
for flavour in signaltreelist signaltreelist-qt6; do
    echo "== $flavour host against /usr"
    cmake -S "$SIGNALTREELIST_ROOT/tests/consumer" -B "$work/$flavour" -G Ninja \
          -DSIGNALTREELIST_PACKAGE=$flavour > /dev/null
    cmake --build "$work/$flavour" > /dev/null
    QT_QPA_PLATFORM=offscreen "$work/$flavour/consumer"
    # shellcheck disable=SC2046
    c++ -std=c++17 -fPIC "$SIGNALTREELIST_ROOT/tests/consumer/main.cpp" \
        $(pkg-config --cflags --libs $flavour) -o "$work/$flavour-pkgconfig"
    QT_QPA_PLATFORM=offscreen "$work/$flavour-pkgconfig"
done

echo "== remove all four"
DEBIAN_FRONTEND=noninteractive "${sudo[@]}" apt-get purge -y -qq "${packages[@]}" > /dev/null
left=()
while IFS= read -r path; do
    # Directories other packages share (/usr/lib, ...) stay; our own go.
    if [ -e "$path" ] && { [ ! -d "$path" ] || [[ "$path" == *signaltreelist* || "$path" == *tarnwidgets* ]]; }; then
        left+=("$path")
    fi
done < <(sort -u "$files")
if [ ${#left[@]} -ne 0 ]; then
    echo "left behind after removal:" >&2
    printf '  %s\n' "${left[@]}" >&2
    exit 1
fi
echo "All four packages: no lintian error, installed together, a Qt 5 and a Qt 6 host built and ran, removed without a trace."

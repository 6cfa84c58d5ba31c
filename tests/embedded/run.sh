#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Configures the tree as the subdirectory of another project, where it is the library alone, and by
# itself without anything that only the programs need. Builds a file that a program made, and one
# that includes the headers.
# Usage: run.sh SOURCE-FOLDER C++-COMPILER C-COMPILER
set -euo pipefail
source=$1
compilers=(--no-warn-unused-cli -G Ninja -DCMAKE_CXX_COMPILER="$2" -DCMAKE_C_COMPILER="$3")
here=$(cd "$(dirname "$0")" && pwd)
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

refuse() { # PATTERN FILE
    if grep -E "$1" "$2"; then
        echo "that shouldn't be there" >&2
        exit 1
    fi
}

# Other packages count as missing.
cat >"$folder/pkg-config" <<'SH'
#!/bin/sh
case "$*" in *poppler* | *tiff* | *lept* | *xcb* | *png* | *sqlite*) exit 1 ;; esac
exec pkg-config "$@"
SH
chmod +x "$folder/pkg-config"
missing=(-DPKG_CONFIG_EXECUTABLE="$folder/pkg-config")
for package in PNG SQLite3 Qt6 GTest benchmark; do
    missing+=(-DCMAKE_DISABLE_FIND_PACKAGE_$package=ON)
done

mkdir "$folder/parent"
cp "$here/parent.cmake" "$folder/parent/CMakeLists.txt"
cat >"$folder/parent/parent.c" <<'C'
#include <zerdix/sendfax.h>
#include <zerdix/version.h>
int main(void) {
    return ZERDIX_VERSION[0] == '0' + ZERDIX_VERSION_MAJOR ? DeleteFaxDoc() : 1;
}
C
cmake "${compilers[@]}" "${missing[@]}" -DZERDIX_SOURCE="$source" \
    -S "$folder/parent" -B "$folder/build" >"$folder/said"
refuse 'turned off' "$folder/said"
ninja -C "$folder/build" CMakeFiles/parent.dir/parent.c.o \
    zerdix/src/common/german_resources.cpp >/dev/null
[ -e "$folder/build/zerdix/share/zerdix/english.lng" ]
ninja -C "$folder/build" -t targets all >"$folder/targets"
grep -q 'libzxdrvw32.so' "$folder/targets"
refuse 'alphad|zerdix_cli|_test' "$folder/targets"

cmake "${compilers[@]}" "${missing[@]}" -S "$source" -B "$folder/alone" >"$folder/said"
for option in APPS ALPHAD DIALOGS TESTS BENCH; do
    grep "ZERDIX_$option is turned off: .* is missing" "$folder/said"
done
ninja -C "$folder/alone" -t targets all >"$folder/targets"
grep -q 'libzxdrvw32.so' "$folder/targets"
refuse '(alphad|zerdix_cli|_test|ratio):' "$folder/targets"

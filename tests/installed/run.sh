#!/usr/bin/env bash
# Installs the project into a temporary folder, builds a driver in C by pkg-config and a client in
# C++ by the CMake package, and runs both against the installed server.
# Usage: run.sh BUILD-FOLDER SOURCE-FOLDER
set -euo pipefail
build=$1 here=$2/tests/installed
folder=$(mktemp -d)
server=
trap '[ -z "$server" ] || kill "$server" 2>/dev/null; wait; rm -rf "$folder"' EXIT

prefix=$folder/prefix
cmake --install "$build" --prefix "$prefix" >/dev/null
libs=$(dirname "$(find "$prefix" -name libzxdrvw32.so)")
export LD_LIBRARY_PATH=$libs PKG_CONFIG_PATH=$libs/pkgconfig ZERDIX_INI=$folder/zerdix.ini
export ZERDIXRPCOFFSET=$((500000 + $$))
# The .pc file names the configured prefix; its variables are the caller's to set.
cc -std=c11 -Wall -Wextra -Wpedantic -Werror "$here/driver.c" -o "$folder/driver" \
    $(pkg-config --define-variable=prefix="$prefix" --cflags --libs zxdrvw32)
mkdir "$folder/client"
cp "$here/client.cpp" "$folder/client/"
cp "$here/client.cmake" "$folder/client/CMakeLists.txt"
cmake -G Ninja -S "$folder/client" -B "$folder/client/build" -DCMAKE_PREFIX_PATH="$prefix" >/dev/null
cmake --build "$folder/client/build" >/dev/null

printf '[Zerdix]\nHost=127.0.0.1\nLogDir=%s\n' "$folder" >"$ZERDIX_INI"
alphad=$(find "$prefix" -name alphad -type f)
"$alphad" --data "$folder/data" --spool "$folder/spool" >"$folder/ready" &
server=$!
for _ in $(seq 100); do
    [ -s "$folder/ready" ] && break
    sleep 0.05
done
"$folder/driver"
"$folder/client/build/client"
[ "$(find "$folder/spool" -name '*.tif' | wc -l)" -eq 2 ]
[ ! -e "$folder/FAXERROR.LOG" ]
echo "installed library, driver and client work"

#!/usr/bin/env bash
# Installs the project into a temporary folder, builds the three programs of the tutorial as its
# readers would, the drivers by pkg-config and the desktop client by the CMake package, and runs them
# against the installed server. The tutorial's text must show them as they are.
# Usage: run.sh BUILD-FOLDER SOURCE-FOLDER
set -euo pipefail
build=$1 source=$2
folder=$(mktemp -d)
children=()
trap 'kill "${children[@]}" 2>/dev/null; wait; rm -rf "$folder"' EXIT

prefix=$folder/prefix
cmake --install "$build" --prefix "$prefix" >/dev/null
libs=$(dirname "$(find "$prefix" -name libzxdrvw32.so)")
export LD_LIBRARY_PATH=$libs PKG_CONFIG_PATH=$libs/pkgconfig ZERDIX_INI=$folder/zerdix.ini
export ZERDIXRPCOFFSET=$((500000 + $$))

grep -q "\"$(pkg-config --modversion zxdrvw32)\"" "$prefix/include/zerdix/version.h"

listing() { awk -v fence="\`\`\`$1" '$0 == fence { on = 1; next } /^```/ { on = 0 } on' "$source/docs/tutorial.md"; }
listing c | diff - <(cat "$source/examples/driver.c" "$source/examples/spooler.c")
listing cpp | diff - "$source/examples/desktop.cpp"

# The .pc file names the configured prefix; its variables are the caller's to set.
for driver in driver spooler; do
    cc -std=c11 -Wall -Wextra -Wpedantic -Werror "$source/examples/$driver.c" -o "$folder/$driver" \
        $(pkg-config --define-variable=prefix="$prefix" --cflags --libs zxdrvw32)
done
mkdir "$folder/desktop"
cp "$source/examples/desktop.cpp" "$folder/desktop/"
cp "$source/tests/installed/desktop.cmake" "$folder/desktop/CMakeLists.txt"
cmake -G Ninja -S "$folder/desktop" -B "$folder/desktop/build" -DCMAKE_PREFIX_PATH="$prefix" >/dev/null
cmake --build "$folder/desktop/build" >/dev/null

printf '%s\n' '[Zerdix]' 'Language32=Francais,zerdix.hlp,francais.lng' Host=127.0.0.1 \
    "LogDir=$folder" >"$ZERDIX_INI"
alphad=$(find "$prefix" -name alphad -type f)
start_server() {
    : >"$folder/ready"
    "$alphad" --data "$folder/data" --spool "$folder/spool" >"$folder/ready" &
    server=$! children+=($!)
    for _ in $(seq 100); do
        [ -s "$folder/ready" ] && return
        sleep 0.05
    done
}
start_server
"$folder/driver" "030 11" "030 22"
[ "$(find "$folder/spool" -name '*.tif' | wc -l)" -eq 2 ]
[ ! -e "$folder/FAXERROR.LOG" ]

# Three jobs of one process; the server is gone for a while in the second.
coproc spooler { exec "$folder/spooler"; }
children+=("$spooler_PID")
tell() { printf '%s\n' "$1" >&"${spooler[1]}" && read -r -t 60 answer <&"${spooler[0]}"; }
expect() {
    tell "$1" && [[ $answer == $2 ]] && return
    echo "to '$1' the spooler answers '$answer'" >&2
    return 1
}
jobs() { "$alphad" jobs --data "$folder/data"; }
for line in 'job One' page '#PHONE 030 31#'; do expect "$line" ok; done
expect end 'handed over'
for line in 'job Two' page '#PHONE 030 32#'; do expect "$line" ok; done
kill -KILL $server
wait $server || true
expect page failed
start_server
expect page failed
expect end 'given up, document [1-9]* stays on the desk'
for line in 'job Three' cover '#SENDTIME DELAYED##PHONE 030 33##PHONE 030 34#' page; do
    expect "$line" ok
done
expect end 'handed over, as far as cover pages could be made'
exec {spooler[1]}>&-
wait "${children[1]}"
[ "$(jobs | grep -c '^[0-9].* 2 *waiting  Three ')" -eq 2 ] # a cover page before the page
[ "$(jobs | grep -c '^[0-9].* spooled  One ')" -eq 1 ]
[ "$(jobs | grep -c '^[0-9]')" -eq 5 ]
grep -q 'AbandonFaxDoc(): Document [1-9]' "$folder/FAXERROR.LOG"

desktop=$folder/desktop/build/desktop
"$desktop" 127.0.0.1 zerdix zerdix "$folder/page.pbm" >"$folder/shown"
grep -q '^document [1-9]' "$folder/shown"
grep -q '^phone book common$' "$folder/shown"
read -r width height < <(sed -n 2p "$folder/page.pbm")
[ "$(stat -c %s "$folder/page.pbm")" -eq $((width / 8 * height + 5 + ${#width} + ${#height})) ]
if "$desktop" 127.0.0.1 zerdix wrong "$folder/none.pbm"; then exit 1; fi
grep -q 'Wrong password' "$folder/FAXERROR.LOG"
echo "installed library, drivers and desktop client work"

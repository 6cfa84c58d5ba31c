#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Follows the tutorial as its readers would, with nothing set up for them: takes its programs, its
# settings and its commands off the page, in an empty home folder, and looks at what comes of them.
# Then what an installation promises beyond that.
# Usage: run.sh BUILD-FOLDER SOURCE-FOLDER
set -euo pipefail
build=$1 source=$2
folder=$(mktemp -d)
children=()
trap 'kill "${children[@]}" 2>/dev/null; wait; rm -rf "$folder"' EXIT

export HOME=$folder/home ZERDIXRPCOFFSET=$((500000 + $$)) CMAKE_GENERATOR=Ninja
unset ZERDIX_INI ZERDIX_RESOURCES XDG_CONFIG_HOME LD_LIBRARY_PATH PKG_CONFIG_PATH
mkdir -p "$HOME/.config/zerdix" "$folder/work"
cd "$folder/work"
ln -s "$build" build

page=$source/docs/tutorial.md
# Whatever has a name behind the language of its fence is a file.
awk '/^```[a-z]+ ./ { file = $2; next } /^```/ { file = "" } file { print > file }' "$page"
for program in "$source"/examples/*; do
    diff "$(basename "$program")" "$program"
done
mv zerdix.ini "$HOME/.config/zerdix/"
commands() { # of the block with that number
    awk -v number="$1" '/^```sh$/ { on = ++count == number; next } /^```/ { on = 0 } on' "$page"
}

eval "$(commands 1)" >"$folder/set-up" 2>&1
server=$! children+=($!)
await_server() {
    for _ in $(seq 100); do
        ! grep -q listening "$folder/set-up" || return 0
        sleep 0.05
    done
}
await_server
grep -q "\"$(pkg-config --modversion zxdrvw32)\"" "$HOME/zerdix/include/zerdix/version.h"

eval "$(commands 2)" >"$folder/jobs"
[ "$(grep -Ec '^[0-9]+ .*(waiting|spooled)' "$folder/jobs")" -eq 2 ]
cc -std=c11 -Wall -Wextra -Wpedantic -Werror driver.c -o driver $(pkg-config --cflags --libs zxdrvw32)

eval "$(commands 3)" >"$folder/shown"
grep -Eq '^document [1-9][0-9]* from .*[0-9], [0-9-]+ [0-9:]+, [0-9]+ pages' "$folder/shown"
grep -q '^phone book common$' "$folder/shown"
read -r width height < <(sed -n 2p page.pbm)
[ "$(stat -c %s page.pbm)" -eq $(((width + 7) / 8 * height + 5 + ${#width} + ${#height})) ]
# The name of the picture is a name and nothing more, and nothing lies beside it.
mkdir pictures
client/desktop 127.0.0.1 zerdix zerdix "pictures/it's \$(touch here).pbm" >/dev/null
cmp "pictures/it's \$(touch here).pbm" page.pbm
[ "$(ls pictures | wc -l)" -eq 1 ]
[ ! -e here ]
# The library asks for the C++ that it needs, whatever the program's own project has.
cmake -B older -DCMAKE_PREFIX_PATH="$HOME/zerdix" -DCMAKE_CXX_STANDARD=14 >/dev/null
cmake --build older >/dev/null

log=$HOME/.local/state/zerdix/FAXERROR.LOG
[ ! -e "$log" ]
result=0
client/desktop 127.0.0.1 zerdix wrong none.pbm || result=$?
[ "$result" -eq 1 ]
grep -q 'Wrong password' "$log"
[ ! -e FAXERROR.LOG ]

# Three jobs of one process; the server is gone for a while in the second.
cc -std=c11 -Wall -Wextra -Wpedantic -Werror spooler.c -o spooler $(pkg-config --cflags --libs zxdrvw32)
coproc spooler { exec ./spooler; }
children+=("$spooler_PID")
tell() { printf '%s\n' "$1" >&"${spooler[1]}" && read -r -t 60 answer <&"${spooler[0]}"; }
expect() {
    tell "$1" && [[ $answer == $2 ]] && return
    echo "to '$1' the spooler answers '$answer'" >&2
    return 1
}
for line in 'job One' page '#PHONE 030 31#'; do expect "$line" ok; done
expect end '1 of 1 handed over, 0 unknown'
for line in 'job Two' page '#PHONE 030 32#'; do expect "$line" ok; done
kill -KILL "$server"
wait "$server" || true
expect page failed
alphad --data ~/zerdix-data --spool ~/zerdix-spool >"$folder/set-up" 2>&1 &
children+=($!)
await_server
expect page failed
expect end 'given up, document [1-9]* stays on the desk'
for line in 'job Three' cover '#SENDTIME DELAYED##PHONE 030 33##PHONE 030 34#' page; do
    expect "$line" ok
done
expect end '2 of 2 handed over, 0 unknown'
exec {spooler[1]}>&-
wait "${children[1]}"
alphad jobs --data ~/zerdix-data --spool ~/zerdix-spool >"$folder/jobs"
[ "$(grep -c '^[0-9].* 2 *waiting  Three ' "$folder/jobs")" -eq 2 ] # a cover page before the page
[ "$(grep -c '^[0-9].* spooled  One ' "$folder/jobs")" -eq 1 ]
[ "$(grep -c '^[0-9]' "$folder/jobs")" -eq 5 ]
grep -q 'AbandonFaxDoc(): Document [1-9]' "$log"

# A path of the settings may begin at the home.
echo zerdix >"$HOME/password"
echo 'PasswordFile=~/password' >>"$HOME/.config/zerdix/zerdix.ini"
zerdix doc list >/dev/null

# Where nobody has written settings no program says more than it was asked, nor leaves a file.
mkdir fresh
for program in "$HOME/zerdix/bin/zerdix" "$build/apps/zerdix/zerdix"; do
    (cd fresh && env -i HOME="$folder/nobody" "$program" --version) >"$folder/said" 2>&1
    grep -qx 'zerdix [0-9.]*' "$folder/said"
    [ "$(wc -l <"$folder/said")" -eq 1 ]
done
[ -z "$(ls fresh)" ]
[ ! -e "$folder/nobody" ]

# The machine's settings are in its language, and stay once they are there.
language() { # LANG CONTENT-OF-LOCALE-FILE
    echo "$2" >"$folder/locale"
    LC_ALL='' LC_MESSAGES='' LANG=$1 cmake -D settings_file="$folder/machine.ini" \
        -D locale_files="$folder/locale" -P "$source/cmake/ZerdixSettings.cmake"
    sed -n 's/^Language32=\([^,]*\),.*/\1/p' "$folder/machine.ini"
}
[ "$(language de_DE.UTF-8 '')" = Deutsch ]
[ "$(language de_DE.UTF-8 'LANG=C.UTF-8')" = English ]
[ "$(language C 'LANG="fr_CH.UTF-8"')" = Francais ]
[ "$(language C "$(printf 'LC_MESSAGES=en_US\nLANG=de_DE')")" = US ]
[ "$(language es_ES '')" = English ]
echo '; mine' >>"$HOME/zerdix/etc/zerdix/zerdix.ini"
cmake --install build --prefix "$HOME/zerdix" >/dev/null
grep -q '^; mine' "$HOME/zerdix/etc/zerdix/zerdix.ini"
echo "what the tutorial says works"

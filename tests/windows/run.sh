#!/usr/bin/env bash
# A user at a screen, by the keyboard alone: a print job that asks for its receivers, one that is
# cancelled, documents of the desk, and a screen that isn't there. After each, what the server holds.
# Usage: run.sh BUILD-FOLDER SOURCE-FOLDER
set -euo pipefail
build=$1 source=$2
. "$source/tests/support/window-driver"
folder=$(mktemp -d)
server=
finish() {
    [ -z "$server" ] || kill "$server" 2>/dev/null || true
    stop_screen
    wait
    rm -rf "$folder"
}
trap finish EXIT

export ZERDIXRPCOFFSET=$((500000 + $$)) ZERDIX_INI=$folder/zerdix.ini XDG_RUNTIME_DIR=$folder
export ZERDIX_RESOURCES=$source/resources
unset ZERDIX_DIALOGS
(
    umask 077
    printf '%s\n' '[Zerdix]' 'Language32=English,zerdix.hlp,english.lng' Host=127.0.0.1 \
        User=zerdix Password=zerdix "LogDir=$folder" >"$ZERDIX_INI"
)
PATH=$build/apps/zerdix:$build/alphad:$PATH
sample=$source/apps/zerdix/sample/sample.pdf
dialog="Send document"

alphad --data "$folder/data" --spool "$folder/spool" >"$folder/ready" &
server=$!
patiently test -s "$folder/ready"

fail() {
    echo "windows: $*" >&2
    zerdix doc list >&2 || true
    exit 1
}
expect() {
    [ "$2" = "$3" ] || fail "$1: \"$2\" in place of \"$3\""
}
# A command in the background, and how it ended.
begin() {
    "$@" >"$folder/out" 2>"$folder/errors" &
    command=$!
}
end_with() {
    local code=0
    wait "$command" || code=$?
    expect "exit code ($(cat "$folder/errors"))" "$code" "$1"
}
# "receiver pages" of each send job from the given number on, in the order of the receivers.
jobs_from() {
    zerdix status --json | jq -r ".[$1:][] | \"\(.receiver) \(.pages)\"" | LC_ALL=C sort | paste -sd,
}
count() {
    zerdix doc list "$1" --json | jq length
}

desk=$(count desk)

# Without a screen nothing is stored.
begin env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM zerdix print "$sample"
end_with 75
begin env DISPLAY=:987 QT_QPA_PLATFORM=xcb zerdix print "$sample"
end_with 75
expect "documents on the desk" "$(count desk)" "$desk"

start_screen

# A typed number, an entry and a group, each with a cover page of their own.
begin zerdix print "$sample"
await_window "$dialog"
words "030 4711"
keys Return alt+t Tab Tab Home Return alt+g Tab Home Down Return alt+v alt+c Return
await_no_window "$dialog"
end_with 0
expect "jobs" "$(jobs_from 0)" \
    "02214710925 4,030 4711 4,03023125101 4,03023125208 4,06990009212 4,08999998417 4"
expect "documents on the desk" "$(count desk)" "$desk"
all_spooled() {
    [ "$(find "$folder/spool" -name '*.tif' | wc -l)" -eq "$1" ]
}
patiently all_spooled 6 || fail "$(ls "$folder/spool")"

# Cancelled: the document goes.
begin zerdix print "$sample"
await_window "$dialog"
words "030 4711"
keys Return Escape
end_with 130
expect "jobs" "$(count outgoing)" 6
expect "documents on the desk" "$(count desk)" "$desk"

# Without a receiver the dialog says so and stays.
begin zerdix print "$sample"
await_window "$dialog"
keys alt+c Return
await_window Notification
keys Return
await_window "$dialog"
keys Escape
end_with 130

# Two documents of the desk to one receiver, with a cover page; what was there stays as it was.
begin zerdix send desk:5 desk:6
await_window "$dialog"
words 0301
keys Return alt+v alt+c Return
await_no_window "$dialog"
end_with 0
expect "jobs" "$(jobs_from 6)" "0301 2,0301 2"
expect "what is said" "$(cat "$folder/out")" "2 send jobs made"
expect "pages of document 5" "$(zerdix doc list desk --json | jq ".[] | select(.id == 5).pages")" 1
patiently all_spooled 8 || fail "$(ls "$folder/spool")"

# Onto somebody else's desk.
begin zerdix print "$sample"
await_window "$dialog"
keys alt+k
await_window "Choose a user"
keys Home Return
await_no_window "$dialog"
end_with 0
expect "jobs" "$(count outgoing)" 8
echo "the windows work"

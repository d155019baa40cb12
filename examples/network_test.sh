#!/usr/bin/env bash
# Runs the examples of the network against each other: network_test.sh STORAGE_SERVER ECHO [GLIB_ECHO]
set -euo pipefail
server=$1 echo=$2 glib=${3:-}
folder=$(mktemp -d)
trap 'kill "$pid" 2>/dev/null || true; rm -rf "$folder"' EXIT
clients=1
[ -z "$glib" ] || clients=$((clients + 1))
storescu=$(command -v storescu || true)
[ -z "$storescu" ] || clients=$((clients + 1))

mkdir "$folder/objects"
"$server" 0 "$folder/objects" "$clients" >"$folder/log" &
pid=$!
for _ in $(seq 100); do
    port=$(sed -n 's/^listening, port //p' "$folder/log")
    [ -z "$port" ] || break
    sleep 0.05
done
[ -n "$port" ] || { echo "the server does not listen"; exit 1; }
"$echo" 127.0.0.1 "$port" | grep 'status 0000'
[ -z "$glib" ] || "$glib" 127.0.0.1 "$port" | grep 'status 0000'
if [ -n "$storescu" ]; then
    "$storescu" -aec ANY-SCP 127.0.0.1 "$port" "$OBJECT"
    cat "$folder/log"
    ls "$folder/objects" | grep '\.dcm$'
fi
wait "$pid" # it ends by itself after the last association

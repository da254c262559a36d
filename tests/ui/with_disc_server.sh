#!/bin/bash
# Runs a command while the disc server plays an HTTP proxy on the loopback: tests/ui/with_disc_server.sh COMMAND...
# TAGRIX_PROXY_PORT tells the command where, TAGRIX_SAMPLE names a folder with the MP3 files of one of its discs. Where
# the server, sox or lame is missing the command runs without them.
set -euo pipefail
root=$(cd "$(dirname "$0")/../.." && pwd)
record=$root/discserver/records/rock/47013c08
sample=$root/build/sample/${record##*/}
server=$(find "$root"/build/{asan,native} -type f -name discserver -perm -u+x -print -quit 2>/dev/null || true)

if [ -n "$server" ] && command -v sox lame >/dev/null; then
  if [ ! "$sample" -nt "$root/scripts/make_sample" ]; then
    rm -rf "$sample" "$sample.new"
    "$root/scripts/make_sample" "$record" "$sample.new"
    mv "$sample.new" "$sample"
  fi
  # Made afresh, so that it holds what lies in the folder now.
  database=$(mktemp --suffix .discs.db)
  "$server" import --database "$database" "$root/discserver/records"
  exec {address}< <(exec "$server" serve --database "$database")
  server_process=$!
  trap 'kill "$server_process"; rm -f "$database"' EXIT
  read -r line <&"$address"
  export TAGRIX_PROXY_PORT=${line##*:} TAGRIX_SAMPLE=$sample
fi
"$@"

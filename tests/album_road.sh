#!/bin/bash
# tests/album_road.sh PROGRAM: lets the program name and tag a copy of the sample album, and looks at what it made of it.
# Runs under tests/ui/with_disc_server.sh.
set -euo pipefail
if [ -z "${TAGRIX_SAMPLE:-}" ]; then
  echo "Without a disc server, sox and lame there is no album to go the road with."
  exit 1
fi
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cp -r "$TAGRIX_SAMPLE" "$folder/Paper Lanterns"
"$1" "$folder/Paper Lanterns" "$TAGRIX_PROXY_PORT"

cd "$folder/Paper Lanterns"
diff <(ls) - <<'END'
01 - Leaving the Quay.mp3
02 - Tin Roof Rain.mp3
03 - Interlude.mp3
04 - Slow Ferry.mp3
05 - Copper Wire.mp3
06 - Half a Map.mp3
07 - The Lamplighter's Daughter.mp3
08 - Harbour Lights.mp3
Harbour Lights.m3u
END
for song in *.mp3; do
  tail -c 128 "$song" | grep -qa "TAG${song:5:5}"
done

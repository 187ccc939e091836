#!/usr/bin/env bash
# render_example.sh HOST LAYOUT SYMBOLS
#
# Renders an example layout with its file of values: silently, into a picture and nothing else. Each
# line of SYMBOLS names a decoder and what it must read in the picture.
set -euo pipefail

host=$1
layout=$2
symbols=$3

folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
picture=$folder/picture.png

"$host" "$layout" "$picture" "--values=${layout%.xml}.values" >"$folder/said" 2>&1 ||
    { cat "$folder/said"; exit 1; }
[ ! -s "$folder/said" ] || { echo "the host said:"; cat "$folder/said"; exit 1; }
rm "$folder/said"
[ "$(ls "$folder")" = picture.png ] || { echo "files were left behind:"; ls "$folder"; exit 1; }

decode() {
    case $(basename "$1") in
    zbarimg) "$1" --quiet --nodbus --raw "$picture" ;;
    dmtxread) "$1" --stop-after=1 "$picture" ;;
    ZXingReader) "$1" "$picture" | sed -n 's/^Text: *"\(.*\)"$/\1/p' ;;
    *) echo "unknown decoder $1" ;;
    esac
}

while read -r decoder expected; do
    decoded=$(decode "$decoder")
    [ "$decoded" = "$expected" ] || { printf 'expected: %s\ndecoded:  %s\n' "$expected" "$decoded"; exit 1; }
done <"$symbols"

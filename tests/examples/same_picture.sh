#!/usr/bin/env bash
# same_picture.sh C_HOST LAYOUT HOST [ARGUMENT]...
#
# Another host makes the same file, byte by byte, as the C host makes of an example layout with its
# values. Among the other host's arguments @OUTPUT@ stands for the picture and @LAYOUT@ for the
# document; the values are added behind them, one argument each.
set -euo pipefail

c_host=$1
layout=$2
shift 2

folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
mkdir -m 700 "$folder/runtime" "$folder/out"
export XDG_RUNTIME_DIR=$folder/runtime

values=${layout%.xml}.values
mapfile -t settings < <(sed '/^#/d; /^$/d' "$values")
host=("${@//@OUTPUT@/$folder/out/picture.png}")
host=("${host[@]//@LAYOUT@/$layout}")

"$c_host" "$layout" "$folder/expected.png" "--values=$values"
"${host[@]}" "${settings[@]}" >/dev/null 2>"$folder/said" || { cat "$folder/said"; exit 1; }

[ ! -s "$folder/said" ] || { echo "the host said:"; cat "$folder/said"; exit 1; }
[ "$(ls -A "$folder/out")" = picture.png ] || { echo "files were left behind:"; ls -A "$folder/out"; exit 1; }
cmp "$folder/expected.png" "$folder/out/picture.png"

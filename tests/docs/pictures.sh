#!/usr/bin/env bash
# pictures.sh GUIDE...
#
# Every picture in docs/pictures is rendered from a document beside it, and every document is used: a
# guide shows or links it, or another document shows its picture.
set -euo pipefail
shopt -s nullglob

folder=docs/pictures
status=0
complain() {
    echo "$1" >&2
    status=1
}

# The picture of the README is rendered from the README itself, by a test of its own.
documentless=readme_receipt

for picture in "$folder"/*.png; do
    name=$(basename "$picture" .png)
    [ "$name" = "$documentless" ] || [ -f "$folder/$name.xml" ] || complain "$picture has no document"
done
for values in "$folder"/*.values; do
    [ -f "${values%.values}.xml" ] || complain "$values has no document"
done
documents=("$folder"/*.xml)
[ ${#documents[@]} -gt 0 ] || complain "there are no documents in $folder"
for document in "${documents[@]}"; do
    name=$(basename "$document" .xml)
    [ -f "$folder/$name.png" ] || complain "$document has no picture"
    grep -qE "pictures/$name\.(png|xml)[)\"]" "$@" ||
        grep -qF "<filepath>$name.png</filepath>" "${documents[@]}" ||
        complain "$document is used nowhere"
done
exit $status

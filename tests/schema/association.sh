#!/usr/bin/env bash
# association.sh RENDER FOLDER
#
# FOLDER/first.xml makes the picture FOLDER/first.png also with each thing that tells an editor its schema.
set -euo pipefail

render=$1
folder=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cp -rL "$folder/fonts" "$work"

model='<?xml-model href="urn:velnorxmltoimg:schema:layout:1" schematypens="http://relaxng.org/ns/structure/1.0"?>'
location='xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance" xsi:noNamespaceSchemaLocation="urn:velnorxmltoimg:schema:layout:1.xsd"'
sed "s|<VelnorRoot>|$model\n&|" "$folder/first.xml" >"$work/model.xml"
sed "s|<VelnorRoot>|<VelnorRoot $location>|" "$folder/first.xml" >"$work/location.xml"

status=0
for way in model location; do
    grep -q 'urn:velnorxmltoimg' "$work/$way.xml"
    "$render" "$work/$way.xml" "$work/$way.png"
    if ! cmp -s "$work/$way.png" "$folder/first.png"; then
        echo "the picture changed by the $way" >&2
        status=1
    fi
done
exit $status

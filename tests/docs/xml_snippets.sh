#!/usr/bin/env bash
# xml_snippets.sh WELL_FORMED FOLDER GUIDE...
#
# Every block of XML in the guides is well-formed; a block may hold several elements side by side. A
# block that begins with ```xml NAME.xml shows lines of FOLDER/NAME.xml: each stands there, in the same
# order, whatever the indentation.
set -euo pipefail

well_formed=$1
folder=$2
shift 2

blocks=$(mktemp -d)
trap 'rm -rf "$blocks"' EXIT

# One file for each block, GUIDE.NUMBER.xml; with the name of its document in GUIDE.NUMBER.of.
for guide in "$@"; do
    awk -v base="$blocks/$(basename "$guide")" '
        !inside && /^```xml/ {
            inside = 1
            file = base "." ++count
            if (NF > 1) print $2 > (file ".of")
            printf "" > (file ".xml")
            next
        }
        inside && /^```$/ { inside = 0; next }
        inside { print > (file ".xml") }' "$guide"
done

status=0
shopt -s nullglob
found=("$blocks"/*.xml)
[ ${#found[@]} -gt 0 ] || { echo "no blocks were found" >&2; exit 1; }
for block in "${found[@]}"; do
    if ! "$well_formed" <"$block" >&2; then
        echo "in $(basename "$block" .xml)" >&2
        status=1
    fi
    of=${block%.xml}.of
    if [ -f "$of" ] && ! awk '
        { sub(/^[ \t]+/, ""); sub(/[ \t]+$/, "") }
        NR == FNR { if ($0 != "") wanted[++count] = $0; next }
        found < count && $0 == wanted[found + 1] { found++ }
        END {
            if (found < count) { print "not found: " wanted[found + 1]; exit 1 }
        }' "$block" "$folder/$(cat "$of")" >&2; then
        echo "in $folder/$(cat "$of"), as $(basename "$block" .xml) shows it" >&2
        status=1
    fi
done
exit $status

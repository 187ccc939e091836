#!/usr/bin/env bash
# every_case_is_decoded.sh
#
# Every case of cases/barcodes/ either has a .data file that names a decoder, or stands in
# undecoded.txt with a reason; never both, and undecoded.txt lists nothing else.
set -euo pipefail
cd "$(dirname "$0")"
folder=../cases/barcodes

status=0
complain() {
    echo "$1" >&2
    status=1
}

declare -A reasons
while read -r case reason; do
    case $case in '' | '#'*) continue ;; esac
    [ -n "$reason" ] || complain "undecoded.txt gives no reason for $case"
    [ -f "$folder/$case.xml" ] || complain "undecoded.txt lists $case, which is no case"
    [ -z "${reasons[$case]:-}" ] || complain "undecoded.txt lists $case twice"
    reasons[$case]=${reason:-none}
done <undecoded.txt

cases=0
for document in "$folder"/*.xml; do
    case=$(basename "$document" .xml)
    cases=$((cases + 1))
    if [ ! -f "$folder/$case.data" ]; then
        [ -n "${reasons[$case]:-}" ] || complain "$case is neither decoded nor in undecoded.txt"
        continue
    fi
    [ -z "${reasons[$case]:-}" ] || complain "$case is decoded and stands in undecoded.txt"
    grep -qE '^(zbarimg|zbarimg_with_add_ons|dmtxread|ZXingReader) (text|bytes) [^ ]' \
        "$folder/$case.data" || complain "$case.data names no decoder"
done

for data in "$folder"/*.data; do
    [ -f "${data%.data}.xml" ] || complain "$(basename "$data") belongs to no case"
done
[ "$cases" -gt 0 ] || complain "no barcode case found"
exit $status

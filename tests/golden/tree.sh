#!/usr/bin/env bash
# tree.sh files|versions
#
# files: beside the documents of cases/ lies nothing that no document needs (a .data file holds what
# the barcode decodes to), each file of images/ is used, and tags name every parameter file.
# versions: version_dependent.txt lists every case that draws text or barcodes, and each of its lines
# names a case and gives a reason.
set -euo pipefail
shopt -s nullglob
cd "$(dirname "$0")"

status=0
complain() {
    echo "$1" >&2
    status=1
}

check_files() {
    local file image used
    for file in cases/*/*; do
        case $file in
        *.params.xml) grep -qsF "=${file##*/}" "${file%/*}"/*.tags || complain "$file is not used" ;;
        *.xml) ;;
        *.png | *.tags | *.data) [ -f "${file%.*}.xml" ] || complain "$file has no document" ;;
        *.bmp | *.BMP | *.ppm | *.xpm) [ -f "$file.xml" ] || complain "$file has no document" ;;
        *) complain "$file belongs to no case" ;;
        esac
    done
    used=$(cat cases/*/*.xml cases/*/*.tags)
    for image in images/*; do
        [[ $used == *"${image##*/}"* ]] || complain "$image is not used"
    done
}

# The name of a document's case goes to `name`.
name_case() {
    local file=${1#cases/}
    file=${file%.xml}
    name=${file/\//.}
}

check_versions() {
    local document name pattern libraries reason found
    local -a patterns=()
    while read -r pattern libraries reason; do
        case $pattern in '' | '#'*) continue ;; esac
        [ -n "$reason" ] || complain "no reason is given for $pattern"
        patterns+=("$pattern")
        found=
        for document in cases/*/*.xml; do
            name_case "$document"
            # shellcheck disable=SC2053 # the pattern is a pattern
            [[ $name != $pattern ]] || found=1
        done
        [ -n "$found" ] || complain "no case is called $pattern"
    done <version_dependent.txt
    for document in $(grep -lE "class=[\"'](text|barcode)" cases/*/*.xml); do
        name_case "$document"
        found=
        for pattern in "${patterns[@]}"; do
            # shellcheck disable=SC2053 # the pattern is a pattern
            [[ $name != $pattern ]] || found=1
        done
        [ -n "$found" ] || complain "$name draws text or barcodes and is not listed"
    done
}

"check_$1"
exit $status

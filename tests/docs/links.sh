#!/usr/bin/env bash
# links.sh GUIDE...
#
# Every relative link and picture of the guides leads to a file of the tree, and every "#part" to a
# heading of that guide.
set -euo pipefail

status=0
complain() {
    echo "$1" >&2
    status=1
}

# The text outside blocks of code.
prose() {
    awk '/^ *```/ { inside = !inside; next } !inside' "$1"
}

targets() {
    prose "$1" | sed 's/`[^`]*`//g' | grep -oE '\]\([^) ]+\)|(src|href)="[^"]+"' |
        sed -E 's/^\]\((.*)\)$/\1/; s/^(src|href)="(.*)"$/\2/' || true
}

# The name that a heading is linked by: small letters, hyphens for blanks, no punctuation.
headings() {
    prose "$1" | sed -nE 's/^#+ +//p' | tr '[:upper:]' '[:lower:]' |
        sed -E 's/[^[:alnum:] _-]//g; s/ /-/g'
}

links=0
for guide in "$@"; do
    while read -r target; do
        case $target in
        http://* | https://* | mailto:*) continue ;;
        esac
        links=$((links + 1))
        file=$guide
        [ "${target%%#*}" = "" ] || file=$(dirname "$guide")/${target%%#*}
        if [ ! -e "$file" ]; then
            complain "$guide: $target does not exist"
        elif [ "$target" != "${target#*#}" ] && ! grep -qxF -- "${target#*#}" <<<"$(headings "$file")"; then
            complain "$guide: $target: no such heading"
        fi
    done < <(targets "$guide")
done
[ "$links" -gt 0 ] || complain "no links were found"
exit $status

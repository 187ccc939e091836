#!/usr/bin/env bash
# What is said about names of the interface:
#   documented_names.sh exist HEADER COMPILER FILE...     every name of a function in the files is
#                                                         one that the header declares
#   documented_names.sh complete LIBRARY HEADER COMPILER  every exported name stands in the header,
#                                                         each declaration with a comment above it
set -euo pipefail

declared_in() {
    "$2" -E -P -x c "$1" | grep -oE '\b(xmlToImg[A-Za-z0-9]+ *\(|Velnor[A-Za-z0-9]+ *;)' |
        tr -d ' (;' | sort -u
}

names_that_do_not_exist() {
    local header=$1 compiler=$2 name
    shift 2
    comm -13 <(declared_in "$header" "$compiler") \
        <(grep -ohE '\bxmlToImg[A-Za-z0-9]+' "$@" | sort -u) |
        while read -r name; do
            grep -nwF "$name" "$@" /dev/null
        done
}

exported_names() {
    "${NM:-nm}" --dynamic --defined-only --demangle --format=posix "$1" | cut -d ' ' -f 1
}

# The lines that begin a declaration right below something else than the end of a comment.
declarations_without_comment() {
    awk '/^VELNORXMLTOIMG_API / && above !~ /\*\/$/ {print FNR ": " $0} {above = $0}' "$1"
}

case $1 in
exist)
    shift
    [ $# -ge 3 ] || { echo "no files"; exit 1; }
    unknown=$(names_that_do_not_exist "$@")
    [ -z "$unknown" ] && exit 0
    printf 'names that %s does not declare:\n%s\n' "$1" "$unknown"
    ;;
complete)
    names=$(exported_names "$2")
    [ -n "$names" ] || { echo "$2 exports nothing"; exit 1; }
    missing=$(for name in $names; do grep -qwF "$name" "$3" || echo "$name"; done)
    bare=$(declarations_without_comment "$3")
    declarations=$(grep -c '^VELNORXMLTOIMG_API ' "$3")
    count=$(declared_in "$3" "$4" | wc -l)
    [ "$declarations" -eq "$count" ] || bare+=" $count names in $declarations declarations"
    [ -z "$missing$bare" ] && exit 0
    printf 'exported, not in %s: %s\nwithout a comment: %s\n' "$3" "$missing" "$bare"
    ;;
*)
    echo "unknown question $1"
    ;;
esac
exit 1

#!/usr/bin/env bash
# tree.sh QUESTION: what debian/ says is what the tree says.
#   symbols    the symbols file lists the names that cmake/exports.map exports
#   version    the changelog is at the project's version
#   fonts      each font of the tree has a paragraph of its own in the copyright file
set -euo pipefail
cd "$(dirname "$0")/../.."

# The paths of all paragraphs but the first, whose "*" is for what is the project's own.
foreign_paths() {
    awk '/^Files:/ {inside = 1; sub(/^Files:/, "")} /^[A-Z]/ {inside = 0} inside {print $1}' \
        debian/copyright | grep -vx '\*'
}

is_covered() {
    local pattern
    while read -r pattern; do
        # shellcheck disable=SC2053 # the right side is a pattern
        [[ $1 == $pattern ]] && return
    done < <(foreign_paths)
    return 1
}

case ${1:-} in
symbols)
    listed=$(sed -nE 's/^ ([A-Za-z0-9_]+)@Base .*/\1/p' debian/libvelnorxmltoimg1.symbols | sort)
    exported=$(sed -nE '/global:/,/local:/s/^ *([A-Za-z_][A-Za-z0-9_]*);.*/\1/p' cmake/exports.map | sort)
    [ -n "$exported" ] || { echo "cmake/exports.map exports nothing" && exit 1; }
    diff <(echo "$listed") <(echo "$exported") && exit 0
    echo "'<': in the symbols file alone, '>': in cmake/exports.map alone"
    ;;
version)
    project=$(sed -nE 's/^project\(velnorxmltoimg VERSION ([0-9.]+).*/\1/p' CMakeLists.txt)
    packages=$(sed -nE '1s/^velnorxmltoimg \((.*)\).*/\1/p' debian/changelog)
    [ -n "$project" ] && [ "$project" = "$packages" ] && exit 0
    echo "the project is at '$project', debian/changelog at '$packages'"
    ;;
fonts)
    count=0 status=0
    while read -r font; do
        count=$((count + 1))
        is_covered "$font" || { echo "debian/copyright does not cover $font" && status=1; }
    done < <(find examples tests -name '*.ttf' -o -name '*.otf')
    [ "$count" -gt 0 ] && exit "$status"
    echo "no fonts were found"
    ;;
*)
    echo "unknown question ${1:-}"
    ;;
esac
exit 1

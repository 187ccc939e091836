#!/usr/bin/env bash
# The binary interface (functions with the types of their parameters and results, and data) against
# the reference velnorxmltoimg.abi beside this script:
#   binary_interface.sh header HEADER COMPILER   what the header declares
#   binary_interface.sh library LIBRARY          what the library exports; without debug information
#                                                in it, by name alone
#   binary_interface.sh renew HEADER COMPILER LIBRARY
#                                                writes the reference anew, after a change on purpose
set -euo pipefail

here=$(cd "$(dirname "$0")" && pwd)
reference=$here/velnorxmltoimg.abi
work=$(mktemp -d)
trap 'rm -r "$work"' EXIT

# build_from_header HEADER COMPILER SONAME: a library of empty functions, whose debug information
# tells what the header declares.
build_from_header() {
    "$2" -E -P -x c "$1" | sed -e 's/);/) { __builtin_trap(); }/' -e 's/extern int/int/' |
        "$2" -g -shared -fPIC -x c - -o "$work/declared.so" -Wl,-soname,"$3"
}

soname_of_reference() {
    sed -n "s/^<abi-corpus .*soname='\([^']*\)'.*/\1/p" "$reference"
}

soname_of_library() {
    "${READELF:-readelf}" --dynamic --wide "$1" | sed -n 's/.*(SONAME).*\[\(.*\)\].*/\1/p'
}

# C++ members are exported too; they are no part of what the header declares.
compare() {
    printf '[suppress_variable]\nsymbol_name_regexp = ^_ZN9VelnorXml\ndrop = yes\n' >"$work/members"
    abidiff --harmless --no-architecture --suppressions "$work/members" "$reference" "$1" && return
    echo "'[D]': in $reference alone, '[A]': in $1 alone."
    echo "Installed hosts break where a function goes or changes. To accept a change on purpose:"
    echo "  tests/checks/binary_interface.sh renew include/velnorxmltoimg.h cc LIBRARY"
    exit 1
}

case $1 in
header)
    build_from_header "$2" "$3" "$(soname_of_reference)"
    compare "$work/declared.so"
    ;;
library)
    "${READELF:-readelf}" --section-headers --wide "$2" | grep -q '\.debug_info' ||
        echo "no debug information in $2: its functions are compared by name alone"
    compare "$2"
    ;;
renew)
    build_from_header "$2" "$3" "$(soname_of_library "$4")"
    abidw --no-corpus-path --no-comp-dir-path --no-show-locs --no-elf-needed --no-parameter-names \
        --no-architecture --out-file "$work/new.abi" "$work/declared.so"
    mv "$work/new.abi" "$reference"
    ;;
*)
    echo "unknown subject $1"
    exit 1
    ;;
esac

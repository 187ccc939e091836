#!/usr/bin/env bash
# test_names.sh GUIDE
#
# Every test that the guide names in code style exists in the sources of the tests:
# "folder.Suite.Name" in tests/unit/folder, "capi_file.case" in tests/capi/test_file. One test of a table
# is named with its row, "folder.Suite.Name/Row". What stands behind "Test:" is such a name.
set -euo pipefail
shopt -s nullglob

guide=$1
status=0
complain() {
    echo "$1" >&2
    status=1
}

names() {
    tr '\n' ' ' <"$guide" | grep -oE '\*Tests?:\* `[^`]+`(, *`[^`]+`)*' | grep -oE '`[^`]+`' | tr -d '`'
}

# Each test file of the classes on one line behind its name, since a macro may span lines.
index=$(mktemp)
trap 'rm -f "$index"' EXIT
for file in tests/unit/*/*.cpp; do
    { echo "$file " && cat "$file"; } | tr -s ' \n' ' ' && echo
done >"$index"

exists_in_c() {
    local file=tests/capi/test_${1%%.*}
    grep -qsF "CASE(${1#*.}) {" "$file.c" "$file.cpp"
}

exists_in_unit() {
    local folder=${1%%.*} test row='' file
    test=${1#*.}
    [ "$test" = "${test%/*}" ] || row=${test##*/}
    test=${test%/*}
    file=$(grep -E "^tests/unit/$folder/.*TEST(_[FP])?\(${test%.*}, ?${test#*.}\)" "$index") || return
    [ -z "$row" ] || [ "$file" != "${file#*\""$row"\"}" ]
}

count=0
while read -r name; do
    count=$((count + 1))
    case $name in
    capi_*) exists_in_c "${name#capi_}" || complain "$name does not exist" ;;
    *) exists_in_unit "$name" || complain "$name does not exist" ;;
    esac
done < <(names)
[ "$count" -gt 0 ] || complain "$guide names no tests"

entries=$(grep -c '^\*\*' "$guide")
tested=$(grep -cE '^\*Tests?:\* `' "$guide")
[ "$entries" -eq "$tested" ] || complain "$entries entries, but $tested name a test"
exit $status

#!/usr/bin/env bash
# host_programs.sh LANGUAGE GUIDE LIBRARY [LIBRARY_FLAG]... -- COMPILER [FLAG]...
#
# The blocks of LANGUAGE (c or cpp) in the guide compile as they stand, without a warning, and render.
#
# A block without a main function belongs to the text of every block after it. A block with one makes a
# program, together with the text so far: it is linked, and in a folder that holds ticket.xml and the
# fonts of the examples it ends with 0 and leaves ticket.png. The last text is compiled alone as well.
set -euo pipefail

language=$1
guide=$2
library=$3
shift 3
library_flags=()
while [ "$1" != -- ]; do
    library_flags+=("$1")
    shift
done
shift
compile=("$@" -Wall -Wextra -Wpedantic -Werror)

folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
mkdir "$folder/host"
cp tests/docs/ticket.xml "$folder/host"
ln -s "$PWD/examples/layouts/fonts" "$folder/host/fonts"

awk -v base="$folder/block." -v fence="\`\`\`$language" '
    !inside && $0 == fence { inside = 1; file = sprintf("%s%03d", base, ++count); next }
    inside && /^```$/ { inside = 0; next }
    inside { print > file }' "$guide"

text=$folder/text.$language
: >"$text"
programs=0
for block in "$folder"/block.*; do
    if ! grep -q '^int main(' "$block"; then
        cat "$block" >>"$text"
        continue
    fi
    programs=$((programs + 1))
    cat "$text" "$block" >"$folder/program.$language"
    "${compile[@]}" "$folder/program.$language" "$library" -Wl,-rpath,"$(dirname "$library")" \
        "${library_flags[@]}" -o "$folder/program"
    rm -f "$folder/host/ticket.png"
    (cd "$folder/host" && QT_QPA_PLATFORM=offscreen ../program) ||
        { echo "program $programs in $language ended with $?" >&2; exit 1; }
    [ -s "$folder/host/ticket.png" ] || { echo "program $programs left no picture" >&2; exit 1; }
done
[ "$programs" -gt 0 ] || { echo "there are no programs in $guide" >&2; exit 1; }
"${compile[@]}" -fsyntax-only "$text"

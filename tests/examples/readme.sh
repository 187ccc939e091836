#!/usr/bin/env bash
# readme.sh README LIBRARY INCLUDE FONTS COMPILER [FLAG]...
#
# The C program of the README compiles as it stands, renders the document of the README, and the
# picture is the one that the README shows.
set -euo pipefail

readme=$1
library=$2
include=$3
fonts=$4
shift 4

folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

block() {
    awk -v fence="\`\`\`$1" '$0 == fence { inside = 1; next } $0 == "```" { inside = 0 } inside' "$readme"
}
block c >"$folder/receipt.c"
block xml >"$folder/receipt.xml"
[ -s "$folder/receipt.c" ] && [ -s "$folder/receipt.xml" ] || { echo "no example"; exit 1; }
ln -s "$fonts" "$folder/fonts"

"$@" -std=c11 -Wall -Wextra -Wpedantic -Werror -I"$include" "$folder/receipt.c" "$library" \
    -Wl,-rpath,"$(dirname "$library")" -lpthread -o "$folder/receipt"
cd "$folder"
./receipt
cmp receipt.png "$(dirname "$readme")/docs/pictures/readme_receipt.png"

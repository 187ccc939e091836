#!/usr/bin/env bash
# header_compiles.sh COMPILER LANGUAGE STANDARD HEADER: the header compiles alone, twice in a row,
# without a warning.
set -euo pipefail

compiler=$1
language=$2
standard=$3
header=$4

warnings=(-Wall -Wextra -Wpedantic -Werror -Wshadow -Wundef -Wconversion -Wredundant-decls)
if [ "$language" = c ]; then
    warnings+=(-Wstrict-prototypes -Wmissing-prototypes -Wold-style-definition -Wc++-compat)
else
    warnings+=(-Wold-style-cast -Wzero-as-null-pointer-constant -Wextra-semi)
fi

printf '#include "%s"\n#include "%s"\nint velnorHeaderCompiled;\n' "$header" "$header" |
    "$compiler" -fsyntax-only -std="$standard" -pedantic-errors "${warnings[@]}" -x "$language" -

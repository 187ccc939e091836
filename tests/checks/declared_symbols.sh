#!/usr/bin/env bash
# declared_symbols.sh LIBRARY HEADER COMPILER: the C names that the library exports are exactly
# those that the header declares. Mangled names are C++ members, which the header only describes.
set -euo pipefail

library=$1
header=$2
compiler=$3

declared=$("$compiler" -E -P -x c "$header" |
    grep -oE '\b(xmlToImg[A-Za-z0-9]+ *\(|Velnor[A-Za-z0-9]+ *;)' | tr -d ' (;' | sort)
exported=$("${NM:-nm}" --dynamic --defined-only --format=posix "$library" |
    awk '$1 !~ /^_Z/ {print $1}' | sort)

[ -n "$declared" ] || { echo "no declarations in $header"; exit 1; }
diff <(echo "$declared") <(echo "$exported") && exit 0
echo "'<': declared in $header, not exported; '>': exported, not declared"
exit 1

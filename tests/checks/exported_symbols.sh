#!/usr/bin/env bash
# exported_symbols.sh LIBRARY MAP: the library exports exactly the names that the map lists.
set -euo pipefail

library=$1
map=$2

exported=$("${NM:-nm}" --dynamic --defined-only --format=posix "$library" | awk '{print $1}' | sort)
listed=$(sed -n '/global:/,/local:/s/^ *\([A-Za-z_][A-Za-z0-9_]*\);.*/\1/p' "$map" | sort)

[ -n "$listed" ] || { echo "no names in $map"; exit 1; }
diff <(echo "$listed") <(echo "$exported") && exit 0
echo "'<': listed in $map, not exported; '>': exported, not listed"
exit 1

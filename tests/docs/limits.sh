#!/usr/bin/env bash
# limits.sh HEADER GUIDE
#
# Each limit that the header sets stands in a row of the guide's table, by its name and its value.
set -euo pipefail

header=$1
guide=$2
status=0
count=0
while IFS='|' read -r name expression; do
    count=$((count + 1))
    value=$(sed -E ':a; s/([0-9])([0-9]{3})(,|$)/\1,\2\3/; ta' <<<"$((${expression//LL/}))")
    row=$(grep -F "| \`$name\` |" "$guide" || true)
    if [ -z "$row" ]; then
        echo "$guide has no row for $name" >&2
        status=1
    elif ! grep -qF "| $value " <<<"$row"; then
        echo "$guide does not say that $name is $value: $row" >&2
        status=1
    fi
done < <(sed -nE 's/^constexpr [a-z0-9]+ ([A-Za-z]+) = (.*);$/\1|\2/p' "$header")
[ "$count" -gt 0 ] || { echo "$header sets no limit" >&2 && status=1; }
rows=$(grep -cE '^\| `Maximum[A-Za-z]+` \|' "$guide")
[ "$rows" -eq "$count" ] || { echo "$rows rows for $count limits" >&2 && status=1; }
exit $status

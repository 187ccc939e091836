#!/usr/bin/env bash
# catalog.sh SCHEMAS
#
# The catalog leads from each name to a file of SCHEMAS, tools find it there, and every schema has names.
# XMLLINT and XMLCATALOG are the programs.
set -euo pipefail

schemas=$(realpath "$1")
catalog=$schemas/catalog.xml
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
printf '<VelnorRoot><VelnorItems class="canvas"/></VelnorRoot>' >"$work/layout.xml"
printf '<VelnorParams><VelnorParam id="a"/></VelnorParams>' >"$work/params.xml"

status=0
complain() {
    echo "$1" >&2
    status=1
}

# leads NAME FILE
leads() {
    local file
    file=$("$XMLCATALOG" "$catalog" "$1") || complain "no entry for $1"
    file=${file#file://}
    [ "$file" -ef "$schemas/$2" ] || complain "$1 leads to $file, not to $2"
}

checks() {
    XML_CATALOG_FILES=$catalog "$XMLLINT" --nonet --noout "$1" "$2" "$work/$3.xml" 2>/dev/null ||
        complain "xmllint finds nothing by $2"
}

for document in layout params; do
    name=urn:velnorxmltoimg:schema:$document:1
    leads "$name" "$document.rng"
    checks --relaxng "$name" "$document"
    checks --relaxng "$name.rng" "$document"
    checks --schema "$name.xsd" "$document"
    for suffix in rnc rng xsd; do
        leads "$name.$suffix" "$document.$suffix"
    done
done

# As an entry for a URI and as one for a system identifier.
entries() {
    sed -nE "s/.*<$1 $2=\"([^\"]*)\" uri=\"([^\"]*)\".*/\\1 \\2/p" "$catalog" | sort
}
[ "$(entries system systemId)" = "$(entries uri name)" ] || complain "system and uri entries differ"
[ "$(entries uri name | wc -l)" -eq 8 ] || complain "the catalog has other entries than these"
exit $status

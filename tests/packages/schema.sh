#!/usr/bin/env bash
# schema.sh ROOT: documents find their schemas by name.
# shellcheck source=tests/packages/rules.sh
. "$(dirname "$0")/rules.sh"

schemas=$root/usr/share/xml/velnorxmltoimg/schema/1.0
# Where the packages are installed, the system's catalogue leads to their own.
catalog=${unpacked:+$schemas/catalog.xml}
catalog=${catalog:-/etc/xml/catalog}

# The file that a name stands for.
resolve() {
    xmlcatalog "$catalog" "$1" | sed 's|^file://||'
}

rule_every_schema_is_found_by_its_name() {
    local name suffix
    for name in layout params; do
        for suffix in rnc rng xsd; do
            [ "$(resolve "urn:velnorxmltoimg:schema:$name:1.$suffix")" = "$schemas/$name.$suffix" ]
            [ -s "$schemas/$name.$suffix" ]
        done
        [ "$(resolve "urn:velnorxmltoimg:schema:$name:1")" = "$schemas/$name.rng" ]
    done
}

rule_the_examples_are_valid_by_the_schema_that_is_found() {
    xmllint --noout --relaxng "$(resolve urn:velnorxmltoimg:schema:layout:1)" \
        "$tree"/examples/layouts/*.xml
}

rule_a_document_of_something_else_is_not_valid() {
    echo '<SomethingElse/>' >"$scratch/other.xml"
    local status=0
    xmllint --noout --relaxng "$(resolve urn:velnorxmltoimg:schema:layout:1)" \
        "$scratch/other.xml" || status=$?
    [ "$status" -eq 3 ]
}

run_rules

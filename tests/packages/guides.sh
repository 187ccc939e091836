#!/usr/bin/env bash
# guides.sh ROOT: the guides and examples of velnorxmltoimg-doc are whole where they are installed.
# shellcheck source=tests/packages/rules.sh
. "$(dirname "$0")/rules.sh"

guides=$root/usr/share/doc/velnorxmltoimg

rule_every_link_of_the_guides_leads_to_an_installed_file() {
    cd "$guides"
    bash "$tree/tests/docs/links.sh" ./*.md docs/*.md examples/*.md
}

rule_every_link_of_the_file_system_leads_to_a_file() {
    local dangling
    dangling=$(find "$guides" -xtype l)
    [ -z "$dangling" ] || fail "these lead nowhere:" "$dangling"
}

rule_the_fonts_of_the_examples_are_those_of_the_tree() {
    local font
    for font in "$tree"/examples/layouts/fonts/*.ttf; do
        cmp "$font" "$guides/examples/layouts/fonts/$(basename "$font")"
    done
}

rule_what_is_registered_as_documents_is_there() {
    local registered=$root/usr/share/doc-base/velnorxmltoimg-doc.velnorxmltoimg pattern
    sed -n '/^Files:/,$p' "$registered" | sed 's/^Files://; s/^ *//' >"$scratch/patterns"
    [ -s "$scratch/patterns" ]
    while read -r pattern; do
        compgen -G "$root$pattern" >/dev/null || fail "$pattern is not there"
    done <"$scratch/patterns"
}

run_rules

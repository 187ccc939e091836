#!/usr/bin/env bash
# tool.sh ROOT: the tool works, and everything that belongs to it is where shells and man look.
# shellcheck source=tests/packages/rules.sh
. "$(dirname "$0")/rules.sh"

layouts=$tree/examples/layouts
share=$root/usr/share

velnorxmltoimg() {
    with_library "$root/usr/bin/velnorxmltoimg" "$@"
}

rule_the_tool_tells_the_version_of_the_package() {
    local version
    version=$(dpkg-parsechangelog --file "$tree/debian/changelog" --show-field Version)
    velnorxmltoimg --version | grep -qwF "$version"
}

rule_a_layout_is_rendered() {
    velnorxmltoimg render "$layouts/museum_label.xml" -o "$scratch/label.png"
    file "$scratch/label.png" | grep -q 'PNG image data, 1181 x 709'
}

rule_a_good_layout_passes_the_check_and_a_broken_one_does_not() {
    local status=0
    velnorxmltoimg check "$layouts/museum_label.xml"
    echo '<VelnorRoot><VelnorItems class="canvas">' >"$scratch/broken.xml"
    velnorxmltoimg check "$scratch/broken.xml" || status=$?
    [ "$status" -eq 3 ]
}

rule_man_finds_a_page_that_it_can_read() {
    local page=$share/man/man1/velnorxmltoimg.1.gz
    lexgrog "$page" | grep -qF '"velnorxmltoimg - '
    man --warnings --local-file "$page" >"$scratch/page.txt" 2>"$scratch/warnings"
    [ -s "$scratch/page.txt" ]
    [ ! -s "$scratch/warnings" ] || fail "$(cat "$scratch/warnings")"
}

rule_bash_completes_what_is_typed() {
    local script=$share/bash-completion/completions/velnorxmltoimg
    bash -c '. "$1" && complete -p velnorxmltoimg' - "$script"
}

rule_zsh_and_fish_find_their_completions() {
    head -1 "$share/zsh/vendor-completions/_velnorxmltoimg" | grep -q '^#compdef velnorxmltoimg'
    grep -q 'complete .*velnorxmltoimg' "$share/fish/vendor_completions.d/velnorxmltoimg.fish"
}

run_rules

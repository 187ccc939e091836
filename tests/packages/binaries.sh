#!/usr/bin/env bash
# binaries.sh ROOT: how the library and the tool are built and linked.
# shellcheck source=tests/packages/rules.sh
. "$(dirname "$0")/rules.sh"

library=$(library_folder)/libvelnorxmltoimg.so.1
tool=$root/usr/bin/velnorxmltoimg
checks=$tree/tests/checks

rule_the_name_in_the_library_is_that_of_its_link() {
    "$checks/dynamic_section.sh" "$library" soname libvelnorxmltoimg.so.1
    [ "$(readlink "$library")" = libvelnorxmltoimg.so.1.0.0 ]
}

rule_programs_are_linked_by_way_of_the_link_that_they_load() {
    [ "$(readlink "$(library_folder)/libvelnorxmltoimg.so")" = libvelnorxmltoimg.so.1 ]
}

rule_the_library_exports_the_interface_alone() {
    "$checks/exported_symbols.sh" "$library" "$tree/cmake/exports.map"
}

rule_the_tool_takes_the_library_from_its_package() {
    readelf --dynamic --wide "$tool" | grep -q '(NEEDED).*\[libvelnorxmltoimg\.so\.1\]'
}

rule_no_binary_looks_elsewhere_for_libraries() {
    local binary
    for binary in "$library" "$tool"; do
        "$checks/dynamic_section.sh" "$binary" absent RPATH RUNPATH TEXTREL
    done
}

# Control flow integrity is no part of what Debian 12 hardens its packages by.
rule_binaries_are_hardened() {
    hardening-check --nocfprotection "$library" "$tool"
}

rule_debug_information_stays_in_packages_of_its_own() {
    local binary sections
    for binary in "$library" "$tool"; do
        sections=$(readelf --section-headers --wide "$binary")
        grep -q '\.dynsym' <<<"$sections"
        ! grep -E '\.(debug_info|symtab)' <<<"$sections" || fail "in $binary"
    done
}

run_rules

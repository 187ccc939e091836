#!/usr/bin/env bash
# contents.sh FOLDER: how the files are shared out among the packages in the folder, and what the
# packages say of themselves.
# shellcheck source=tests/packages/rules.sh
. "$(dirname "$0")/rules.sh"

names=(libvelnorxmltoimg1 libvelnorxmltoimg-dev velnorxmltoimg velnorxmltoimg-doc)

package_of() {
    ls "$root/$1"_*.deb
}

field() {
    dpkg-deb --field "$(package_of "$1")" "$2"
}

# Everything but folders, one a line.
files_of() {
    dpkg-deb --fsys-tarfile "$1" | tar --list | grep -v '/$'
}

rule_every_package_is_there() {
    local name
    for name in "${names[@]}"; do
        package_of "$name"
    done
}

rule_every_file_belongs_to_one_package() {
    local package shared
    shared=$(for package in "$root"/*.deb; do files_of "$package"; done | sort | uniq --repeated)
    [ -z "$shared" ] || fail "in more than one package:" "$shared"
}

rule_every_package_tells_its_licence_and_its_changes() {
    local name
    for name in "${names[@]}"; do
        files_of "$(package_of "$name")" >"$scratch/files"
        grep -qx "./usr/share/doc/$name/copyright" "$scratch/files"
        grep -qx "./usr/share/doc/$name/changelog.gz" "$scratch/files"
    done
}

rule_packages_for_several_architectures_share_no_file_that_differs() {
    local name own
    for name in libvelnorxmltoimg1 libvelnorxmltoimg-dev; do
        [ "$(field "$name" Multi-Arch)" = same ]
        own=$(files_of "$(package_of "$name")" |
            grep -vE '^\./usr/(lib/[^/]+-linux-[^/]+/|share/doc/|include/velnorxmltoimg\.h$)' || true)
        [ -z "$own" ] || fail "$name has these for one architecture:" "$own"
    done
}

# The tool tells what the library does from a copy of its engine.
rule_what_is_built_with_the_library_comes_with_the_same_version_of_it() {
    local name version
    version=$(field libvelnorxmltoimg1 Version)
    for name in libvelnorxmltoimg-dev velnorxmltoimg; do
        field "$name" Depends | grep -qF "libvelnorxmltoimg1 (= $version)"
    done
}

rule_files_are_of_root_and_for_everyone_to_read() {
    local package wrong
    wrong=$(for package in "$root"/*.deb; do dpkg-deb --contents "$package"; done |
        grep -vE '^(-rw-r--r--|-rwxr-xr-x|drwxr-xr-x|lrwxrwxrwx) root/root ' || true)
    [ -z "$wrong" ] || fail "$wrong"
}

run_rules

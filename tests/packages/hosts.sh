#!/usr/bin/env bash
# hosts.sh ROOT: what libvelnorxmltoimg-dev holds is enough to build hosts.
# shellcheck source=tests/packages/rules.sh
. "$(dirname "$0")/rules.sh"

host=$tree/examples/c_host/render.c
layouts=$tree/examples/layouts

pkg_config() {
    PKG_CONFIG_PATH=${unpacked:+$(library_folder)/pkgconfig} pkg-config "$@"
}

draw_receipt() { # program, picture
    with_library "$1" "$layouts/receipt.xml" "$2" "--values=$layouts/receipt.values"
    file "$2" | grep -q 'PNG image data, 576 x'
}

build_by_pkg_config() { # program
    local flags
    read -ra flags < <(pkg_config --cflags --libs velnorxmltoimg)
    cc -std=c11 -Wall -Wextra -Werror "$host" "${flags[@]}" -lpthread -o "$1"
}

rule_a_c_host_is_built_by_pkg_config_and_draws() {
    build_by_pkg_config "$scratch/by_pkg_config"
    draw_receipt "$scratch/by_pkg_config" "$scratch/by_pkg_config.png"
}

rule_a_c_host_is_built_by_cmake_and_draws() {
    cmake -S "$tree/tests/install/consumer" -B "$scratch/build" -G Ninja \
        "-DCMAKE_PREFIX_PATH=$root/usr" "-DRENDER_SOURCE=$host"
    cmake --build "$scratch/build"
    draw_receipt "$scratch/build/render" "$scratch/by_cmake.png"
}

rule_a_c_host_is_built_without_flags_where_the_packages_are_installed() {
    local flags=(-lvelnorxmltoimg -lpthread)
    [ -z "$unpacked" ] || flags+=("-I$root/usr/include" "-L$(library_folder)")
    cc -std=c11 "$host" "${flags[@]}" -o "$scratch/by_name"
    draw_receipt "$scratch/by_name" "$scratch/by_name.png"
}

# However the packages are compiled, the dots are those that the tests of the tree compare. The fonts of
# the machine are out of sight.
rule_the_pictures_of_the_guides_come_out_as_they_are_in_the_tree() {
    build_by_pkg_config "$scratch/render"
    FONTCONFIG_FILE=$tree/tests/golden/fonts.conf XDG_CACHE_HOME=$scratch \
        with_library "$tree/scripts/pictures" --check "$scratch/render"
}

rule_the_python_module_finds_the_library() {
    with_library python3 "$tree/examples/python/render.py" \
        "$layouts/museum_label.xml" "$scratch/python.png"
    file "$scratch/python.png" | grep -q 'PNG image data, 1181 x 709'
}

rule_pkg_config_knows_the_version_of_the_package() {
    local version
    version=$(dpkg-parsechangelog --file "$tree/debian/changelog" --show-field Version)
    [ "$(pkg_config --modversion velnorxmltoimg)" = "$version" ]
}

run_rules

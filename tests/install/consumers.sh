#!/usr/bin/env bash
# Installs a build into a folder, moves that elsewhere, and builds the C host against it: once as
# pkg-config says, once by the CMake package. Both, and the installed tool, must make the picture that
# the tree's own host makes.
#
#   consumers.sh BUILD SOURCE COMPILER LAYOUT VALUES
set -euo pipefail

build=$1 source=$2 compiler=$3 layout=$4 values=$5
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

cmake --install "$build" --prefix "$scratch/first" >"$scratch/log" 2>&1 || {
    cat "$scratch/log" >&2
    exit 1
}
mv "$scratch/first" "$scratch/prefix"

render() { # program, picture
    "$1" "$layout" "$scratch/$2" "--values=$values"
}
render "$build/bin/render" own.png

pkgconfig=$(dirname "$(find "$scratch/prefix" -name velnorxmltoimg.pc)")
libraries=$(dirname "$pkgconfig")
read -ra flags < <(PKG_CONFIG_PATH=$pkgconfig pkg-config --cflags --libs velnorxmltoimg)
"$compiler" -std=c11 -Wall -Wextra -Werror "$source/examples/c_host/render.c" "${flags[@]}" \
    -lpthread -o "$scratch/by_pkg_config"
LD_LIBRARY_PATH=$libraries render "$scratch/by_pkg_config" by_pkg_config.png

cmake -S "$source/tests/install/consumer" -B "$scratch/build" -G Ninja \
    "-DCMAKE_PREFIX_PATH=$scratch/prefix" "-DCMAKE_C_COMPILER=$compiler" \
    "-DRENDER_SOURCE=$source/examples/c_host/render.c" >"$scratch/log" &&
    cmake --build "$scratch/build" >>"$scratch/log" || {
    cat "$scratch/log" >&2
    exit 1
}
render "$scratch/build/render" by_cmake.png

cmp "$scratch/own.png" "$scratch/by_pkg_config.png"
cmp "$scratch/own.png" "$scratch/by_cmake.png"

# The tool, with the same values as options.
options=()
while IFS= read -r line; do
    case ${line%%=*} in
    '' | '#'*) ;;
    @*) options+=(--link "${line#@}") ;;
    *.*) options+=(--set "$line") ;;
    *) options+=(--tag "$line") ;;
    esac
done <"$values"
tool=$scratch/prefix/bin/velnorxmltoimg
if [ -x "$tool" ]; then
    LD_LIBRARY_PATH=$libraries "$tool" render "$layout" -o "$scratch/by_tool.png" "${options[@]}"
    cmp "$scratch/own.png" "$scratch/by_tool.png"
    test -s "$scratch/prefix/share/man/man1/velnorxmltoimg.1"
    test -s "$scratch/prefix/share/bash-completion/completions/velnorxmltoimg"
fi

# Who asks for another major version must not get this one.
if PKG_CONFIG_PATH=$pkgconfig pkg-config --exists 'velnorxmltoimg >= 2'; then
    echo "pkg-config takes this for version 2" >&2
    exit 1
fi
sed 's/find_package(velnorxmltoimg 1.0/find_package(velnorxmltoimg 2.0/' \
    "$source/tests/install/consumer/CMakeLists.txt" >"$scratch/CMakeLists.txt"
if cmake -S "$scratch" -B "$scratch/other" -G Ninja "-DCMAKE_PREFIX_PATH=$scratch/prefix" \
    "-DCMAKE_C_COMPILER=$compiler" >/dev/null 2>&1; then
    echo "the CMake package takes this for version 2" >&2
    exit 1
fi

# What links, and what is loaded.
test -L "$libraries/libvelnorxmltoimg.so"
test -L "$libraries/libvelnorxmltoimg.so.1"

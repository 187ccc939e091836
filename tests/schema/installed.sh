#!/usr/bin/env bash
# installed.sh CMAKE BUILD FOLDER CATALOG_TEST
#
# What BUILD installs below a prefix, in FOLDER, passes CATALOG_TEST, and is all that FOLDER holds.
set -euo pipefail

prefix=$(mktemp -d)
trap 'rm -rf "$prefix"' EXIT
DESTDIR='' "$1" --install "$2" --prefix "$prefix" >/dev/null

bash "$4" "$prefix/$3"
files=$(cd "$prefix/$3" && echo *)
if [ "$files" != "catalog.xml layout.rnc layout.rng layout.xsd params.rnc params.rng params.xsd schemas.xml" ]; then
    echo "installed: $files" >&2
    exit 1
fi

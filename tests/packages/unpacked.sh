#!/usr/bin/env bash
# unpacked.sh FOLDER: tries the packages in the folder without installing them. They are unpacked
# together, as they would be on a machine; debian/tests runs the same scripts on one.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
packages=$1

root=$(mktemp -d)
trap 'rm -rf "$root"' EXIT
for package in "$packages"/*.deb; do
    dpkg-deb --extract "$package" "$root"
done

# What the package with the fonts would bring.
fonts=$root/usr/share/fonts/truetype/liberation2
mkdir -p "$fonts"
cp "$here"/../../examples/layouts/fonts/*.ttf "$fonts"

status=0
echo "contents:"
"$here/contents.sh" "$packages" || status=1
for subject in binaries hosts tool schema guides; do
    echo "$subject:"
    "$here/$subject.sh" "$root" || status=1
done
exit "$status"

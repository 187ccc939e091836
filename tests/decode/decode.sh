#!/usr/bin/env bash
# decode.sh HOST TOOL TYPE DPI ROTATION WIDTH HEIGHT TEXT EXPECTED
#
# Lets the host program render one barcode of zint's symbology TYPE, in a box of WIDTH x HEIGHT
# millimetres at DPI dots per inch, and decodes it from the picture with TOOL.
set -euo pipefail

host=$1
tool=$2
type=$3
dpi=$4
rotation=$5
width=$6
height=$7
text=$8
expected=$9

folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
document=$folder/symbol.xml
picture=$folder/symbol.png

# Millimetres in dots, rounded down.
dots() {
    echo $(($1 * dpi * 10 / 254))
}

# In the middle of the page, since some decoders look there first.
cat >"$document" <<LAYOUT
<?xml version="1.0" encoding="UTF-8"?>
<VelnorRoot>
  <VelnorItems class="canvas">
    <dpi>$dpi</dpi><width>$(dots 70)</width><height>$(dots 70)</height>
    <VelnorItem class="barcode">
      <hanchor>center</hanchor><vanchor>center</vanchor>
      <width>$(dots "$width")</width><height>$(dots "$height")</height>
      <type>$type</type><rotation>$rotation</rotation><text>$text</text>
    </VelnorItem>
  </VelnorItems>
</VelnorRoot>
LAYOUT

"$host" "$document" "$picture"
[ -s "$picture" ] || { echo "no picture"; exit 1; }

case $(basename "$tool") in
zbarimg) decoded=$("$tool" --quiet --nodbus --raw "$picture") ;;
dmtxread) decoded=$("$tool" --stop-after=1 "$picture") ;;
ZXingReader) decoded=$("$tool" -noscale "$picture" | sed -n 's/^Text: *"\(.*\)"$/\1/p') ;;
*) echo "unknown tool $tool" && exit 1 ;;
esac

[ "$decoded" = "$expected" ] && exit 0
echo "expected: $expected"
echo "decoded:  $decoded"
exit 1

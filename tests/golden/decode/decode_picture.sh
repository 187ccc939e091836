#!/usr/bin/env bash
# decode_picture.sh PICTURE DATA
#
# Reads the symbols of PICTURE with every decoder that DATA names and that this machine has (paths in
# ZBARIMG, DMTXREAD and ZXINGREADER). Lines of DATA: a decoder, "text" or "bytes", and what the decoder
# must say, as text or as bytes in hexadecimal. A line that starts with # is a remark.
# 77: none of the decoders is here.
set -euo pipefail

picture=$1
data=$2

decoded_by() { # decoder form
    case $1 in
    zbarimg) "$ZBARIMG" --quiet --nodbus --raw -Sbinary "$picture" ;;
    zbarimg_with_add_ons)
        "$ZBARIMG" --quiet --nodbus --raw -Sbinary -Sean5.enable "$picture" ;;
    dmtxread) "$DMTXREAD" --stop-after=1 "$picture" ;;
    ZXingReader)
        case $2 in
        # Downscaled pictures get read as symbols that are not there.
        bytes) "$ZXINGREADER" -noscale -bytes "$picture" ;;
        text) "$ZXINGREADER" -noscale "$picture" |
            sed -n 's/^Text: *"\(.*\)"$/\1/p' | head -c -1 ;;
        esac ;;
    esac || true # nothing found: the comparison says so
}

program_of() {
    case $1 in
    zbarimg*) echo "$ZBARIMG" ;;
    dmtxread) echo "$DMTXREAD" ;;
    ZXingReader) echo "$ZXINGREADER" ;;
    *) echo "$data names the unknown decoder $1" >&2 && exit 1 ;;
    esac
}

hexadecimal() { od -An -v -tx1 | tr -d ' \n'; }

[ -s "$picture" ] || { echo "no picture $picture" && exit 1; }
status=77
while IFS=' ' read -r decoder form expected; do
    case $decoder in '' | '#'*) continue ;; esac
    program=$(program_of "$decoder")
    [ -x "$program" ] || { echo "$decoder is not installed" && continue; }
    case $form in
    text) wanted=$(printf %s "$expected" | hexadecimal) ;;
    bytes) wanted=${expected// /} ;;
    *) echo "$data: neither text nor bytes: $form" && exit 1 ;;
    esac
    found=$(decoded_by "$decoder" "$form" | hexadecimal)
    if [ "$found" != "${wanted,,}" ]; then
        printf '%s expected: %s\n%s decoded:  %s\n' "$decoder" "$wanted" "$decoder" "$found"
        exit 1
    fi
    status=0
done <"$data"
exit $status

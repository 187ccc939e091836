#!/usr/bin/env bash
# qt_host.sh CASE QT_RENDER LAYOUTS
#
# One case of what the Qt host does; QT_RENDER is its program, LAYOUTS the folder of the examples.
set -euo pipefail

case=$1
program=$2
layouts=$3

folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
mkdir -m 700 "$folder/runtime" "$folder/temporary"
export XDG_RUNTIME_DIR=$folder/runtime TMPDIR=$folder/temporary QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8
cd "$folder"

# Runs the program; its output goes to the files "out" and "err", its result to $status.
qt_render() {
    status=0
    "$program" "$@" >out 2>err || status=$?
}

# expect WHAT EXPECTED OBSERVED
expect() {
    [ "$2" = "$3" ] || { printf '%s\nexpected: %s\nobserved: %s\n' "$1" "$2" "$3"; exit 1; }
}

expect_success() {
    expect "exit status" 0 "$status"
    expect "standard error" "" "$(cat err)"
}

size_of_png() {
    od --address-radix=n --endian=big --format=u4 --skip-bytes=16 --read-bytes=8 "$1" |
        sed 's/^ *\([0-9]*\) *\([0-9]*\)$/\1 x \2/'
}

write_layout() {
    cat >layout.xml <<XML
<VelnorRoot><VelnorItems class="canvas" id="canvas"><width>40</width><height>30</height>$1</VelnorItems></VelnorRoot>
XML
}

the_size_of_the_picture_is_printed() {
    qt_render --output=picture.png "$layouts/museum_label.xml"
    expect_success
    expect "size" "$(size_of_png picture.png)" "$(cat out)"
}

without_an_output_nothing_is_left_behind() {
    qt_render "$layouts/museum_label.xml"
    expect_success
    expect "size" "1181 x 709" "$(cat out)"
    expect "temporary files" "" "$(ls -A temporary)"
}

a_platform_argument_does_as_well_as_the_environment() {
    unset QT_QPA_PLATFORM DISPLAY WAYLAND_DISPLAY
    qt_render -platform offscreen "$layouts/museum_label.xml"
    expect_success
}

findings_are_printed_and_the_picture_is_made() {
    write_layout '<VelnorItem class="line" id="rule"><thickness>1</thickness><length>%length%</length></VelnorItem>'
    qt_render layout.xml length=0
    expect "exit status" 0 "$status"
    expect "standard error" "qt_render: Line item id=rule: invalid length(0);" "$(cat err)"
    expect "size" "40 x 30" "$(cat out)"
}

values_may_hold_any_character() {
    write_layout '<VelnorItem class="image" id="logo"><filepath>%file%</filepath></VelnorItem>'
    qt_render layout.xml 'logo.filepath=<€ & 😀>'
    expect "exit status" 0 "$status"
    expect "standard error" "qt_render: Image item id=logo: invalid filepath(<€ & 😀>);" "$(cat err)"
}

a_document_that_cannot_be_read_is_an_error() {
    qt_render --output=picture.png missing.xml
    expect "exit status" 1 "$status"
    expect "standard error" "qt_render: 'missing.xml' cannot be read" "$(cat err)"
    expect "standard output" "" "$(cat out)"
    [ ! -e picture.png ] || { echo "a picture was written"; exit 1; }
}

a_picture_that_cannot_be_written_is_an_error() {
    write_layout ''
    qt_render --output=missing/picture.png layout.xml
    expect "exit status" 1 "$status"
    expect "standard error" "qt_render: no picture was written to 'missing/picture.png'" "$(cat err)"
}

an_old_picture_does_not_pass_for_the_new_one() {
    write_layout ''
    qt_render --output=picture.png layout.xml
    expect_success
    mv picture.png picture.unknown
    qt_render --output=picture.unknown layout.xml
    expect "exit status" 1 "$status"
}

values_without_a_place_are_errors() {
    write_layout ''
    qt_render layout.xml @canvas.link=value
    expect "exit status" 1 "$status"
    expect "standard error" "qt_render: the document has no place for 'canvas.link'" "$(cat err)"
    qt_render layout.xml a.b.c=value
    expect "exit status" 1 "$status"
}

arguments_that_are_no_settings_are_errors() {
    write_layout ''
    for setting in name =value @=value; do
        qt_render layout.xml "$setting"
        expect "exit status" 1 "$status"
        expect "standard error" "qt_render: '$setting' is not of the form name=value" "$(cat err)"
    done
    qt_render
    expect "exit status" 1 "$status"
}

"$case"

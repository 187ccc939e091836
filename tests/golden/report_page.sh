#!/usr/bin/env bash
# report_page.sh GOLDEN
#
# Exercises the page of failures in a browser: a click on a picture opens it, the next click shows the
# other picture, the zoom enlarges it. Skipped (exit status 77) where there is no browser.
set -euo pipefail

golden=$1
browser=$(command -v chromium || command -v chromium-headless-shell) || {
    echo "SKIPPED: there is no chromium"
    exit 77
}

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
mkdir -p "$scratch/cases/shapes" "$scratch/home"
document=$scratch/cases/shapes/box.xml
: >"$scratch/versions.txt"
: >"$scratch/version_dependent.txt"

# make_document HEIGHT
make_document() {
    cat >"$document" <<END
<VelnorRoot><VelnorItems class="canvas" id="c">
  <width>30</width><height>$1</height><dpi>203</dpi>
</VelnorItems></VelnorRoot>
END
}

# expect_status STATUS COMMAND...
expect_status() {
    local status=0
    "${@:2}" || status=$?
    if [ "$status" -ne "$1" ]; then
        echo "exit status $status instead of $1: ${*:2}" >&2
        exit 1
    fi
}

results=--results=$scratch/results
make_document 20
expect_status 1 "$golden" "$results" accept "$document"
make_document 25
expect_status 1 "$golden" "$results" run "$document"
expect_status 0 "$golden" "$results" report

# dom_after JAVASCRIPT: the page as it stands when that has run
dom_after() {
    local page=$scratch/page.html
    cp "$scratch/results/failures.html" "$page"
    echo "<script>$1</script>" >>"$page"
    HOME=$scratch/home timeout 100 "$browser" --headless --no-sandbox --disable-gpu --no-first-run \
        --disable-background-networking --disable-component-update --disable-sync \
        --user-data-dir="$scratch/profile" --dump-dom "file://$page" 2>"$scratch/browser.log" || {
        cat "$scratch/browser.log" >&2
        exit 1
    }
}

# expect DOM TEXT...
expect() {
    local text
    for text in "${@:2}"; do
        if ! grep -qF -- "$text" <<<"$1"; then
            echo "not on the page: $text" >&2
            grep -F '<div id="viewer"' <<<"$1" >&2
            exit 1
        fi
    done
}

closed=$(dom_after '')
expect "$closed" 'id="shapes.box"' '<div id="viewer" hidden="">'

opened=$(dom_after 'document.querySelector("img.expected").click();')
expect "$opened" 'data-failure="shapes.box"' 'data-shown="expected"' '<span id="shown">expected<'
if grep -qF '<div id="viewer" hidden' <<<"$opened"; then
    echo "the viewer stays hidden" >&2
    exit 1
fi

flickered=$(dom_after 'document.querySelector("img.expected").click();
    document.querySelector("#stage img").click();
    document.getElementById("larger").click();')
expect "$flickered" 'data-shown="actual"' '<span id="shown">actual<' '<span id="zoom">4x<'

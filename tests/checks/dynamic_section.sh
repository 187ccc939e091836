#!/usr/bin/env bash
# What the library's dynamic section says:
#   dynamic_section.sh LIBRARY soname NAME         its name is NAME
#   dynamic_section.sh LIBRARY flag NAME           the flag NAME is set
#   dynamic_section.sh LIBRARY absent TAG...       none of the tags is there
#   dynamic_section.sh LIBRARY needed_only PATTERN...
#                                                  it needs no library but those that match
set -euo pipefail

library=$1
question=$2
shift 2
section=$("${READELF:-readelf}" --dynamic --wide "$library")

# The values of a tag that stand in brackets, one a line.
values() {
    sed -n "s/.*($1).*\[\(.*\)\].*/\1/p" <<<"$section"
}

matches() {
    local name=$1 pattern
    shift
    for pattern in "$@"; do
        # shellcheck disable=SC2053 # the right side is a pattern
        [[ $name == $pattern ]] && return
    done
    return 1
}

fail() {
    printf '%s\n%s\n' "$1" "$section"
    exit 1
}

case $question in
soname)
    [ "$(values SONAME)" = "$1" ] || fail "the name is not $1"
    ;;
flag)
    grep -E '\((FLAGS|FLAGS_1)\)' <<<"$section" | grep -qw "$1" || fail "the flag $1 is not set"
    ;;
absent)
    for tag in "$@"; do
        ! grep -q "($tag)" <<<"$section" || fail "there is a $tag"
    done
    ;;
needed_only)
    [ -n "$(values NEEDED)" ] || fail "no library is needed"
    for name in $(values NEEDED); do
        matches "$name" "$@" || fail "$name is needed"
    done
    ;;
*)
    fail "unknown question $question"
    ;;
esac

# shellcheck shell=bash
# Sourced by the scripts beside it, which are called with the folder that the packages are unpacked in,
# or with / where they are installed. Each of their functions whose name begins with rule_ is a rule.
set -euo pipefail
export LC_ALL=C.UTF-8

root=${1%/}
# shellcheck disable=SC2034 # the scripts use it
tree=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

# Unset where the packages are installed: there, everything is found without help.
unpacked=${root:+yes}

fail() {
    printf '%s\n' "$@" >&2
    return 1
}

# The folder of the machine's own libraries in the packages, such as /usr/lib/x86_64-linux-gnu.
library_folder() {
    local library
    for library in "$root"/usr/lib/*/libvelnorxmltoimg.so.1; do
        [ -e "$library" ] || fail "there is no $library"
        dirname "$library"
    done
}

# Runs a program that needs the library.
with_library() {
    LD_LIBRARY_PATH=${unpacked:+$(library_folder)} "$@"
}

run_rules() {
    local rule code status=0
    for rule in $(compgen -A function rule_); do
        set +e
        (set -e && "$rule") >"$scratch/log" 2>&1
        code=$?
        set -e
        if [ "$code" -eq 0 ]; then
            echo "ok      ${rule#rule_}"
        else
            echo "FAILED  ${rule#rule_}"
            sed 's/^/        /' "$scratch/log"
            status=1
        fi
    done
    return "$status"
}

#!/usr/bin/env bash
# The sweeps of the fault tests without their samples: every allocation, limits to the memory close
# to one another for every example, a thousand kills a case. Takes an hour. The argument is a build
# folder, build/release by default; the reports go to the folder faults in it.
set -euo pipefail
root=$(cd "$(dirname "$0")/../.." && pwd)
build=${1:-$root/build/release}
reports=$build/faults
mkdir -p "$reports"
failures=0

run() { # name of the report, program, case
    echo "$1"
    if ! nice -n 19 "$build/bin/faults_$2" "$3" >"$reports/$1.txt" 2>&1; then
        echo "  failed: $reports/$1.txt"
        failures=$((failures + 1))
    fi
}

export VELNOR_FAULTS_SAMPLE=0 VELNOR_FAULTS_STACKS=1 VELNOR_FAULTS_STEP=64 VELNOR_FAULTS_KILLS=1000

for program in killed_writers failing_memory little_memory; do
    for case in $("$build/bin/faults_$program"); do
        run "$program.$case" "$program" "$case"
    done
done
for layout in "$root"/examples/layouts/*.xml; do
    export VELNOR_FAULTS_LAYOUT=$layout
    run "little_memory.$(basename "$layout" .xml)" little_memory \
        every_limit_makes_the_whole_receipt_or_none
done
exit $((failures > 0))

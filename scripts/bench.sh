#!/bin/bash
# SPDX-License-Identifier: MIT
#
# Measures the library beside text parsers and writers and reports speed and size.
#
#   scripts/bench.sh [OPTION]... [FILE or FOLDER]...
#
#   --instructions     counts instructions per event with callgrind instead of taking times
#   --limits           measures what hostile and large documents cost, and prints that instead
#   --output FOLDER    where the report goes; build/bench/report by default
#   --rows TEXT        takes only the rows whose names contain this, and prints the report
#   --repeats N        how often each row is timed; 41 by default
#
# Without files and folders it takes the sample documents of the project. A folder of small documents counts as one.
# Writes benchmarks.md with benchmarks.svg, or instructions.md. The program is built in build/bench.
set -euo pipefail

usage()
{
    sed -n '3,15s/^# \{0,1\}//p' "$0" >&2
    exit 2
}

root=$(cd "$(dirname "$0")/.." && pwd)
build=$root/build/bench
output=$build/report
instructions=
limits=
report_options=()
paths=()
while [ $# -gt 0 ]; do
    case $1 in
    --instructions) instructions=yes ;;
    --limits) limits=yes ;;
    --output) output=${2:?} && shift ;;
    --rows) report_options+=(--rows "${2:?}") && output= && shift ;;
    --repeats) report_options+=(--repeats "${2:?}") && shift ;;
    -*) usage ;;
    *) paths+=("$1") ;;
    esac
    shift
done
if [ ${#paths[@]} -eq 0 ]; then
    paths=("$root/examples/data" "$root/tests/data")
fi
if [ -n "$output" ]; then
    mkdir -p "$output"
    report_options+=(--output "$output")
fi

"$root/scripts/install-packages.sh" build bench ${instructions:+instructions}

# A build folder that was configured before keeps its generator.
if command -v ninja >/dev/null; then
    export CMAKE_GENERATOR=${CMAKE_GENERATOR:-Ninja}
fi
cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=Release -DVESK_BUILD_BENCHMARKS=ON -DVESK_BUILD_TESTS=OFF \
    -DVESK_BUILD_EXAMPLES=OFF -DVESK_BUILD_TOOLS=OFF
if [ -n "$limits" ]; then
    cmake --build "$build" --parallel "$(nproc)" --target vesk_limits
    exec "$build/benchmarks/vesk_limits"
fi
cmake --build "$build" --parallel "$(nproc)" --target vesk_report

report=$build/benchmarks/vesk_report
if [ -z "$instructions" ]; then
    "$report" "${report_options[@]}" -- "${paths[@]}"
else
    counts=$(mktemp -d)
    trap 'rm -rf "$counts"' EXIT
    valgrind --quiet --tool=callgrind --instr-atstart=no --callgrind-out-file="$counts/callgrind" \
        "$report" --callgrind "$counts/callgrind" "${report_options[@]}" -- "${paths[@]}"
fi
if [ -n "$output" ]; then
    echo "Written to $output."
fi

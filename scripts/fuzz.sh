#!/bin/bash
# SPDX-License-Identifier: MIT
#
# Builds the fuzz targets with clang, libFuzzer and the address and undefined-behaviour sanitizers, and runs them.
#
#   scripts/fuzz.sh SECONDS [TARGET...]     each target, or those named, for so many seconds
#
# As many targets run at a time as there are processors, or as FUZZ_JOBS says. What they learn stays in
# build/fuzz/corpus for the next run; an input that fails is kept in build/fuzz/artifacts. Ends with status 1 if there is
# one.
set -euo pipefail
cd "$(dirname "$0")/.."

if [ $# -lt 1 ] || ! [[ $1 =~ ^[1-9][0-9]*$ ]]; then
    sed -n '4,10s/^# \{0,1\}//p' "$0" >&2
    exit 2
fi
seconds=$1
shift
targets=("$@")
[ ${#targets[@]} -gt 0 ] || targets=(parse reencode typed write xml)

build=build/fuzz
# A build folder that was configured before keeps its generator.
if command -v ninja >/dev/null; then
    export CMAKE_GENERATOR=${CMAKE_GENERATOR:-Ninja}
fi
# Optimised less than a release, so that a finding can be followed; static, so that the fuzzer sees all branches.
cmake -S . -B "$build" -DCMAKE_CXX_COMPILER="${CXX:-clang++}" -DCMAKE_BUILD_TYPE=RelWithDebInfo \
    -DBUILD_SHARED_LIBS=OFF -DVESK_SANITIZE=address,undefined -DVESK_BUILD_FUZZERS=ON \
    -DVESK_BUILD_TESTS=OFF -DVESK_BUILD_TOOLS=OFF -DVESK_BUILD_EXAMPLES=OFF
cmake --build "$build" --parallel "$(nproc)"
"$build/fuzz/fuzz-seeds" tests/data "$build/seeds"
mkdir -p "$build/artifacts"

# Usage: run_target TARGET. Prints how it ended.
run_target()
{
    local target=$1 options=() findings=()
    case $target in
    xml) options=(-dict=fuzz/dictionaries/xml.dict) ;;
    parse | reencode) options=(-dict=fuzz/dictionaries/documents.dict) ;;
    esac
    if [ -d "fuzz/findings/$target" ]; then
        findings=("fuzz/findings/$target")
    fi
    mkdir -p "$build/corpus/$target"
    local log=$build/$target.log
    if "$build/fuzz/fuzz-$target" -max_total_time="$seconds" -max_len=4096 -timeout=20 -rss_limit_mb=2048 \
        -print_final_stats=1 -artifact_prefix="$build/artifacts/$target-" "${options[@]}" \
        "$build/corpus/$target" "$build/seeds/$target" "${findings[@]}" >"$log" 2>&1; then
        echo "$target: no finding in $seconds seconds, $(awk '/number_of_executed_units/ {print $2}' "$log") inputs"
    else
        echo "$target: FINDING, see $log"
        return 1
    fi
}
export -f run_target
export build seconds

printf '%s\n' "${targets[@]}" | xargs -P "${FUZZ_JOBS:-$(nproc)}" -I{} bash -c 'run_target {}'

#!/bin/bash
# SPDX-License-Identifier: MIT
#
# Runs all tests and reports how many lines of the libraries they reach, and which lines of the Fast Infoset library
# they do not.
#
#   scripts/coverage.sh
#
# Builds in build/coverage and leaves the report of each line in build/coverage/report/index.html. Ends with status 1 if
# less than 95 % of the lines of the Fast Infoset library are reached.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-packages.sh build test coverage
# A build folder that was configured before keeps its generator.
if command -v ninja >/dev/null; then
    export CMAKE_GENERATOR=${CMAKE_GENERATOR:-Ninja}
fi
build=build/coverage
# What earlier builds have left of files that are gone, or have changed, does not go together with this one's counts.
rm -rf "$build"
cmake --preset coverage
cmake --build --preset coverage --parallel "$(nproc)"
# Programs that count write their counts at the end, which breaks tests of the tool that forbid writing.
ctest --preset coverage --parallel "$(nproc)" --exclude-regex '^(veskfi|package)' --output-log "$build/test.log" --quiet

# Usage: report FOLDER... [-- OPTION...]. Branches that only exceptions take, one at nearly every call, are not counted.
report()
{
    gcovr --root . --object-directory "$build" --exclude-throw-branches --exclude-unreachable-branches \
        --gcov-ignore-parse-errors "$@"
}

mkdir -p "$build/report"
echo
echo "== Lines reached, all libraries"
report --filter 'src/' --filter 'include/' --filter 'xml/' --filter 'foundation/' \
    --html-details "$build/report/index.html" --print-summary
echo
echo "== Lines reached, Fast Infoset library; the last column lists those that are not"
report --filter 'src/' --filter 'include/' --fail-under-line 95

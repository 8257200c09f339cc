#!/bin/bash
# SPDX-License-Identifier: MIT
#
# Builds and runs all tests: optimised, and with the address and undefined-behaviour sanitizers; those of threads with the
# thread sanitizer, too.
# Stops at the first step that fails.
set -euo pipefail
cd "$(dirname "$0")/.."

step()
{
    echo
    echo "== $*"
}

step "What build and tests need"
scripts/install-packages.sh build test

# A build folder that was configured before keeps its generator.
if command -v ninja >/dev/null; then
    export CMAKE_GENERATOR=${CMAKE_GENERATOR:-Ninja}
fi
jobs=$(nproc)
for preset in release asan tsan; do
    step "$preset: configure"
    cmake --preset "$preset"
    step "$preset: build"
    cmake --build --preset "$preset" --parallel "$jobs"
    step "$preset: test"
    ctest --preset "$preset" --parallel "$jobs"
done

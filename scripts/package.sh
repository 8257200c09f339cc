#!/bin/bash
# SPDX-License-Identifier: MIT
#
# Makes the Debian packages: libveskfastinfoset1, libveskfastinfoset-dev and veskfi. They are in build/package/ then.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-packages.sh build package

build=build/package
# A build folder that was configured before keeps its generator.
if command -v ninja >/dev/null; then
    export CMAKE_GENERATOR=${CMAKE_GENERATOR:-Ninja}
fi
# With this prefix CMake puts the libraries where Debian has them, and no file needs to say where they are.
cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_PREFIX=/usr -DCMAKE_SKIP_INSTALL_RPATH=ON \
    -DVESK_BUILD_TESTS=OFF -DVESK_BUILD_EXAMPLES=OFF
cmake --build "$build" --parallel "$(nproc)"
rm -f "$build"/*.deb
(cd "$build" && cpack)
ls -l "$build"/*.deb

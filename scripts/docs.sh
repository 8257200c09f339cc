#!/bin/bash
# SPDX-License-Identifier: MIT
#
# Makes the reference of the API from the public headers. A public name without a comment is an error.
#
#   scripts/docs.sh [FOLDER]     build/docs by default; what is in the folder is removed
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-packages.sh docs

output=${1:-build/docs}
version=$(sed -n 's/^ *VERSION \([0-9.]*\)$/\1/p' CMakeLists.txt)
rm -rf "$output"
mkdir -p "$output"
{
    cat docs/Doxyfile
    echo "PROJECT_NUMBER = $version"
    echo "OUTPUT_DIRECTORY = $output"
    echo "WARN_AS_ERROR = FAIL_ON_WARNINGS"
} | doxygen -
echo "The reference is $output/index.html."

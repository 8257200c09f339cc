#!/bin/bash
# SPDX-License-Identifier: MIT
#
# Installs from Debian's packages what is missing here.
#
#   scripts/install-packages.sh build          what it takes to build the libraries, the tool and the examples
#   scripts/install-packages.sh build test     the same and what the tests need
#   scripts/install-packages.sh build bench    what the benchmarks need; with "instructions" also what counts them
#   scripts/install-packages.sh build package  what it takes to make Debian packages
#   scripts/install-packages.sh build test coverage
#                                              what also reports the lines that tests reach
#   scripts/install-packages.sh build docs     what it takes to make the reference of the API
#
# Does nothing, and says so, when everything is there. Uses sudo unless run by root.
set -euo pipefail

# The compiler and its runtime come with g++; the sanitizers' runtimes, too.
build_packages=(cmake g++ ninja-build libexpat1-dev libcli11-dev zlib1g-dev)
package_packages=(dpkg-dev file)
docs_packages=(doxygen)
# clang, too, has to take the public headers; the tests make Debian packages and the reference.
test_packages=(libgtest-dev clang pkg-config shared-mime-info "${package_packages[@]}" "${docs_packages[@]}")
coverage_packages=(gcovr)
bench_packages=(libbenchmark-dev libxml2-dev libpugixml-dev libzstd-dev)
instructions_packages=(valgrind)

usage()
{
    sed -n '3,13s/^# \{0,1\}//p' "$0" >&2
    exit 2
}

wanted=()
[ $# -gt 0 ] || usage
for group in "$@"; do
    case $group in
    build) wanted+=("${build_packages[@]}") ;;
    test) wanted+=("${test_packages[@]}") ;;
    package) wanted+=("${package_packages[@]}") ;;
    coverage) wanted+=("${coverage_packages[@]}") ;;
    docs) wanted+=("${docs_packages[@]}") ;;
    bench) wanted+=("${bench_packages[@]}") ;;
    instructions) wanted+=("${instructions_packages[@]}") ;;
    *) usage ;;
    esac
done

if ! command -v apt-get >/dev/null; then
    echo "This script knows Debian's packages only. Please install what these Debian packages hold, if it is missing:"
    echo "  ${wanted[*]}"
    exit 0
fi

is_installed()
{
    [ "$(dpkg-query --show --showformat='${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

missing=()
for package in "${wanted[@]}"; do
    is_installed "$package" || missing+=("$package")
done
if [ ${#missing[@]} -eq 0 ]; then
    echo "Packages: all there ($*)."
    exit 0
fi

as_root=()
if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo >/dev/null; then
        echo "Missing packages: ${missing[*]}. Please install them as root; there is no sudo here." >&2
        exit 1
    fi
    as_root=(sudo)
fi
apt=("${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -q -y)

install()
{
    "${apt[@]}" install --no-install-recommends "${missing[@]}"
}

echo "Packages: installing ${missing[*]} with apt-get${as_root:+ (through sudo)}."
# A fresh machine has no package lists, or lists that name versions the mirror no longer has.
if ! apt-cache policy "${missing[@]}" | grep 'Candidate: [0-9]' >/dev/null || ! install; then
    echo "Packages: fetching the package lists first."
    "${apt[@]}" update
    install
fi

#!/bin/bash
# SPDX-License-Identifier: MIT
#
# Uses the libraries as other projects do:   package-test.sh SOURCE_FOLDER BUILD_FOLDER SCRATCH_FOLDER VERSION TEST
# The libraries of the build folder have to be built; the compiler is CXX. Tests that need an installed tree find it
# where installShared and installStatic have put it.
set -eu -o pipefail

source=$1
build=$2
scratch=$3
version=$4
test=$5

programs=$source/examples/getting_started
shared=$scratch/shared
static=$scratch/static
work=$scratch/$test
rm -rf "$work"
mkdir -p "$work"
cd "$work"

fail()
{
    echo "FAILED: $*"
    exit 1
}

# runPrograms FOLDER: writes, reads and converts a document with the programs in the folder.
runPrograms()
{
    "$1/write"
    "$1/read" >out
    grep -q '^  24.5 22 19.75$' out || fail "read printed: $(cat out)"
    "$1/convert" >out
    grep -q '<item sku="A-1000">Kettle</item>' out || fail "convert printed: $(cat out)"
}

# findPackage PREFIX: builds the programs with the CMake package there.
findPackage()
{
    cmake -S "$programs" -B cmake -DCMAKE_PREFIX_PATH="$1" -DCMAKE_CXX_FLAGS=-Werror >log || fail "$(cat log)"
    cmake --build cmake >log || fail "$(cat log)"
    runPrograms ./cmake
}

# pkgConfig PREFIX [--static]: builds them with what pkg-config says, and a plain call of the compiler.
pkgConfig()
{
    local prefix=$1 options=("${@:2}") program
    PKG_CONFIG_PATH=$(find "$prefix" -type d -name pkgconfig)
    export PKG_CONFIG_PATH
    for library in VeskFoundation VeskXML VeskFastInfoset; do
        [ "$(pkg-config --modversion "$library")" = "$version" ] || fail "$library has another version"
    done
    for program in write read convert; do
        # shellcheck disable=SC2046
        "$CXX" -std=c++17 -Wall -Werror "$programs/$program.cpp" -o "$program" \
            $(pkg-config --cflags --libs "${options[@]}" VeskFastInfoset)
    done
    LD_LIBRARY_PATH=$(pkg-config --variable=libdir VeskFastInfoset) runPrograms .
}

# Installed in one place and moved to another: nothing in it may depend on where it is.
test_installShared()
{
    rm -rf "$shared"
    cmake --install "$build" --prefix "$work/before" >log || fail "$(cat log)"
    ! grep -rl "$work/before" "$work/before" || fail "the files above name the place they were installed in"
    ! grep -rlI -e "$source" -e "$build" "$work/before" || fail "the files above name the place they were built in"
    mv "$work/before" "$shared"
}

test_findPackageShared()
{
    findPackage "$shared"
}

test_pkgConfigShared()
{
    pkgConfig "$shared"
}

test_installedTool()
{
    [ -x "$shared/bin/veskfi" ] || fail "there is no tool"
    echo '<a>text</a>' >a.xml
    "$shared/bin/veskfi" encode a.xml -o a.finf
    "$shared/bin/veskfi" decode a.finf -o b.xml
    grep -q '<a>text</a>' b.xml || fail "the document did not come back"
    [ "$("$shared/bin/veskfi" --version)" = "veskfi $version" ] || fail "the tool has another version"
}

# The database of media types takes the file, and has our octets and names in it then.
test_mediaType()
{
    mkdir -p mime
    cp -r "$shared/share/mime/packages" mime/
    update-mime-database mime 2>log || fail "$(cat log)"
    grep -q ':application/fastinfoset:\*\.finf' mime/globs2 || fail "*.finf is not known"
    grep -q 'application/fastinfoset\]' mime/magic || fail "there is no magic entry"
    grep -qaF $'\xe0' mime/magic || fail "the first octets are not in the magic entry"
}

# The one further build of the libraries: fetched by another project, static, and installed from there.
test_installStatic()
{
    rm -rf "$static"
    cmake -S "$source/tests/package/fetch_content" -B cmake -DVESK_SOURCE="$source" -DPROGRAMS="$programs" \
        -DVESK_INSTALL=ON -DCMAKE_INSTALL_PREFIX="$static" -DCMAKE_CXX_FLAGS="-O0 -Wno-error" >log || fail "$(cat log)"
    cmake --build cmake --parallel 2 >log || fail "$(cat log)"
    runPrograms ./cmake
    cmake --install cmake >log || fail "$(cat log)"
    [ -z "$(find "$static" -name '*.so*' -o -name 'veskfi')" ] || fail "more is installed than static libraries"
}

test_findPackageStatic()
{
    findPackage "$static"
}

test_pkgConfigStatic()
{
    pkgConfig "$static" --static
}

# The smallest library is enough; the build for installStatic has them all.
test_subdirectory()
{
    cmake -S "$source/tests/package/subdirectory" -B cmake -DVESK_SOURCE="$source" -DCMAKE_CXX_STANDARD=20 \
        -DCMAKE_CXX_FLAGS=-O0 >log || fail "$(cat log)"
    cmake --build cmake --target version >log || fail "$(cat log)"
    [ "$(./cmake/version)" = "$version" ] || fail "version.h has another version"
    grep -q "\"version\": \"$version\"" "$source/packaging/vcpkg/vesk-fastinfoset/vcpkg.json" ||
        fail "the vcpkg port has another version"
    cmake --install cmake --prefix installed >log || fail "$(cat log)"
    [ -z "$(find installed -type f 2>/dev/null)" ] || fail "a subfolder installs something although nobody asked for it"
}

# The installed headers, in the file "list".
listHeaders()
{
    (cd "$shared/include" && find Vesk -name '*.h') >list
    [ "$(wc -l <list)" -gt 90 ] || fail "headers are missing: $(cat list)"
}

compileHeaders()
{
    "$CXX" "-std=$1" -fsyntax-only -Wall -Wextra -Wpedantic -Werror -I "$shared/include" ./*.cpp
}

# headersAlone STANDARD: every installed header is a program of its own, included twice.
headersAlone()
{
    local header
    listHeaders
    while read -r header; do
        printf '#include "%s"\n#include "%s"\n' "$header" "$header" >"${header//\//_}.cpp"
    done <list
    compileHeaders "$1"
}

# headersTogether STANDARD: one program of all, which takes a fiftieth of the time.
headersTogether()
{
    listHeaders
    sed 's/.*/#include "&"/' list >all.cpp
    compileHeaders "$1"
}

test_headersGCC17() { headersAlone c++17; }
test_headersGCC20() { headersTogether c++20; }
test_headersClang17() { CXX=clang++ headersTogether c++17; }
test_headersClang20() { CXX=clang++ headersAlone c++20; }

# Packages of what is built here, which are not those that are shipped: scripts/package.sh builds with Debian's paths.
test_debianPackages()
{
    cpack --config "$build/CPackConfig.cmake" -B debs >log 2>&1 || fail "$(cat log)"
    local package
    for package in libveskfastinfoset1 libveskfastinfoset-dev veskfi; do
        dpkg-deb -x "debs/${package}_${version}_"*.deb root || fail "there is no $package"
    done
    dpkg-deb -f debs/libveskfastinfoset1_*.deb Depends | grep -q 'libexpat1' || fail "expat is no dependency"
    for package in libveskfastinfoset-dev veskfi; do
        dpkg-deb -f "debs/${package}_"*.deb Depends | grep -qF "libveskfastinfoset1 (= $version)" ||
            fail "$package does not depend on the libraries"
    done
    [ "$(root/usr/bin/veskfi --version)" = "veskfi $version" ] || fail "the tool does not run"
    findPackage "$work/root/usr"
}

"test_$test"

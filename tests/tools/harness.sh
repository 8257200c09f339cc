#!/bin/bash
# SPDX-License-Identifier: MIT
#
# What the tests of the tool have in common, for scripts that are run as   SCRIPT VESKFI SOURCE_FOLDER TEST   and define a
# function test_TEST. Each test runs in an empty folder of its own.
set -u

veskfi=$1
sources=$2
test=$3
document=$sources/examples/data/symbols-poi.svg

folder=$(mktemp -d "${TMPDIR:-/tmp}/veskfi-test.XXXXXX")
trap 'rm -rf "$folder"' EXIT
cd "$folder" || exit 1

failed=0
fail()
{
    echo "FAILED: $*"
    failed=1
}

# run STATUS ARGUMENT...: runs the tool, which must end with this status; what it says goes to the files out and err.
run()
{
    local expected=$1
    shift
    "$veskfi" "$@" >out 2>err
    local status=$?
    [ $status -eq "$expected" ] || fail "veskfi $* ended with $status instead of $expected: $(cat err)"
}

# expectError TEXT: the last run has said exactly one line on standard error, and it is the tool's name and this text.
expectError()
{
    [ "$(cat err)" = "veskfi: $1" ] && [ "$(wc -l <err)" -eq 1 ] || fail "the message is not 'veskfi: $1' but: $(cat err)"
}

# expectErrorLike PATTERN: the same with a pattern of the shell.
expectErrorLike()
{
    # shellcheck disable=SC2053
    [[ $(cat err) == veskfi:\ $1 ]] && [ "$(wc -l <err)" -eq 1 ] ||
        fail "the message does not look like 'veskfi: $1': $(cat err)"
}

expectNothingSaid()
{
    [ ! -s err ] || fail "standard error holds: $(cat err)"
}

expectSame()
{
    cmp "$1" "$2" || fail "$1 and $2 differ"
}

# expectFiles NAME...: the folder holds these and nothing else, hidden or not, beside what run writes.
expectFiles()
{
    local expected found
    expected=$(printf '%s\n' "$@" | sort)
    found=$(find . -mindepth 1 ! -name out ! -name err -printf '%P\n' | sort)
    [ "$found" = "$expected" ] || fail "the folder holds:" $found
}

runTest()
{
    "test_$test"
    exit $failed
}

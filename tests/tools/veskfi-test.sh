#!/bin/bash
# SPDX-License-Identifier: MIT
#
# Runs the tool as its users do:   veskfi-test.sh VESKFI SOURCE_FOLDER TEST
# Each test runs in an empty folder of its own, which must not hold anything it did not ask for afterwards.
set -u

veskfi=$1
document=$2/examples/data/symbols-poi.svg
test=$3

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

test_FilesComeBackAsTheyWere()
{
    run 0 encode "$document" -o a.finf
    expectNothingSaid
    run 0 decode a.finf -o a.xml
    expectNothingSaid
    [ "$(stat -c %s a.finf)" -lt "$(stat -c %s "$document")" ] || fail "Fast Infoset is not smaller"
    [ "$(head -c 4 a.finf | od -An -tx1)" = " e0 00 00 01" ] || fail "a.finf does not start like Fast Infoset"

    # Once through the binary form, the text does not change any more.
    run 0 encode a.xml -o b.finf
    run 0 decode b.finf -o b.xml
    expectSame a.finf b.finf
    expectSame a.xml b.xml
    expectFiles a.finf a.xml b.finf b.xml
}

test_PipesWorkLikeFiles()
{
    run 0 encode "$document" -o a.finf
    run 0 decode a.finf -o a.xml
    "$veskfi" encode <"$document" | "$veskfi" decode >b.xml || fail "pipe without names"
    cat "$document" | "$veskfi" encode - -o - | "$veskfi" decode - --output - >c.xml || fail "pipe with -"
    expectSame a.xml b.xml
    expectSame a.xml c.xml
}

test_OutputMayReplaceInput()
{
    cp "$document" a
    run 0 encode a -o a.finf
    run 0 encode a -o a
    expectSame a a.finf
    expectFiles a a.finf
}

test_TextIsConvertedToUTF8()
{
    printf '<?xml version="1.0" encoding="ISO-8859-1"?><a b="\xe4">\xf6</a>' >a.xml
    run 0 encode a.xml -o a.finf
    run 0 decode a.finf
    expectNothingSaid
    grep -q 'ä.*ö' out || fail "umlauts are lost: $(cat out)"
}

test_ReplacedFileKeepsItsMode()
{
    touch kept.finf
    chmod 640 kept.finf
    run 0 encode "$document" -o kept.finf
    [ "$(stat -c %a kept.finf)" = 640 ] || fail "mode of a replaced file is $(stat -c %a kept.finf)"
}

test_NewFileGetsTheUsualMode()
{
    umask 027
    run 0 encode "$document" -o new.finf
    [ "$(stat -c %a new.finf)" = 640 ] || fail "mode of a new file is $(stat -c %a new.finf)"
}

test_SymbolicLinkStaysALink()
{
    mkdir elsewhere
    echo old >elsewhere/target
    ln -s elsewhere/target link
    run 0 encode "$document" -o link
    [ -L link ] || fail "the link is gone"
    run 0 encode "$document" -o plain
    expectSame plain elsewhere/target
    expectFiles elsewhere elsewhere/target link plain
}

test_MissingInputIsNamed()
{
    run 3 encode missing.xml -o a.finf
    expectError "missing.xml: No such file or directory"
    run 3 decode missing.finf
    expectError "missing.finf: No such file or directory"
    run 3 encode . -o a.finf
    expectError ".: Is a directory"
    expectFiles
}

test_MalformedXMLIsReportedWithItsPlace()
{
    printf '<a>\n  <b>\n  </c>\n</a>\n' >in.xml
    run 1 encode in.xml -o a.finf
    expectError "in.xml: line 3, column 5: mismatched tag"
    "$veskfi" encode <in.xml >out 2>err
    expectError "standard input: line 3, column 5: mismatched tag"
    : >empty.xml
    run 1 encode empty.xml -o a.finf
    expectError "empty.xml: line 1, column 1: no element found"
    expectFiles in.xml empty.xml
}

test_MalformedFastInfosetIsReported()
{
    echo 'This is something else.' >in.finf
    run 1 decode in.finf -o a.xml
    expectErrorLike "in.finf: ?*"
    # An element whose name is entry 1 of an empty table.
    printf '\xe0\x00\x00\x01\x00\x00\xff' >index.finf
    run 1 decode index.finf -o a.xml
    expectErrorLike "index.finf: ?*"
    expectFiles in.finf index.finf
}

test_EveryTruncationIsReported()
{
    printf '<!-- c --><a xmlns="u" b="v"><?p d?>text</a>' >in.xml
    run 0 encode in.xml -o whole.finf
    local size length
    size=$(stat -c %s whole.finf)
    for ((length = 0; length < size; ++length)); do
        head -c "$length" whole.finf >cut.finf
        run 1 decode cut.finf -o a.xml
        expectErrorLike "cut.finf: ?*"
        [ ! -e a.xml ] || fail "output for the first $length octets"
    done
    run 0 decode whole.finf -o a.xml
}

test_FailureLeavesTheTargetAlone()
{
    echo precious >target
    echo '<a><b></a>' >in.xml
    run 1 encode in.xml -o target
    run 0 encode "$document" -o whole.finf
    head -c 5000 whole.finf >cut.finf
    run 1 decode cut.finf -o target
    run 3 encode missing.xml -o target
    [ "$(cat target)" = precious ] || fail "the target has changed"
    expectFiles target in.xml whole.finf cut.finf
}

test_OutputFolderMustExist()
{
    run 3 encode "$document" -o missing/a.finf
    expectErrorLike "missing/a.finf: *No such file or directory"
    mkdir folder
    run 3 encode "$document" -o folder
    expectError "folder: Is a directory"
    expectFiles folder
}

# Root may write everything, so it takes another user.
test_ProtectedTargetStays()
{
    local user=()
    if [ "$(id -u)" -eq 0 ]; then
        user=(setpriv --reuid=65534 --regid=65534 --clear-groups)
        chmod 777 .
        if ! "${user[@]}" "$veskfi" --version >/dev/null 2>&1; then
            echo "SKIPPED: another user cannot run $veskfi"
            exit 77
        fi
    fi
    echo precious >target
    chmod 444 target
    "${user[@]}" "$veskfi" encode "$document" -o target 2>err && fail "a protected file was replaced"
    expectError "target: Permission denied"
    mkdir closed
    chmod 555 closed
    "${user[@]}" "$veskfi" encode "$document" -o closed/a 2>err && fail "a file was made in a protected folder"
    expectErrorLike "closed/a: *Permission denied"
    [ "$(cat target)" = precious ] || fail "the target has changed"
    expectFiles target closed
}

test_FullDiskIsReported()
{
    run 3 encode "$document" -o /dev/full
    expectError "/dev/full: No space left on device"
    "$veskfi" encode "$document" >/dev/full 2>err && fail "standard output is full, and nobody noticed"
    expectError "standard output: No space left on device"
    "$veskfi" --help >/dev/full 2>err && fail "standard output is full, and nobody noticed"
    expectErrorLike "standard output: *"
    run 0 encode "$document" -o /dev/null
    expectFiles
}

test_FileThatMayNotGrowIsReported()
{
    run 0 encode "$document" -o whole.finf
    (ulimit -f 1 && "$veskfi" decode whole.finf -o a.xml 2>err) && fail "a.xml was cut, and nobody noticed"
    expectError "a.xml: File too large"
    expectFiles whole.finf
}

test_ClosedPipeIsReported()
{
    mkfifo pipe
    head -c 1 <pipe >/dev/null &
    exec 3>pipe
    echo x >&3
    wait $!
    # More than a pipe holds, and the reader is gone.
    "$veskfi" encode "$document" >&3 2>err && fail "the pipe is closed, and nobody noticed"
    exec 3>&-
    expectError "standard output: Broken pipe"
}

test_ClosedStandardStreamsAreReported()
{
    "$veskfi" encode "$document" >&- 2>err && fail "standard output is closed, and nobody noticed"
    expectErrorLike "standard output: *"
    "$veskfi" encode <&- >out 2>err && fail "standard input is closed, and nobody noticed"
    expectError "standard input: Bad file descriptor"
}

test_SignalsLeaveNoTemporaryFile()
{
    local signal process
    set -m # otherwise a process in the background would ignore SIGINT
    mkfifo pipe
    for signal in HUP INT TERM; do
        "$veskfi" encode pipe -o a.finf &
        process=$!
        exec 3>pipe
        echo '<a>' >&3
        for ((i = 0; i < 500; ++i)); do
            ls -A | grep -q '^\.veskfi-' && break
            sleep 0.01
        done
        ls -A | grep -q '^\.veskfi-' || fail "there is no temporary file to remove"
        kill -s "$signal" "$process"
        wait "$process"
        [ $? -eq $((128 + $(kill -l "$signal"))) ] || fail "SIG$signal did not end the process"
        exec 3>&-
        expectFiles pipe
    done
}

test_HelpNamesCommandsAndExitStatus()
{
    run 0 --help
    expectNothingSaid
    for text in encode decode 'Exit status'; do
        grep -q "$text" out || fail "--help says nothing of: $text"
    done
    run 0 encode --help
    grep -q -e '--output' out || fail "encode --help says nothing of --output"
}

test_VersionIsThatOfTheProject()
{
    run 0 --version
    expectNothingSaid
    local version
    version=$(sed -n 's/^ *VERSION \([0-9.]*\)$/\1/p' "$(dirname "$document")/../../CMakeLists.txt")
    [ "$(cat out)" = "veskfi $version" ] || fail "--version says: $(cat out)"
}

test_WrongUsageIsToldApart()
{
    local arguments
    for arguments in "" "--frobnicate" "encode --frobnicate" "encode -o"; do
        # shellcheck disable=SC2086
        run 2 $arguments
        expectErrorLike "* (see veskfi --help)"
        [ ! -s out ] || fail "standard output holds: $(cat out)"
    done
    expectFiles
}

"test_$test"
exit $failed

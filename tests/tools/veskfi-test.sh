#!/bin/bash
# SPDX-License-Identifier: MIT
#
# Runs the tool as its users do:   veskfi-test.sh VESKFI SOURCE_FOLDER TEST
# Each test runs in an empty folder of its own, which must not hold anything it did not ask for afterwards.
source "$(dirname "$0")/harness.sh"

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
    run 0 encode -f a -o a
    expectSame a a.finf
    expectFiles a a.finf
}

test_TextIsConvertedToUTF8()
{
    printf '<?xml version="1.0" encoding="ISO-8859-1"?><a b="\xe4">\xf6</a>' >a.xml
    run 0 encode a.xml -o a.finf
    run 0 decode -c a.finf
    expectNothingSaid
    grep -q 'ä.*ö' out || fail "umlauts are lost: $(cat out)"
}

test_ReplacedFileKeepsItsMode()
{
    touch kept.finf
    chmod 640 kept.finf
    run 0 encode -f "$document" -o kept.finf
    [ "$(stat -c %a kept.finf)" = 640 ] || fail "mode of a replaced file is $(stat -c %a kept.finf)"
}

test_NewFileGetsTheModeOfItsInput()
{
    umask 027
    cp "$document" open.xml
    chmod 644 open.xml
    cp "$document" private.xml
    chmod 600 private.xml
    run 0 encode open.xml private.xml
    [ "$(stat -c %a open.finf)" = 640 ] || fail "mode of a new file is $(stat -c %a open.finf)"
    [ "$(stat -c %a private.finf)" = 600 ] || fail "mode of a private file is $(stat -c %a private.finf)"
    "$veskfi" encode -o new.finf <"$document"
    "$veskfi" encode -o piped.finf < <(cat "$document")
    [ "$(stat -c %a piped.finf)" = 640 ] || fail "mode of a new file is $(stat -c %a piped.finf)"
}

test_SymbolicLinkStaysALink()
{
    mkdir elsewhere
    echo old >elsewhere/target
    ln -s elsewhere/target link
    run 0 encode -f "$document" -o link
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
    echo '<a/>' >in.xml
    run 1 decode in.xml -o a.xml
    expectError "in.xml: is XML text already"
    run 0 encode in.xml -o good.finf
    run 1 encode good.finf
    expectError "good.finf: is Fast Infoset already"
    rm in.xml good.finf
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
        expectErrorLike "cut.finf: octet [0-9]*: ?*"
        [ ! -e a.xml ] || fail "output for the first $length octets"
    done
    run 0 decode whole.finf -o a.xml
}

test_FailureLeavesTheTargetAlone()
{
    echo precious >target
    echo '<a><b></a>' >in.xml
    run 1 encode -f in.xml -o target
    run 0 encode "$document" -o whole.finf
    head -c 5000 whole.finf >cut.finf
    run 1 decode -f cut.finf -o target
    run 3 encode -f missing.xml -o target
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
    "${user[@]}" "$veskfi" encode -f "$document" -o target 2>err && fail "a protected file was replaced"
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
    "$veskfi" encode -c "$document" >/dev/full 2>err && fail "standard output is full, and nobody noticed"
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

test_BrokenPipeEndsQuietly()
{
    mkfifo pipe
    head -c 1 <pipe >/dev/null &
    exec 3>pipe
    echo x >&3
    wait $!
    # More than a pipe holds, and the reader is gone.
    "$veskfi" encode -c "$document" >&3 2>err
    [ $? -eq $((128 + $(kill -l PIPE))) ] || fail "not ended by SIGPIPE"
    (trap '' PIPE && exec "$veskfi" encode -c "$document" >&3 2>>err)
    [ $? -eq 3 ] || fail "not ended with 3 although SIGPIPE is ignored"
    exec 3>&-
    expectNothingSaid
}

test_ClosedStandardStreamsAreReported()
{
    "$veskfi" encode -c "$document" >&- 2>err && fail "standard output is closed, and nobody noticed"
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

test_SeveralSignalledJobsLeaveNothing()
{
    local process files=(a b c)
    set -m
    for name in "${files[@]}"; do mkfifo $name.xml; done
    "$veskfi" encode -j 3 a.xml b.xml c.xml &
    process=$!
    exec 3>a.xml 4>b.xml 5>c.xml
    for ((i = 0; i < 500; ++i)); do
        [ "$(ls -A | grep -c '^\.veskfi-')" -eq 3 ] && break
        sleep 0.01
    done
    [ "$(ls -A | grep -c '^\.veskfi-')" -eq 3 ] || fail "there are not three temporary files"
    kill "$process"
    wait "$process"
    [ $? -eq $((128 + $(kill -l TERM))) ] || fail "SIGTERM did not end the process"
    exec 3>&- 4>&- 5>&-
    expectFiles a.xml b.xml c.xml
}

test_IgnoredSignalsStayIgnored()
{
    mkfifo pipe
    (trap '' HUP && exec "$veskfi" encode pipe -o a.finf) &
    local process=$!
    exec 3>pipe
    echo '<a>' >&3
    kill -s HUP $process
    echo '</a>' >&3
    exec 3>&-
    wait $process || fail "an ignored signal ended the process"
    expectFiles pipe a.finf
}

test_FilesGoToTheirSiblings()
{
    local names=(a.xml 'with space.xml' $'with\nline feed.XML' 'ünï.svg' '[list].xml' -dash.xml none)
    for name in "${names[@]}"; do cp "$document" "./$name"; done
    run 0 encode -- "${names[@]}"
    expectNothingSaid
    local made=(a.finf 'with space.finf' $'with\nline feed.finf' 'ünï.svg.finf' '[list].finf' -dash.finf none.finf)
    for name in "${made[@]}"; do
        [ -s "./$name" ] || fail "there is no $name"
    done
    run 0 encode -c a.xml
    expectSame out none.finf
    run 0 decode -c -- -dash.finf
    mv out expected
    rm -- "${names[@]}"
    run 0 decode -- "${made[@]}"
    for name in a.xml 'with space.xml' $'with\nline feed.xml' 'ünï.svg.xml' '[list].xml' -dash.xml none.xml; do
        expectSame expected "./$name"
    done
}

test_MessagesAboutStrangeNamesAreOneLine()
{
    printf '<a>' >$'line\nfeed\e[31m.xml'
    run 1 encode $'line\nfeed\e[31m.xml'
    expectError 'line\nfeed\u{1b}[31m.xml: line 1, column 4: no element found'
}

test_FileAloneIsConvertedTheOtherWay()
{
    cp "$document" a.xml
    run 0 a.xml
    run 3 a.finf
    expectError "a.xml: exists already (-f overwrites it)"
    run 0 -f a.finf
    run 0 encode -c a.xml
    expectSame out a.finf
    # Not by the name.
    printf "\xff\xfe<\0a\0/\0>\0" >utf16.finf
    run 0 utf16.finf
    [ "$(head -c 1 utf16.finf.finf | od -An -tx1)" = " e0" ] || fail "utf16.finf.finf is no Fast Infoset"
    run 0 encode --decl -o declared a.xml
    run 0 declared
    expectSame declared.xml a.xml
    echo 'Something else.' >c.txt
    run 1 c.txt
    expectError "c.txt: neither XML nor Fast Infoset"
    run 2 decode --frobnicate
    expectErrorLike "*--frobnicate (see veskfi decode --help)"
    run 2 frobnicate
    expectError "frobnicate is neither a command nor a file (see veskfi --help)"
}

# What its first octets are cannot be seen without taking them away.
test_PipeAloneIsRefused()
{
    mkfifo pipe
    "$veskfi" pipe 2>err &
    local process=$! i
    for ((i = 0; i < 500; ++i)); do
        [ -s err ] && break
        sleep 0.01
    done
    [ -s err ] || kill $process
    wait $process
    [ $? -eq 3 ] || fail "a pipe alone did not end with 3"
    expectError "pipe: is no regular file: say veskfi encode or veskfi decode"
    cat "$document" | "$veskfi" /dev/stdin >out 2>err
    [ $? -eq 3 ] || fail "/dev/stdin did not end with 3"
    expectError "/dev/stdin: is no regular file: say veskfi encode or veskfi decode"
    "$veskfi" - <"$document" >out 2>err
    [ $? -eq 3 ] || fail "- did not end with 3"
    expectError "-: is no regular file: say veskfi encode or veskfi decode"
    expectFiles pipe
}

test_ExistingFilesStay()
{
    cp "$document" a.xml
    echo precious >a.finf
    run 3 encode a.xml
    expectError "a.finf: exists already (-f overwrites it)"
    run 3 encode a.xml -o a.finf
    [ "$(cat a.finf)" = precious ] || fail "a.finf has changed"
    # A file that comes while the conversion runs stays, too.
    mkfifo pipe
    "$veskfi" encode pipe -o late 2>err &
    exec 3>pipe
    echo '<a/>' >&3
    for ((i = 0; i < 500; ++i)); do
        ls -A | grep -q '^\.veskfi-' && break
        sleep 0.01
    done
    echo precious >late
    exec 3>&-
    wait $! && fail "late was replaced"
    expectError "late: exists already (-f overwrites it)"
    [ "$(cat late)" = precious ] || fail "late has changed"
    run 0 encode -f a.xml
    [ "$(stat -c %s a.finf)" -gt 1000 ] || fail "a.finf was not replaced"
    expectFiles a.xml a.finf pipe late
}

test_OneBadFileStopsTheOthersUnlessToldToGoOn()
{
    local number
    for number in 1 3 4; do echo "<a>$number</a>" >$number.xml; done
    echo '<a>' >2.xml
    run 1 encode -j 1 1.xml 2.xml 3.xml 4.xml
    [ "$(cat err)" = "veskfi: 2.xml: line 2, column 1: no element found
veskfi: stopped after a failure; files not converted: 2 (--keep-going goes on)" ] || fail "it says: $(cat err)"
    expectFiles {1,2,3,4}.xml 1.finf

    rm 1.finf
    run 1 encode --keep-going {1,2,3,4}.xml
    expectError "2.xml: line 2, column 1: no element found"
    expectFiles {1,2,3,4}.xml 1.finf 3.finf 4.finf
}

test_WorstStatusOfSeveralFilesCounts()
{
    echo '<a/>' >good.xml
    echo '<a>' >bad.xml
    run 3 encode -f --keep-going bad.xml missing.xml good.xml
    [ "$(wc -l <err)" -eq 2 ] || fail "not two messages: $(cat err)"
    run 3 encode -f --keep-going missing.xml bad.xml
    run 1 encode -f --keep-going good.xml bad.xml
    printf '\xe0\x00\x00\x01\x20\x10\x00\x04urn:x' >external.finf
    run 4 decode --keep-going external.finf missing.finf
    run 4 decode --keep-going missing.finf external.finf
}

test_FoldersAreMirrored()
{
    mkdir -p 'in/deep er/est' in/empty in/other
    echo '<a/>' >in/a.xml
    echo '<b/>' >'in/deep er/b.svg'
    echo '<c/>' >'in/deep er/est/.c.xml'
    echo 'text' >in/other/readme.txt
    ln -s .. in/loop
    run 3 encode in
    expectError "in: is a folder (-r converts the documents in it)"
    run 0 encode -r in --output-dir packed/put
    expectNothingSaid
    [ "$(cd packed && find . -type f | sort)" = "./put/a.finf
./put/deep er/b.svg.finf
./put/deep er/est/.c.finf" ] || fail "packed holds: $(find packed)"
    run 0 decode -r packed/put
    [ "$(tail -n 1 'packed/put/deep er/est/.c.xml')" = '<c/>' ] || fail "decoded: $(cat 'packed/put/deep er/est/.c.xml')"
    run 3 decode -r packed/put
    run 0 decode -rf packed/put
    run 0 encode -v -r in/other
    expectError "in/other/readme.txt: left out, not XML"
    rm -r packed

    # Folders that a failure leaves empty go as well.
    echo '<a>' >in/a.xml
    rm -r 'in/deep er'
    run 1 encode -r in --output-dir packed/put
    [ ! -e packed ] || fail "output folders are left: $(find packed)"
}

test_OutputsThatCollideAreRefused()
{
    mkdir x y
    echo '<a/>' | tee x/a.xml >y/a.xml
    run 2 encode x/a.xml y/a.xml --output-dir out
    expectError "x/a.xml and y/a.xml would both become out/a.finf (see veskfi --help)"
    run 2 encode x/a.xml ./x/a.xml
    expectFiles x y x/a.xml y/a.xml
}

test_StandardInputHasNoPlaceInAFolder()
{
    echo '<a/>' >a.xml
    local arguments
    for arguments in "encode --output-dir d" "encode --output-dir d -"; do
        # shellcheck disable=SC2086
        run 2 $arguments <a.xml
        expectError "--output-dir takes files, not standard input (see veskfi encode --help)"
        [ ! -s out ] || fail "$arguments writes to standard output"
    done
    expectFiles a.xml
}

test_BinaryIsNotWrittenToATerminal()
{
    command -v script >/dev/null || exit 77
    echo '<a/>' >a.xml
    local terminal=(script --quiet --return --log-out typed --command)
    "${terminal[@]}" "'$veskfi' encode -c a.xml" >/dev/null && fail "it was written"
    grep -q 'standard output is a terminal' typed || fail "said: $(cat typed)"
    "${terminal[@]}" "'$veskfi' encode -cf a.xml" >/dev/null || fail "not even with -f"
    "${terminal[@]}" "'$veskfi' encode -c a.xml >a.finf" >/dev/null || fail "not to a file"
    "${terminal[@]}" "'$veskfi' decode -c a.finf" >/dev/null || fail "text was not written"
    grep -q '<a/>' typed || fail "said: $(cat typed)"
}

test_ProgressIsShownOnATerminalOnly()
{
    command -v script >/dev/null || exit 77
    local slow="(echo '<a>'; sleep 0.6; echo '</a>') | '$veskfi' encode -o a.finf -f"
    script --quiet --return --log-out typed --command "$slow" >/dev/null || fail "it failed"
    grep -q 'B/s' typed || fail "no progress: $(cat typed)"
    script --quiet --return --log-out typed --command "$slow -q" >/dev/null || fail "it failed"
    grep -q 'B/s' typed && fail "progress in spite of -q: $(cat typed)"
    bash -c "$slow" 2>err
    expectNothingSaid
}

test_ExternalVocabulariesAreTakenFromTheCommandLineOnly()
{
    # Two elements whose names are the first ones of the vocabulary urn:x=y.
    printf '\xe0\x00\x00\x01\x20\x10\x00\x06urn:x=y\x00\x01\xff\xf0' >a.finf
    echo '<n:outer xmlns:n="urn:n"><inner/></n:outer>' >names.xml
    "$veskfi" encode names.xml -o names.finf
    run 4 decode -c a.finf
    expectError "a.finf: the document needs the external vocabulary urn:x=y (give it with --vocab urn:x=y=FILE)"
    local file
    for file in names.xml names.finf; do
        run 0 decode -c --no-decl --vocab other=missing --vocab urn:x=y=$file a.finf
        [ "$(cat out)" = '<n:outer xmlns:n="urn:n"><inner/></n:outer>' ] || fail "with $file: $(cat out)"
    done
    run 3 decode -c --vocab urn:x=y=missing a.finf
    expectError "missing: No such file or directory"
    echo 'neither' >bad
    run 3 decode -c --vocab urn:x=y=bad a.finf
    echo '<a>' >bad
    run 1 decode -c --vocab urn:x=y=bad a.finf
    expectError "bad: line 2, column 1: no element found"
    run 2 decode -c --vocab urn:x a.finf
    expectError "--vocab takes URI=FILE, not urn:x (see veskfi --help)"

    # A document cannot name a file, either.
    printf '\xe0\x00\x00\x01\x20\x10\x00\x09names.finf\x00\x01\xff\xf0' >file.finf
    run 4 decode -c file.finf
    run 0 decode -c --vocab names.finf=names.finf file.finf
}

test_UnknownAlgorithmsAreToldApart()
{
    # Text with encoding algorithm 32.
    printf '\xe0\x00\x00\x01\x00\x3c\x00a\x8c\x7c\x01x\xff' >a.finf
    run 4 decode -c a.finf
    expectErrorLike "a.finf: *encoding algorithm*"
}

test_WhatWouldBeLostIsAFailure()
{
    printf '<!DOCTYPE a SYSTEM "x">\n<a>\n&gone;<b c="&lost;"/></a>' >a.xml
    run 1 encode a.xml
    expectError 'a.xml: line 3, column 1: the reference "&gone;" cannot be expanded and would be lost (--lossy converts without it)'
    expectFiles a.xml
    run 0 encode --lossy a.xml
    [ "$(cat err)" = 'veskfi: warning: a.xml: line 3, column 1: the reference "&gone;" cannot be expanded and is lost
veskfi: warning: a.xml: line 3, column 7: the reference "&lost;" in an attribute value cannot be expanded and is lost' ] ||
        fail "it says: $(cat err)"
    run 0 encode -qf --lossy a.xml
    expectNothingSaid
    run 0 decode -c --no-decl a.finf
    [ "$(grep -v DOCTYPE out)" = "$(printf '<a>\n<b c=""/></a>')" ] || fail "came back: $(cat out)"

    echo '<!DOCTYPE b [<!ELEMENT a EMPTY>]><a/>' >b.xml
    run 1 encode b.xml
    expectErrorLike "b.xml: line 1, column *: the document type's name \"b\" is not that of the root element*"

    # An internal subset has done its work.
    echo '<!DOCTYPE a [<!ATTLIST a b CDATA "c"><!ENTITY e "f">]><a>&e;</a>' >c.xml
    run 0 encode c.xml
    expectNothingSaid
    run 0 encode -vf c.xml
    grep -q 'the internal subset is left out' err || fail "-v says nothing of the internal subset: $(cat err)"
    run 0 decode -c --no-decl c.finf
    [ "$(grep -v DOCTYPE out)" = '<a b="c">f</a>' ] || fail "came back: $(cat out)"
}

test_WhatFastInfosetSaysAndXMLCannotIsToldOf()
{
    # An element with a reference to the entity e, and one with a name that is none.
    printf '\xe0\x00\x00\x01\x00\x3c\x00a\xc8\x00e\xff' >a.finf
    run 0 decode -c --no-decl a.finf
    expectErrorLike "warning: a.finf: octet 9: a reference to an entity, which was not expanded, is left out"
    [ "$(cat out)" = '<a/>' ] || fail "came back: $(cat out)"
    (cat a.finf && echo more) >longer.finf
    run 0 decode -c --no-decl longer.finf
    grep -q "longer.finf: octet $(stat -c %s a.finf): what stands behind the document is left out" err ||
        fail "it says: $(cat err)"
    run 0 decode -q -c --no-decl longer.finf
    expectNothingSaid

    printf '\xe0\x00\x00\x01\x00\x3c\x00 \xff' >b.finf
    run 1 decode b.finf
    expectErrorLike "b.finf: octet ?*"
}

test_ManyLossesAreOnlyCounted()
{
    local number
    (echo '<!DOCTYPE a SYSTEM "x"><a>' && for number in {1..50}; do echo "&e$number;"; done && echo '</a>') >a.xml
    run 0 encode --lossy a.xml
    [ "$(wc -l <err)" -eq 21 ] && [ "$(tail -1 err)" = "veskfi: warning: a.xml: 30 more are lost" ] ||
        fail "encode says: $(cat err)"
    (printf '\xe0\x00\x00\x01\x00\x3c\x00a' && for number in {1..50}; do printf '\xc8\x00e'; done && printf '\xff') >b.finf
    run 0 decode b.finf
    [ "$(wc -l <err)" -eq 21 ] && [ "$(tail -1 err)" = "veskfi: warning: b.finf: 30 more are lost" ] ||
        fail "decode says: $(cat err)"
}

test_UnreadableFilesAreReported()
{
    local user=()
    if [ "$(id -u)" -eq 0 ]; then
        user=(setpriv --reuid=65534 --regid=65534 --clear-groups)
        chmod 777 .
        "${user[@]}" "$veskfi" --version >/dev/null 2>&1 || exit 77
    fi
    mkdir -m 777 in in/a in/d
    echo '<a/>' | tee in/a/a.xml in/b.xml in/c.xml >in/d/d.xml
    chmod 0 in/a in/b.xml
    "${user[@]}" "$veskfi" encode --keep-going -r in 2>err
    [ $? -eq 3 ] || fail "the status is not 3"
    [ "$(sort err)" = "veskfi: in/a: Permission denied
veskfi: in/b.xml: Permission denied" ] || fail "it says: $(cat err)"
    [ -s in/c.finf ] && [ -s in/d/d.finf ] || fail "the others were not converted: $(find in)"
    chmod 700 in/a
}

test_OptionsOfEncodeDoWhatTheySay()
{
    echo '<a> <b>12345678</b> <b>12345678</b> <c>AAECAwQFBgcICQoLDA0ODw==</c> </a>' >a.xml
    run 0 encode -c a.xml
    local plain declared
    plain=$(stat -c %s out)
    run 0 encode -c --decl a.xml
    [ "$(head -c 23 out)" = "<?xml encoding='finf'?>" ] || fail "--decl"
    run 0 encode -c --max-indexed 0 a.xml
    [ "$(stat -c %s out)" -gt "$plain" ] || fail "--max-indexed 0"
    run 0 encode -c --typed a.xml
    [ "$(stat -c %s out)" -lt "$plain" ] || fail "--typed"
    run 2 encode --max-indexed -1 a.xml
    expectErrorLike "--max-indexed: *-1 * 2147483647 (see veskfi encode --help)"
    "$veskfi" encode --typed <a.xml | "$veskfi" decode --no-decl >b.xml
    expectSame <(tr -d '\n' <a.xml) b.xml
    "$veskfi" encode --strip-space <a.xml | "$veskfi" decode --no-decl >b.xml
    [ "$(cat b.xml)" = "$(tr -d ' \n' <a.xml)" ] || fail "--strip-space: $(cat b.xml)"
}

test_OptionsOfDecodeDoWhatTheySay()
{
    echo '<a><b>c</b></a>' | "$veskfi" encode >a.finf
    run 0 decode -c a.finf
    [ "$(head -n 1 out)" = '<?xml version="1.0" encoding="UTF-8"?>' ] || fail "no declaration: $(cat out)"
    run 0 decode -c --no-decl --pretty a.finf
    [ "$(cat out)" = "$(printf '<a>\n  <b>c</b>\n</a>')" ] || fail "--pretty: $(cat out)"
}

test_ComparisonTellsTheSizes()
{
    printf '<a>%s</a>' "$(seq -s ' ' 1000 1999)" >a.xml
    run 0 encode a.xml
    run 0 encode --typed a.xml -o typed.finf
    run 0 compare a.xml a.finf
    expectNothingSaid
    [ "$(grep -c '^  Fast Infoset ' out)" -eq 6 ] || fail "there are not two tables and the total: $(cat out)"
    local size
    for size in $(stat -c %s a.xml a.finf typed.finf); do
        grep -q " $(sed 's/\(...\)$/,\1/' <<<"$size") " out || fail "$size is not in: $(cat out)"
    done
    run 0 compare <a.xml
    grep -q '^standard input' out && ! grep -q total out || fail "of one document: $(cat out)"
    echo '<a>' >bad.xml
    run 3 compare bad.xml missing.xml a.xml a.xml
    [ "$(cat err)" = "veskfi: bad.xml: line 2, column 1: no element found
veskfi: missing.xml: No such file or directory" ] || fail "it says: $(cat err)"
    grep -q '^total of 2 documents' out || fail "the others are not compared: $(cat out)"
    head -c 10 a.finf >cut.finf
    run 1 compare cut.finf
    expectErrorLike "cut.finf: octet [0-9]*: ?*"
    "$veskfi" compare a.xml >/dev/full 2>err && fail "standard output is full, and nobody noticed"
    expectError "standard output: No space left on device"
}

test_LargeInputIsStreamed()
{
    (echo '<a>' && yes '<b c="d">text of an element</b>' | head -n 500000 && echo '</a>') >a.xml
    run 0 encode a.xml
    run 0 decode -f --no-decl a.finf -o b.xml
    [ "$(head -c 40 b.xml)" = "$(head -c 40 a.xml)" ] || fail "the start differs"
    [ "$(stat -c %s b.xml)" -eq $(($(stat -c %s a.xml) - 1)) ] || fail "sizes differ"
}

test_TooLittleMemoryIsAnInternalError()
{
    # Sanitizers need more than that for themselves.
    (ulimit -v 300000 && "$veskfi" --version >/dev/null 2>&1) || exit 77
    (printf '<a b="' && head -c 200000000 /dev/zero | tr '\0' x && echo '"/>') |
        (ulimit -v 300000 && "$veskfi" encode -o a.finf 2>err)
    [ $? -eq 70 ] || fail "did not end with 70: $(cat err)"
    expectErrorLike "*not enough memory"
    expectFiles
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
        expectErrorLike "* (see veskfi* --help)"
        [ ! -s out ] || fail "standard output holds: $(cat out)"
    done
    expectFiles
}

runTest

#!/bin/bash
# SPDX-License-Identifier: MIT
#
# The commands that look inside documents:   inspect-test.sh VESKFI SOURCE_FOLDER TEST
source "$(dirname "$0")/harness.sh"

# octets FILE HEX...: writes a document as it is written down; 'text' stands for itself.
octets()
{
    local file=$1 word
    shift
    for word in "$@"; do
        case $word in
        \'*) printf '%s' "${word:1:-1}" ;;
        *) printf '%b' "\\x$word" ;;
        esac
    done >"$file"
}

# A document with all that a header can hold, and every kind of item and content.
everything()
{
    octets "$1" "'<?xml?>'" e0 00 00 01 7f 00 00 "'i'" 00 "'d'" 0f ff 00 01 "'ab'" 00 00 "'u'" 00 00 "'p'" \
        00 00 "'u'" 01 00 "'a'" 00 "'b'" 00 00 "'t'" 00 02 "'sys'" 01 00 "'1'" 11 00 "'2'" 00 30 00 33 00 00 00 05 \
        00 00 "'x'" 00 03 01 01 00 00 01 01 00 \
        c3 00 "'n'" 80 02 "'pub'" f0 d1 00 "'e'" 80 81 81 f0 04 "'UTF-8'" 01 42 "'1.0'" \
        e2 80 e1 80 81 c7 80 81 e1 80 80 f0 38 cf 00 "'q'" 00 "'v'" cc f0 3c 00 "'c'" \
        40 00 80 f0 80 "'x'" 92 01 "'long'" a0 85 00 "'y'" 8c 06 00 00 01 02 9c 24 "'z'" cb 80 80 81 f0 ff
}

# The documents of the tests, as the writer makes them with different options, and one that it would not make.
makeDocuments()
{
    local xml limit name
    for xml in "$sources"/tests/data/*.xml "$document"; do
        name=$(basename "$xml")
        for limit in 0 16 64; do
            "$veskfi" encode --lossy -q --max-indexed $limit "$xml" -o "$name-$limit.finf" || fail "cannot encode $xml"
        done
        "$veskfi" encode --lossy -q --typed --decl "$xml" -o "$name-typed.finf" || fail "cannot encode $xml"
    done
    everything everything.finf
}

# expectCovered FILE: what inspect --json has put into out are parts that follow each other from the first bit of the file
# to the last, each with its octets.
expectCovered()
{
    od -An -v -tx1 "$1" | tr -d ' \n' >octets
    awk -v file="$1" '
        function number(key) { match($0, "\"" key "\":[0-9]+"); return substr($0, RSTART + length(key) + 3, RLENGTH - length(key) - 3) }
        FNR == NR { octets = $0; next }
        {
            first = 8 * number("offset") + number("bit")
            if (first != end) { print "a gap at bit " end " of " file ": " $0; exit failed = 1 }
            end = first + number("bits")
            match($0, "\"octets\":\"[0-9a-f]*\"")
            wanted = substr(octets, 2 * int(first / 8) + 1, 2 * (int((end + 7) / 8) - int(first / 8)))
            if (substr($0, RSTART + 10, RLENGTH - 11) != wanted) { print "not the octets of " file ": " $0; exit failed = 1 }
        }
        END { if (!failed && 4 * length(octets) != end) { print file " ends at bit " end; failed = 1 }; exit failed }
    ' octets out || failed=1
    rm octets
}

test_InspectAccountsForEveryOctet()
{
    local file
    makeDocuments
    for file in *.finf; do
        run 0 inspect --json "$file"
        expectCovered "$file"
        local parts
        parts=$(wc -l <out)
        run 0 inspect "$file"
        [ "$(wc -l <out)" -eq "$parts" ] || fail "inspect shows $(wc -l <out) parts of $file instead of $parts"
        run 0 check "$file"
        [ ! -s out ] || fail "check says of $file: $(cat out)"
    done
}

test_InspectShowsOctetsAndWhatTheyMean()
{
    octets a.finf e0 00 00 01 00 78 cf 00 "'p'" 00 "'u'" f0 3f 81 81 00 "'a'" 78 00 "'b'" 40 "'1'" 00 80 f0 \
        82 07 "'ten octets'" 8c 09 00 07 e2 41 "'hi'" ff
    run 0 inspect a.finf
    cat >expected <<'END'
      0   e0 00                     Fast Infoset
      2   00 01                     version 1
      4   00                        header: nothing optional
      5   78                        element
      6   cf                          namespace attribute
      7   00 70                         prefix "p" -> prefixes [2]
      9   00 75                         namespace name "u" -> namespace names [2]
     11   1111....                    end of namespace attributes
     11.4 ....0000 00......           padding
     12.2 ..111111                    new name
     13   81                          prefix "p" <- prefixes [2]
     14   81                          namespace name "u" <- namespace names [2]
     15   00 61                       local name "a" -> local names [1]
                                      name p:a -> element names [1]
     17   0.......                    attribute
     17.1 .1111000                      new name
     18   00 62                         local name "b" -> local names [2]
                                        name b -> attribute names [1]
     20   40 31                         value "1" -> attribute values [1]
     22   0.......                    attribute
     22.1 .0000000                      name b <- attribute names [1]
     23   80                            value "1" <- attribute values [1]
     24   1111....                    end of attributes
     24.4 ....0000                    padding
     25   10......                    character chunk
     25.2 ..000010 07 74 65 6e ..       text "ten octets"
     37   10......                    character chunk
     37.2 ..001100 09 00 07             text "7" as short
     41   e2                          comment
     42   41 68 69                      text "hi" -> other strings [1]
     45   1111....                  end of element p:a
     45.4 ....1111                  end of document
END
    sed -i 's/ *$//' out
    diff expected out || fail "inspect shows something else"
    run 0 inspect --full a.finf
    grep -q -x '     25.2 ..000010 07 74 65 6e 20       text "ten octets"' out &&
        grep -q -x '          6f 63 74 65 74 73 ' out || fail "--full shows: $(cat out)"
}

test_InspectShortensUnlessItShallNot()
{
    octets a.finf e0 00 00 01 00 3c 00 "'a'" 82 50 "'$(printf 'x%.0s' {1..83})'" ff
    run 0 inspect a.finf
    grep -q -F ' 50 78 78 78 .. ' out && grep -q -F "text \"$(printf 'x%.0s' {1..60})\"..." out ||
        fail "the text is not shortened: $(cat out)"
    run 0 inspect --full a.finf
    grep -q -F "text \"$(printf 'x%.0s' {1..83})\"" out || fail "--full shortens the text: $(cat out)"
    [ "$(grep -o ' 78' out | wc -l)" -eq 83 ] || fail "--full shortens the octets: $(cat out)"
    run 0 inspect --json a.finf
    grep -q -F "\"text\":\"$(printf 'x%.0s' {1..83})\"" out || fail "--json shortens the text: $(cat out)"
}

# Whatever is missing at the end, what is there is shown as it is in the whole document, and all commands tell the same.
test_EveryTruncationIsMarked()
{
    everything whole.finf
    run 0 inspect whole.finf
    cp out whole
    local size message octet files=() wholeSize
    wholeSize=$(stat -c %s whole.finf)
    for ((size = 0; size < wholeSize; ++size)); do
        local file=first$size.finf
        files+=("$file")
        head -c $size whole.finf >"$file"
        run 1 inspect "$file"
        expectErrorLike "$file: octet *: /*: Unexpected end of stream *"
        message=$(cut -c 9- err)
        echo "$message" >>messages
        octet=${message#*octet }
        octet=${octet%%:*}
        [ "$octet" -le $size ] || fail "the failure in $size octets is at $octet"
        head -n -1 out >begin
        cmp -s -n "$(stat -c %s begin)" begin whole || fail "$size octets are shown otherwise: $(cat out)"
        [[ $(tail -1 out) == *"$octet"*" ERROR in /"*": ${message##*: }" ]] || fail "$size octets end with: $(tail -1 out)"
    done
    [ "$(wc -l <messages)" -eq "$wholeSize" ] || fail "not every truncation was looked at"
    run 1 check "${files[@]}"
    expectNothingSaid
    expectSame out messages
    run 1 stats "${files[@]}"
    sed 's/^veskfi: //' err | cmp - messages || fail "stats says: $(cat err)"
    [ ! -s out ] || fail "stats shows: $(cat out)"
    run 1 inspect --json first100.finf
    [[ $(tail -1 out) == "{\"offset\":"*"\"error\":\"Unexpected end of stream "*"\"path\":\"/"* ]] ||
        fail "JSON ends with $(tail -1 out)"
}

test_FailuresNameTheOctetAndTheElement()
{
    # <a x="1"><a><b/>, so that 19 is the next octet, and the names are a, b and x, the value is 1.
    local start="e0 00 00 01 00 7c 00 'a' 78 00 'x' 40 '1' f0 00 3c 00 'b' f0"
    expectFailure()
    {
        local expected=$1
        shift
        # shellcheck disable=SC2086
        octets a.finf $start "$@"
        run 1 check a.finf
        [ "$(cat out)" = "a.finf: octet $expected" ] || fail "check says: $(cat out), instead of octet $expected"
    }
    expectFailure "19: /a/a[1]: Invalid child element" d0
    expectFailure "20: /a/a[1]/b[2]: Invalid child element" 01 d0
    expectFailure "19: /a/a[1]: index out of range" 05
    expectFailure "21: /a/a[1]/b[2]/@x: index out of range" 41 00 a0
    expectFailure "22: /a/a[1]/b[2]: index out of range" 41 00 80 05
    expectFailure "20: /a/a[1]: index out of range" 3d 85 00 "'c'"
    # What can be read but is no XML.
    expectFailure '19: /a/a[1]: Comment contains "--" or ends in "-"' e2 01 "'--'" ff
}

test_CheckReportsEachDocument()
{
    "$veskfi" encode "$document" -o good.finf
    head -c 2000 good.finf >short.finf
    octets missing.finf e0 00 00 01 20 10 00 04 "'urn:v'" 3c 00 "'a'" ff
    run 0 check good.finf good.finf
    expectNothingSaid
    [ ! -s out ] || fail "check says: $(cat out)"
    "$veskfi" check <good.finf || fail "check does not read standard input"
    run 4 check short.finf nothing.finf good.finf missing.finf
    expectErrorLike "nothing.finf: No such file or directory"
    [ "$(wc -l <out)" -eq 2 ] || fail "check says: $(cat out)"
    grep -q -x 'short.finf: octet [0-9]*: /svg.*: Unexpected end of stream .*' out || fail "check says: $(cat out)"
    grep -q '^missing.finf: octet 13: /: .*--vocab urn:v=FILE' out || fail "check says: $(cat out)"
    run 3 check nothing.finf short.finf
    run 1 check - <short.finf
    grep -q '^standard input: octet ' out || fail "check says: $(cat out)"
    printf '<?xml version="1.0"?><urn/>' >v.xml
    octets named.finf e0 00 00 01 20 10 00 04 "'urn:v'" 00 ff
    run 0 check --vocab urn:v=v.xml named.finf
    run 0 inspect --vocab urn:v=v.xml named.finf
    grep -q 'external vocabulary "urn:v"' out && grep -q 'name urn <- element names \[1\]' out ||
        fail "inspect shows: $(cat out)"
}

test_OctetsBehindTheDocumentAreTold()
{
    octets a.finf e0 00 00 01 00 3c 00 "'a'" ff 01 02 03
    run 0 inspect a.finf
    [ "$(tail -1 out | tr -s ' ')" = " 9 01 02 03 3 octets behind the document, not read" ] || fail "$(tail -1 out)"
    run 0 inspect --json a.finf
    expectCovered a.finf
    head -c 5000 /dev/zero >>a.finf
    run 0 inspect a.finf
    grep -q ' 5003 octets behind' out || fail "$(tail -1 out)"
}

# Texts of documents must not get at the terminal, nor break a line of JSON.
test_TextsAreHarmless()
{
    octets a.finf e0 00 00 01 00 7c 00 "'a'" 78 00 "'x'" 44 1b "'[1m'" 0a f0 82 21 1b "']0;'" 22 5c 07 ff c2 85 \
        e2 80 ae e2 80 a8 "'$(printf 'x%.0s' {1..20})'" ff
    local arguments
    for arguments in inspect "inspect --full" "inspect --json" stats "stats --json"; do
        # shellcheck disable=SC2086
        run 0 $arguments a.finf
        [ -z "$(tr -d '\n\040-\176\200-\377' <out)" ] || fail "$arguments lets control characters through"
        [[ $arguments != *--json ]] || ! command -v python3 >/dev/null ||
            python3 -c 'import json
for line in open("out", encoding="utf-8", newline="\n"): json.loads(line)' || fail "$arguments is no JSON: $(cat out)"
    done
    run 0 inspect a.finf
    grep -q -F 'value "\u{1b}[1m\n"' out && grep -q -F '\xff\u{85}\u{202e}\u{2028}' out || fail "inspect shows: $(cat out)"
    local name=$'new\nline\e[1m.finf'
    head -c 7 a.finf >"$name"
    run 1 check "$name"
    [ "$(wc -l <out)" -eq 1 ] && ! grep -q $'\e' out || fail "check says: $(cat out)"
}

# Controls of two octets and marks of the direction of writing, in names that messages tell.
test_NamesInMessagesAreHarmless()
{
    # A vocabulary that is not there, and an element whose name is none.
    octets vocabulary.finf e0 00 00 01 20 10 00 05 "'a'" c2 9b "'31m'" 3c 00 "'a'" ff
    octets name.finf e0 00 00 01 00 3c 04 c2 9b e2 80 ae ff
    local file arguments
    for file in vocabulary name; do
        for arguments in check decode inspect "inspect --json" stats compare; do
            # shellcheck disable=SC2086
            "$veskfi" $arguments $file.finf >out 2>err
            cat out err >said
            ! LC_ALL=C grep -q -a -e $'\xc2[\x80-\x9f]' -e $'\xe2\x80\xae' said ||
                fail "$arguments $file lets them through: $(cat said)"
        done
    done
    run 4 check vocabulary.finf
    grep -q -F -- '--vocab a\u{9b}31m=FILE' out || fail "check says: $(cat out)"
    run 1 check name.finf
    [ "$(cat out)" = 'name.finf: octet 5: /\u{9b}\u{202e}: Invalid name: \u{9b}\u{202e}' ] || fail "check says: $(cat out)"
    run 0 inspect --json name.finf
    grep -q -F '"\u009b\u202e"' out || fail "inspect shows: $(cat out)"
}

test_StatisticsAddUp()
{
    local file
    makeDocuments
    for file in *.finf; do
        run 0 stats --json "$file"
        local sum
        sum=$(sed 's/.*"items":\[\([^]]*\)\].*/\1/' out | grep -o '"bits":[0-9]*' | awk -F : '{ sum += $2 } END { print sum }')
        [ "$sum" -eq $((8 * $(stat -c %s "$file"))) ] || fail "the items of $file have $sum bits"
    done
}

test_StatisticsTellWhatIndexingSaves()
{
    # Two values, one of them used again; a name of three octets in literals, two when they are indexes, one as an index.
    octets a.finf e0 00 00 01 00 7c 00 "'a'" 78 00 "'b'" 45 "'value1'" f0 40 00 80 ff 40 00 45 "'value2'" ff ff
    run 0 stats a.finf
    sed -i 's/ *$//' out
    cat >expected <<'END'
a.finf: 34 octets

Items                              count      octets    share
  header                               1           6   16.2 %  #######
  elements                             3           4   12.5 %  ######
  element names                        3           4   12.5 %  ######
  attribute names                      3           5   14.7 %  #######
  attribute values                     3          15   44.1 %  ####################

Tables                           entries    not used     indexes       saved
  local names                          2           2           0           0
  attribute values                     2           1           1           6
  element names                        1           0           2           2
  attribute names                      1           0           2           2

Literals                           count      octets    share
  UTF-8                                4          18   52.9 %  ####################

Costliest names            count      octets    share
  attribute names              3           5   13.6 %  ##########  "b"
  element names                3           4   12.5 %  #########   "a"

Costliest strings          count      octets    share
  attribute values             2           8   23.5 %  ##########  "value1"
  attribute values             1           7   20.6 %  #########   "value2"
END
    diff expected out || fail "stats shows something else"
    run 3 stats a.finf nothing.finf /dev/null
    [ "$(wc -l <err)" -eq 2 ] || fail "stats says: $(cat err)"
    grep -q '^a.finf: 34 octets$' out || fail "stats shows: $(cat out)"
}

# script(1) gives the tool a terminal.
test_ColourIsForTerminals()
{
    command -v script >/dev/null || exit 77
    everything a.finf
    run 0 inspect a.finf
    ! grep -q $'\e' out || fail "inspect colours a file"
    local variables
    for variables in "TERM=xterm" "TERM=xterm NO_COLOR=1" "TERM=dumb" "-u TERM"; do
        script -q -c "env -u NO_COLOR $variables '$veskfi' inspect a.finf; env -u NO_COLOR $variables '$veskfi' stats a.finf" \
            typescript >terminal </dev/null
        local coloured=no
        ! grep -q $'\e' terminal || coloured=yes
        [ "$variables,$coloured" = "TERM=xterm,yes" ] || [ $coloured = no ] || fail "with $variables colours: $coloured"
        [ "$variables" != "TERM=xterm" ] || [ $coloured = yes ] || fail "no colour on a terminal"
    done
}

test_InspectFailsLikeTheOthers()
{
    everything a.finf
    run 0 encode "$document" -o large.finf
    run 3 inspect nothing.finf
    expectError "nothing.finf: No such file or directory"
    run 2 inspect a.finf a.finf

    "$veskfi" inspect <a.finf >out || fail "inspect does not read standard input"
    grep -q 'end of document' out || fail "inspect shows: $(cat out)"

    # A reader that goes away and a full disk, at the end and in the middle of the document.
    local arguments
    for arguments in "inspect a.finf" "inspect --full large.finf" "inspect --json large.finf" "stats a.finf"; do
        # shellcheck disable=SC2086
        "$veskfi" $arguments 2>err | head -1 >/dev/null
        expectNothingSaid
        [ -c /dev/full ] || continue
        # shellcheck disable=SC2086
        "$veskfi" $arguments >/dev/full 2>err
        [ $? -eq 3 ] || fail "a full disk is no failure of $arguments"
        expectError "standard output: No space left on device"
    done
}

runTest

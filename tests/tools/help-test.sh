#!/bin/bash
# SPDX-License-Identifier: MIT
#
# Holds the manual page and the bash completion against what --help of each command says:
#
#   help-test.sh VESKFI SOURCE_FOLDER
set -u

veskfi=$1
page=$2/tools/man/veskfi.1
failed=0
fail()
{
    echo "FAILED: $*"
    failed=1
}

# shellcheck source=/dev/null
source "$2/tools/completion/veskfi"

# The options that a help text declares, one a line.
options()
{
    "$veskfi" "$@" --help | sed -n '/^Options:/,/^[A-Z][a-z]*:/p' | sed -n 's/^  \(-[^ ]*\).*/\1/p' | tr , '\n' | sort
}

# The options that the completion offers behind these words.
offered()
{
    COMP_WORDS=(veskfi "$@" -)
    COMP_CWORD=$(($# + 1))
    COMPREPLY=()
    _veskfi
    printf '%s\n' "${COMPREPLY[@]}" | sort
}

# sections COMMAND: the text of the manual page's subsections that name the command, and of what all have in common.
sections()
{
    awk -v command="$1" '
        /^\.SS/ { wanted = command == "" ? /Without a command/ : $0 ~ "[ ,]" command "([ ,]|$)" }
        /^\.SH/ { wanted = 0 }
        wanted || /\\-\\-help/' "$page" | sed 's/\\-/-/g'
}

commands=$("$veskfi" --help | sed -n '/^Commands:/,/^$/s/^  \([a-z]*\) .*/\1/p')
[ "$(wc -w <<<"$commands")" -gt 1 ] || fail "--help names no commands"

for command in "" $commands; do
    # shellcheck disable=SC2086
    [ "$(offered $command)" = "$(options $command)" ] ||
        fail "the completion of '$command' differs: $(diff <(offered $command) <(options $command))"
    # shellcheck disable=SC2086
    for option in $(options $command); do
        sections "$command" | grep -q -e "^\.BR* \(.* \)\?$option\( \|$\)" ||
            fail "the manual page does not describe $option of '$command'"
    done
done

# And nothing that is not there.
all=$(for command in "" $commands; do
    # shellcheck disable=SC2086
    options $command
done)
for option in $(sed 's/\\-/-/g' "$page" | grep -o -e ' --[a-z-]*' | sort -u); do
    grep -q -x -e "$option" <<<"$all" || fail "the manual page describes $option, which does not exist"
done
for command in $commands; do
    grep -q -x "^\.B $command" "$page" || fail "the manual page does not describe the command $command"
done
COMP_WORDS=(veskfi "")
COMP_CWORD=1
cd / || exit 1
_veskfi
for command in $commands; do
    printf '%s\n' "${COMPREPLY[@]}" | grep -q -x "$command" || fail "the completion does not offer $command"
done

# Every help tells the exit statuses and gives an example.
for command in "" $commands; do
    # shellcheck disable=SC2086
    text=$("$veskfi" $command --help)
    for part in "Exit status:" "Example" "70 internal"; do
        [[ $text == *$part* ]] || fail "the help of '$command' says nothing of: $part"
    done
done

if command -v man >/dev/null; then
    warnings=$(LC_ALL=C.UTF-8 MANROFFSEQ='' MANWIDTH=80 man --warnings -E UTF-8 -l -Tutf8 -Z "$page" 2>&1 >/dev/null)
    [ -z "$warnings" ] || fail "the manual page does not format: $warnings"
fi
exit $failed

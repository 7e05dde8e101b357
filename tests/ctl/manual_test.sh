#!/bin/bash
# Manual pages and completions have what --help has: manual_test.sh FOLDER-OF-TEXTS PROGRAM...
set -u
texts=$1
shift
failures=0
checked=0

fail() {
    echo "FAILED: $*" >&2
    failures=$((failures + 1))
}

# options COMMAND...: the names of the options in a help text, sorted, a line each
options() {
    "$@" --help | grep -oE '^ +-[a-zA-Z,-]+' | tr -d ' ' | tr , '\n' | sort -u
}

# completed WORD...: the options that bash offers behind these words
completed() {
    COMP_WORDS=("$@" -)
    COMP_CWORD=$#
    "_$1"
    printf '%s\n' "${COMPREPLY[@]}" | grep '^-' | sort -u
}

# agree WHAT HELP OFFERED
agree() {
    [ -n "$2" ] && [ "$2" = "$3" ] || fail "$1: help and completion differ: $(diff <(echo "$2") <(echo "$3"))"
}

for program in "$@"; do
    name=$(basename "$program")
    source "$texts/$name" || fail "no completions for $name"
    globals=$(options "$program")
    agree "$name" "$globals" "$(completed "$name")"
    page=$(tr -d '\\' <"$texts/$name.1")
    for option in $globals; do
        grep -q "fB$option" <<<"$page" || fail "$name(1) lacks $option"
    done
    commands=$("$program" --help | sed -n '/^Subcommands:/,/^[A-Z][a-z]* status:/s/^  \([a-z]*\) .*/\1/p')
    for command in $commands; do
        checked=$((checked + 1))
        own=$(options "$program" "$command")
        agree "$name $command" "$(sort -u <<<"$own"$'\n'"$globals")" "$(completed "$name" "$command")"
        grep -q "^.SS $command\b" <<<"$page" || fail "$name(1) lacks $command"
        for option in $own; do
            grep -q "fB$option" <<<"$page" || fail "$name(1) lacks $option of $command"
            bare=${option#-}
            grep -qE -- "-[ls] ${bare#-}( |$)" "$texts/$name.fish" || fail "fish lacks $option of $command"
            grep -q -- "'\*$option[=[]" "$texts/_$name" || fail "zsh lacks $option of $command"
        done
    done
    warnings=$(MANROFFSEQ='' LC_ALL=C.UTF-8 MANWIDTH=80 man --warnings -E UTF-8 -l -Tutf8 -Z "$texts/$name.1" 2>&1 >/dev/null)
    [ -z "$warnings" ] || fail "$name(1): $warnings"
    for shell in zsh fish; do
        file=$texts/_$name
        [ $shell = zsh ] || file=$texts/$name.fish
        ! command -v $shell >/dev/null || $shell -n "$file" || fail "$file is not for $shell"
    done
done
[ "$checked" -ge 11 ] || fail "only $checked commands were found"
[ "$failures" -eq 0 ]

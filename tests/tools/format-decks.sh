#!/bin/sh
# format-decks.sh QUOR DECK...: each deck, formatted elsewhere, has no finding that it didn't have, the same data and all its
# comments, and a second formatting changes nothing. Run by hand, over many decks. Prints what is otherwise, and counts.
set -eu
quor=$1
shift
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
bad=0 decks=0 fixed=0

findings() # without their locations
{
    "$quor" check --all --max-findings 100000 --format gcc "$1" 2>/dev/null | sed -E -e 's/^[^:]*:[0-9]+:[0-9]+: //' -e "s/(can't read|file) '[^']*'/\1 ''/" | sort
}
comments() # of the files whose names are on standard input, a zero byte after each
{
    xargs -0 sed -nE 's/^[^"'"'"']*(--)/\1/; s/[[:blank:]\r]+$//; /^--/p' | sort
}
try() # DECK OPTIONS
{
    deck=$1 out=$work/out
    shift
    rm -rf "$out"
    if ! "$quor" format "$deck" "$@" --output "$out" 2>"$work/log"; then
        echo "$deck $*: $(tail -2 "$work/log")"
        return 1
    fi
    main=$(sed -nE "s/.* the deck is '(.*)'$/\1/p" "$work/log")
    status=0
    findings "$deck" >"$work/a"
    findings "$main" >"$work/b"
    comm -13 "$work/a" "$work/b" >"$work/new"
    ! [ -s "$work/new" ] || { echo "$deck $*: new findings"; head -3 "$work/new"; status=1; }
    fixed=$((fixed + $(comm -23 "$work/a" "$work/b" | wc -l)))
    "$quor" diff "$deck" "$main" >"$work/diff" 2>/dev/null || { echo "$deck $*: other data"; head -5 "$work/diff"; status=1; }
    "$quor" info "$deck" --format json 2>/dev/null | sed -nE '/"files": \[/,/^  \]/s/^ *"name": "(.*)",$/\1/p' |
        sort -u | tr '\n' '\0' | comments >"$work/a"
    find "$out" -type f -print0 | comments >"$work/b"
    comm -23 "$work/a" "$work/b" >"$work/lost"
    ! [ -s "$work/lost" ] || { echo "$deck $*: comments are lost"; head -3 "$work/lost"; status=1; }
    "$quor" format "$main" "$@" --check >"$work/again" 2>/dev/null ||
        { echo "$deck $*: a second formatting changes"; head -3 "$work/again"; status=1; }
    return $status
}

for deck; do
    decks=$((decks + 1))
    try "$deck" && try "$deck" --normalize || bad=$((bad + 1))
done
echo "$decks decks formatted in two ways, $bad with differences; $fixed findings fixed"
test $bad -eq 0

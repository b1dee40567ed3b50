#!/bin/sh
# calls.sh SHIM PROGRAM KINDS...: changes a deck of two files while each call of the system goes wrong in turn. Each
# file is the old or the new one, whole; what isn't new is told; nothing else is left but by a crash.
set -eu
shim=$1 program=$2
shift 2
top=$(mktemp -d)
trap 'rm -rf "$top"' EXIT
folder=$top/deck

make_deck() {
    rm -rf "$folder" "$top/report"
    mkdir "$folder"
    printf "RUNSPEC\nDIMENS\n 1    2 3 /\nINCLUDE 'x.inc' /\n" >"$folder/d.data"
    printf 'WELLDIMS\n 4    5 6 7 /\n' >"$folder/x.inc"
}

fail() {
    echo "$command, $kind of call $call: $*; status $status; it said:"
    cat "$top/errors"
    exit 1
}

# one_file NAME: what it must be, and whether it is the new one
one_file() {
    if cmp -s "$folder/$1" "$top/new/$1"; then news=$((news + 1))
    elif [ "$kind" = change ] && { cmp -s "$folder/$1" "$top/edited/$1" || cmp -s "$folder/$1" "$top/both/$1"; }; then :
    elif ! cmp -s "$folder/$1" "$top/old/$1"; then fail "'$1' is neither old nor new"; fi
}

total=0
for command in "format $folder/d.data --in-place --normalize" "set $folder/d.data DIMENS.NX 7 WELLDIMS.MAXWELLS 8"; do
    rm -rf "$top/old" "$top/new" "$top/edited" "$top/both"
    make_deck
    cp -r "$folder" "$top/old"
    "$program" $command >/dev/null 2>&1
    cp -r "$folder" "$top/new"
    make_deck
    echo '-- an edit' >>"$folder/x.inc"
    cp -r "$folder" "$top/edited"
    "$program" $command >/dev/null 2>&1
    cp -r "$folder" "$top/both"
    for kind; do
        call=0
        until [ -e "$top/report" ]; do
            call=$((call + 1))
            make_deck
            status=0
            FAULTS_FOLDER=$folder FAULTS_CALL=$call FAULTS_KIND=$kind FAULTS_REPORT=$top/report \
                FAULTS_CHANGED=$folder/x.inc LD_PRELOAD=$shim "$program" $command >/dev/null 2>"$top/errors" || status=$?
            news=0
            one_file d.data
            one_file x.inc
            case $kind:$status in
            *:0)
                [ $news = 2 ] || [ $kind = change ] || grep -q 'has 1 error' "$top/errors" ||
                    fail "success, and not all are new" ;;
            fail:2 | change:2)
                grep -q -e "^quor: error: can't " -e "run 'quor check" "$top/errors" || fail "the reason isn't told"
                ;;
            crash:99 | signal:143) ;;
            *) fail "an unexpected end" ;;
            esac
            [ $kind = crash ] || [ "$(ls "$folder" | wc -l)" = 2 ] || fail "something is left: $(ls "$folder")"
            [ $kind != change ] || grep -q 'an edit' "$folder/x.inc" || [ -e "$top/report" ] || fail "the edit is lost"
        done
        total=$((total + call - 1))
        rm "$top/report"
    done
done
echo "$total calls went wrong"

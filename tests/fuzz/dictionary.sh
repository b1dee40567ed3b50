#!/bin/sh
# Writes what decks are made of, for the fuzzer to put together: the keywords that the program lists, each on a separate
# line, and what readers of decks treat specially.
# Usage: dictionary.sh QUOR >FILE
set -eu
"$1" list --hidden | awk '{ print "\"\\x0A" $1 "\\x0A\"" }'
cat <<'EOF'
" /\x0A"
"\x0A/\x0A"
" / remark\x0A"
"\x0A-- comment\x0A"
" -- comment\x0A"
"\x0AINCLUDE\x0A 'a.inc' /\x0A"
"\x1E"
"\x0D\x0A"
" 1*"
" 3*"
" 2*1.5"
" 3*'A'"
" ''"
" \"it's\""
" 'a"
" $ONE"
" '$NONE'"
" 1e-310"
" 1D5"
" 2147483647"
" P1 "
" OPEN "
" YES "
" A=$ONE"
" -- quor: off"
"\x0A-- quor: begin-off\x0A"
EOF

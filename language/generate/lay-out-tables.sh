#!/bin/sh
# Lays out tables: each column as wide as its widest word, two blanks between columns.
#
#   lay-out-tables.sh [--check] TABLE.txt...
#
# With --check nothing is changed, and a table that is laid out otherwise is an error. The columns are those of the
# comment that ends with the column "words", which is the rest of a line.
set -eu

check=false
if [ "$1" = --check ]; then check=true; shift; fi

lay_out() {
    awk '
        function isHeader() { return /^# .* words( \| value)?$/ }
        function isRow() { return NF > count && !/^[#[]/ }
        # Puts the columns of the line into cell[], and what is left of it into rest.
        function cut(    i) {
            rest = $0
            if (isHeader()) sub(/^# */, "#\001", rest)
            for (i = 1; i <= count; ++i) {
                match(rest, /^[ \t]*[^ \t]+/)
                cell[i] = substr(rest, RSTART, RLENGTH)
                gsub(/[ \t]/, "", cell[i])
                sub(/\001/, " ", cell[i])
                rest = substr(rest, RSTART + RLENGTH)
            }
            gsub(/^[ \t]+/, "", rest)
        }
        { gsub(/[ \t\r]+$/, "") }
        NR == FNR {
            if (isHeader() && !count) { for (count = 0; $(count + 2) != "words"; ++count) { } }
            if (count && (isHeader() || isRow())) {
                cut()
                for (i = 1; i <= count; ++i) if (length(cell[i]) > width[i]) width[i] = length(cell[i])
            }
            next
        }
        !isHeader() && !isRow() { print; next }
        {
            cut()
            line = ""
            for (i = 1; i <= count; ++i) line = line sprintf("%-" (width[i] + 2) "s", cell[i])
            print line rest
        }' "$1" "$1"
}

made=$(mktemp)
trap 'rm -f "$made"' EXIT
status=0
for table; do
    grep -Eq '^# .* words( \| value)?$' "$table" ||
        { echo "$table: error: no line with the names of the columns, such as '# stem ... words'" >&2; exit 1; }
    lay_out "$table" >"$made"
    cmp -s "$table" "$made" && continue
    if $check; then
        echo "$table: error: not laid out; run 'make format'" >&2
        diff "$table" "$made" | sed -n 2,3p >&2
        status=1
    else
        cat "$made" >"$table"
    fi
done
exit $status

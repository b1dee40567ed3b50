#!/bin/sh
# exports.sh LIST LIBDIR: each library exports the classes and functions of the list, and nothing else.
set -eu
list=$1 libdir=$2
exported=$(mktemp)
trap 'rm -f "$exported"' EXIT
for library in service xml keyword-syntax keywords decks; do
    nm --dynamic --defined-only --demangle --format=just-symbols "$libdir/libveld-quor-$library.so" |
        sed -E -e 's/^(vtable|typeinfo|typeinfo name|VTT) for //' -e 's/^construction vtable for .*-in-//' \
            -e 's/^((non-virtual|virtual|covariant return) thunk to )+//' -e 's/\[abi:cxx11\]//g' \
            -e ':again' -e 's/<[^<>]*>//' -e 't again' -e 's/\(.*//' -e 's/^.* (Veld::)/\1/' \
            -e 's/^Veld::Quor::Core:://' -e "s/^/$library /"
done | sort -u >"$exported"
test -s "$exported"
awk '
    FNR == NR { if (NF == 2) listed[$1 " " $2] = 0; next }
    {
        owner = $0
        sub(/::[^:]*$/, "", owner)  # a member belongs to its class
        if ($0 in listed) ++listed[$0]
        else if (owner in listed) ++listed[owner]
        else { print "not listed: " $0; bad = 1 }
    }
    END {
        for (entry in listed) if (!listed[entry]) { print "not exported: " entry; bad = 1 }
        exit bad
    }' "$list" "$exported"

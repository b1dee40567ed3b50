#!/bin/sh
# Every document is valid against the schema, and the schema's XML form is what its source says.
#
#   schema.sh LANGUAGE FOLDER
set -e
schema=$1/schema/syntax
made=$2/syntax.rng
trang "$schema.rnc" "$made"
cmp "$schema.rng" "$made" || { echo "syntax.rng is old: make schema"; exit 1; }
jing "$schema.rng" "$1"/main/*.xml "$1"/trusted/*.xml
# What the schema is there for: a misspelt name is told, with its line.
for slip in 's/<real>/<rael>/' 's/identifier=/identifer=/' 's/name="SCHEDULE"/name="SCHEDUL"/'; do
    sed "$slip" "$1/main/schedule-wells.xml" >"$made.slip.xml"
    if cmp -s "$1/main/schedule-wells.xml" "$made.slip.xml"; then echo "nothing to spoil: $slip"; exit 1; fi
    if jing "$schema.rng" "$made.slip.xml" >/dev/null; then echo "not told: $slip"; exit 1; fi
done

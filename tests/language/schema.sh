#!/bin/sh
# Every document is valid against its schema, as it is written and as it is built, and the schemas' XML forms are
# what their sources say.
#
#   schema.sh LANGUAGE MAIN.xml FOLDER
set -e
written=$1/schema/written.rng
built=$1/schema/syntax.rng
made=$3/schema
mkdir -p "$made"
trang "$1/schema/written.rnc" "$made/written.rng"
trang "$1/schema/rules.rnc" "$made/rules.rng"
for form in written syntax rules; do
    cmp "$1/schema/$form.rng" "$made/$form.rng" || { echo "$form.rng is old: make schema"; exit 1; }
done
jing "$written" "$1"/main/*.xml "$1"/pieces/*.xml "$1"/trusted/*.xml
jing "$built" "$2" "$1"/trusted/*.xml
jing "$1/schema/rules.rng" "$1"/rules/*.xml

# What a schema is there for: a misspelt name is reported, with its line.
refuses() { # SCHEMA DOCUMENT MISTAKE...
    schema=$1
    document=$2
    shift 2
    for mistake; do
        sed "$mistake" "$document" >"$made/mistake.xml"
        if cmp -s "$document" "$made/mistake.xml"; then echo "nothing to spoil: $mistake"; exit 1; fi
        if jing "$schema" "$made/mistake.xml" >/dev/null; then echo "not reported: $mistake"; exit 1; fi
    done
}
refuses "$built" "$2" 's/<real>/<rael>/' 's/identifier=/identifer=/' 's/name="SCHEDULE"/name="SCHEDUL"/'
refuses "$written" "$1/main/schedule-wells.xml" 's/<real /<rael /' 's/identifier=/identifer=/' 's/min="0"/mni="0"/' \
    's/sections="SCHEDULE"/sections="SCHEDUL"/' 's/use piece=/use peice=/' 's/min="0"/min="none"/'

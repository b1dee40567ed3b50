#!/bin/sh
# hardened.sh HAS_CHECKS FILE...: each file has full RELRO, no stack and no segment that is both written and executed,
# no relocations in its text, and guards on its stack; with HAS_CHECKS = 1 one has checked functions of the C library.
set -eu
has_checks=$1
shift
status=0
fail() {
    echo "$file: $*"
    status=1
}
for file; do
    headers=$(readelf --wide --program-headers "$file")
    dynamic=$(readelf --wide --dynamic "$file")
    symbols=$(nm --dynamic --undefined-only "$file")
    echo "$headers" | grep -q GNU_RELRO || fail "no RELRO"
    echo "$dynamic" | grep -q BIND_NOW || fail "not bound at the start"
    echo "$headers" | grep GNU_STACK | grep -q ' RW ' || fail "executable stack"
    ! echo "$headers" | grep -q ' RWE ' || fail "a segment that is written and executed"
    ! echo "$dynamic" | grep -q TEXTREL || fail "relocations in the text"
    echo "$headers" | grep -q 'type is DYN' || fail "not position-independent"
    case $file in *keyword-syntax*) continue ;; esac  # data alone
    echo "$symbols" | grep -q __stack_chk_fail || fail "no guards on the stack"
    ! echo "$symbols" | grep -v __stack_chk_fail | grep -q '_chk@' || has_checks=0
done
[ "$has_checks" = 0 ] || fail "no checked functions, as in all others"
exit $status

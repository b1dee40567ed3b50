#!/bin/sh
# Installs the Debian packages that are missing for a make target:  setup.sh run|python|test|packages|benchmark|editor
set -eu

group=${1:?usage: setup.sh run|python|test|packages|benchmark|editor}
list=$(dirname "$0")/packages.txt
wanted=
while read -r target package command; do
    case $target in
    run | "$group") ;;
    python) [ "$group" != run ] || continue ;;
    *) continue ;;
    esac
    [ -n "$command" ] && command -v "$command" >/dev/null 2>&1 || wanted="$wanted $package"
done <"$list"

if ! command -v apt-get >/dev/null 2>&1; then
    echo "setup: no apt-get here; make sure that what these Debian packages hold is installed:" $wanted >&2
    exit 0
fi

installed=$(dpkg-query -W -f='${Package} ${db:Status-Status}\n' $wanted 2>/dev/null |
    awk '$2 == "installed" { print $1 }') || true
missing=
for package in $wanted; do
    echo "$installed" | grep -qxF "$package" || missing="$missing $package"
done
[ -n "$missing" ] || exit 0

echo "setup: installing missing Debian packages:$missing"
as_root=
[ "$(id -u)" -eq 0 ] || as_root=sudo
log=$(mktemp)
trap 'rm -f "$log"' EXIT
if ! { $as_root apt-get update -q &&
    $as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -q --no-install-recommends $missing; } \
    >"$log" 2>&1 </dev/null; then
    cat "$log" >&2
    echo "setup: the packages could not be installed; see above" >&2
    exit 1
fi

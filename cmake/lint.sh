#!/usr/bin/env bash
# Lints by the builds `asan` and `tsan`:  lint.sh all|changed
# The analyzer takes most of the time: it follows the paths of each file of the library and the program, or with
# `changed` of those that differ from the parent of the branch. The paths of a test are run under the sanitizers.
set -euo pipefail
scope=${1:?usage: lint.sh all|changed}
here=$PWD

# As a regular expression for run-clang-tidy; empty: none.
analysed() {
    if [ "$scope" = all ]; then
        echo "^$here/(quor|tools|language|python)/"
        return
    fi
    local parent files
    parent=$(git merge-base HEAD origin/main 2>/dev/null || git rev-parse HEAD)
    [ "$parent" != "$(git rev-parse HEAD)" ] || parent=$(git rev-parse -q --verify HEAD^ || echo HEAD)
    files=$({ git diff --name-only --diff-filter=d "$parent"; git ls-files --others --exclude-standard; } |
        sed -nE 's,^((quor|tools|language|python)/.*)\.(h|cpp)$,\1.cpp,p' | sort -u |
        while read -r file; do [ ! -f "$file" ] || echo "$here/$file"; done)
    [ -z "$files" ] || echo "^($(echo "$files" | paste -sd '|'))\$"
}

lint() { # build, checks, files
    run-clang-tidy -quiet -p "build/$1" -checks="$2" "$3" >"build/lint-$1.log" 2>&1 ||
        { grep -E 'warning:|error:|note:' "build/lint-$1.log"; exit 1; }
}

lint asan '-clang-analyzer-*' "^$here/(build/asan/(quor|tools|tests)/.*/Unity|quor|tools|tests|language)/"
lint tsan '-clang-analyzer-*' "^$here/python/"
files=$(analysed)
[ -z "$files" ] || lint tsan '-*,clang-analyzer-*' "$files"

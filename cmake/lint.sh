#!/usr/bin/env bash
# Lints by the builds `asan` and `tsan`:  lint.sh all|changed
# `changed` lints the files that differ from the parent of the branch, each by itself; of a header that has no source
# of its own, one that includes it. What decides how files are linted makes it `all`.
# The analyzer follows the paths of the library and the program, whose files it reads each by itself, with the warnings
# of the compiler. The paths of a test are run under the sanitizers.
set -euo pipefail
scope=${1:?usage: lint.sh all|changed}
here=$PWD

changed() {
    local parent
    parent=$(git merge-base HEAD origin/main 2>/dev/null || git rev-parse HEAD)
    [ "$parent" != "$(git rev-parse HEAD)" ] || parent=$(git rev-parse -q --verify HEAD^ || echo HEAD)
    { git diff --name-only --diff-filter=d "$parent"; git ls-files --others --exclude-standard; } | sort -u
}

source_of() { # file
    case $1 in
        *.cpp) echo "$1" ;;
        *) if [ -f "${1%.h}.cpp" ]; then
               echo "${1%.h}.cpp"
           else
               grep -rlF --include='*.cpp' "#include \"$1\"" quor tools python tests | sort | sed -n 1p || true
           fi ;;
    esac
}

# The sources of the changed files as a regular expression for run-clang-tidy; empty: none.
sources() { # folders
    local found
    found=$(grep -E "^($1)/.*\.(h|cpp)$" <<<"$files" | while read -r file; do source_of "$file"; done |
        grep -E "^($1)/" | sort -u | sed "s,^,$here/," || true)
    [ -z "$found" ] || echo "^($(echo "$found" | paste -sd '|'))\$"
}

lint() { # build, checks, files
    [ -n "$3" ] || return 0
    run-clang-tidy -quiet -p "build/$1" -checks="$2" "$3" >"build/lint-$1.log" 2>&1 ||
        { grep -E 'warning:|error:|note:' "build/lint-$1.log"; exit 1; }
}

git rev-parse -q --verify HEAD >/dev/null 2>&1 || scope=all # an archive: what changed isn't known
[ "$scope" = all ] || files=$(changed)
if [ "$scope" = all ] || grep -qE '(^|/)\.clang-tidy$|^cmake/(lint\.sh|packages\.txt)$' <<<"$files"; then
    lint asan '-clang-analyzer-*' "^$here/(build/asan/(quor|tools|tests)/.*/Unity|quor|tools|tests|language)/"
    lint tsan '-clang-analyzer-*' "^$here/python/"
    lint tsan '-*,clang-analyzer-*,clang-diagnostic-*' "^$here/(quor|tools|language|python)/"
else
    lint tsan 'clang-diagnostic-*' "$(sources 'quor|tools|language|python')"
    lint tsan '-clang-analyzer-*' "$(sources tests)"
fi

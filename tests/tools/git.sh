#!/usr/bin/env bash
# What docs/git.md has, in a repository:  git.sh QUOR
set -euo pipefail
PATH=$(dirname "$1"):$PATH
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
export HOME=$folder GIT_CONFIG_NOSYSTEM=1 GIT_AUTHOR_NAME=a GIT_AUTHOR_EMAIL=a GIT_COMMITTER_NAME=a GIT_COMMITTER_EMAIL=a
mkdir "$folder/work" && cd "$folder/work" && git init -q . && mkdir model
same() { diff <(echo "$1") <(echo "$2") || { echo "in line ${BASH_LINENO[0]}"; exit 1; }; }

printf "RUNSPEC\nDIMENS\n 2 2 1 /\nOIL\nGRID\nINCLUDE\n 'poro.inc' /\nPERMX\n 4*100 /\n" >model/F.data
printf 'PORO\n 4*0.2 /\n' >model/poro.inc
echo '*.data diff=quor' >.gitattributes
git config diff.quor.textconv 'quor format --normalize --no-settings 2>/dev/null'
git config difftool.quor.cmd 'quor diff "$LOCAL" "$REMOTE" --deck-folder "$(dirname "$MERGED")"'
git config difftool.prompt false
cat >.git/hooks/pre-commit <<'E2'
#!/bin/sh
git diff --cached --name-only --diff-filter=d -z -- '*.data' | xargs -0 -r quor check --quiet
E2
chmod +x .git/hooks/pre-commit
git add -A && git commit -qm one

# Layout is no change, a value is.
sed -i 's/ 2 2 1/   2   2 1/; s/4\*100/3*100 120/' model/F.data
same "$(git diff -U0 | tail -n +5)" $'@@ -9 +9 @@ PERMX\n-  4*100 /\n+  3*100   120 /'
same "$(git difftool -t quor -- model/F.data 2>&1 | grep '~\|changed')" \
    $'  ~ PERMX: 1 of 4 differ, first [4]: 100 -> 120   (A 8, B 8)\n1 changed, 0 added, 0 removed'
same "$(git show HEAD:model/F.data | quor check - --stdin-filename model/F.data 2>/dev/null)" \
    'F.data: 6 keywords in 2 sections, 2 files: no findings'

# The hook lets a sound deck pass, and no other.
git commit -qam two
echo GIRD >>model/F.data
! git commit -qam three >said.txt 2>&1 || { echo "the hook let an error pass"; exit 1; }
same "$(head -n 1 said.txt)" "model/F.data:10:1: error: unknown keyword 'GIRD' [unknown-keyword]"

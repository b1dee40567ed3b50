#!/bin/sh
# install.sh CMAKE BUILD PREFIX
set -eu
rm -rf "$3"
"$1" --install "$2" --prefix "$3" >/dev/null

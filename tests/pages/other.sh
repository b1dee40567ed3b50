#!/bin/sh
# Copies the deck of the field and changes an array, a lift table, a target and the group of a well in it.  other.sh DECK FOLDER
set -eu
cp -r "$(dirname "$1")" "$2"
cd "$2/include"
sed -i 's/0\.214/0.234/' grid/porosity.inc
sed -i 's/171\.8/175.8/' schedule/lift.inc
sed -i 's/^  FIELD    ORAT     1500/  FIELD    ORAT     1800/; s/^  P8 S-PROD/  P8 A-PROD/' schedule/prediction.inc

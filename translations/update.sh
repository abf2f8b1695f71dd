#!/usr/bin/env bash
# update.sh [LUPDATE SOURCE FILE]: brings the texts of the sources into veltab_en.ts, without line numbers.
set -eu
lupdate=${1:-lupdate}
source=${2:-$(cd "$(dirname "$0")/.." && pwd)}
file=${3:-$source/translations/veltab_en.ts}
cd "$source"
"$lupdate" -silent -no-obsolete -locations none -source-language uk -target-language en \
  app setting tab_table managment reports overview cashdrive integrity -ts "$file"

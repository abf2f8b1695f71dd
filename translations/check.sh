#!/usr/bin/env bash
# check.sh LUPDATE SOURCE BUILD: fails when the sources hold a text that veltab_en.ts does not translate.
set -eu
lupdate=$1 source=$2 build=$3
copy=$build/veltab_en_check.ts
cp "$source/translations/veltab_en.ts" "$copy"
"$source/translations/update.sh" "$lupdate" "$source" "$copy" >"$build/lupdate.log" 2>&1
if grep -n 'type="unfinished"' "$copy"; then
  echo "translations/veltab_en.ts lacks the texts above: run translations/update.sh and translate them" >&2
  exit 1
fi

#!/usr/bin/env bash
# locale.sh FOLDER: the Ukrainian locale below FOLDER, where LOCPATH finds it. The tests run under it wherever
# they run; it takes no rights, but the sources of Debian's package "locales" and the program localedef.
set -eu
folder=${1:?usage: locale.sh FOLDER}
[ -s "$folder/uk_UA.UTF-8/LC_CTYPE" ] && exit 0

if ! command -v localedef >/dev/null || ! [ -e /usr/share/i18n/locales/uk_UA ]; then
  echo "The tests need the locale uk_UA.UTF-8: install the packages locales and libc-bin." >&2
  exit 1
fi
if ! [ -e /usr/share/zoneinfo/Europe/Kyiv ]; then
  echo "The tests need the time zone Europe/Kyiv: install the package tzdata." >&2
  exit 1
fi
mkdir -p "$folder"
made=$(mktemp -d "$folder/XXXXXX")
# It warns about what the locale leaves out, and says so with 1.
localedef --no-archive -i uk_UA -f UTF-8 "$made/uk_UA.UTF-8" || [ -s "$made/uk_UA.UTF-8/LC_CTYPE" ]
mv -T "$made/uk_UA.UTF-8" "$folder/uk_UA.UTF-8" 2>/dev/null || [ -s "$folder/uk_UA.UTF-8/LC_CTYPE" ]
rm -rf "$made"

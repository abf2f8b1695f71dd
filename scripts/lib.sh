# shellcheck shell=bash disable=SC2034
# What the scripts share: where the project is, how to speak, and how to install what is missing.

project=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd -P)

build_packages=(g++ cmake ninja-build qtbase5-dev libqt5svg5-dev qttools5-dev qttools5-dev-tools
  qttranslations5-l10n libmariadb-dev libxlsxwriter-dev libzint-dev zlib1g-dev)
# The -core packages hold the programs only: no server of the system is set up or started by them.
server_packages=(libqt5sql5-mysql mariadb-server-core mariadb-client-core)
# The tests run in the Ukrainian locale and time zone, read the text and the barcodes of printed pages
# and open workbooks.
test_packages=(locales tzdata poppler-utils unzip zbar-tools)
screen_packages=(fonts-dejavu-core)
picture_packages=(xvfb xauth)

say() { printf '%s\n' "$*" >&2; }
fail() {
  say "$*"
  exit 1
}

# The file names and texts of the program are UTF-8, a bare machine's locale often is not.
use_utf8() {
  [ "$(locale charmap 2>/dev/null)" = UTF-8 ] || export LC_ALL=C.UTF-8
}

missing_packages() {
  local package
  for package in "$@"; do
    [ "$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null)" = installed ] || printf '%s\n' "$package"
  done
}

# As root directly, else through sudo, which may ask for the password.
as_root() {
  if [ "$(id -u)" = 0 ]; then
    "$@"
  else
    sudo "$@"
  fi
}

apt() {
  as_root env DEBIAN_FRONTEND=noninteractive apt-get -q -y -o DPkg::Lock::Timeout=600 -o Dpkg::Use-Pty=0 "$@" >&2
}

# install_packages PACKAGE...: installs those that are missing; nothing is asked for when there are none.
install_packages() {
  if ! command -v dpkg-query >/dev/null; then
    say "This system has no Debian packages; going on with what there is. Needed: $*"
    return
  fi
  local missing
  mapfile -t missing < <(missing_packages "$@")
  [ ${#missing[@]} -gt 0 ] || return 0
  say "Installing: ${missing[*]}"
  if [ "$(id -u)" != 0 ] && ! command -v sudo >/dev/null; then
    fail "This needs rights that you do not have here. Ask your administrator to run:
  apt-get install --no-install-recommends ${missing[*]}"
  fi
  # A machine that has never fetched its package lists does not know the names, one with old lists fails later.
  apt-get -qq --simulate install "${missing[@]}" >/dev/null 2>&1 || apt update
  apt install --no-install-recommends "${missing[@]}" && return 0
  apt update
  apt install --no-install-recommends "${missing[@]}" || fail "Could not install: ${missing[*]}"
}

# build PRESET [TARGET...]: configures once, then builds what has changed. Two at once take turns.
build() {
  local preset=$1 jobs
  shift
  mkdir -p "$project/build"
  (
    flock 8
    cd "$project" || exit 1
    [ -f "build/$preset/build.ninja" ] || cmake --preset "$preset" >&2 || exit 1
    jobs=$(build_jobs)
    cmake --build "build/$preset" --parallel "$jobs" ${1:+--target "$@"} >&2
  ) 8>"$project/build/.lock" || fail "The build failed."
}

# One compiler a core, but no more than fit into the memory (about 1 GB each).
build_jobs() {
  local cores gigabytes
  cores=$(nproc)
  gigabytes=$(awk '/^MemAvailable/ { print int($2 / 1000000) }' /proc/meminfo 2>/dev/null || echo "$cores")
  [ "${gigabytes:-0}" -ge 1 ] || gigabytes=1
  echo $((cores < gigabytes ? cores : gigabytes))
}

#!/usr/bin/env bash
# server.sh start|stop FOLDER: the private MariaDB of one test run, reached by the free loopback port that
# stands in FOLDER/port as user "test" with the password "test". It writes below FOLDER only; stop removes it.
set -eu
# shellcheck source=scripts/server.sh
. "$(dirname "${BASH_SOURCE[0]}")/../../scripts/server.sh"
folder=${2:?usage: server.sh start|stop FOLDER}
tls=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)/tls # made for the tests only; ca.pem vouches for server.pem

stop() {
  server_stop "$folder"
  rm -rf "$folder"
}

start() {
  stop
  mkdir -p "$folder"
  echo test >"$folder/password"
  # shellcheck disable=SC2086
  server_start "$folder" test --innodb-flush-log-at-trx-commit=0 --innodb-doublewrite=0 \
    --innodb-flush-method=nosync --innodb-file-per-table=0 \
    --ssl-ca="$tls/ca.pem" --ssl-cert="$tls/server.pem" --ssl-key="$tls/server.key" \
    --innodb-buffer-pool-size=256M --max-connections=300 --max-allowed-packet=64M ${VELTAB_TEST_SERVER_OPTIONS:-}
}

case $1 in
start) start ;;
stop) stop ;;
*) echo "usage: server.sh start|stop FOLDER" >&2; exit 2 ;;
esac

#!/usr/bin/env bash
# server.sh start|stop FOLDER: a private MariaDB for the tests, reached only by its socket and a free
# loopback port, which stands in FOLDER/port. Everything it writes is below FOLDER; stop removes it.
set -eu
folder=$2
data=$folder/data
own_user=()
[ "$(id -u)" = 0 ] && own_user=(--user=root)

free_port() {
  local port
  for _ in $(seq 50); do
    port=$((20000 + RANDOM % 20000))
    (exec 3<>"/dev/tcp/127.0.0.1/$port") 2>/dev/null || { echo "$port"; return; }
  done
  echo "server.sh: no free port" >&2
  exit 1
}

stop_server() {
  if [ -f "$folder/pid" ] && kill "$(cat "$folder/pid")" 2>/dev/null; then
    for _ in $(seq 100); do kill -0 "$(cat "$folder/pid")" 2>/dev/null || break; sleep 0.1; done
  fi
  rm -rf "$folder"
}

start_server() {
  stop_server
  mkdir -p "$folder/tmp"
  port=$(free_port)
  mariadb-install-db --no-defaults "${own_user[@]}" --datadir="$data" --auth-root-authentication-method=normal \
    --skip-test-db >"$folder/install.log" 2>&1 || { cat "$folder/install.log" >&2; exit 1; }
  # Outside of ctest's process group and without its pipes: the server outlives this script.
  # shellcheck disable=SC2086
  setsid "$(command -v mariadbd || echo /usr/sbin/mariadbd)" --no-defaults "${own_user[@]}" --datadir="$data" \
    --socket="$folder/socket" --pid-file="$folder/pid" --tmpdir="$folder/tmp" --port="$port" \
    --bind-address=127.0.0.1 --skip-log-bin --innodb-flush-log-at-trx-commit=0 --innodb-doublewrite=0 \
    --innodb-buffer-pool-size=256M --max-connections=300 --max-allowed-packet=64M ${VELTAB_TEST_SERVER_OPTIONS:-} \
    >"$folder/server.log" 2>&1 </dev/null &
  for _ in $(seq 300); do
    if mariadb-admin --no-defaults --socket="$folder/socket" -u root ping >/dev/null 2>&1; then
      mariadb --no-defaults --socket="$folder/socket" -u root -e \
        "CREATE USER IF NOT EXISTS 'test'@'127.0.0.1' IDENTIFIED BY 'test'; GRANT ALL ON *.* TO 'test'@'127.0.0.1' WITH GRANT OPTION; CREATE USER IF NOT EXISTS 'test'@'localhost' IDENTIFIED BY 'test'; GRANT ALL ON *.* TO 'test'@'localhost' WITH GRANT OPTION;"
      echo "$port" >"$folder/port"
      exit 0
    fi
    sleep 0.1
  done
  cat "$folder/server.log" >&2
  exit 1
}

case $1 in
start) start_server ;;
stop) stop_server ;;
*) echo "usage: server.sh start|stop FOLDER" >&2; exit 2 ;;
esac

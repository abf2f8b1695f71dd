# shellcheck shell=bash
# A private MariaDB server of the current user: all that it writes lies below one folder, it listens on
# 127.0.0.1 only, and no other server of the machine is touched. To be sourced.
#   FOLDER/port      the port, kept from one start to the next where it is still free
#   FOLDER/password  of the account server_start was given

server_own_user=()
[ "$(id -u)" = 0 ] && server_own_user=(--user=root)
server_program=$(command -v mariadbd || echo /usr/sbin/mariadbd)

# The number of the running server's process; fails when it does not run. A number left behind by a killed
# server may meanwhile belong to another program.
server_pid() {
  local pid
  pid=$(cat "$1/data/server.pid" 2>/dev/null) || return 1
  tr '\0' '\n' <"/proc/${pid:-0}/cmdline" 2>/dev/null | grep -qxF -- "--datadir=$1/data" || return 1
  echo "$pid"
}

# Sends SQL from the standard input as the account given to server_start.
server_sql() {
  local folder=$1 user=$2
  MYSQL_PWD=$(cat "$folder/password") mariadb --no-defaults --default-character-set=utf8mb4 --batch --skip-column-names \
    --host=127.0.0.1 --port="$(cat "$folder/port")" --protocol=tcp --user="$user"
}

server_stop() {
  local pid
  pid=$(server_pid "$1") || return 0
  kill "$pid" 2>/dev/null || return 0
  for _ in $(seq 600); do
    kill -0 "$pid" 2>/dev/null || return 0
    sleep 0.1
  done
  echo "The database server (process $pid) does not end; see $1/server.log" >&2
  return 1
}

server_free_port() {
  local port=${1:-}
  for _ in $(seq 100); do
    [ -n "$port" ] || port=$((20000 + RANDOM % 12000))
    (exec 3<>"/dev/tcp/127.0.0.1/$port") 2>/dev/null || { echo "$port"; return; }
    port=
  done
  return 1
}

# The system tables, made aside and moved into place, so that an interrupted start leaves nothing half done.
# From within the folder, because the installer does not stand blanks in a path.
server_create_data() {
  local folder=$1
  rm -rf "$folder/data.new"
  (
    cd "$folder" || exit 1
    mariadb-install-db --no-defaults "${server_own_user[@]}" --datadir=./data.new --tmpdir=../tmp --skip-test-db \
      --auth-root-authentication-method=socket --auth-root-socket-user="$(id -un)" >install.log 2>&1
  ) || { cat "$folder/install.log" >&2; return 1; }
  mv "$folder/data.new" "$folder/data"
}

# The account is made at each start, before anybody can log in.
server_write_account() {
  local folder=$1 account="'$2'@'127.0.0.1'" password
  password=$(cat "$folder/password")
  printf '%s\n' "CREATE USER IF NOT EXISTS $account;" \
    "ALTER USER $account IDENTIFIED BY '$password';" \
    "GRANT ALL ON *.* TO $account WITH GRANT OPTION;" >"$folder/account.sql"
}

server_launch() {
  local folder=$1
  shift
  # Out of this script's process group and without its pipes and locks: the server outlives it. The socket's
  # name is relative to the data folder, because a long path does not fit into a socket address.
  setsid "$server_program" --no-defaults "${server_own_user[@]}" --datadir="$folder/data" --socket=server.sock \
    --pid-file=server.pid --tmpdir="$folder/tmp" --init-file="$folder/account.sql" --port="$(cat "$folder/port")" \
    --bind-address=127.0.0.1 --skip-name-resolve --skip-log-bin --character-set-server=utf8mb4 "$@" \
    >"$folder/server.log" 2>&1 </dev/null 7>&- 8>&- 9>&- &
}

# Waits until the account can log in; fails when the server has ended or needs more than five minutes.
server_await() {
  local folder=$1 user=$2 process=$3
  for _ in $(seq 3000); do
    echo 'DO 1' | server_sql "$folder" "$user" 2>/dev/null && server_pid "$folder" >/dev/null && return 0
    kill -0 "$process" 2>/dev/null || return 1
    sleep 0.1
  done
  return 1
}

# server_start FOLDER USER [OPTION...]: starts the server unless it runs and waits until USER can log in.
# The password is taken from FOLDER/password, or made up.
server_start() {
  local folder=$1 user=$2 port
  shift 2
  server_pid "$folder" >/dev/null && return 0
  mkdir -p "$folder/tmp"
  chmod 700 "$folder"
  [ -s "$folder/password" ] || (umask 077 && head -c 18 /dev/urandom | base64 | tr '+/' 'xy' >"$folder/password")
  [ -d "$folder/data" ] || server_create_data "$folder" || return 1
  (umask 077 && server_write_account "$folder" "$user")
  for _ in 1 2 3; do # another program may take the port in between
    port=$(server_free_port "$(cat "$folder/port" 2>/dev/null)") || return 1
    echo "$port" >"$folder/port"
    server_launch "$folder" "$@"
    server_await "$folder" "$user" $! && return 0
    rm -f "$folder/port"
    grep -q 'Address already in use' "$folder/server.log" || break
  done
  tail -30 "$folder/server.log" >&2
  return 1
}

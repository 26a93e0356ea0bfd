#!/usr/bin/env bash
# Runs a command against a private Firebird server of its own and stops the
# server again, whatever the command does:
#
#   tests/storage/with-server.sh <command> [arguments...]
#
# The server listens on 127.0.0.1 only, on a free port of its own, with its
# own configuration, lock folder and security database (SYSDBA with a
# password of this run) in a temporary folder; the system's service and its
# files are not touched. The command gets:
#
#   LX_TEST_SERVER    "127.0.0.1/<port>", the server part of a connection
#   LX_TEST_DB_DIR    a folder the server may write, for the databases
#   LX_TEST_USER      SYSDBA
#   LX_TEST_PASSWORD  the password of this run
#
# Database files made in LX_TEST_DB_DIR take its group (firebird) and need
# group read/write for the server to open them.
#
# Needs root (the server runs as user firebird). Exit code: the command's,
# or 2 when the server could not be set up.
set -euo pipefail

if [[ $# -lt 1 ]]; then
  echo "usage: $0 <command> [arguments...]" >&2
  exit 2
fi
if [[ $(id -u) -ne 0 ]]; then
  echo "$0: must run as root, the server runs as user firebird" >&2
  exit 2
fi

source "$(dirname "$0")/server-folder.sh"
guard=/usr/sbin/fbguard
password="lx-$(od -An -N6 -tx1 /dev/urandom | tr -d ' \n')"

work=$(mktemp -d /tmp/lx-fbserver.XXXXXX)
guard_pid=""

# Waits up to five seconds for a process to end.
await_end() {
  local _
  for _ in $(seq 50); do
    kill -0 "$1" 2>/dev/null || return 0
    sleep 0.1
  done
  return 1
}

stop_server() {
  local server_pid=""
  [[ -s $work/server.pid ]] && server_pid=$(cat "$work/server.pid")
  if [[ -n $guard_pid ]] && kill -0 "$guard_pid" 2>/dev/null; then
    # The guard takes the server down with it; the bare server may ignore TERM.
    kill -TERM "$guard_pid" 2>/dev/null || true
    await_end "$guard_pid" || kill -KILL "$guard_pid" 2>/dev/null || true
    wait "$guard_pid" 2>/dev/null || true
  fi
  if [[ -n $server_pid ]] && ! await_end "$server_pid"; then
    kill -KILL "$server_pid" 2>/dev/null || true
    await_end "$server_pid" || true
  fi
  rm -rf "$work"
}
trap stop_server EXIT
trap 'exit 130' INT
trap 'exit 143' TERM
command_pid=""

fail() {
  echo "$0: $1" >&2
  [[ -f $work/guard.log ]] && cat "$work/guard.log" >&2
  [[ -f $work/root/firebird.log ]] && tail -20 "$work/root/firebird.log" >&2
  exit 2
}

if [[ -n ${LX_TEST_SERVER_PORT:-} ]]; then
  port=$LX_TEST_SERVER_PORT
else
  port=$(free_port 30500 30999)
fi
make_server_folder "$work" "$port" "$password"

( cd "$work" && exec setpriv --reuid=firebird --regid=firebird --init-groups \
    env FIREBIRD="$work/root" FIREBIRD_LOCK="$work/lock" FIREBIRD_TMP="$work/tmp" \
    "$guard" -forever -pidfile "$work/server.pid" ) > "$work/guard.log" 2>&1 &
guard_pid=$!

ready=""
for _ in $(seq 150); do
  kill -0 "$guard_pid" 2>/dev/null || fail "the server guard ended at once"
  if port_in_use "$port"; then
    ready=yes
    break
  fi
  sleep 0.1
done
[[ -n $ready ]] || fail "the server did not listen on 127.0.0.1:$port"

# The command runs in the background so that a signal to this script is
# handled at once (passed on to the command) rather than after it ends.
(
  umask 0002
  export LX_TEST_SERVER="127.0.0.1/$port" LX_TEST_DB_DIR="$work/db" LX_TEST_USER=SYSDBA LX_TEST_PASSWORD="$password"
  exec "$@"
) <&0 &
command_pid=$!
trap 'kill -TERM "$command_pid" 2>/dev/null; exit 130' INT
trap 'kill -TERM "$command_pid" 2>/dev/null; exit 143' TERM
set +e
wait "$command_pid"
status=$?
set -e
exit "$status"

#!/usr/bin/env bash
# A private Firebird server that a test may kill and start again, on the same
# port and with the same databases, to see what a client makes of a server
# that goes away in the middle of its work:
#
#   tests/storage/restartable-server.sh start <folder>
#   tests/storage/restartable-server.sh kill <folder>
#   tests/storage/restartable-server.sh stop <folder>
#
# The first start sets the folder up (it may exist, empty) as with-server.sh
# does: an engine root of its own listening on 127.0.0.1 only, on a free
# port, with a lock folder and a security database whose SYSDBA password is
# made for this folder. Every start waits until the server listens; a kill
# (SIGKILL) waits until nothing listens on the port any more. The
# folder then holds:
#
#   port        the port, for "127.0.0.1/<port>"
#   password    SYSDBA's password
#   server.pid  the server's process, which a test may kill with SIGKILL
#   db/         a folder the server may write, for the databases
#
# Unlike with-server.sh the server runs without its guard, which would start
# it again at once: a killed server stays down until the next start.
# Needs root (the server runs as user firebird). Exit code 0, or 2 with a
# reason on standard error.
set -euo pipefail

fail() {
  echo "$0: $1" >&2
  [[ -f ${work:-}/server.log ]] && tail -20 "$work/server.log" >&2
  exit 2
}

[[ $# -eq 2 ]] || fail "usage: $0 start|kill|stop <folder>"
[[ $(id -u) -eq 0 ]] || fail "must run as root, the server runs as user firebird"
work=$(cd "$2" 2>/dev/null && pwd) || fail "no folder $2"
source "$(dirname "$0")/server-folder.sh"

# Ends the server, if one runs, and waits up to five seconds for its end.
kill_server() {
  local pid _
  [[ -s $work/server.pid ]] || return 0
  pid=$(cat "$work/server.pid")
  kill -KILL "$pid" 2>/dev/null || return 0
  # A container's first process may never reap it: a zombie counts as ended.
  for _ in $(seq 50); do
    [[ $(sed 's/.*) //' "/proc/$pid/stat" 2>/dev/null) == [^Z]* ]] || return 0
    sleep 0.1
  done
}

set_up() {
  local port password
  port=$(free_port 31000 31499)
  password="lx-$(od -An -N6 -tx1 /dev/urandom | tr -d ' \n')"
  make_server_folder "$work" "$port" "$password"
  echo "$password" > "$work/password"
  echo "$port" > "$work/port"
}

start() {
  [[ -f $work/port ]] || set_up
  local port _
  port=$(cat "$work/port")
  kill_server
  # A killed server may leave the port in use for a moment.
  for _ in $(seq 100); do port_in_use "$port" || break; sleep 0.1; done
  ( cd "$work" && exec setpriv --reuid=firebird --regid=firebird --init-groups \
      env FIREBIRD="$work/root" FIREBIRD_LOCK="$work/lock" FIREBIRD_TMP="$work/tmp" /usr/sbin/firebird ) \
    < /dev/null >> "$work/server.log" 2>&1 &
  echo $! > "$work/server.pid"
  for _ in $(seq 150); do
    kill -0 "$(cat "$work/server.pid")" 2>/dev/null || fail "the server ended at once"
    port_in_use "$port" && return 0
    sleep 0.1
  done
  fail "the server did not listen on 127.0.0.1:$port"
}

case $1 in
  start) start ;;
  kill)
    kill_server
    port=$(cat "$work/port")
    for _ in $(seq 100); do port_in_use "$port" || exit 0; sleep 0.1; done
    fail "the port $port is still in use"
    ;;
  stop) kill_server; rm -rf "$work" ;;
  *) fail "usage: $0 start|kill|stop <folder>" ;;
esac

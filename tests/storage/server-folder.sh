# Sourced by with-server.sh and restartable-server.sh: the folder of a private
# Firebird server, laid out the same way for both. The sourcing script
# defines fail MESSAGE, which must not return.

port_in_use() { (exec 3<>"/dev/tcp/127.0.0.1/$1") 2>/dev/null; }

# Prints a free port of the range FIRST-LAST (fifty tries at random).
free_port() {
  local candidate
  for candidate in $(shuf -i "$1-$2" -n 50); do
    if ! port_in_use "$candidate"; then
      echo "$candidate"
      return
    fi
  done
  fail "no free port found"
}

# make_server_folder WORK PORT PASSWORD
# WORK gets an engine root of its own listening on 127.0.0.1:PORT only, lock
# and temporary folders, a security database whose SYSDBA has PASSWORD, and
# db/, a folder the server may write. The server then runs as user firebird
# with FIREBIRD=WORK/root, FIREBIRD_LOCK=WORK/lock, FIREBIRD_TMP=WORK/tmp.
make_server_folder() {
  local work=$1 port=$2 password=$3
  local engine_root=${LX_FIREBIRD_ROOT:-/usr/lib/x86_64-linux-gnu/firebird/3.0}
  local system_security=${LX_FIREBIRD_SECURITY_DB:-/var/lib/firebird/3.0/system/security3.fdb}
  [[ -d $engine_root ]] || fail "no Firebird engine at $engine_root"
  [[ -f $system_security ]] || fail "no security database at $system_security"

  # A copy, because the engine's firebird.conf and plugins.conf are links
  # into /etc and must not be written through.
  cp -rL "$engine_root" "$work/root"
  rm -f "$work/root/firebird.conf"
  cat > "$work/root/firebird.conf" <<CONF
RemoteServicePort = $port
RemoteBindAddress = 127.0.0.1
SecurityDatabase = $work/security3.fdb
ServerMode = Super
CONF
  mkdir -p "$work/lock" "$work/setup-lock" "$work/tmp" "$work/db"
  cp "$system_security" "$work/security3.fdb"

  # The password is set embedded, before a server holds the file.
  echo "create or alter user SYSDBA password '$password'; commit;" |
    FIREBIRD="$work/root" FIREBIRD_LOCK="$work/setup-lock" isql-fb -q -user SYSDBA "$work/security3.fdb" \
      > "$work/setup.log" 2>&1 || { cat "$work/setup.log" >&2; fail "could not set the SYSDBA password"; }
  rm -rf "$work/setup-lock"

  chown -R firebird:firebird "$work"
  chmod 0755 "$work"
  # New database files take the folder's group, so the server can open them.
  chmod 2775 "$work/db"
}

#!/usr/bin/env bash
# Installs every Debian package the build, the tests and the demo need.
# Idempotent: the package lists are refreshed only when something is missing.
set -euo pipefail
export DEBIAN_FRONTEND=noninteractive

packages=(
  build-essential cmake pkg-config
  firebird-dev libfbclient2 firebird3.0-server-core firebird3.0-utils firebird3.0-server
  liblzo2-dev libpugixml-dev libssl-dev
  libgtest-dev libgmock-dev googletest libbenchmark-dev
  clang libclang-rt-14-dev binutils locales
  libcli11-dev nlohmann-json3-dev libcsv-dev
  chromium chromium-driver python3-selenium
)

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
done

if [ ${#missing[@]} -gt 0 ]; then
  echo "setup: installing ${missing[*]}"
  SUDO=""
  [ "$(id -u)" -ne 0 ] && SUDO="sudo"
  $SUDO apt-get update -qq
  $SUDO apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
fi

# Number parsing must not depend on the host's locale; the tests prove it
# under a Russian one, whose decimal separator is the comma.
if ! locale -a 2>/dev/null | grep -qi '^ru_RU\.utf-\?8$'; then
  sed -i 's/^# *\(ru_RU.UTF-8 UTF-8\)/\1/' /etc/locale.gen
  grep -q '^ru_RU.UTF-8 UTF-8' /etc/locale.gen || echo 'ru_RU.UTF-8 UTF-8' >> /etc/locale.gen
  locale-gen >/dev/null
fi

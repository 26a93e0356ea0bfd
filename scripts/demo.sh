#!/usr/bin/env bash
# The main job: installs what is missing, builds, and runs the demo.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
bash "$root/scripts/setup.sh"
build=$(bash "$root/scripts/build.sh" LxDataAccess lxdemo | tail -n 1)
"$build/bin/lxdemo"

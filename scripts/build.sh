#!/usr/bin/env bash
# Configures and builds the project into a build folder.
#   scripts/build.sh [--sanitize|--tsan] [targets...]
# Prints the build folder's path as its last line.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)

build="$root/build"
options=(-DCMAKE_BUILD_TYPE=RelWithDebInfo)
case "${1:-}" in
  --sanitize) build="$root/build-asan"; options+=(-DLX_SANITIZE=ON -DLX_BUILD_BENCH=OFF); shift ;;
  --tsan) build="$root/build-tsan"; options+=(-DLX_TSAN=ON -DLX_BUILD_BENCH=OFF); shift ;;
esac

jobs=$(nproc 2>/dev/null || echo 2)
cmake -S "$root" -B "$build" "${options[@]}" >&2
if [ $# -gt 0 ]; then
  for target in "$@"; do cmake --build "$build" -j"$jobs" --target "$target" >&2; done
else
  cmake --build "$build" -j"$jobs" >&2
fi
echo "$build"

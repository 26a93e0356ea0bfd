#!/usr/bin/env bash
# The whole test suite: installs what is missing, builds, runs every test.
#   scripts/test.sh              the normal build
#   scripts/test.sh --sanitize   under AddressSanitizer and UndefinedBehaviorSanitizer
#   scripts/test.sh --tsan       under ThreadSanitizer
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
mode=${1:-}

bash "$root/scripts/setup.sh"
build=$(bash "$root/scripts/build.sh" $mode | tail -n 1)

export ASAN_OPTIONS=${ASAN_OPTIONS:-detect_leaks=1:abort_on_error=1}
export UBSAN_OPTIONS=${UBSAN_OPTIONS:-print_stacktrace=1:halt_on_error=1}
if [ -f "$root/tests/lsan.supp" ]; then
  export LSAN_OPTIONS=${LSAN_OPTIONS:-suppressions=$root/tests/lsan.supp}
fi

cd "$build"
ctest -j"$(nproc 2>/dev/null || echo 2)" --output-on-failure --timeout 900

#!/usr/bin/env bash
# The whole test suite: installs what is missing, checks that includes follow
# the layers (scripts/check-layers.sh), builds, runs every test.
#   scripts/test.sh              the normal build
#   scripts/test.sh --sanitize   under AddressSanitizer and UndefinedBehaviorSanitizer
#   scripts/test.sh --tsan       under ThreadSanitizer
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
mode=${1:-}

bash "$root/scripts/setup.sh"
# Includes against the layers fail the command at once, before a long build.
bash "$root/scripts/check-layers.sh" "$root"
build=$(bash "$root/scripts/build.sh" $mode | tail -n 1)

export ASAN_OPTIONS=${ASAN_OPTIONS:-detect_leaks=1:abort_on_error=1}
export UBSAN_OPTIONS=${UBSAN_OPTIONS:-print_stacktrace=1:halt_on_error=1}

cd "$build"
jobs=$(nproc 2>/dev/null || echo 2)
logs=$(mktemp -d)
trap 'rm -rf "$logs"' EXIT

status=0
ctest -j"$jobs" --output-on-failure --timeout 900 2>&1 | tee "$logs/local.txt" || status=1

# The storage and provider tests once more, over a Firebird server of their
# own on 127.0.0.1, which the wrapper starts and always stops.
bash "$root/tests/storage/with-server.sh" \
  ctest -j"$jobs" --output-on-failure --timeout 900 -L server 2>&1 | tee "$logs/server.txt" || status=1

# One closing line for both runs.
passed=0
failed=0
for log in "$logs"/*.txt; do
  line=$(grep -E '[0-9]+% tests passed, [0-9]+ tests? failed out of [0-9]+' "$log" | tail -n 1 || true)
  if [ -z "$line" ]; then status=1; continue; fi
  total=$(echo "$line" | sed -E 's/.* out of ([0-9]+).*/\1/')
  bad=$(echo "$line" | sed -E 's/.*passed, ([0-9]+) tests? failed.*/\1/')
  passed=$((passed + total - bad))
  failed=$((failed + bad))
done
[ "$failed" -eq 0 ] || status=1
echo "tests: $passed passed, $failed failed"
exit $status

#!/bin/sh
# Builds the command document fuzzer with clang's libFuzzer, AddressSanitizer
# and UndefinedBehaviorSanitizer, and runs it. The document runs through the
# whole library and a real embedded catalog, so the whole tree is built here,
# in a build folder of its own.
#
#   fuzz/run-command-fuzz.sh [seconds] [extra libFuzzer options...]
#
# New inputs go to $FUZZ_BUILD_DIR/corpus-command (default build-fuzz/ at the
# top of the tree), crashers to $FUZZ_BUILD_DIR/. The stored seeds in
# fuzz/corpus/command are read, never written. Copy a fixed crasher into
# fuzz/regressions/command/ so the test suite replays it.
set -eu

ROOT=$(cd "$(dirname "$0")/.." && pwd)
OUT=${FUZZ_BUILD_DIR:-$ROOT/build-fuzz}
SECONDS_TO_RUN=${1:-600}
[ $# -gt 0 ] && shift
CXX=${CXX_FUZZ:-clang++-14}
CC=${CC_FUZZ:-clang-14}
FLAGS="-O1 -g -fno-omit-frame-pointer -fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=undefined"

cmake -S "$ROOT" -B "$OUT/command" -DCMAKE_BUILD_TYPE=Debug \
  -DCMAKE_CXX_COMPILER="$CXX" -DCMAKE_C_COMPILER="$CC" \
  -DCMAKE_CXX_FLAGS="$FLAGS" -DCMAKE_C_FLAGS="$FLAGS" \
  -DCMAKE_EXE_LINKER_FLAGS="-fsanitize=address,undefined" -DLX_COMMAND_FUZZER=ON >/dev/null
cmake --build "$OUT/command" -j"${FUZZ_JOBS:-2}" --target command_fuzz

mkdir -p "$OUT/corpus-command"
# The library reports refused commands on the debug channel; the fuzzer's
# own output goes to standard output so that it is not drowned.
#
# No per-input timeout: libFuzzer arms it with a periodic SIGALRM, and the
# Firebird engine's file locks fail on the interrupted system call instead of
# retrying, which stops the run on an error that no input caused. The run is
# still bounded by -max_total_time.
exec "$OUT/command/bin/command_fuzz" \
  -max_total_time="$SECONDS_TO_RUN" -timeout=0 -rss_limit_mb=3072 \
  -artifact_prefix="$OUT/" -print_final_stats=1 \
  "$@" "$OUT/corpus-command" "$ROOT/fuzz/corpus/command"

#!/bin/sh
# Builds the object buffer fuzzer with clang's libFuzzer, AddressSanitizer
# and UndefinedBehaviorSanitizer, and runs it. Loads go through the whole
# library and a real embedded catalog, so the whole tree is built here, in a
# build folder of its own.
#
#   fuzz/run-object-fuzz.sh [seconds] [extra libFuzzer options...]
#
# New inputs go to $FUZZ_BUILD_DIR/corpus-object (default build-fuzz/ at the
# top of the tree), crashers to $FUZZ_BUILD_DIR/. The stored seeds in
# fuzz/corpus/object are read, never written. Copy a fixed crasher into
# fuzz/regressions/object/ so the test suite replays it.
set -eu

ROOT=$(cd "$(dirname "$0")/.." && pwd)
OUT=${FUZZ_BUILD_DIR:-$ROOT/build-fuzz}
SECONDS_TO_RUN=${1:-600}
[ $# -gt 0 ] && shift
CXX=${CXX_FUZZ:-clang++-14}
CC=${CC_FUZZ:-clang-14}
FLAGS="-O1 -g -fno-omit-frame-pointer -fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=undefined"

cmake -S "$ROOT" -B "$OUT/object" -DCMAKE_BUILD_TYPE=Debug \
  -DCMAKE_CXX_COMPILER="$CXX" -DCMAKE_C_COMPILER="$CC" \
  -DCMAKE_CXX_FLAGS="$FLAGS" -DCMAKE_C_FLAGS="$FLAGS" \
  -DCMAKE_EXE_LINKER_FLAGS="-fsanitize=address,undefined" -DLX_OBJECT_FUZZER=ON >/dev/null
cmake --build "$OUT/object" -j"${FUZZ_JOBS:-2}" --target object_fuzz

mkdir -p "$OUT/corpus-object"
# Refused loads (unknown versions, missing sizes) are reported on the debug
# channel, standard error, for almost every input: -close_fd_mask=2 sends
# the target's standard error to /dev/null, while libFuzzer and the
# sanitizers keep reporting on a copy of it.
#
# No per-input timeout: libFuzzer arms it with a periodic SIGALRM, and the
# Firebird engine's file locks fail on the interrupted system call instead of
# retrying, which stops the run on an error that no input caused. The run is
# still bounded by -max_total_time.
exec "$OUT/object/bin/object_fuzz" \
  -max_total_time="$SECONDS_TO_RUN" -timeout=0 -rss_limit_mb=3072 -close_fd_mask=2 \
  -dict="$ROOT/fuzz/object.dict" -artifact_prefix="$OUT/object-" -print_final_stats=1 \
  "$@" "$OUT/corpus-object" "$ROOT/fuzz/corpus/object"

#!/bin/sh
# Builds one of the fuzzers that drive the whole library over a real embedded
# catalog (command documents, object buffers) with clang's libFuzzer,
# AddressSanitizer and UndefinedBehaviorSanitizer, and runs it. The whole
# tree is built here, in a build folder of the target's own.
#
#   fuzz/run-library-fuzz.sh command|object [seconds] [extra libFuzzer options...]
#
# New inputs go to $FUZZ_BUILD_DIR/corpus-<target> (default build-fuzz/ at
# the top of the tree), crashers to $FUZZ_BUILD_DIR/<target>-*. The stored
# seeds in fuzz/corpus/<target> are read, never written. Copy a fixed crasher
# into fuzz/regressions/<target>/ so the test suite replays it.
set -eu

ROOT=$(cd "$(dirname "$0")/.." && pwd)
OUT=${FUZZ_BUILD_DIR:-$ROOT/build-fuzz}
TARGET=${1:?command or object}
shift
SECONDS_TO_RUN=${1:-600}
[ $# -gt 0 ] && shift
CXX=${CXX_FUZZ:-clang++-14}
CC=${CC_FUZZ:-clang-14}
FLAGS="-O1 -g -fno-omit-frame-pointer -fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=undefined"

case "$TARGET" in
  command)
    OPTION=LX_COMMAND_FUZZER
    # The library reports refused commands on the debug channel; the
    # fuzzer's own output goes to standard output so that it is not drowned.
    EXTRA=""
    ;;
  object)
    OPTION=LX_OBJECT_FUZZER
    # Refused loads (unknown versions, missing sizes) are reported on the
    # debug channel, standard error, for almost every input: -close_fd_mask=2
    # sends the target's standard error to /dev/null, while libFuzzer and the
    # sanitizers keep reporting on a copy of it.
    EXTRA="-close_fd_mask=2 -dict=$ROOT/fuzz/object.dict"
    ;;
  *)
    echo "usage: $0 command|object [seconds] [libFuzzer options...]" >&2
    exit 2
    ;;
esac

cmake -S "$ROOT" -B "$OUT/$TARGET" -DCMAKE_BUILD_TYPE=Debug \
  -DCMAKE_CXX_COMPILER="$CXX" -DCMAKE_C_COMPILER="$CC" \
  -DCMAKE_CXX_FLAGS="$FLAGS" -DCMAKE_C_FLAGS="$FLAGS" \
  -DCMAKE_EXE_LINKER_FLAGS="-fsanitize=address,undefined" -D$OPTION=ON >/dev/null
cmake --build "$OUT/$TARGET" -j"${FUZZ_JOBS:-2}" --target "${TARGET}_fuzz"

mkdir -p "$OUT/corpus-$TARGET"
# No per-input timeout: libFuzzer arms it with a periodic SIGALRM, and the
# Firebird engine's file locks fail on the interrupted system call instead of
# retrying, which stops the run on an error that no input caused. The run is
# still bounded by -max_total_time.
# shellcheck disable=SC2086
exec "$OUT/$TARGET/bin/${TARGET}_fuzz" \
  -max_total_time="$SECONDS_TO_RUN" -timeout=0 -rss_limit_mb=3072 $EXTRA \
  -artifact_prefix="$OUT/$TARGET-" -print_final_stats=1 \
  "$@" "$OUT/corpus-$TARGET" "$ROOT/fuzz/corpus/$TARGET"

#!/bin/sh
# Builds the formula fuzzer with clang's libFuzzer, AddressSanitizer and
# UndefinedBehaviorSanitizer, and runs it. Only the formula sources are
# compiled, so the rest of the tree needn't build.
#
#   fuzz/run-formula-fuzz.sh [seconds] [extra libFuzzer options...]
#
# New inputs go to $FUZZ_BUILD_DIR/corpus-formula (default build-fuzz/ at the
# top of the tree), crashers to $FUZZ_BUILD_DIR/. The stored seeds in
# fuzz/corpus/formula are read, never written. Copy a fixed crasher into
# fuzz/regressions/formula/ so the test suite replays it.
set -eu

ROOT=$(cd "$(dirname "$0")/.." && pwd)
OUT=${FUZZ_BUILD_DIR:-$ROOT/build-fuzz}
SECONDS_TO_RUN=${1:-600}
[ $# -gt 0 ] && shift
CXX=${CXX_FUZZ:-clang++-14}

SOURCES="
  formula/Value.cpp
  formula/NumberText.cpp
  formula/ValueConversion.cpp
  formula/ValueCompare.cpp
  formula/Matching.cpp
  formula/Rounding.cpp
  formula/CSingleValueFormula.cpp
  formula/CAttributeFormula.cpp
  formula/CNamedAttributeFormula.cpp
  formula/CComplexFormula.cpp
  formula/CCalcFormula.cpp
  formula/CFunctionFormula.cpp
  formula/CLogicFormula.cpp
  formula/FormulaScanner.cpp
  formula/ExpressionParser.cpp
  formula/FormulaParser.cpp
  fuzz/FormulaFuzz.cpp
"

mkdir -p "$OUT/corpus-formula"
cd "$ROOT"
# shellcheck disable=SC2086
$CXX -std=c++20 -O1 -g -fno-omit-frame-pointer \
  -fsanitize=fuzzer,address,undefined -fno-sanitize-recover=undefined \
  -I"$ROOT" -I"$ROOT/include" $SOURCES -o "$OUT/formula_fuzz"

exec "$OUT/formula_fuzz" \
  -max_total_time="$SECONDS_TO_RUN" -timeout=10 -rss_limit_mb=2048 \
  -dict="$ROOT/fuzz/formula.dict" -artifact_prefix="$OUT/" -print_final_stats=1 \
  "$@" "$OUT/corpus-formula" "$ROOT/fuzz/corpus/formula"

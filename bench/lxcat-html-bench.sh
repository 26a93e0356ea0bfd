#!/usr/bin/env bash
# Times `lxcat html` on generated catalogs of 1,000 folders and 50,000 sizes
# (10 packets of 100 folders and 5,000 sizes, sizes spread over one template
# per leaf folder, six attributes of which two calculated):
#   tables    no models and no projections;
#   pictures  the same with a model on every template (50 distinct) and two
#             projections each (100 distinct fragments), every one with a
#             thumbnail.
# Inside the library every read of a model, an icon, a fragment or a size's
# projection list attaches to the database anew, so the second shape shows
# what each distinct model, fragment and template adds.
#   bench/lxcat-html-bench.sh [BUILD_FOLDER] [ROUNDS]
# Prints one line per shape: median and every round, in seconds.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=${1:-$root/build}
rounds=${2:-3}
lxcat=$build/bin/lxcat
lxgen=$build/bin/lxgen

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
# The library writes model and fragment files under TMP while it runs.
export TMP=$work

common=(--quiet --packets 10 --folders 1000 --sizes 5000 --attributes 6 --formulas 2)
declare -A content=([tables]="" [pictures]="--model-bytes 8192 --models 50 --projections 2 --fragment-bytes 4096 --fragments 100 --thumbnail-bytes 2048")

for shape in tables pictures; do
  # shellcheck disable=SC2086 # the content options are words on purpose
  "$lxgen" "${common[@]}" ${content[$shape]} "$work/$shape.fdb" >/dev/null
  times=()
  for ((round = 1; round <= rounds; round++)); do
    rm -rf "$work/site"
    start=$(date +%s%N)
    "$lxcat" html "$work/$shape.fdb" "$work/site" 2>/dev/null
    end=$(date +%s%N)
    times+=("$(awk -v ns=$((end - start)) 'BEGIN { printf "%.2f", ns / 1e9 }')")
  done
  pages=$(find "$work/site" -name '*.html' | wc -l)
  images=$(find "$work/site/images" -type f | wc -l)
  median=$(printf '%s\n' "${times[@]}" | sort -n | sed -n "$(((rounds + 1) / 2))p")
  printf '%-9s median %6.2f s  rounds %s  (%d pages, %d images)\n' "$shape" "$median" "${times[*]}" "$pages" "$images"
done

#!/usr/bin/env bash
# Times `lxcat html` on generated catalogs of 1,000 folders and 50,000 sizes
# (10 packets of 100 folders and 5,000 sizes, sizes spread over one template
# per leaf folder, six attributes of which two calculated):
#   tables    no models and no projections;
#   pictures  the same with a model on every template (50 distinct) and two
#             projections each (100 distinct fragments), every one with a
#             thumbnail. The generator's content is random bytes, so no
#             picture is written: what this shape adds is the reading.
# Inside the library every read of a model, an icon, a fragment or a size's
# projection list attaches to the database anew, so the second shape shows
# what each distinct model, fragment and template adds.
#   bench/lxcat-html-bench.sh [BUILD_FOLDER] [ROUNDS]
# Prints one line per shape: medians of wall and processor time, and the
# wall time of every round, in seconds.
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
  walls=()
  cpus=()
  for ((round = 1; round <= rounds; round++)); do
    rm -rf "$work/site"
    # Wall time, then user and system time of the command: on a shared
    # machine the processor time is the steadier of the two.
    measured=$({ TIMEFORMAT='%R %U %S'; time "$lxcat" html "$work/$shape.fdb" "$work/site" >/dev/null 2>&1; } 2>&1)
    read -r wall user system <<<"$measured"
    walls+=("$wall")
    cpus+=("$(awk -v u="$user" -v s="$system" 'BEGIN { printf "%.2f", u + s }')")
  done
  pages=$(find "$work/site" -name '*.html' | wc -l)
  images=$(find "$work/site/images" -type f | wc -l)
  middle=$(((rounds + 1) / 2))
  wall=$(printf '%s\n' "${walls[@]}" | sort -n | sed -n "${middle}p")
  cpu=$(printf '%s\n' "${cpus[@]}" | sort -n | sed -n "${middle}p")
  printf '%-9s median %6.2f s wall, %6.2f s processor  rounds %s  (%d pages, %d images)\n' \
    "$shape" "$wall" "$cpu" "${walls[*]}" "$pages" "$images"
done

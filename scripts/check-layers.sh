#!/usr/bin/env bash
# Fails when a library source includes a header of a layer above its own.
#   scripts/check-layers.sh [root]
#
# The layers, highest first; a folder may include its own headers and those
# of any layer below it:
#
#   api/
#   storage/
#   catalog/ content/ object/ search/ commands/    (one band, see below)
#   formula/
#   platform/
#
# Within the band catalog/ is the base: content/, object/, search/ and
# commands/ may include it. On top of that object/ and commands/ may include
# content/: placed objects are built from projections and specifications, and
# commands replace specifications. So the band reads, lowest first:
# catalog/ <- content/ <- object/ and commands/, and search/ stands on
# catalog/ alone. No other folder of the band includes another.
#
# include/ (the public header) may be included from anywhere. Programs,
# tests, benchmarks and fuzz targets (tools/, tests/, bench/, fuzz/, demo/)
# are not checked. Each offending include is printed on one line:
#   <file>:<line>: #include "<header>" points up to <folder>/
set -euo pipefail
root=$(cd "${1:-$(dirname "$0")/..}" && pwd)
cd "$root"

declare -A rank=([platform]=1 [formula]=2 [catalog]=3 [content]=3 [object]=3 [search]=3
                 [commands]=3 [storage]=4 [api]=5)
# The includes allowed between folders of the band: "from>to".
band_edges=" content>catalog object>catalog object>content search>catalog commands>catalog commands>content "

# The folder a quoted include names: its first component when that is a
# folder of the tree, else the including file's own folder when the header
# lies beside it, else include/ when it is the public header; empty for a
# header from outside the tree.
target_folder() {
  local file=$1 header=$2
  local first=${header%%/*}
  if [[ $header == */* && -d $first ]]; then
    echo "$first"
  elif [[ -e $(dirname "$file")/$header ]]; then
    echo "${file%%/*}"
  elif [[ -e include/$header ]]; then
    echo include
  fi
}

status=0
for folder in api storage catalog content object search commands formula platform; do
  [[ -d $folder ]] || continue
  while IFS=: read -r file line header; do
    to=$(target_folder "$file" "$header")
    [[ -z $to || $to == "$folder" || $to == include ]] && continue
    if [[ -z ${rank[$to]:-} ]]; then
      verdict="points out of the library to $to/"
    elif (( rank[$to] > rank[$folder] )); then
      verdict="points up to $to/"
    elif (( rank[$to] == rank[$folder] )) && [[ $band_edges != *" $folder>$to "* ]]; then
      verdict="points across the band to $to/"
    else
      continue
    fi
    echo "$file:$line: #include \"$header\" $verdict"
    status=1
  done < <(grep -rnE --include='*.h' --include='*.cpp' '^[[:space:]]*#[[:space:]]*include[[:space:]]*"' "$folder" |
           sed -E 's/^([^:]*):([0-9]+):[^"]*"([^"]*)".*/\1:\2:\3/' | sort -t: -k1,1 -k2,2n)
done
if (( status != 0 )); then
  echo "check-layers: includes above point against the layers (see scripts/check-layers.sh)" >&2
fi
exit $status

#!/usr/bin/env bash
# Runs the fuzz targets side by side for the given number of seconds, from the seeds in fuzz/corpus
# and what earlier runs have found.
#
#   ./fuzz.sh           a minute
#   ./fuzz.sh 28800     a night
set -euo pipefail
cd "$(dirname "$0")"
. tools/packages.sh

install_missing "${build_packages[@]}" "${clang_packages[@]}"
cmake --preset fuzz
cmake --build --preset fuzz
running=()
for target in receive text; do
  found=build/fuzz/corpus/$target
  mkdir -p "$found"
  (
    "build/fuzz/fuzz/${target}_fuzz" -max_total_time="${1:-60}" -print_final_stats=1 \
      -artifact_prefix="build/fuzz/" "$found" "fuzz/corpus/$target" |& sed "s|^|$target  |"
  ) &
  running+=($!)
done
outcome=0
for target in "${running[@]}"; do
  wait "$target" || outcome=1
done
exit $outcome

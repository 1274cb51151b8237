#!/usr/bin/env bash
# clang-format over every source, clang-tidy over every source that this machine can compile.
set -euo pipefail
cd "$(dirname "$0")/.."
. tools/packages.sh

install_missing "${build_packages[@]}" "${test_packages[@]}" libbenchmark-dev git \
  clang-format clang-tidy
git ls-files '*.h' '*.cpp' | xargs clang-format --dry-run --Werror
# GCC's own warning options are of no interest to clang.
cmake --preset dev -B build/lint -DZENDOR_BENCH=ON -DZENDOR_FUZZ=ON >/dev/null
git ls-files '*.cpp' | grep -v -e windows/ -e win32/ -e window_reader |
  xargs -P "$(nproc)" -n 4 clang-tidy --quiet --extra-arg=-Wno-unknown-warning-option -p build/lint
echo 'Format and static analysis have nothing to say.'

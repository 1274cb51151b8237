#!/usr/bin/env bash
# clang-format over every source, clang-tidy over every source of the dev build.
set -euo pipefail
cd "$(dirname "$0")/.."

git ls-files '*.h' '*.cpp' | xargs clang-format --dry-run --Werror
cmake --preset dev >/dev/null
cmake --build --preset dev >/dev/null
git ls-files '*.cpp' | grep -v -e '/win32/' -e '^tests/windows/' |
  xargs -P "$(nproc)" -n 4 clang-tidy --quiet -p build/dev
echo 'Format and static analysis have nothing to say.'

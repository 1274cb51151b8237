#!/usr/bin/env bash
# Runs clang-format and clang-tidy over every source; "tools/lint.sh format" runs clang-format alone.
# clang-tidy sees the sources of Windows as the cross compiler does.
set -euo pipefail
cd "$(dirname "$0")/.."
. tools/packages.sh

install_missing git clang-format
git ls-files '*.h' '*.cpp' | xargs clang-format --dry-run --Werror
[ "${1:-}" != format ] || exit 0

install_missing "${build_packages[@]}" "${test_packages[@]}" "${windows_packages[@]}" \
  clang-tidy

# Lints the sources named on standard input, as the given build folder compiles them.
tidy() {
  xargs -P "$(nproc)" -n 4 clang-tidy --quiet -p "$1" "${@:2}"
}

is_windows=(-e windows/ -e win32/ -e hands/window_reader)
cmake --preset dev -B build/lint -DZENDOR_BENCH=ON -DZENDOR_FUZZ=ON >/dev/null
git ls-files '*.cpp' | grep -v "${is_windows[@]}" | tidy build/lint

# clang uses the C++ library and the Windows headers of the cross compiler. The Windows headers
# come last, so that clang's own intrinsics come before theirs.
target=x86_64-w64-mingw32
as_windows=(--extra-arg=--target=$target --extra-arg=-idirafter/usr/$target/include)
while read -r folder; do
  as_windows+=("--extra-arg=-isystem$folder")
done < <($target-g++-posix -xc++ -E -v /dev/null 2>&1 | grep '^ /.*/c++')
cmake --preset windows -B build/lint-windows >/dev/null
git ls-files '*.cpp' | grep "${is_windows[@]}" | tidy build/lint-windows "${as_windows[@]}"
echo 'Format and static analysis have nothing to say.'

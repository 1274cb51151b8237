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

# Looks at the files that standard input names, and names those that clang-tidy has something to say
# about.
look() { # OPTION...
  xargs --no-run-if-empty -P "$(nproc)" -n 1 \
    bash -c 'clang-tidy --quiet "$@" >/dev/null 2>&1 || echo "${!#}"' look "$@"
}

# Lints the sources of those targets of a preset of which one has a path that matches the pattern.
#
# Most of the time goes into what they include. So the sources of a target are looked at as one, each
# with its text in the place of an include, because the analyzer passes over what is included. Where
# there is something to say, they are looked at one by one, and that counts: it tells the place, and
# two sources may use one name for themselves.
#
# The analyzer goes through the branches of a function. A test has one with every line that it expects,
# and the sanitizers see what happens in it, so the analyzer leaves a function of a test sooner.
brief=(-Xclang -analyzer-config -Xclang max-nodes=20000)
lint() { # PRESET PATTERN OPTION...
  local whole=build/lint-$1 single=build/lint-$1-single options=("${@:3}") bundles bundle suspicious
  local everything=(-DZENDOR_BENCH=ON -DZENDOR_FUZZ=ON)
  cmake --preset "$1" -B "$whole" "${everything[@]}" \
    -DCMAKE_UNITY_BUILD=ON -DCMAKE_UNITY_BUILD_BATCH_SIZE=0 >/dev/null
  bundles=$(sed -n 's/^ *"file": "\(.*\)",*$/\1/p' "$whole/compile_commands.json" |
    xargs grep -lE "^#include \"$PWD/.*$2")
  for bundle in $bundles; do
    sed -n 's/^#include "\(.*\)"$/\1/p' "$bundle" >"$bundle.members"
    sed -i 's/^#include \(".*"\)$/cat \1/e' "$bundle"
  done
  suspicious=$(
    sed "\|$whole/tests/|d" <<<"$bundles" | look -p "$whole" "${options[@]}"
    sed -n "\|$whole/tests/|p" <<<"$bundles" |
      look -p "$whole" "${options[@]}" "${brief[@]/#/--extra-arg=}"
  )
  [ -n "$suspicious" ] || return 0
  cmake --preset "$1" -B "$single" "${everything[@]}" >/dev/null
  sed 's/$/.members/' <<<"$suspicious" | xargs cat | sort -u |
    xargs -P "$(nproc)" -n 1 clang-tidy --quiet -p "$single" "${options[@]}"
}

lint dev '\.cpp'

# clang uses the C++ library and the Windows headers of the cross compiler. The Windows headers
# come last, so that clang's own intrinsics come before theirs.
target=x86_64-w64-mingw32
as_windows=(--extra-arg=--target=$target --extra-arg=-idirafter/usr/$target/include)
while read -r folder; do
  as_windows+=("--extra-arg=-isystem$folder")
done < <($target-g++-posix -xc++ -E -v /dev/null 2>&1 | grep '^ /.*/c++')
lint windows '(windows|win32|hands)/' "${as_windows[@]}"
echo 'Format and static analysis have nothing to say.'

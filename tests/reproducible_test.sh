#!/usr/bin/env bash
# Builds what people get, for both platforms, from two clones in two folders, the second in another
# time zone, and compares the two builds byte for byte. They would differ where a program names the
# folder of its sources.
set -euo pipefail
cd "$(dirname "$0")/.."
. tools/packages.sh

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

build() { # in a clone of its own at the given folder
  git clone --quiet . "$1"
  (
    cd "$1"
    cmake --preset release -DCMAKE_SKIP_INSTALL_ALL_DEPENDENCY=ON # nobody gets the simulator
    cmake --build --preset release --target zendor-serial-extractor zendor-serial-number
    cpack --config build/release/CPackConfig.cmake -B build/release
    cmake --preset windows -DBUILD_TESTING=OFF -DZENDOR_BENCH=OFF
    cmake --build --preset windows
  ) >/dev/null
}

products() { # of the clone in the given folder
  (cd "$1" && find build -name '*.deb' -o -name '*.zip' -o -name 'Zendor*.exe' | grep -v _CPack_ | sort)
}

install_missing "${build_packages[@]}" "${windows_packages[@]}" "${deb_packages[@]}" git
git diff --quiet HEAD || echo 'What is not committed is not in the clones.' >&2
first=$work/first second=$work/another/folder
TZ=UTC build "$first"
TZ=Asia/Tokyo build "$second"

list=$(products "$first")
if [ "$(wc -l <<<"$list")" -ne 5 ]; then
  printf 'These are not two programs, an archive and two packages:\n%s\n' "$list" >&2
  exit 1
fi
different=0
while read -r product; do
  if cmp "$first/$product" "$second/$product"; then
    printf 'the same        %s\n' "$product"
  else
    different=1
  fi
done <<<"$list"
exit $different

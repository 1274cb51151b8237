#!/usr/bin/env bash
# Builds what people get, for both platforms, from a clone in another folder and in another time
# zone, and compares it byte for byte with the builds that the tests use here. They would differ
# where a program names the folder of its sources, and where the tests see another program than
# people get.
set -euo pipefail
cd "$(dirname "$0")/.."
. tools/packages.sh

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

build_here() {
  cmake --preset release-test
  cmake --build --preset release-test
  cpack --config build/release-test/CPackConfig.cmake -B build/release-test
  cmake --preset windows
  cmake --build --preset windows
}

build_elsewhere() { # in a clone at the given folder
  git clone --quiet . "$1"
  cd "$1"
  cmake --preset release -DCMAKE_SKIP_INSTALL_ALL_DEPENDENCY=ON # nobody gets the simulator
  cmake --build --preset release --target zendor-serial-extractor zendor-serial-number
  cpack --config build/release/CPackConfig.cmake -B build/release
  cmake --preset windows -DBUILD_TESTING=OFF -DZENDOR_BENCH=OFF
  cmake --build --preset windows
}

install_missing "${build_packages[@]}" libgtest-dev "${windows_packages[@]}" "${deb_packages[@]}" git
[ -z "$(git status --porcelain)" ] || echo 'What is not committed is not in the clone.' >&2
TZ=UTC build_here >/dev/null
clone=$work/another/folder
(TZ=Asia/Tokyo build_elsewhere "$clone" >/dev/null)

list=$(cd "$clone" && find build -name '*.deb' -o -name '*.zip' -o -name 'Zendor*.exe' |
  grep -v _CPack_ | sort)
if [ "$(wc -l <<<"$list")" -ne 5 ]; then
  printf 'These are not two programs, an archive and two packages:\n%s\n' "$list" >&2
  exit 1
fi
different=0
while read -r product; do
  if cmp "$clone/$product" "${product/#build\/release\//build/release-test/}"; then
    printf 'the same        %s\n' "$product"
  else
    different=1
  fi
done <<<"$list"
exit $different

#!/usr/bin/env bash
# Installs what is missing, builds with warnings as errors, and runs the tests.
#
#   ./test.sh                the tests on this computer
#   ./test.sh release-test   the same on the release build
#   ./test.sh clang          the same by clang
#   ./test.sh asan           by clang, under AddressSanitizer and UndefinedBehaviorSanitizer
#   ./test.sh windows        the Windows program, cross-built and run under Wine
#
# Arguments that begin with "-", and all after the preset, go to ctest: ./test.sh -R NAME runs one
# test, ./test.sh asan -L app those of the layer app.
set -euo pipefail
cd "$(dirname "$0")"
. tools/packages.sh

preset=dev
if [[ ${1:--} != -* ]]; then
  preset=$1
  shift
fi
case $preset in
  dev | release-test)
    packages=("${test_packages[@]}")
    ;;
  clang | asan)
    packages=("${test_packages[@]}" "${clang_packages[@]}")
    ;;
  windows)
    packages=("${windows_packages[@]}" "${wine_packages[@]}")
    ;;
  *)
    sed -n '2,11s/^# \{0,1\}//p' "$0" >&2
    exit 2
    ;;
esac
install_missing "${build_packages[@]}" "${packages[@]}"

if [ "$preset" = windows ]; then # its simulated pod is a Linux program, and Wine rests by a Linux library
  cmake --preset release
  cmake --build --preset release --target zendor-pod-simulator resting_yield
fi
cmake --preset "$preset"
cmake --build --preset "$preset"
ctest --preset "$preset" "$@"

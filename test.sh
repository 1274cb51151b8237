#!/usr/bin/env bash
# Installs what is missing, builds with warnings as errors, and runs the tests.
#
#   ./test.sh                the tests on this computer
#   ./test.sh release-test   the same on the release build, whose hardening is read back
#   ./test.sh asan           the same under AddressSanitizer and UndefinedBehaviorSanitizer
#   ./test.sh clang          the same by clang
#   ./test.sh windows        the Windows program, cross-built and run under Wine
set -euo pipefail
cd "$(dirname "$0")"
. tools/packages.sh

case "${1:-dev}" in
  dev | release-test | asan | clang)
    preset=${1:-dev}
    packages=("${build_packages[@]}" "${test_packages[@]}")
    [ "$preset" != clang ] || packages+=(clang)
    install_missing "${packages[@]}"
    cmake --preset "$preset"
    cmake --build --preset "$preset"
    ctest --preset "$preset"
    ;;
  windows)
    exec tests/windows/run.sh
    ;;
  *)
    sed -n '2,8s/^# \{0,1\}//p' "$0" >&2
    exit 2
    ;;
esac

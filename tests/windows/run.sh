#!/usr/bin/env bash
# Cross-builds the Windows program and its archive, and runs them and the tests of the core under Wine.
set -euo pipefail
cd "$(dirname "$0")/../.."
. tools/packages.sh

install_missing "${build_packages[@]}" "${windows_packages[@]}" "${wine_packages[@]}"

cmake --preset windows
cmake --build --preset windows
cpack --config build/windows/CPackConfig.cmake -B build/windows

# The simulated pod is a Linux program.
cmake --preset release
cmake --build --preset release --target zendor-pod-simulator

export WINEDLLOVERRIDES=mscoree,mshtml= WINEDEBUG=-all
WINEPREFIX=$(mktemp -d)
export WINEPREFIX
trap 'wineserver --kill || true; rm -rf "$WINEPREFIX"' EXIT
wineboot --init >/dev/null 2>&1
ctest --preset windows

for test in windows/program_file windows/line windows/messages whole_program/request whole_program/outcome whole_program/appearance; do
  hands/virtual_screen.sh "tests/${test}_test.py" \
    windows build/windows build/release/simulator/zendor-pod-simulator
done

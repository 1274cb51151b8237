#!/usr/bin/env bash
# Measures the release build and prints a table of what was measured and the targets.
#
#   ./bench.sh            the Linux program
#   ./bench.sh windows    the Windows program, cross-built and run under Wine
set -euo pipefail
cd "$(dirname "$0")"
. tools/packages.sh

on_a_screen() {
  hands/empty_screen.sh "$@"
}

case "${1:-linux}" in
  linux)
    install_missing "${build_packages[@]}" "${test_packages[@]}" libbenchmark-dev python3-xlib
    cmake --preset bench >/dev/null
    cmake --build --preset bench
    on_a_screen bench/measure.py build/bench
    ;;
  windows)
    install_missing "${build_packages[@]}" "${windows_packages[@]}" "${wine_packages[@]}" python3-xlib
    cmake --preset release >/dev/null
    cmake --build --preset release --target zendor-pod-simulator
    cmake --preset windows >/dev/null
    cmake --build --preset windows
    on_a_screen bench/measure_windows.py build/windows build/release/simulator/zendor-pod-simulator
    ;;
  *)
    sed -n '2,5s/^# \{0,1\}//p' "$0" >&2
    exit 2
    ;;
esac

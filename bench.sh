#!/usr/bin/env bash
# Measures the release build and prints a table: what, our figure, that of a peer, their ratio, and
# the most that is allowed.
#
#   ./bench.sh            the Linux program
#   ./bench.sh windows    the Windows program, cross-built and run under Wine
set -euo pipefail
cd "$(dirname "$0")"
. tools/packages.sh

on_a_screen() {
  hands/empty_screen.sh "$@"
}

# The command sees no process but its own, however many the computer has.
alone() {
  local as_root=()
  [ "$(id -u)" -eq 0 ] || as_root=(--map-root-user)
  on_a_screen unshare --pid --fork --mount-proc "${as_root[@]}" "$@"
}

case "${1:-linux}" in
  linux)
    install_missing "${build_packages[@]}" "${test_packages[@]}" python3-xlib psmisc
    cmake --preset bench >/dev/null
    cmake --build --preset bench
    alone bench/measure.py build/bench
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
    sed -n '2,6s/^# \{0,1\}//p' "$0" >&2
    exit 2
    ;;
esac

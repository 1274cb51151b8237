#!/usr/bin/env bash
# Builds the program and opens its window on four simulated ports: a customer pod, an engineer pod,
# a line without a pod, and a port that another program holds. Without a display the window opens on
# a virtual one, is clicked through as a user would, and pictures of it are saved.
set -euo pipefail
cd "$(dirname "$0")"
. tools/packages.sh

install_missing "${build_packages[@]}"
cmake --preset release
cmake --build --preset release

demo=build/release/demo/zendor-demo
if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
  exec "$demo"
fi
install_missing "${screen_packages[@]}"
mkdir -p demo-pictures
hands/virtual_screen.sh demo/tour.py "$demo" demo-pictures
echo 'The pictures are in demo-pictures.'

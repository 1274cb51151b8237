#!/usr/bin/env bash
# Remakes the pictures of the documents from the program itself.
set -euo pipefail
cd "$(dirname "$0")/.."
env -u DISPLAY -u WAYLAND_DISPLAY ./demo.sh
cp demo-pictures/port-1.png docs/window.png
cp demo-pictures/port-3.png docs/no-pod.png

#!/usr/bin/env bash
# Measures the release build and prints a table of ratios and their targets.
set -euo pipefail
cd "$(dirname "$0")"
. tools/packages.sh

install_missing "${build_packages[@]}" "${test_packages[@]}" libbenchmark-dev python3-xlib
cmake --preset bench >/dev/null
cmake --build --preset bench
PYTHONPATH=tools PYTHONDONTWRITEBYTECODE=1 \
  xvfb-run -a -s '-screen 0 1280x1024x24' bench/measure.py build/bench

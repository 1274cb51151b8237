#!/usr/bin/env bash
# Runs 2,000 requests, or as many as given, against an unpaced simulated pod with random faults.
set -euo pipefail
cd "$(dirname "$0")"
. tools/packages.sh

install_missing "${build_packages[@]}" libbenchmark-dev
cmake --preset bench >/dev/null
cmake --build --preset bench
build/bench/bench/soak "${1:-2000}"

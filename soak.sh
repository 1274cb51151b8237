#!/usr/bin/env bash
# Runs 2,000 requests, or as many as given, against an unpaced simulated pod with random faults.
set -euo pipefail
cd "$(dirname "$0")"
. tools/packages.sh

install_missing "${build_packages[@]}" "${test_packages[@]}"
cmake --preset release-test >/dev/null
cmake --build --preset release-test --target soak
build/release-test/tests/linux/soak "${1:-2000}"

#!/usr/bin/env bash
# Reads from the file of a program whether it was hardened as distributions harden theirs.
#
# Usage: hardening_test.sh PROGRAM
set -euo pipefail
export LC_ALL=C
program=$1
broken=0

hold() { # a name, then a command that has to succeed
  local what=$1
  shift
  if "$@"; then
    printf 'held    %s\n' "$what"
  else
    printf 'broken  %s\n' "$what"
    broken=1
  fi
}

headers=$(readelf --wide --program-headers "$program")
dynamic=$(readelf --wide --dynamic "$program")
symbols=$(readelf --wide --dyn-syms "$program")
hold 'position-independent' grep -q 'FLAGS_1.*PIE' <<<"$dynamic"
hold 'relocations read-only' grep -q GNU_RELRO <<<"$headers"
hold 'all symbols bound at the start' grep -q BIND_NOW <<<"$dynamic"
hold 'stack not executable' grep -q 'GNU_STACK.* RW ' <<<"$headers"
hold 'stack protected' grep -q __stack_chk_fail <<<"$symbols"
exit $broken

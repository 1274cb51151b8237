#!/usr/bin/env bash
# Reads from a release binary whether it was hardened as distributions do it.
#
# Usage: hardening_test.sh BINARY COMPILE_COMMANDS
set -euo pipefail
export LC_ALL=C
binary=$1 commands=$2
broken=0

hold() { # what, then a command that has to succeed
  local what=$1
  shift
  if "$@"; then
    printf 'held    %s\n' "$what"
  else
    printf 'broken  %s\n' "$what"
    broken=1
  fi
}

headers=$(readelf --wide --program-headers "$binary")
dynamic=$(readelf --wide --dynamic "$binary")
symbols=$(readelf --wide --dyn-syms "$binary")
hold 'position-independent' grep -q 'FLAGS_1.*PIE' <<<"$dynamic"
hold 'relocations read-only' grep -q GNU_RELRO <<<"$headers"
hold 'all symbols bound at the start' grep -q BIND_NOW <<<"$dynamic"
hold 'stack not executable' grep -q 'GNU_STACK.* RW ' <<<"$headers"
hold 'stack protected' grep -q __stack_chk_fail <<<"$symbols"
# Fortified calls whose sizes are known leave no trace in the code: only the commands tell.
hold 'library calls fortified' [ "$(grep -c '"command"' "$commands")" -eq "$(grep -c -e -D_FORTIFY_SOURCE=2 "$commands")" ]
exit $broken

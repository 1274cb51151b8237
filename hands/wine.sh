#!/usr/bin/env bash
# Runs a command on a Windows of the tests' own: the Wine prefix that the first argument names. The
# first call makes that prefix, under another name until it is whole.
set -eu
export WINEPREFIX=$1 WINEDLLOVERRIDES=mscoree,mshtml= WINEDEBUG=-all
if [ ! -d "$WINEPREFIX" ]; then
  unfinished=$WINEPREFIX.unfinished
  rm -rf "$unfinished"
  WINEPREFIX=$unfinished wineboot --init </dev/null >/dev/null 2>&1
  WINEPREFIX=$unfinished wineserver --kill
  WINEPREFIX=$unfinished wineserver --wait
  mv "$unfinished" "$WINEPREFIX"
fi
# A server of Wine without a program ends after some seconds, and refuses a program that comes at
# that very moment. So this one stays for a minute. The services of Wine would hold the streams of
# the first program open, so a program without streams comes first. If that one fails, so will the
# command, and that tells why.
if [ "$2" != wineserver ] && wineserver --persistent=60 </dev/null >/dev/null 2>&1; then
  wine cmd /c exit </dev/null >/dev/null 2>&1 || true
fi
exec "${@:2}"

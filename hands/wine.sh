#!/usr/bin/env bash
# Runs a command on a Windows of the tests' own: the Wine prefix that the first argument names. The
# first call makes that prefix, under another name until it is whole.
#
# Making a Windows takes long, so one is made that is never used, and the prefixes are copies of it.
# Its files are large and stay as they are, so the copies have links to them. Each copy has its own
# registry, and its own server, which Debian's Wine names in a file.
set -eu
export WINEPREFIX=$1 WINEDLLOVERRIDES=mscoree,mshtml= WINEDEBUG=-all
original=$(dirname "$WINEPREFIX")/original

make_original() { # PREFIX
  WINEPREFIX=$1 wineboot --init </dev/null >/dev/null 2>&1
  WINEPREFIX=$1 wineserver --kill
  WINEPREFIX=$1 wineserver --wait
}

make_copy() { # PREFIX
  cp --archive --link "$original" "$1"
  rm -f "$1/wineserver"
  cp --remove-destination "$original"/*.reg "$1"
}

ensure() { # PREFIX COMMAND
  [ ! -d "$1" ] || return 0
  rm -rf "$1.unfinished"
  "$2" "$1.unfinished"
  mv "$1.unfinished" "$1"
}

if [ ! -d "$WINEPREFIX" ]; then
  mkdir -p "$(dirname "$original")"
  (
    flock 9
    ensure "$original" make_original
    ensure "$WINEPREFIX" make_copy
  ) 9>"$original.lock"
fi

# A server of Wine without a program ends after some seconds, and refuses a program that comes at
# that very moment. So this one stays for a minute. The services of Wine would hold the streams of
# the first program open, so a program without streams comes first. If that one fails, so will the
# command, and that tells why.
if [ "$2" != wineserver ] && wineserver --persistent=60 </dev/null >/dev/null 2>&1; then
  wine cmd /c exit </dev/null >/dev/null 2>&1 || true
fi
exec "${@:2}"

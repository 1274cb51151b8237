#!/usr/bin/env bash
# Runs a command on a virtual screen with a window manager and an accessible tree of its own.
exec xvfb-run -a -s '-screen 0 1280x1024x24' dbus-run-session -- bash -c '
  openbox 2>/dev/null &
  "$@"
  status=$?
  kill %1
  exit $status' -- "$@" 2> >(grep -v -e '^dbus-daemon' -e '^SpiRegistry' >&2)

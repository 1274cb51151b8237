#!/usr/bin/env bash
# Runs a command on a virtual screen with a window manager and an accessible tree of its own.
set -u
case "${VIRTUAL_SCREEN_STAGE:-screen}" in
  screen)
    VIRTUAL_SCREEN_STAGE=bus exec xvfb-run -a -s '-screen 0 1280x1024x24' "$0" "$@"
    ;;
  bus) # what the bus and its services say is of no interest; the command keeps its own voice
    VIRTUAL_SCREEN_STAGE=command exec dbus-run-session -- "$0" "$@" 3>&2 2>/dev/null
    ;;
  command)
    unset VIRTUAL_SCREEN_STAGE
    openbox >/dev/null 2>&1 &
    window_manager=$!
    until xprop -root _NET_SUPPORTING_WM_CHECK | grep -q "window id"; do sleep 0.05; done
    "$@" 2>&3
    status=$?
    kill "$window_manager"
    exit $status
    ;;
esac

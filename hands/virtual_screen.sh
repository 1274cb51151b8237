#!/usr/bin/env bash
# Runs a command on a virtual screen with a window manager and an accessible tree of its own.
set -u
case "${VIRTUAL_SCREEN_STAGE:-screen}" in
  screen)
    VIRTUAL_SCREEN_STAGE=bus exec "$(dirname "$0")/empty_screen.sh" "$0" "$@"
    ;;
  bus) # what the bus and its services say is of no interest; the command keeps its own voice
    VIRTUAL_SCREEN_STAGE=command exec dbus-run-session -- "$0" "$@" 3>&1 4>&2 >/dev/null 2>&1
    ;;
  command)
    unset VIRTUAL_SCREEN_STAGE
    command -v xprop >/dev/null || exit 1
    # The first key of a screen changes its keyboard mapping, upon which the window manager lets go of
    # its keys for a moment. Now nobody waits for one.
    xdotool key shift || exit 1
    openbox --config-file "$(realpath "$(dirname "$0")")/openbox.xml" >/dev/null 2>&1 &
    window_manager=$!
    until xprop -root _NET_SUPPORTING_WM_CHECK | grep -q 'window id'; do
      kill -0 "$window_manager" || exit 1
      sleep 0.05
    done
    "$@" >&3 2>&4
    status=$?
    kill "$window_manager"
    exit $status
    ;;
esac

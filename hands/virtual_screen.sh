#!/usr/bin/env bash
# Runs a command on a virtual screen with a window manager and an accessible tree of its own.
set -u
case "${VIRTUAL_SCREEN_STAGE:-screen}" in
  screen)
    VIRTUAL_SCREEN_STAGE=bus exec "$(dirname "$0")/empty_screen.sh" "$0" "$@"
    ;;
  bus) # the output of the bus and its services is dropped, that of the command is kept
    VIRTUAL_SCREEN_STAGE=command exec dbus-run-session -- "$0" "$@" 3>&1 4>&2 >/dev/null 2>&1
    ;;
  command)
    unset VIRTUAL_SCREEN_STAGE
    # The first key on a screen changes the keyboard mapping, and a window manager then lets go of
    # its keys for a moment. A key is pressed before the window manager starts, so that no key of
    # the command is lost.
    xdotool key shift || exit 1
    # Openbox marks the screen as its own before its start is over, and forgets a window that comes
    # between. What it is to start itself comes last.
    ready=$XDG_RUNTIME_DIR/ready
    openbox --config-file "$(realpath "$(dirname "$0")")/openbox.xml" --startup "touch $ready" \
      >/dev/null 2>&1 &
    window_manager=$!
    until [ -e "$ready" ]; do
      kill -0 "$window_manager" || exit 1
      sleep 0.05
    done
    "$@" >&3 2>&4
    status=$?
    kill "$window_manager"
    exit $status
    ;;
esac

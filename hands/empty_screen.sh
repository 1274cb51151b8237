#!/usr/bin/env bash
# Runs a command on an empty virtual screen, with a runtime folder and settings that do not depend
# on the desktop of the user.
set -u
unset WAYLAND_DISPLAY QT_QPA_PLATFORM QT_QPA_PLATFORMTHEME QT_STYLE_OVERRIDE QT_FONT_DPI
unset QT_SCALE_FACTOR QT_SCREEN_SCALE_FACTORS QT_ENABLE_HIGHDPI_SCALING
unset QT_SCALE_FACTOR_ROUNDING_POLICY XDG_CURRENT_DESKTOP KDE_SESSION_VERSION
export PYTHONPATH=$(realpath "$(dirname "$0")") PYTHONDONTWRITEBYTECODE=1
export XDG_SESSION_TYPE=x11 LC_ALL=C.UTF-8
XDG_RUNTIME_DIR=$(mktemp -d) || exit 1
export XDG_RUNTIME_DIR XDG_CONFIG_HOME=$XDG_RUNTIME_DIR
# Services may mount folders of the user in that folder, so what is mounted there stays.
trap 'rm -rf --one-file-system "$XDG_RUNTIME_DIR"' EXIT
xvfb-run -a -s '-screen 0 1280x1024x24 -noreset' "$@"

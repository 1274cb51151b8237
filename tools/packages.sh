# Installs by name what a Debian or Ubuntu machine lacks. Sourced by the scripts that need it.

# What building and running the program takes.
build_packages=(cmake g++ ninja-build qt6-base-dev libcli11-dev fonts-liberation)

# A virtual screen, a window manager, and a user's hands and eyes.
screen_packages=(
  xvfb xauth openbox xdotool xclip x11-utils imagemagick dbus at-spi2-core python3 python3-pyatspi
)

test_packages=("${screen_packages[@]}" libgtest-dev)

# Asks for a password only where something is missing and the user is not root.
install_missing() {
  local missing=() package
  for package in "$@"; do
    dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null | grep -qx installed || missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return
  if ! command -v apt-get >/dev/null; then
    printf 'These packages, or what your system calls them, are needed: %s\n' "${missing[*]}" >&2
    return 1
  fi
  local as_root=()
  [ "$(id -u)" -eq 0 ] || as_root=(sudo)
  printf 'Installing %s\n' "${missing[*]}"
  "${as_root[@]}" apt-get update -qq
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}

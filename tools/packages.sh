# Installs by name what a Debian system lacks. Sourced by the scripts that need it.

# What building and running the program takes.
build_packages=(cmake g++ ninja-build qt6-base-dev libcli11-dev fonts-liberation)

# A virtual screen, a window manager, and a user's hands and eyes.
screen_packages=(
  xvfb xauth openbox xdotool xclip x11-utils imagemagick dbus at-spi2-core python3 python3-pyatspi
  fonts-dejavu-core
)

# A screen reader to listen to, besides.
test_packages=("${screen_packages[@]}" libgtest-dev orca speech-dispatcher)

# What builds the Windows program and its tests.
windows_packages=(g++-mingw-w64-x86-64-posix googletest)

# What runs them, and a user's hands and eyes there.
wine_packages=(wine wine64 xvfb xauth openbox xdotool xclip x11-utils imagemagick dbus python3)

# What makes the Debian package and what distributions read packages with.
deb_packages=(dpkg-dev file lintian desktop-file-utils appstream)

# Where this function cannot install, it names the packages and carries on, because another system may
# have them under other names.
install_missing() {
  local missing=() as_root=() package
  if command -v dpkg-query >/dev/null; then
    for package in "$@"; do
      dpkg-query -W -f='${db:Status-Status}\n' "$package" 2>/dev/null | grep -qx installed ||
        missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return
  else
    missing=("$@")
  fi
  [ "$(id -u)" -eq 0 ] || as_root=(sudo)
  if ! command -v apt-get >/dev/null || ! command -v "${as_root[@]:-true}" >/dev/null; then
    printf 'These packages, or what your system calls them, are needed: %s\n' "${missing[*]}" >&2
    return
  fi
  printf 'Installing %s\n' "${missing[*]}"
  "${as_root[@]}" apt-get update -qq
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}

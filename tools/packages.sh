# Names the packages that the scripts need, and installs those that a Debian system lacks. The
# scripts source this file.

# To build and run the program.
build_packages=(cmake g++ ninja-build qt6-base-dev libcli11-dev fonts-liberation)

# For a user on a virtual screen with a window manager.
screen_packages=(
  xvfb xauth openbox xdotool xclip x11-utils imagemagick dbus at-spi2-core python3 python3-pyatspi
  fonts-dejavu-core
)

# To test the program: the same user, GoogleTest, and a screen reader.
test_packages=("${screen_packages[@]}" libgtest-dev orca speech-dispatcher)

# To build the program by clang, with the sanitizers and with what names the lines in their reports.
clang_packages=(clang libclang-rt-dev llvm)

# To build the Windows program and its tests.
windows_packages=(g++-mingw-w64-x86-64-posix googletest)

# To run the Windows program and its tests, with a user on a virtual screen.
wine_packages=(wine wine64 xvfb xauth openbox xdotool xclip x11-utils imagemagick dbus python3)

# To make the Debian packages, and to check them as distributions do.
deb_packages=(dpkg-dev file lintian desktop-file-utils appstream man-db)

# Has apt wait for another program that installs.
patient=(-o DPkg::Lock::Timeout=600)

# Installs those of the given packages that are missing. Where that is not possible, names them and
# carries on, because the system may have them under other names. Scripts that run side by side wait
# for each other here, because apt refuses a second one.
packages_file=$PWD/${BASH_SOURCE[0]}
install_missing() (
  flock 9
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
    apt-get "${patient[@]}" install -y -qq --no-install-recommends "${missing[@]}" >/dev/null 9<&-
) 9<"$packages_file"

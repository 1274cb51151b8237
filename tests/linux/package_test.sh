#!/usr/bin/env bash
# Makes the Debian packages of the window and of the command, checks them with the tools of
# distributions, installs them, starts the installed programs, and removes the packages again.
#
#   tests/linux/package_test.sh                 of the preset "release"
#   tests/linux/package_test.sh release-test    of the same programs, where they are built already
set -euo pipefail
cd "$(dirname "$0")/../.."
. tools/packages.sh

preset=${1:-release}
window=zendor-serial-extractor
command=zendor-serial-number
desktop_entry=/usr/share/applications/$window.desktop
metainfo=/usr/share/metainfo/example.zendor.serial_extractor.metainfo.xml
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
as_root=()
[ "$(id -u)" -eq 0 ] || as_root=(sudo)

fail() {
  printf 'The packages: %s\n' "$*" >&2
  exit 1
}

make_packages() {
  cmake --preset "$preset"
  cmake --build --preset "$preset"
  cpack -G DEB --config "build/$preset/CPackConfig.cmake" -B "$work"
  chmod a+rx "$work" # apt reads the packages as a user of its own
}

options() {
  tr --delete '\\' | grep --only-matching --extended-regexp -e '--[a-z]+' | sort --unique
}

check_manuals() { # in the unpacked tree: the tool finds no fault, and the options are those of --help
  local manuals=$1/usr/share/man/man1
  [ -z "$(LC_ALL=C.UTF-8 man --warnings -l "$manuals"/*.gz 2>&1 >/dev/null)" ] ||
    fail 'man finds faults in the manuals'
  diff <("$1/usr/bin/$command" --help | options) <(zcat "$manuals/$command.1.gz" | options) ||
    fail 'the manual and --help differ in their options'
}

check_release() { # of what tells it, the version and the day
  local release
  release=$(sed -n 's/^## //p' CHANGELOG.md | head -n 1)
  [ "$2" = "$release" ] || fail "CHANGELOG.md tells of $release, the $1 of $2"
}

check_archives() {
  local tree=$work/tree archive day
  lintian --allow-root --fail-on error,warning "$work"/*.deb
  for archive in "$work"/*.deb; do
    dpkg-deb --extract "$archive" "$tree"
  done
  desktop-file-validate "$tree$desktop_entry"
  appstreamcli validate --no-net "$tree$metainfo"
  appstreamcli validate-tree --no-net "$tree"
  ! dpkg-deb --field "$work/$command"_*.deb Depends | grep -i qt || fail 'the command needs a toolkit'
  check_manuals "$tree"
  day=$(date --utc --date "$(dpkg-parsechangelog -l packaging/linux/changelog -S Date)" +%F)
  check_release changelog "$(dpkg-parsechangelog -l packaging/linux/changelog -S Version) - $day"
  check_release packages "$(dpkg-deb --field "$work/$window"_*.deb Version) - $day"
  check_release metadata "$(sed -n \
    's/.*<release version="\(.*\)" date="\(.*\)">/\1 - \2/p' "$tree$metainfo" | head -n 1)"
}

entry() {
  sed -n "s/^$1=//p" "$desktop_entry"
}

expected_files() {
  local package
  for package in "$window" "$command"; do
    printf '%s\n' "/usr/bin/$package" "/usr/share/man/man1/$package.1.gz" \
      "/usr/share/doc/$package/"{copyright,changelog.gz}
  done
  printf '%s\n' "$desktop_entry" "$metainfo"
  printf '/usr/share/icons/hicolor/%s\n' \
    {16x16,22x22,24x24,32x32,48x48,64x64,128x128,256x256}/apps/"$(entry Icon).png" \
    scalable/apps/"$(entry Icon).svg"
}

check_installed() {
  local program
  dpkg --listfiles "$window" "$command" | while read -r path; do
    [ -z "$path" ] || [ -d "$path" ] || echo "$path"
  done | diff <(expected_files | sort) <(sort) || fail 'they do not bring what they should'
  for program in "$(entry Exec)" "$command"; do
    [ "$(command -v "$program")" = "/usr/bin/$program" ] || fail "another program hides $program"
  done
  hands/virtual_screen.sh tests/linux/installed_program_test.py "$(entry Exec)"
  PYTHONPATH=hands PYTHONDONTWRITEBYTECODE=1 tests/whole_program/outcome_test.py \
    console "$command" "build/$preset/simulator/zendor-pod-simulator"
}

remove_packages() {
  "${as_root[@]}" apt-get "${patient[@]}" purge -y -qq "$window" "$command" >/dev/null
}

install_missing "${build_packages[@]}" "${screen_packages[@]}" "${deb_packages[@]}"
status=$(dpkg-query --show --showformat '${db:Status-Status}\n' "$window" "$command" 2>/dev/null || true)
! grep -qx installed <<<"$status" || fail 'they are installed here; remove them first'
make_packages
check_archives
new_paths=$(for archive in "$work"/*.deb; do dpkg-deb --fsys-tarfile "$archive" | tar --list; done |
  sed 's|^\.||' | while read -r path; do [ -e "$path" ] || echo "$path"; done)
trap 'remove_packages; rm -rf "$work"' EXIT
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
  apt-get "${patient[@]}" install -y -qq --no-install-recommends "$work"/*.deb >/dev/null
check_installed
remove_packages
trap 'rm -rf "$work"' EXIT
while read -r path; do [ ! -e "$path" ] || fail "they left $path"; done <<<"$new_paths"
echo 'The packages install, start, and go without a trace.'

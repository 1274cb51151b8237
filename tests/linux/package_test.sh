#!/usr/bin/env bash
# Makes the Debian package, reads it as a distribution does, installs it, starts the installed
# program, and removes it again.
set -euo pipefail
cd "$(dirname "$0")/../.."
. tools/packages.sh

package=zendor-serial-extractor
desktop_entry=/usr/share/applications/$package.desktop
metainfo=/usr/share/metainfo/example.zendor.serial_extractor.metainfo.xml
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
as_root=()
[ "$(id -u)" -eq 0 ] || as_root=(sudo)

fail() {
  printf 'The package: %s\n' "$*" >&2
  exit 1
}

make_package() {
  cmake --preset release
  cmake --build --preset release --target "$package"
  cpack -G DEB --config build/release/CPackConfig.cmake -B "$work"
  archive=$(echo "$work"/*.deb)
  chmod a+rx "$work" # for apt's own user
}

check_archive() {
  local tree=$work/tree version found
  dpkg-deb --extract "$archive" "$tree"
  lintian --allow-root --fail-on error,warning "$archive"
  desktop-file-validate "$tree$desktop_entry"
  appstreamcli validate --no-net "$tree$metainfo"
  appstreamcli validate-tree --no-net "$tree"

  version=$(dpkg-deb --field "$archive" Version)
  found=$(dpkg-parsechangelog -l packaging/linux/changelog -S Version)
  [ "$found" = "$version" ] || fail "its changelog tells of $found, it is $version"
  found=$(sed -n 's/^## //p' CHANGELOG.md | head -n 1)
  [ "$found" = "$version" ] || fail "CHANGELOG.md tells of $found, it is $version"
  found=$(sed -n 's/.*<release version="\([^"]*\)".*/\1/p' "$tree$metainfo" | head -n 1)
  [ "$found" = "$version" ] || fail "its metadata tell of $found, it is $version"
}

entry() {
  sed -n "s/^$1=//p" "$desktop_entry"
}

expected_files() {
  printf '/usr/bin/%s\n' "$(entry Exec)"
  printf '%s\n' "$desktop_entry" "$metainfo" "/usr/share/man/man1/$package.1.gz" \
    "/usr/share/doc/$package/"{copyright,changelog.gz}
  printf '/usr/share/icons/hicolor/%s\n' \
    {16x16,22x22,24x24,32x32,48x48,64x64,128x128,256x256}/apps/"$(entry Icon).png" \
    scalable/apps/"$(entry Icon).svg"
}

check_installed() {
  dpkg --listfiles "$package" | while read -r path; do [ -d "$path" ] || echo "$path"; done |
    diff <(expected_files | sort) <(sort) || fail 'it does not bring what it should'
  [ "$(command -v "$(entry Exec)")" = "/usr/bin/$package" ] || fail 'another program hides it'
  hands/virtual_screen.sh \
    tests/linux/installed_program_test.py "$(entry Exec)"
}

remove_package() {
  "${as_root[@]}" apt-get purge -y -qq "$package" >/dev/null
}

install_missing "${build_packages[@]}" "${screen_packages[@]}" "${deb_packages[@]}"
! dpkg-query --status "$package" >/dev/null 2>&1 || fail 'it is installed here; remove it first'
make_package
check_archive
new_paths=$(dpkg-deb --fsys-tarfile "$archive" | tar --list | sed 's|^\.||' |
  while read -r path; do [ -e "$path" ] || echo "$path"; done)
trap 'remove_package; rm -rf "$work"' EXIT
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
  apt-get install -y -qq --no-install-recommends "$archive" >/dev/null
check_installed
remove_package
trap 'rm -rf "$work"' EXIT
while read -r path; do [ ! -e "$path" ] || fail "it left $path"; done <<<"$new_paths"
echo 'The package installs, starts, and goes without a trace.'

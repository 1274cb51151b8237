#!/usr/bin/env bash
# Tries the last commit on other systems as their new user would: makes a bare root of each with
# debootstrap, and runs the demo, the tests and the package's test on a clean checkout in it. These
# have to install what they need.
#
#   tests/linux/other_systems.sh                            Debian 13, and Debian 12 for 32 bit
#   tests/linux/other_systems.sh SUITE[/ARCHITECTURE]...    other Debians that this processor runs
#
# A root lives in memory and in namespaces that end with this script, however the script ends, so
# that nothing stays mounted, running or on the disk. The script needs root's rights, or sudo.
set -euo pipefail
[ "$(id -u)" -eq 0 ] || exec sudo "$0" "$@"
cd "$(dirname "$0")/../.."
. tools/packages.sh

root=/mnt # outside of the namespace this folder stays as it is
checkout=/root/checkout
needed=6 # GiB at most for a root and its compilers

# Makes the root, unpacks the checkout from standard input into it, and gives it what a computer
# has: processes, pseudo-terminals, and apt's way to the network.
make_root() {
  local suite=$1 architecture=$2 mirror http_proxy=${http_proxy-}
  mount -t tmpfs -o size="${needed}G",mode=755 root "$root"
  mkdir -p "$root$checkout"
  tar --extract --directory "$root$checkout"
  mirror=$(apt-get indextargets --format '$(REPO_URI)' \
    'Created-By: Packages' 'Origin: Debian' 'Label: Debian' | sed -n 1p)
  eval "$(apt-config shell http_proxy Acquire::http::Proxy)"
  http_proxy=$http_proxy debootstrap --variant=minbase --include=ca-certificates \
    --arch="$architecture" "$suite" "$root" ${mirror:+"$mirror"}
  apt-config dump | grep '^Acquire::' >"$root/etc/apt/apt.conf.d/as-outside"
  mount -t proc proc "$root/proc"
  mount -t devpts -o newinstance,ptmxmode=666,mode=620,gid=5 devpts "$root/dev/pts"
}

as_new_user() {
  chroot "$root" env --ignore-environment --default-signal=INT,QUIT --chdir="$checkout" \
    HOME=/root PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin "$@"
}

try_system() {
  local suite=$1 architecture=$2 began=$SECONDS outcome=0 summary command result
  local commands=(./demo.sh ./test.sh tests/linux/package_test.sh)
  [ "$architecture" != amd64 ] || commands+=('./test.sh windows')
  make_root "$suite" "$architecture"
  summary="made in $((SECONDS - began)) s"
  for command in "${commands[@]}"; do
    began=$SECONDS result=green
    as_new_user bash -c "$command" </dev/null || result=RED outcome=1
    summary+=$'\n'"$command: $result in $((SECONDS - began)) s"
  done
  summary+=$'\n'"$(df --human-readable --output=used "$root" | tail -n 1 | tr -d ' ') of memory"
  printf '%s\n' "$summary"
  return $outcome
}

if [ -n "${OTHER_SYSTEM:-}" ]; then
  try_system "${OTHER_SYSTEM%/*}" "${OTHER_SYSTEM#*/}"
  exit
fi

# As many systems at once as the memory holds, all of them or one after another.
free=$(awk '/^(MemAvailable|SwapFree):/ { sum += $2 } END { print int(sum / 1024 ^ 2) }' /proc/meminfo)
if [ "$free" -lt "$needed" ]; then
  printf 'Another system needs up to %d GiB of memory and swap; %d are free.\n' "$needed" "$free" >&2
  exit 1
fi
install_missing debootstrap debian-archive-keyring git
[ $# -gt 0 ] || set -- trixie bookworm/i386
outcome=0 running=()
trap 'jobs -p | xargs --no-run-if-empty kill -KILL' EXIT
trap 'exit 1' INT TERM HUP
for system in "$@"; do
  [[ $system == */* ]] || system+=/$(dpkg --print-architecture)
  (
    OTHER_SYSTEM=$system setpriv --pdeathsig KILL \
      unshare --mount --pid --ipc --mount-proc --fork --kill-child tests/linux/other_systems.sh \
      < <(git archive HEAD) |& sed --unbuffered "s|^|$system  |"
  ) &
  if [ "$free" -lt $((needed * $#)) ]; then
    wait $! || outcome=1
  else
    running+=($!)
  fi
done
for system in "${running[@]}"; do
  wait "$system" || outcome=1
done
exit $outcome

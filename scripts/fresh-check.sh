#!/usr/bin/env bash
# The README's two commands on a machine that has nothing: a fresh Debian root (debootstrap,
# minbase, of this machine's release, from the mirror this machine's apt reads), the committed
# HEAD cloned into it, then scripts/test.sh, then scripts/run.sh to its screenshot, each as root
# in the fresh root. Whatever it made is unmounted and removed, also when a step fails.
# Needs root and Linux; takes about 20 minutes on two cores.
#   FRESH_KEEP=1  keeps the root (its path is printed) for a look after a failure.
set -euo pipefail
source "$(dirname "$0")/common.sh"

[ "$(uname)" = Linux ] || { echo "fresh-check.sh: needs Linux (debootstrap and chroot)" >&2; exit 1; }
[ "$(id -u)" -eq 0 ] || { echo "fresh-check.sh: run as root: it makes and enters a chroot" >&2; exit 1; }

# The time of each step, printed as it ends.
started=$SECONDS
timed() {
  local name=$1 begun=$SECONDS status=0; shift
  "$@" || status=$?
  printf 'fresh-check: %-34s %4d s%s\n' "$name" $((SECONDS - begun)) "$([ $status = 0 ] || echo ", failed")"
  return $status
}

step "installing debootstrap" "install it by hand: apt-get install debootstrap"
if ! command -v debootstrap >/dev/null; then
  apt-get install -y -q --no-install-recommends debootstrap >/dev/null 2>&1 ||
    { apt-get update -q >/dev/null && apt-get install -y -q --no-install-recommends debootstrap >/dev/null; }
fi

step "reading this machine's release and mirror" "check /etc/os-release and 'apt-cache policy'"
release=$(. /etc/os-release && echo "$VERSION_CODENAME")
mirror=$(apt-cache policy | awk -v suite="$release/main" '$3 == suite { print $2; exit }')
if [ -z "$release" ] || [ -z "$mirror" ]; then
  echo "fresh-check.sh: found no Debian mirror for '$release' in this machine's apt configuration" >&2; exit 1
fi

WORK=$(mktemp -d "${TMPDIR:-/tmp}/zor-fresh.XXXXXX")
FRESH="$WORK/root"
cleanup() {
  local status=$?
  # Deepest first; a mount left behind is never removed with rm.
  local mount
  for mount in $(findmnt -rn -o TARGET | grep -F "$FRESH/" | sort -r || true); do
    umount "$mount" 2>/dev/null || umount -l "$mount" || true
  done
  if [ -n "${FRESH_KEEP:-}" ]; then
    echo "fresh-check: the fresh root is kept in $FRESH"
  elif findmnt -rn -o TARGET | grep -qF "$FRESH/"; then
    echo "fresh-check.sh: $FRESH still has mounts; left in place, remove it by hand" >&2
  else
    rm -rf --one-file-system "$WORK"
  fi
  printf 'fresh-check: %-34s %4d s\n' "in all" $((SECONDS - started))
  exit "$status"
}
trap cleanup EXIT

step "making a fresh $release root with debootstrap from $mirror" "the end of debootstrap's log is above"
bootstrap() {
  debootstrap --variant=minbase --include=git "$release" "$FRESH" "$mirror" >"$WORK/debootstrap.log" 2>&1 ||
    { tail -n 15 "$WORK/debootstrap.log" >&2; return 1; }
}
timed "debootstrap $release (minbase)" bootstrap

step "preparing the fresh root" "check that /proc, /sys and /dev can be mounted here"
# The fresh root reads packages as this machine does: its sources and apt settings, its resolver.
rm -f "$FRESH/etc/apt/sources.list"
for f in /etc/apt/sources.list /etc/apt/sources.list.d/*.list /etc/apt/sources.list.d/*.sources; do
  [ -f "$f" ] && cp "$f" "$FRESH$f"
done
for f in /etc/apt/apt.conf.d/*; do
  [ -f "$f" ] && [ ! -e "$FRESH$f" ] && cp "$f" "$FRESH$f"
done
cp /etc/resolv.conf "$FRESH/etc/resolv.conf"
mount -t proc proc "$FRESH/proc"
mount -t sysfs sysfs "$FRESH/sys"
mount --rbind /dev "$FRESH/dev"
mount --make-rslave "$FRESH/dev"

step "cloning the committed HEAD into the fresh root" "commit your work: the check reads HEAD, not the work tree"
head=$(git -C "$ROOT" rev-parse HEAD)
git clone -q --no-checkout "$ROOT" "$FRESH/root/ZOR_Palette"
git -C "$FRESH/root/ZOR_Palette" checkout -q "$head"
echo "fresh-check: $(git -C "$ROOT" log -1 --format='%h %s' "$head")"

# As a new user: a login shell's bare environment, no display.
in_fresh() {
  chroot "$FRESH" /usr/bin/env -i HOME=/root TERM="${TERM:-dumb}" LANG=C.UTF-8 \
    PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin \
    bash -c 'cd /root/ZOR_Palette && "$@"' _ "$@"
}
step "running scripts/test.sh in the fresh root" "its own last line above says which step failed"
timed "scripts/test.sh" in_fresh scripts/test.sh
step "running scripts/run.sh in the fresh root" "its own last line above says which step failed"
timed "scripts/run.sh" in_fresh scripts/run.sh
shot="$FRESH/root/ZOR_Palette/build/release/screenshot.png"
[ -s "$shot" ] || { echo "fresh-check.sh: scripts/run.sh took no screenshot" >&2; exit 1; }
mkdir -p "$ROOT/build"
cp "$shot" "$ROOT/build/fresh-check-screenshot.png"
echo "fresh-check: both commands passed; the screenshot is build/fresh-check-screenshot.png"

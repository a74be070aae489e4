#!/usr/bin/env bash
# Runs a program in a root folder that looks like the machine's but receives all changes:
#
#   fresh_root.sh PLACE SHARED COMMAND [ARGUMENT]...
#
# PLACE is an empty folder on which the root folder is mounted. SHARED is a folder that both root
# folders contain. Exit status 77: this system does not allow it, and COMMAND was not run.
set -euo pipefail

place=$1 shared=$2
shift 2

if [ "${FRESH_ROOT:-}" != entered ]; then
  [ "$(id -u)" -eq 0 ] && unshare -m true 2>/dev/null || exit 77
  exec env FRESH_ROOT=entered unshare -m --propagation private "$0" "$place" "$shared" "$@"
fi

# The mounts end with this process and its children.
mount -t tmpfs tmpfs "$place"
mkdir "$place/changes" "$place/work" "$place/root"
mount -t overlay overlay "$place/root" \
  -o "lowerdir=/,upperdir=$place/changes,workdir=$place/work" 2>/dev/null || exit 77
for folder in /dev /proc /sys "$shared"; do
  mkdir -p "$place/root$folder"
  mount --rbind "$folder" "$place/root$folder"
done
# Folders that are separate mounts on this machine are empty here.
chroot "$place/root" /usr/bin/env true 2>/dev/null || exit 77
exec chroot "$place/root" "$@"

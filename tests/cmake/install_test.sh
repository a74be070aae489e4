#!/usr/bin/env bash
# The installed helper runs from its folder without an environment variable.
. "$(dirname "$0")/common.sh"

build_release
cmake --install "$release_build" --prefix "$work/installed" >/dev/null
for file in bin/HexHelper bin/icudtl.dat bin/natives_blob.bin bin/snapshot_blob.bin \
  share/dbus-1/interfaces/com.velmora.crnc.CRNNotifier.xml; do
  [ -e "$work/installed/$file" ] || fail "$file was not installed"
done
cmake --install "$release_build" --prefix "$work/installed" --component examples >/dev/null
check_hardening "$work"/installed/bin/HexHelper "$work"/installed/bin/suite_host
hide_release
run_page "$work/installed/bin/suite_host" "$work/installed/bin/HexHelper"

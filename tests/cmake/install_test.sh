#!/usr/bin/env bash
# The installed helper runs from where it was installed, without an environment variable.
. "$(dirname "$0")/common.sh"

configure_and_build "$work/build" "$source_dir" "HexHelper suite_host" \
  -DCEF_LIBRARY_DIR="$cef_library_dir"
cmake --install "$work/build" --prefix "$work/installed" >/dev/null
for file in bin/HexHelper bin/icudtl.dat bin/natives_blob.bin bin/snapshot_blob.bin \
  share/dbus-1/interfaces/com.velmora.crnc.CRNNotifier.xml; do
  [ -e "$work/installed/$file" ] || { echo "$file was not installed"; exit 1; }
done
cmake --install "$work/build" --prefix "$work/installed" --component examples >/dev/null
check_hardening "$work"/installed/bin/HexHelper "$work"/installed/bin/suite_host
# It must not find anything in the build tree.
mv "$work/build/bin/HexHelper" "$work/elsewhere"
run_page "$work/build/bin/suite_host" "$work/installed/bin/HexHelper"

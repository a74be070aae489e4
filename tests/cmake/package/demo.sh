# shellcheck shell=bash
# Functions for the tests of the packages. Source this file.

# run_demo HOME COMMAND [ARGUMENT]...: runs the command, which shows the demo's page in the example
# browser. The browser starts the helper next to it. HOME receives the log.
run_demo() {
  local home=$1
  local log=$home/Library/Logs/Cirrane/CRN/CRN.log
  shift
  mkdir -p "$home"
  env HOME="$home" TMPDIR="$home" XDG_RUNTIME_DIR="$home" XDG_CACHE_HOME="$home" \
    DBUS_SESSION_BUS_ADDRESS="unix:path=$home/no-bus" \
    "$@" >"$home/events" 2>"$home/errors" || { cat "$home/events" "$home/errors"; return 1; }
  grep -qF '"name":"host.quit","args":[0]' "$home/events" ||
    { cat "$home/events"; echo "the page did not receive its answer"; return 1; }
  grep -q START "$log" || { echo "the helper did not write a log"; return 1; }
  # A renderer ends without detaching from the lock.
  remove_lock_of "$log"
}

# run_demo_of PREFIX PAGE HOME OWN_ROOT: runs the example browser in PREFIX like run_demo, with its
# own root folder. Creates the folder HOME.
run_demo_of() {
  mkdir -p "$3/root"
  run_demo "$3" xvfb-run -a "$4" "$3/root" - "$1/bin/suite_host" --timeout=60 "$2"
}

# Does the same as tools/lib/remove_lock, which is not available here.
remove_lock_of() {
  local device inode key
  device=$(stat -c %d "$1")
  inode=$(stat -c %i "$1")
  key=$(printf '0x%x' $((11 << 24 | (device & 0xff) << 16 | (inode & 0xffff))))
  ipcrm -S "$key" -M "$key" 2>/dev/null || true
}

# check_logtail PROGRAM HOME: checks that logtail shows the log in HOME without the source tree.
check_logtail() {
  local shown
  shown=$(cd / && HOME=$2 PYTHONDONTWRITEBYTECODE=1 "$1" -n all --json)
  [[ $shown == *START* ]] || { echo "$1 does not show the log"; return 1; }
}

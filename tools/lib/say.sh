# shellcheck shell=bash
# Progress messages of the scripts. Sourced; the caller has set -euo pipefail.

script=$(basename "$0")

say() { printf '%s: %s\n' "$script" "$*"; }

fail() {
  printf '%s: %s\n' "$script" "$*" >&2
  exit 1
}

# step TEXT COMMAND...: says what runs and how long it took; ends the script when it fails.
step() {
  local text=$1 start=$SECONDS
  shift
  say "$text ..."
  "$@" || fail "FAILED: $text"
  say "$text: done in $((SECONDS - start)) s"
}

# shellcheck shell=bash
# Progress messages of scripts. Source this file after `set -euo pipefail`.

script=$(basename "$0")

say() { printf '%s: %s\n' "$script" "$*"; }

fail() {
  printf '%s: %s\n' "$script" "$*" >&2
  exit 1
}

# step TEXT COMMAND...: runs a command and prints its duration. Ends the script if the command
# fails.
step() {
  local text=$1 start=$SECONDS
  shift
  say "$text ..."
  "$@" || fail "FAILED: $text"
  say "$text: done in $((SECONDS - start)) s"
}

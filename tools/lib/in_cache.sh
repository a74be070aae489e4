# shellcheck shell=bash
# Puts a folder into the cache as a whole or not at all. Sourced, after say.sh.

# The cache of this project.
cache_folder() {
  local folder=${XDG_CACHE_HOME:-${HOME:?is not set}/.cache}/velmora-cef-helper
  [[ $folder == /* ]] || fail "XDG_CACHE_HOME must be an absolute path, but is $XDG_CACHE_HOME"
  printf '%s' "$folder"
}

# in_cache NAME FUNCTION: unless the folder NAME is there, calls FUNCTION in an empty folder and
# gives that folder its name at the end. A run that is killed leaves a folder *.part, which the next
# one removes; a lock keeps two runs apart. What a killed run had started holds the lock as well.
in_cache() {
  local name=$1 fill=$2
  local folder
  folder=$(cache_folder)
  [ ! -d "$folder/$name" ] || return 0
  mkdir -p "$folder"
  exec {lock}>"$folder/lock"
  flock "$lock"
  if [ ! -d "$folder/$name" ]; then
    rm -rf "$folder/$name".*.part
    # Not local: when `set -e` ends the script, the trap runs outside of this function.
    part=$(mktemp -d "$folder/$name.XXXXXX.part")
    trap 'rm -rf "$part"' EXIT
    chmod 755 "$part"
    (cd "$part" && "$fill")
    mv -T "$part" "$folder/$name"
    trap - EXIT
  fi
  exec {lock}>&-
}

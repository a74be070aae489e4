# shellcheck shell=bash
# Adds folders to the cache, each completely or not at all. Source this file after say.sh.

# Prints the path of this project's cache.
cache_folder() {
  local folder=${XDG_CACHE_HOME:-${HOME:?is not set}/.cache}/velmora-cef-helper
  [[ $folder == /* ]] || fail "XDG_CACHE_HOME must be an absolute path, but is $XDG_CACHE_HOME"
  printf '%s' "$folder"
}

# in_cache NAME FUNCTION: unless the folder NAME exists, calls FUNCTION in an empty folder and
# finally renames that folder to NAME. A killed run leaves a folder *.part, which the next run
# removes. A lock prevents concurrent runs. Programs that a killed run has started keep the lock
# until they end.
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
    # Not local, because the trap runs outside of this function when `set -e` ends the script.
    part=$(mktemp -d "$folder/$name.XXXXXX.part")
    trap 'rm -rf "$part"' EXIT
    chmod 755 "$part"
    (cd "$part" && "$fill")
    mv -T "$part" "$folder/$name"
    trap - EXIT
  fi
  exec {lock}>&-
}

# shellcheck shell=bash
# Puts a folder into the cache as a whole or not at all. Sourced, after say.sh.

# in_cache NAME FUNCTION: unless the folder NAME is there, calls FUNCTION in an empty folder and
# gives that folder its name at the end. An interrupted run leaves a folder *.part, which the next
# one removes; a lock keeps two runs apart.
in_cache() {
  local name=$1 fill=$2
  local folder=${XDG_CACHE_HOME:-$HOME/.cache}/velmora-cef-helper
  [ ! -d "$folder/$name" ] || return 0
  mkdir -p "$folder"
  exec {lock}>"$folder/lock"
  flock "$lock"
  if [ ! -d "$folder/$name" ]; then
    rm -rf "$folder/$name".*.part
    local part
    part=$(mktemp -d "$folder/$name.XXXXXX.part")
    chmod 755 "$part"
    (cd "$part" && "$fill")
    mv -T "$part" "$folder/$name"
  fi
  exec {lock}>&-
}

# shellcheck shell=bash
# Shared by the tests of the build. Each runs as: TEST SOURCE_DIR CEF_LIBRARY_DIR COMPILER
# OWN_ROOT RELEASE_BUILD
set -euo pipefail

source_dir=$1
# shellcheck disable=SC2034  # for the scripts that source this
cef_library_dir=$2
compiler=$3
own_root=$4
release_build=$5

work=$(mktemp -d "${TMPDIR:-/tmp}/hexhelper-build-XXXXXX")
clean_up() {
  rm -rf "$work"
  show_release
}
trap clean_up EXIT

# document DOCUMENT BEGINNING: the command or the code that a document shows.
document() {
  "$source_dir/tests/docs/documents.py" "$@"
}

# configure_and_build BUILD_DIR SOURCE_DIR TARGETS [CMAKE_ARGUMENTS...]
configure_and_build() {
  local build=$1 source=$2 targets=$3
  shift 3
  cmake -G Ninja -S "$source" -B "$build" -DCMAKE_CXX_COMPILER="$compiler" \
    -DCMAKE_BUILD_TYPE=Release -DBUILD_TESTING=OFF "$@" >"$work/configure.log" 2>&1 ||
    { cat "$work/configure.log"; return 1; }
  # shellcheck disable=SC2086  # a list of targets
  cmake --build "$build" --target $targets >"$work/build.log" 2>&1 ||
    { cat "$work/build.log"; return 1; }
}

# For builds that are not about speed: they take half the time.
# shellcheck disable=SC2034  # for the scripts that source this
quick="-DCMAKE_CXX_FLAGS_RELEASE=-O1 -DNDEBUG"

# The build that users get, in $release_build and as $work/build/release. Several tests use it, one
# at a time, and later runs only bring it up to date.
build_release() {
  show_release
  configure_and_build "$release_build" "$source_dir" "HexHelper suite_host tarn" \
    -DCEF_LIBRARY_DIR="$cef_library_dir"
  mkdir "$work/build"
  ln -s "$release_build" "$work/build/release"
}

# Until the test ends, nothing finds files of that build.
hide_release() { mv "$release_build" "$release_build.hidden"; }
show_release() { [ ! -e "$release_build.hidden" ] || mv "$release_build.hidden" "$release_build"; }

# run_page SUITE_HOST HELPER: the demo page, in a home folder, a root folder and on a display of its
# own; its renderer begins the log, and ends without detaching from the log's lock.
run_page() {
  local log=$work/Library/Logs/Cirrane/CRN/CRN.log
  mkdir "$work/root"
  env HOME="$work" TMPDIR="$work" XDG_RUNTIME_DIR="$work" XDG_CACHE_HOME="$work" \
    DBUS_SESSION_BUS_ADDRESS="unix:path=$work/no-bus" \
    xvfb-run -a "$own_root" "$work/root" - "$1" --helper="$2" "$source_dir/examples/pages/demo.html"
  grep -q START "$log" || { echo "the helper began no log"; return 1; }
  "$source_dir/tools/lib/remove_lock" "$log"
}

# check_hardening PROGRAM...: position-independent, with guarded stacks, checked calls and tables that
# are read-only from the start.
check_hardening() {
  local program headers names
  for program; do
    headers=$(readelf -hldW "$program")
    names=$(readelf --dyn-syms -W "$program")
    [[ $headers =~ Type:\ +DYN ]] || fail "$program is not position-independent"
    [[ $headers == *GNU_RELRO* ]] || fail "$program has no read-only relocations"
    [[ $headers == *BIND_NOW* ]] || fail "$program binds its functions late"
    [[ $names == *__stack_chk_fail* ]] || fail "$program has unguarded stacks"
    # clang++ knows the sizes of fewer buffers, so that it may leave no call to check.
    [[ $names =~ _chk@ || $("$compiler" --version) == *clang* ]] ||
      fail "$program calls the unchecked functions of the C library"
  done
}

fail() {
  echo "$1"
  exit 1
}

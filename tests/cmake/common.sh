# shellcheck shell=bash
# Shared by the tests of the build, which run as: TEST SOURCE_DIR CEF_LIBRARY_DIR COMPILER OWN_ROOT
# RELEASE_BUILD
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

# document DOCUMENT BEGINNING: prints the command or code in a document that starts with BEGINNING.
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

# For builds whose speed does not matter. This option halves the build time.
# shellcheck disable=SC2034  # for the scripts that source this
quick="-DCMAKE_CXX_FLAGS_RELEASE=-O1 -DNDEBUG"

# Makes the build for users in $release_build, with a link $work/build/release. Several tests share
# it, one at a time. Later runs only update it.
build_release() {
  show_release
  configure_and_build "$release_build" "$source_dir" "HexHelper suite_host tarn" \
    -DCEF_LIBRARY_DIR="$cef_library_dir"
  mkdir "$work/build"
  ln -s "$release_build" "$work/build/release"
}

# Hides the files of that build until the test ends.
hide_release() { mv "$release_build" "$release_build.hidden"; }
show_release() { [ ! -e "$release_build.hidden" ] || mv "$release_build.hidden" "$release_build"; }

# run_page SUITE_HOST HELPER: runs the demo page with its own home folder, root folder and display.
# The renderer writes to the log, and ends without detaching from the log's lock.
run_page() {
  local log=$work/Library/Logs/Cirrane/CRN/CRN.log
  mkdir "$work/root"
  env HOME="$work" TMPDIR="$work" XDG_RUNTIME_DIR="$work" XDG_CACHE_HOME="$work" \
    DBUS_SESSION_BUS_ADDRESS="unix:path=$work/no-bus" \
    xvfb-run -a "$own_root" "$work/root" - "$1" --helper="$2" "$source_dir/examples/pages/demo.html"
  grep -q START "$log" || { echo "the helper did not write a log"; return 1; }
  "$source_dir/tools/lib/remove_lock" "$log"
}

# check_hardening PROGRAM...: checks that programs are position-independent, with stack protectors,
# checked calls and read-only relocations.
check_hardening() {
  local program headers names
  for program; do
    headers=$(readelf -hldW "$program")
    names=$(readelf --dyn-syms -W "$program")
    [[ $headers =~ Type:\ +DYN ]] || fail "$program is not position-independent"
    [[ $headers == *GNU_RELRO* ]] || fail "$program has no read-only relocations"
    [[ $headers == *BIND_NOW* ]] || fail "$program binds its functions lazily"
    [[ $names == *__stack_chk_fail* ]] || fail "$program has no stack protector"
    # clang++ determines the sizes of fewer buffers, so it may not check any call.
    [[ $names =~ _chk@ || $("$compiler" --version) == *clang* ]] ||
      fail "$program calls unchecked functions of the C library"
  done
}

fail() {
  echo "$1"
  exit 1
}

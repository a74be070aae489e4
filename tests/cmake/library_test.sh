#!/usr/bin/env bash
# A program uses the log library as in docs/logging.md: installed, from the Debian package, and
# built from source without CEF and the example browser's libraries.
. "$(dirname "$0")/common.sh"

program=$work/program
mkdir "$program"
document docs/logging.md '#include <cstdio>' >"$program/main.cc"
document docs/logging.md cmake_minimum_required >"$program/CMakeLists.txt"

# check_program BUILD_DIR: checks that the program logs, and reports a log that it cannot open.
check_program() {
  local logs=$1/logs home=$1/home status=0
  mkdir "$logs" "$home"
  env HOME="$home" "$1/my_program" "$logs"
  grep -q ' | \[INFO\] | [0-9]* | mine | .* | page loaded in 42 ms$' "$logs/my.log" ||
    fail "the log has an unexpected line: $(cat "$logs/my.log")"
  env HOME="$home" "$1/my_program" "$logs/missing" 2>"$1/errors" || status=$?
  [ "$status" = 1 ] || fail "a log that cannot be opened ends the program with $status"
  grep -qx "my_program: cannot open $logs/missing/my.log" "$1/errors" ||
    fail "a log that cannot be opened is reported as: $(cat "$1/errors")"
}

# Builds from source. The other project has its own tests, and must not get the tests of this
# project.
use_sources() {
  mkdir "$work/sources"
  cp "$program/main.cc" "$work/sources/"
  ln -s "$source_dir" "$work/sources/velmora-cef-helper"
  sed 's/^find_package.*/include(CTest)\nadd_subdirectory(velmora-cef-helper)/' \
    "$program/CMakeLists.txt" >"$work/sources/CMakeLists.txt"
  configure_and_build "$work/from-sources" "$work/sources" my_program -DBUILD_TESTING=ON \
    -DBUILD_BENCHMARKS=ON -DBUILD_FUZZERS=ON \
    -DCMAKE_BUILD_TYPE= -DCEF_LIBRARY_DIR="$work/no-cef" -DCMAKE_DISABLE_FIND_PACKAGE_PNG=ON \
    -DCMAKE_DISABLE_FIND_PACKAGE_X11=ON -DCMAKE_DISABLE_FIND_PACKAGE_nlohmann_json=ON
  check_program "$work/from-sources"
  (cd "$work/from-sources" && ctest -N) | grep -qx 'Total Tests: 0' ||
    fail "another project gets the tests of this project"
}

# find_in PREFIX: builds the program with the package in PREFIX.
find_in() {
  local build
  build=$work/with-$(basename "$1")
  configure_and_build "$build" "$program" my_program -DCMAKE_PREFIX_PATH="$1"
  check_program "$build"
}

use_sources

build_release
(cd "$work" && eval "$(document docs/packaging.md 'cmake --install build/release --prefix DIR --component dev')") >/dev/null
[ "$(ls "$work/DIR")" = "$(printf 'include\nlib')" ] ||
  fail "the component contains other files: $(ls "$work/DIR")"
mv "$work/DIR" "$work/installed"

# Unpacks the Debian package to $work/unpacked. If a required program is missing, sets `missing` to
# its name instead.
unpack_package() {
  local deb
  for missing in dpkg-deb file lintian; do
    command -v "$missing" >/dev/null || return 0
  done
  missing=
  (cd "$work" && eval "$(document docs/packaging.md 'cd build/release && cpack --config') -B '$work/packages'") \
    >"$work/cpack.log" 2>&1 || { cat "$work/cpack.log"; return 1; }
  deb=$(echo "$work"/packages/*.deb)
  dpkg-deb --extract "$deb" "$work/unpacked"
  TMPDIR=$work lintian --allow-root --fail-on error,warning "$deb"
}

unpack_package
hide_release
find_in "$work/installed"
[ -z "$missing" ] || { echo "skipped '$missing is missing: run tools/setup maintainer'"; exit 77; }
find_in "$work/unpacked/usr"

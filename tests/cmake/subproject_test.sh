#!/usr/bin/env bash
# Another project can add this one and link its libraries as in README.md. It defines DEBUG, the
# name of a log level, like many projects, and does not build the example browser.
. "$(dirname "$0")/common.sh"

cp -r "$source_dir/tests/cmake/subproject" "$work/project"
ln -s "$source_dir" "$work/project/velmora-cef-helper"
document README.md add_subdirectory >"$work/project/readme.cmake"
configure_and_build "$work/build" "$work/project" my_program -DCMAKE_CXX_FLAGS=-DDEBUG "$quick" \
  -DCEF_LIBRARY_DIR="$cef_library_dir" -DCMAKE_DISABLE_FIND_PACKAGE_PNG=ON
commands=$(ninja -C "$work/build" -t commands my_program | grep -e "/user.cc$" -e "-o my_program ")
[ "$(wc -l <<<"$commands")" -eq 2 ] || fail "expected a compilation and a link: $commands"
for forced in -fstack-protector-strong _FORTIFY_SOURCE -z,now -z,relro; do
  [[ $commands != *"$forced"* ]] || fail "this project forces $forced on others: $commands"
done
"$work/build/my_program" --type=renderer

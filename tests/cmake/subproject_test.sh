#!/usr/bin/env bash
# Another project can add this one and link its libraries.
. "$(dirname "$0")/common.sh"

configure_and_build "$work/build" "$source_dir/tests/cmake/subproject" user \
  -DHELPER_SOURCE_DIR="$source_dir" -DCEF_LIBRARY_DIR="$cef_library_dir"
"$work/build/user" --type=renderer

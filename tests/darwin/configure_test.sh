#!/usr/bin/env bash
# The build as docs/packaging.md shows it for macOS, as far as CMake goes before anything is compiled:
#
#   configure_test.sh SOURCE_DIR TOOLCHAIN
#
# A folder stands in for a CEF binary distribution, which has no resources beside its framework and
# wants a newer system; and a script for otool.
set -euo pipefail

source_dir=$1 toolchain=$2
work=$(mktemp -d "${TMPDIR:-/tmp}/hexhelper-darwin-XXXXXX")
trap 'rm -rf "$work"' EXIT

cef=$work/cef
cp -r "$source_dir/tests/cmake/distribution" "$cef"
cat >"$cef/cmake/FindCEF.cmake" <<'END'
set(CMAKE_OSX_DEPLOYMENT_TARGET 10.9)
set(CEF_LIBCEF_DLL_WRAPPER_PATH "${CEF_ROOT}/libcef_dll")
set(CEF_BINARY_DIR_RELEASE "${CEF_ROOT}/Release")
set(CEF_LIB_RELEASE "${CEF_BINARY_DIR_RELEASE}/Chromium Embedded Framework.framework")
END
mkdir -p "$cef/Release/Chromium Embedded Framework.framework/Resources" "$cef/libcef_dll/src" \
  "$work/bin"
touch "$cef/Release/cef_sandbox.a" "$cef/libcef_dll/src/any.cc"
printf '#!/bin/sh\n' >"$work/bin/otool"
chmod 755 "$work/bin/otool"

fail() {
  echo "$1"
  exit 1
}

# The command of the document, in a tree of its own.
mkdir "$work/tree"
ln -s "$source_dir"/* "$work/tree/"
rm -f "$work/tree/build"
command=$("$source_dir/tests/docs/documents.py" docs/packaging.md 'cmake -G Ninja')
command=${command/DIR/$cef}
cd "$work/tree"
PATH=$work/bin:$PATH bash -c "${command//$'\\\n'/} -DCMAKE_TOOLCHAIN_FILE='$toolchain'" \
  >"$work/configure.log" 2>&1 || { cat "$work/configure.log"; fail "CMake refuses it"; }

ninja -C build -t commands HexHelper >"$work/commands"
! grep -q 'version-min=10.9' "$work/commands" || fail "CEF decides which system is needed"
link=$(tail -n 1 "$work/commands")
for wanted in '-mmacosx-version-min=10.7' '-Wl,-rpath,@executable_path/../CEF' \
  '-framework Foundation' '-framework CoreServices' '-framework SystemConfiguration' \
  '__TEXT -Xlinker __info_plist'; do
  [[ $link == *"$wanted"* ]] || fail "HexHelper is linked without $wanted: $link"
done
[ -L "build/CEF/Chromium Embedded Framework.framework" ] || fail "the build tree has no framework"
[ "$(ls build/CEF)" = "Chromium Embedded Framework.framework" ] || fail "CEF/ has more: $(ls build/CEF)"
grep -q '/CEF" .*/Chromium Embedded Framework.framework"' build/cmake_install.cmake ||
  fail "the framework is not installed"

#!/usr/bin/env bash
# Configures a build against a CEF binary distribution on macOS, without compiling anything:
# configure_test.sh SOURCE_DIR TOOLCHAIN
#
# A folder replaces the distribution; its build rules choose another SDK and a newer system. Scripts
# replace otool and xcode-select.
set -euo pipefail

source_dir=$1 toolchain=$2
work=$(mktemp -d "${TMPDIR:-/tmp}/hexhelper-darwin-XXXXXX")
trap 'rm -rf "$work"' EXIT

fail() {
  echo "$1"
  exit 1
}

framework="Chromium Embedded Framework.framework"
cef=$work/cef
cp -r "$source_dir/tests/cmake/distribution" "$cef"
mkdir -p "$cef/Release/$framework/Resources" "$work/bin" \
  "$work/Xcode/Platforms/MacOSX.platform/Developer/SDKs/MacOSX10.11.sdk" "$work/MacOSX.sdk"
touch "$cef/Release/$framework/Chromium Embedded Framework" "$cef/Release/cef_sandbox.a"
printf '#!/bin/sh\n' >"$work/bin/otool"
printf '#!/bin/sh\necho "%s/Xcode"\n' "$work" >"$work/bin/xcode-select"
chmod 755 "$work/bin"/*
PATH=$work/bin:$PATH

# configure BUILD [CMAKE_ARGUMENTS...]: configures as docs/packaging.md shows it, into
# $work/tree/BUILD. Writes the commands that build HexHelper and the wrapper to $work/commands.
mkdir "$work/tree"
ln -s "$source_dir"/* "$work/tree/"
rm -f "$work/tree/build"
command=$("$source_dir/tests/docs/documents.py" docs/packaging.md 'cmake -G Ninja')
command=${command//$'\\\n'/}
command=${command/DIR/$cef}
cd "$work/tree"
configure() {
  local build=$1
  shift
  bash -c "${command/-B build/-B $build} -DCMAKE_TOOLCHAIN_FILE='$toolchain' $*" \
    >"$work/configure.log" 2>&1 || { cat "$work/configure.log"; fail "CMake refuses it"; }
  ninja -C "$build" -t commands HexHelper >"$work/commands"
}

# each_has PATTERN TEXT...: fails unless each command that matches PATTERN contains each TEXT.
each_has() {
  local pattern=$1 text
  shift
  grep -qE -- "$pattern" "$work/commands" || fail "no command matches $pattern"
  for text in "$@"; do
    ! grep -E -- "$pattern" "$work/commands" | grep -vF -- "$text" || fail "these lack $text"
  done
}

compiles=' -c .*\.(cc|mm)$' wrapper='libcef_dll_wrapper.* -c '

configure build
link=$(grep -- ' -o bin/HexHelper ' "$work/commands")
for wanted in '-mmacosx-version-min=10.7' '-arch x86_64' '-stdlib=libc++' \
  '-Wl,-rpath,@executable_path/../CEF' '-framework Foundation' '-framework CoreServices' \
  '-framework SystemConfiguration' '__TEXT -Xlinker __info_plist' 'framework_path.cmake'; do
  [[ $link == *"$wanted"* ]] || fail "HexHelper is linked without $wanted: $link"
done
each_has "$compiles" -mmacosx-version-min=10.7 '-arch x86_64' -stdlib=libc++ \
  -Wunguarded-availability
each_has "$wrapper" -fno-rtti -Wno-error
! grep -E 'version-min=10\.9|MacOSX10\.11' "$work/commands" || fail "CEF chooses the system"
grep -q '<string>10.7</string>' build/helper/Info.plist || fail "Info.plist has another version"

[ -L "build/CEF/$framework" ] || fail "the build tree has no framework"
[ "$(ls build/CEF)" = "$framework" ] || fail "CEF/ has more: $(ls build/CEF)"
grep -q "/CEF\" .*/$framework\"" build/cmake_install.cmake || fail "the framework is not installed"

# The caller's choice applies to everything.
configure chosen -DCMAKE_OSX_DEPLOYMENT_TARGET=10.8 -DCMAKE_OSX_SYSROOT="$work/MacOSX.sdk"
each_has "$compiles" -mmacosx-version-min=10.8 "-isysroot $work/MacOSX.sdk"
each_has ' -o bin/HexHelper ' -mmacosx-version-min=10.8 "-isysroot $work/MacOSX.sdk"
! grep -E 'version-min=10\.[79]' "$work/commands" || fail "not what the caller chose"
grep -q '<string>10.8</string>' chosen/helper/Info.plist || fail "Info.plist has another version"

MACOSX_DEPLOYMENT_TARGET=10.10 configure environment
each_has "$compiles" -mmacosx-version-min=10.10

# Configures the project as part of another project, which chooses nothing.
mkdir "$work/parent"
cat >"$work/parent/CMakeLists.txt" <<END
cmake_minimum_required(VERSION 3.21)
project(parent LANGUAGES CXX)
add_subdirectory("$work/tree" helper)
END
command="cmake -G Ninja -S $work/parent -B build -DCEF_ROOT=$cef"
configure parent
each_has "$compiles" -mmacosx-version-min=10.7 '-arch x86_64' -stdlib=libc++

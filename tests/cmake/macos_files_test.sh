#!/usr/bin/env bash
# The property lists for macOS are well-formed and contain the settings that the helper requires.
. "$(dirname "$0")/common.sh"

# Fills in the template like the build on macOS.
cat >"$work/fill_in.cmake" <<END
cmake_minimum_required(VERSION 3.21)
file(READ "$source_dir/CMakeLists.txt" text)
string(REGEX MATCH "VERSION ([0-9]+)\\\\.([0-9]+)\\\\.([0-9]+)\\\\.([0-9]+)" found "\${text}")
foreach(part MAJOR MINOR PATCH TWEAK)
  math(EXPR index "\${index} + 1" OUTPUT_FORMAT DECIMAL)
  set(PROJECT_VERSION_\${part} "\${CMAKE_MATCH_\${index}}")
endforeach()
set(CMAKE_OSX_DEPLOYMENT_TARGET 10.7)
configure_file("$source_dir/packaging/macos/Info.plist.in" "$work/Info.plist" @ONLY)
END
cmake -Dindex=0 -P "$work/fill_in.cmake"

python3 - "$work/Info.plist" "$source_dir/packaging/macos/HexHelper.entitlements" <<'END'
import plistlib, re, sys

with open(sys.argv[1], "rb") as file:
    info = plistlib.load(file)
with open(sys.argv[2], "rb") as file:
    entitlements = plistlib.load(file)
assert info["LSUIElement"] is True, info
assert info["CFBundleExecutable"] == "HexHelper", info
assert info["LSMinimumSystemVersion"] == "10.7", info
assert re.fullmatch(r"\d+\.\d+\.\d+", info["CFBundleShortVersionString"]), info
assert re.fullmatch(r"\d+", info["CFBundleVersion"]), info
wanted = {"allow-jit", "allow-unsigned-executable-memory", "disable-library-validation"}
assert entitlements == {"com.apple.security.cs." + name: True for name in wanted}, entitlements
END

#!/usr/bin/env bash
# With CEF_ROOT, the build uses the distribution's headers and wrapper instead of cef_binding/, and
# this project's compiler options instead of the distribution's.
. "$(dirname "$0")/common.sh"

root=$work/distribution
"$source_dir/tests/cmake/make_distribution" "$root" "$cef_library_dir"

# Without the folder cef_binding/, a source that requires it does not compile. The source is copied
# because an installation would follow links to folders and write there.
mkdir "$work/source"
for part in "$source_dir"/*; do
  case $(basename "$part") in
    build | cef_binding) ;;
    *) cp -r "$part" "$work/source/" ;;
  esac
done

configure_and_build "$work/build" "$work/source" "HexHelper suite_host" -DCEF_ROOT="$root" "$quick"
run_page "$work/build/bin/suite_host" "$work/build/bin/HexHelper"

# check_package LISTING: checks that the package contains CEF's license, and that the sandbox's
# program has the set-uid bit.
check_package() {
  grep -q '^-rwsr-xr-x .*/CEF/chrome-sandbox$' <<<"$1" || fail "chrome-sandbox does not have mode 4755: $1"
  grep -q '^-rw-r--r-- .*/CEF/LICENSE.txt$' <<<"$1" || fail "CEF's license is missing: $1"
}

(cd "$work/build" && cpack -G TZST -B "$work/packages") >"$work/cpack.log" 2>&1 ||
  { cat "$work/cpack.log"; fail "cpack failed"; }
check_package "$(cmake -E tar tvf "$work"/packages/*.tar.zst)"
if command -v dpkg-shlibdeps >/dev/null; then
  (cd "$work/build" && cpack -G DEB -B "$work/packages" -D CPACK_DEBIAN_COMPRESSION_TYPE=none) \
    >"$work/cpack.log" 2>&1 || { cat "$work/cpack.log"; fail "cpack failed"; }
  check_package "$(dpkg-deb --contents "$work"/packages/*.deb)"
fi

# compile_command FILE: prints the last command that compiles FILE.
compile_command() {
  ninja -C "$work/build" -t commands HexHelper suite_host | grep -- "-c .*/$1\$" | tail -n 1
}

for file in cefapp/cef_app_handler.cc examples/suite_host/suite_client.cc; do
  command=$(compile_command "$file")
  for foreign in -std=gnu++11 -fno-rtti -fno-exceptions __STDC_CONSTANT_MACROS; do
    [[ $command != *"$foreign"* ]] || fail "the distribution's $foreign reaches $file: $command"
  done
  for own in -Werror -Wpedantic USING_CEF_SHARED "-isystem $root"; do
    [[ $command == *"$own"* ]] || fail "$file is compiled without $own: $command"
  done
done
command=$(compile_command src/cef_app.cc)
for needed in -fno-rtti WRAPPING_CEF_SHARED; do
  [[ $command == *"$needed"* ]] || fail "the wrapper is compiled without $needed: $command"
done

# The wrapper has the project's build type, including an empty one.
cmake "$work/build" -DCMAKE_BUILD_TYPE= >"$work/configure.log" 2>&1 ||
  { cat "$work/configure.log"; fail "CMake refuses an empty build type"; }
command=$(compile_command src/cef_app.cc)
[[ $command != *NDEBUG* ]] || fail "the distribution chooses the wrapper's build type: $command"
cmake "$work/build" -DCMAKE_BUILD_TYPE=Release >"$work/configure.log" 2>&1 ||
  { cat "$work/configure.log"; fail "CMake refuses a second configuration"; }

# From branch 3282 on, a console message has a level. The function is pure virtual here, so that the
# example browser compiles only if it also overrides this form.
python3 - "$root/include/cef_display_handler.h" <<'END'
import pathlib, re, sys

header = pathlib.Path(sys.argv[1])
text, count = re.subn(
    r"virtual bool OnConsoleMessage\(CefRefPtr<CefBrowser> /\*browser\*/,.*?\{.*?\}",
    "virtual bool OnConsoleMessage(CefRefPtr<CefBrowser> browser, cef_log_severity_t level,\n"
    "    const CefString& message, const CefString& source, int line) = 0;",
    header.read_text(), flags=re.DOTALL)
assert count == 1, header
header.write_text(text)
END
for file in console_handler.cc suite_client.cc main.cc; do
  (cd "$work/build" && eval "$(compile_command "examples/suite_host/$file")") ||
    fail "the example browser does not compile with branch 3282"
done

#!/usr/bin/env bash
# Checks the packages that cpack makes: with lintian, their content, and that the demo's page runs
# from each package.
. "$(dirname "$0")/common.sh"
. "$(dirname "$0")/package/demo.sh"

for program in lintian dpkg-shlibdeps file zstd; do
  command -v "$program" >/dev/null ||
    { echo "skipped '$program is missing: run tools/setup maintainer'"; exit 77; }
done

tools=$(cd "$(dirname "$0")" && pwd)/package
pages="HexHelper.1 velmora-logtail.1 velmora-helper-log.5"

give_up() {
  echo "$*"
  exit 1
}

# Makes both packages in $work/packages, as in the document, with a umask that denies other users
# access. gzip is the fastest compression that Debian accepts.
make_packages() {
  local command
  command="$(document docs/packaging.md 'cd build/release && cpack') -B '$work/packages'"
  (umask 077 && cd "$work" && eval "$command -D CPACK_DEBIAN_COMPRESSION_TYPE=gzip" \
    >"$work/cpack.log" 2>&1) || { cat "$work/cpack.log"; return 1; }
  deb=$(echo "$work"/packages/*.deb)
  command=$(document docs/packaging.md 'sudo apt install')
  [ "$(basename "$deb")" = "${command##*/}" ] || give_up "the document shows: $command"
  archive=$(echo "$work"/packages/*.tar.zst)
}

# The tags about hardening are informational.
check_lintian() {
  TMPDIR=$work lintian --allow-root --fail-on error,warning "$deb"
  TMPDIR=$work lintian --allow-root --fail-on info --display-info \
    --tags hardening-no-pie,hardening-no-relro,hardening-no-bindnow,hardening-no-fortify-functions \
    "$deb"
}

# Checks that every user may read each file, and that only its owner may write to it. The owner is
# root in the Debian package, and the user who made it in the archive.
check_modes() {
  local modes='(l.{9}|[-d]rwxr-xr-x|-rw-r--r--)' wrong
  wrong=$(dpkg-deb --contents "$deb" | grep -vE "^$modes root/root " || true)
  wrong+=$(cmake -E tar tvf "$archive" | grep -vE "^$modes " || true)
  [ -z "$wrong" ] || give_up "modes and owners:"$'\n'"$wrong"
}

# check_binaries FOLDER: checks that programs are stripped, with the relative run path, and contain
# no path of the build.
check_binaries() {
  local program
  for program in "$1/HexHelper" "$1/suite_host"; do
    # shellcheck disable=SC2016  # the loader's variable
    [ "$(readelf -d "$program" | sed -n 's/.*R.*PATH.*\[\(.*\)\]$/\1/p')" = '$ORIGIN/../CEF' ] ||
      give_up "$program has another run path"
    ! readelf -S "$program" | grep -qE '\.(symtab|debug_)' || give_up "$program is not stripped"
    ! strings -a "$program" | grep -F -e "$source_dir" -e "$work" -e "$cef_library_dir" ||
      give_up "$program contains paths of the build"
  done
}

# check_layout PREFIX: checks the layout that suites rely on.
check_layout() {
  local name
  for name in icudtl.dat natives_blob.bin snapshot_blob.bin; do
    [ "$(readlink "$1/bin/$name")" = "../CEF/$name" ] || give_up "bin/$name is not a link"
    [ -s "$1/CEF/$name" ] || give_up "CEF/$name is missing"
  done
  for name in libcef.so cef.pak locales/en-US.pak; do
    [ -s "$1/CEF/$name" ] || give_up "CEF/$name is missing"
  done
}

# check_data SHARE: checks the files that other programs read.
check_data() {
  python3 - "$1" <<'END'
import json, pathlib, sys
from xml.dom import minidom

share = pathlib.Path(sys.argv[1])
interface = share / "dbus-1/interfaces/com.velmora.crnc.CRNNotifier.xml"
# This parser does not load the document type from its address.
signals = minidom.parse(str(interface)).getElementsByTagName("signal")
assert {s.getAttribute("name") for s in signals} == {"Refresh", "SendCEFMemoryAnalytics"}, signals
assert "declare" in (share / "doc/velmora-cef-helper/docs/app.d.ts").read_text()
notices = (share / "doc/velmora-cef-helper/copyright").read_text()
for holder in ("Marshall A. Greenblatt", "Niels Lohmann"):
    assert holder in notices, holder
for document in ("README.md", "docs/logging.md", "docs/page-api.md", "docs/packaging.md"):
    assert (share / "doc/velmora-cef-helper" / document).stat().st_size > 0, document
for file in ("velmora-app.js", "velmora-app.mjs", "velmora-app.d.ts", "package.json", "README.md"):
    assert (share / "doc/velmora-cef-helper/page" / file).stat().st_size > 0, file
assert not list(share.rglob("__pycache__"))
END
}

# Checks the manual pages of the Debian package. The archive contains the same pages.
check_pages() {
  local page file text
  for page in $pages; do
    file=$unpacked/usr/share/man/man${page##*.}/$page.gz
    gzip -dc "$file" >"$work/$page"
    mandoc -T lint -W warning "$work/$page" || give_up "$page is not well-formed"
    text=$(mandoc -T utf8 "$work/$page" | sed 's/.\x08//g')
    [[ $text == *"${page%.*} –"* ]] || give_up "$page has no description"
  done
}

check_archive() {
  # An unusual folder, with a space in its name.
  local place="$work/any folder" prefix
  mkdir "$place"
  (cd "$place" && eval "$(document docs/packaging.md 'tar --zstd') '$archive' --no-same-owner")
  prefix=$(echo "$place"/*)
  check_layout "$prefix"
  check_data "$prefix/share"
  python3 -m json.tool "$prefix/share/velmora-cef-helper/velmora_helper_log.json" >/dev/null
  check_binaries "$prefix/bin"
  run_demo_of "$prefix" "$prefix/share/doc/velmora-cef-helper/examples/pages/demo.html" \
    "$work/home-of-archive" "$own_root"
  check_logtail "$prefix/bin/logtail" "$work/home-of-archive"
}

# As root on a system with mount namespaces, installs the package in a temporary root folder. On
# other systems, the package runs from the folder to which it was unpacked.
check_installation() {
  local status=0 root=$unpacked demo
  demo=$(document docs/packaging.md 'xvfb-run -a /usr/lib')
  mkdir "$work/place" "$work/shared"
  cp "$tools"/*.sh "$deb" "$work/shared/"
  "$tools/fresh_root.sh" "$work/place" "$work/shared" "$work/shared/installed_deb.sh" \
    "$work/shared/$(basename "$deb")" "$work/shared/home" "$demo" \
    >"$work/installation.log" 2>&1 || status=$?
  case $status in
    0) return 0 ;;
    77) echo "this system does not allow another root folder: the package is only unpacked" ;;
    *) cat "$work/installation.log"; return 1 ;;
  esac
  run_demo_of "$root/usr/lib/velmora-cef-helper" \
    "$root/usr/share/doc/velmora-cef-helper/examples/pages/demo.html" "$work/home" "$own_root"
  check_logtail "$root/usr/bin/velmora-logtail" "$work/home"
}

build_release
make_packages
unpacked=$work/unpacked
dpkg-deb --extract "$deb" "$unpacked"
check_lintian
check_modes
check_layout "$unpacked/usr/lib/velmora-cef-helper"
check_binaries "$unpacked/usr/lib/velmora-cef-helper/bin"
check_data "$unpacked/usr/share"
check_pages
check_archive
hide_release
check_installation

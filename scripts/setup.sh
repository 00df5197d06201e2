#!/usr/bin/env bash
# Installs the Debian packages of a list, packages.txt when none is named, that are missing. Does nothing when all are
# there.
#
#   setup.sh [LIST]
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)

missing=()
while read -r package; do
    case "$package" in ''|'#'*) continue ;; esac
    if ! dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed'; then
        missing+=("$package")
    fi
done <"${1:-$here/packages.txt}"

if [ ${#missing[@]} -eq 0 ]; then
    exit 0
fi

echo "Installing with apt: ${missing[*]}"
as_root=()
if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || { echo "Please run as root, or install sudo." >&2; exit 1; }
    as_root=(sudo)
fi
"${as_root[@]}" apt-get update -qq
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null

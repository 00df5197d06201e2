#!/usr/bin/env bash
# Builds the packages in a clean Debian root and tries them in another one that has nothing but what they ask for.
# Called by ./package --check: check_packages.sh FOLDER VERSION [--built]. FOLDER: with the source tree qvm7702-VERSION; the
# packages and what the tools say of them go there, too. --built: the packages lie there already. Packages come from where
# this PC has its own from. Needs to be root.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
target=$1 version=$2 built=${3:-}
if [ "$(id -u)" -ne 0 ]; then
    exec sudo "$0" "$@"
fi
roots=$(mktemp -d)
trap 'rm -rf --one-file-system "$roots"' EXIT

say() { printf '\n== %s\n' "$*"; }

make_root() {
    local suite lists=()
    suite=$(. /etc/os-release && echo "$VERSION_CODENAME")
    for list in /etc/apt/sources.list /etc/apt/sources.list.d/*.list /etc/apt/sources.list.d/*.sources; do
        [ ! -s "$list" ] || lists+=("$list")
    done
    mmdebstrap --quiet --variant=apt "$suite" "$roots/clean" "${lists[@]}"
    cp /etc/resolv.conf "$roots/clean/etc/resolv.conf"
    # No service is started in it.
    printf '#!/bin/sh\nexit 101\n' >"$roots/clean/usr/sbin/policy-rc.d"
    chmod +x "$roots/clean/usr/sbin/policy-rc.d"
}

# in_root ROOT SCRIPT: the script, with FOLDER at /packages. What it started and mounted ends with it.
in_root() {
    cp "$here/$2" "$roots/$1/check.sh"
    unshare --mount --pid --fork --kill-child bash -euc '
        mount -t proc proc "$1/proc"
        mount -t tmpfs -o mode=0755 tmpfs "$1/dev"
        for device in "null 3" "zero 5" "full 7" "random 8" "urandom 9"; do
            mknod -m 0666 "$1/dev/${device% *}" c 1 "${device#* }"
        done
        mkdir -m 1777 "$1/dev/shm"
        mkdir "$1/dev/pts"
        mount -t devpts -o newinstance,ptmxmode=0666,mode=0620 devpts "$1/dev/pts"
        ln -s pts/ptmx "$1/dev/ptmx"
        ln -s /proc/self/fd "$1/dev/fd"
        mkdir -p "$1/packages"
        mount --bind "$2" "$1/packages"
        exec chroot "$1" /usr/bin/env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root LC_ALL=C.UTF-8 \
            DEBIAN_FRONTEND=noninteractive VERSION="$3" bash -euo pipefail /check.sh </dev/null' \
        - "$roots/$1" "$target" "$version"
}

say "A clean root"
make_root
cp -a "$roots/clean" "$roots/build"

if [ -z "$built" ]; then
    say "Build"
    in_root build check/build.sh
fi

say "What the tools say"
in_root build check/look.sh

say "Installation, start, a lock, upgrade, purge"
in_root clean check/try.sh
say "The packages are good: $target"

# In a clean root: tries the packages of /packages as a user meets them.
house=/usr/share/qvm7702/demonstration
data=/home/anna/.local/share/qvm7702

fail() { echo "$*" >&2; exit 1; }
as_anna() { su anna -c "export XDG_RUNTIME_DIR=/home/anna QT_QPA_PLATFORM=xcb DISPLAY=:7; cd ~; $1"; }
wait_until() { for _ in $(seq 200); do eval "$1" && return; sleep 0.1; done; fail "never: $1"; }
sums() { (cd "$data" && find DAT HIST -type f -exec sha256sum {} + | sort); }

# Packages as they are, or under the version behind it.
install_packages() {
    apt-get -qq install -y --no-install-recommends "$1"/*.deb >/dev/null
}

start_and_end() {
    as_anna 'qvm7702 & echo $! >program; wait' >/home/anna/program.log 2>&1 &
    wait_until "as_anna 'xdotool search --onlyvisible --name \"^QVM 7702 SOFTWARE SYSTEM\"' >/dev/null 2>&1"
    kill "$(cat /home/anna/program)"
    wait $! || true
}

next_version() {
    mkdir -p /packages/next
    for deb in /packages/*.deb; do
        rm -rf /tmp/deb
        dpkg-deb -R "$deb" /tmp/deb
        sed -i "s/^Version: .*/Version: $VERSION+next/; s/(= $VERSION)/(= $VERSION+next)/" /tmp/deb/DEBIAN/control
        dpkg-deb -b /tmp/deb "/packages/next/$(basename "$deb")" >/dev/null
    done
}

apt-get -qq update
install_packages /packages
for file in qvmctl qvm-simulator qvm7702; do
    command -v "$file" >/dev/null || fail "$file is not there"
done
ls /usr/share/qvm7702/QVM_System_*.pdf >/dev/null || fail 'no manuals'
apt-get -qq install -y --no-install-recommends xvfb xdotool >/dev/null
useradd --create-home anna
Xvfb :7 -screen 0 1280x1024x24 -nolisten tcp >/dev/null 2>&1 &
wait_until '[ -S /tmp/.X11-unix/X7 ]'

echo "the first start makes the user's folder"
start_and_end
[ "$(stat -c '%a %U' "$data")" = '700 anna' ] || fail "$(stat -c '%a %U' "$data")"
[ -d "$data/DAT" ] && [ -d "$data/HIST" ] || fail 'no DAT and HIST'

echo "a lock is programmed"
as_anna "qvmctl import $house/installation.json" >/dev/null
as_anna "qvm-simulator --world $house/world.json --state state.json --link $data/com1 & echo \$! >simulator; wait" \
    >/home/anna/simulator.log 2>&1 &
wait_until "[ -e $data/com1 ]"
as_anna "echo 123456 | qvmctl --port $data/com1 program 3 --history --code-from -" 2>&1 | tail -3
kill "$(cat /home/anna/simulator)"
wait_until "grep -q '\"data_complete\": true' /home/anna/state.json"
ls "$data"/HIST/*.HST >/dev/null || fail 'no history'

echo "an upgrade leaves what is there"
before=$(sums)
next_version
install_packages /packages/next
[ "$(dpkg-query -W -f='${Version}' qvm7702)" = "$VERSION+next" ] || fail 'not upgraded'
[ "$(sums)" = "$before" ] || fail 'the upgrade changed the data'
as_anna 'qvmctl check'
start_and_end

echo "a purge leaves the user's data and nothing else"
before=$(sums)
apt-get -qq purge -y qvm7702 qvmctl qvm-simulator qvm7702-doc >/dev/null
[ "$(sums)" = "$before" ] || fail 'the purge changed the data'
left=$(find /usr /etc /var/lib -path /var/lib/apt -prune -o -name '*qvm7702*' -print -o -name 'qvmctl*' -print -o -name 'qvm-sim*' -print)
[ -z "$left" ] || fail "left behind: $left"

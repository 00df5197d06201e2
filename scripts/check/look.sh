# In a clean root: has the tools look at the packages of /packages.
apt-get -qq update
apt-get -qq install -y --no-install-recommends lintian desktop-file-utils appstream man-db >/dev/null
id looker >/dev/null 2>&1 || useradd --create-home looker
cd /packages
su looker -c 'lintian --info --fail-on error,warning *.changes' | tee lintian.log
for deb in *.deb; do
    dpkg-deb -x "$deb" /tmp/unpacked
done
desktop-file-validate /tmp/unpacked/usr/share/applications/*.desktop
appstreamcli validate --no-net /tmp/unpacked/usr/share/metainfo/*.xml
for page in /tmp/unpacked/usr/share/man/man1/*.gz; do
    warnings=$(man --warnings -l "$page" 2>&1 >/dev/null)
    [ -z "$warnings" ] || { echo "$page: $warnings"; exit 1; }
done

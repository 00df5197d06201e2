# In a clean root: builds the packages of /packages/qvm7702-$VERSION.
apt-get -qq update
apt-get -qq install -y --no-install-recommends build-essential >/dev/null
apt-get -qq build-dep -y --no-install-recommends "/packages/qvm7702-$VERSION" >/dev/null
useradd --create-home builder
chown -R builder: /packages
cd "/packages/qvm7702-$VERSION"
su builder -c 'dpkg-buildpackage --unsigned-source --unsigned-changes --build=binary' >/packages/build.log 2>&1 ||
    { tail -40 /packages/build.log; exit 1; }

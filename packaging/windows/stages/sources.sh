# SPDX-License-Identifier: MIT
# Source packages through a package index of our own: a machine's apt seldom lists sources, and its
# configuration is not ours to change. The index comes from where the machine's binary packages
# come from.
set +x # the archive's address belongs to the machine, not into a log
names=(qtbase-opensource-src qtsvg-opensource-src opencv)

fresh "$cache/apt/parts" "$cache/apt/lists/partial" "$cache/downloads" "$src"
archive=$(apt-get indextargets --format '$(REPO_URI) $(CODENAME)' 'Created-By: Packages' |
    awk '$2 == "bookworm" { print $1; exit }')
[ -n "$archive" ] || die "apt knows no Debian 12 (bookworm) archive"
cat >"$cache/apt/parts/source.sources" <<END
Types: deb-src
URIs: $archive
Suites: bookworm
Components: main
Signed-By: /usr/share/keyrings/debian-archive-keyring.gpg
END
: >"$cache/apt/empty"
sources_apt() {
    apt-get -o Dir::Etc::sourcelist="$cache/apt/empty" -o Dir::Etc::sourceparts="$cache/apt/parts" \
        -o Dir::State::lists="$cache/apt/lists" -o Dir::Cache::pkgcache= -o Dir::Cache::srcpkgcache= \
        -o APT::Sandbox::User=root "$@" 2>&1 | sed 's#[a-z+]*://[^ ]*#(the archive)#g'
}
sources_apt update -qq
(cd "$cache/downloads" && sources_apt source -qq --download-only "${names[@]}")
rm -rf "$cache/apt"

# apt has checked the files against the archive's signed index; the uploader's own signature on the
# .dsc would need one more keyring.
dpkg-source --no-check --no-copy -x "$cache"/downloads/qtbase-*.dsc "$src/qtbase"
dpkg-source --no-check --no-copy -x "$cache"/downloads/qtsvg-*.dsc "$src/qtsvg"
# Of OpenCV the main archive alone: the contributed modules beside it are not used.
mkdir "$src/opencv"
tar -xf "$cache"/downloads/opencv_*.orig.tar.xz -C "$src/opencv" --strip-components=1
tar -xf "$cache"/downloads/opencv_*.debian.tar.xz -C "$src/opencv" debian/copyright

for name in "${names[@]}"; do
    # The packed sources' version goes into the notes beside the program.
    sed -n 's/^Version: //p' "$cache/downloads/$name"_*.dsc | head -n 1 >"$src/$name.version"
    tell "$name $(cat "$src/$name.version")"
done

#!/usr/bin/env bash
# Makes everything that is shipped, from the sources of this folder, in build/package: the Debian
# packages of both widths, kepotl.jar with the libraries of both, what a Maven repository wants with
# it, the programs with their libraries, and the list of components (SBOM).
# The builds of the presets amd64 and i386 must be there. Usage: tools/package.sh
set -euo pipefail
cd "$(dirname "$0")/.."

say() { printf '== %s\n' "$*" >&2; }
fail() { printf 'package: %s\n' "$@" >&2; exit 1; }

version=$(sed -n 's/^project(kepotl VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
[[ $(dpkg-parsechangelog --show-field Version) == "$version" ]] || fail \
  "debian/changelog is not of version $version, which CMakeLists.txt has." "Add its entry."

root=$PWD
out=$root/build/package
work=$out/work
rm -rf "$out"
mkdir -p "$work"
export SOURCE_DATE_EPOCH
SOURCE_DATE_EPOCH=$(dpkg-parsechangelog --show-field Timestamp)
# As in the presets.
export KEPOTL_WERROR=ON

# debian_packages ARCHITECTURE OPTION...: builds in a copy of the sources, so that nothing of the
# working tree is touched, whose path is always the same.
debian_packages() {
  local architecture=$1 source=$work/kepotl
  shift
  say "building the Debian packages for $architecture"
  rm -rf "$source"
  mkdir "$source"
  tar -c --exclude=./build --exclude=./.git . | tar -x -C "$source"
  mkdir "$source/build"
  ln -s "$root/build/i386-tree" "$source/build/"
  (cd "$source" && dpkg-buildpackage --no-sign --build="$1" --host-arch="$architecture" \
    "${@:2}") >"$out/$architecture.log" 2>&1 || {
    tail -n 30 "$out/$architecture.log" >&2
    fail "the packages for $architecture could not be built; the lines above and $out/$architecture.log say why."
  }
}
debian_packages amd64 any,all
# The compiler and the libraries of the 32-bit build come from its tree, not from packages.
debian_packages i386 any --no-check-builddeps
mv "$work"/*.deb "$work"/*.changes "$work"/*.buildinfo "$out/"

say "asking lintian"
lintian --allow-root --fail-on error "$out"/*.changes >&2 ||
  fail "lintian has errors; the lines above name them."

say "making the jars"
jars=build/amd64/java
cmake -DJAR_TOOL="$(command -v jar)" -DOUTPUT="$out/kepotl-$version.jar" \
  -DMANIFEST="$root/$jars/kepotl.manifest" \
  "-DFOLDERS=$root/$jars/kepotl;$root/$jars/packed;$root/build/i386/java/packed" \
  -P java/package_jar.cmake
for kind in sources javadoc; do cp "$jars/kepotl-$kind.jar" "$out/kepotl-$version-$kind.jar"; done
cp "$jars/kepotl.pom" "$out/kepotl-$version.pom"

say "making the archive of the programs"
programs=$work/kepotl-programs-$version
mkdir "$programs"
for program in kepotl-demo outline-editor; do
  cp "$jars/$program.jar" "$programs/"
  cp "$jars/$program.pom" "$out/$program-$version.pom"
  read -ra libraries < <(sed -n 's/^Class-Path: //p' "$jars/$program.manifest")
  (cd "$jars" && cp "${libraries[@]}" "$programs/")
done
cp "$out/kepotl-$version.jar" "$programs/kepotl.jar"
tar --sort=name --mtime="@$SOURCE_DATE_EPOCH" --owner=0 --group=0 --numeric-owner \
  --use-compress-program='gzip -n' -cf "$programs.tar.gz" -C "$work" "kepotl-programs-$version"
mv "$programs.tar.gz" "$out/"

rm -rf "$work"
say "listing the components"
(cd "$out" && "$root/tools/sbom.sh" "$version" -- *.deb *.jar *.tar.gz >"kepotl-$version.spdx.json")
# A list that is no JSON would be noticed by nobody who reads it.
cmake "-DFILE=$out/kepotl-$version.spdx.json" -P tools/check_json.cmake
(cd "$out" && sha256sum -- *.deb *.jar *.tar.gz *.pom *.json >SHA256SUMS)
say "all of it lies in build/package:"
(cd "$out" && ls -sh1 -- *.deb *.jar *.tar.gz *.pom *.json SHA256SUMS)

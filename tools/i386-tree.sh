#!/usr/bin/env bash
# Lays the 32-bit Debian tree that the i386 preset compiles against and runs in: the C library,
# GoogleTest, Google Benchmark, SQLite, PostgreSQL's client library, the libraries of the outline
# command and a Java virtual machine with its window toolkit. The compiler's own headers and
# libraries come with g++-multilib, fonts from the machine.
# Usage: tools/i386-tree.sh TREE
set -euo pipefail

(( $# == 1 )) || { echo "usage: $0 TREE" >&2; exit 2; }
tree=$1

fail() {
  printf 'i386-tree: %s\n' "$@" >&2
  exit 1
}

command -v mmdebstrap >/dev/null || fail "mmdebstrap is missing." "Run './dev setup', which installs it."

# shellcheck source=/dev/null
codename=$(. /etc/os-release && echo "${VERSION_CODENAME:-}")
packages=(
  default-jre-headless libx11-6 libxext6 libxi6 libxrender1 libxtst6
  libc6-dev libstdc++6
  libgtest-dev libgmock-dev libbenchmark-dev libsqlite3-dev libpq-dev
  libcli11-dev libcsv-dev libfmt-dev libutf8proc-dev nlohmann-json3-dev
)
# The leading number counts changes to what this script does with the packages.
recipe="4 $codename ${packages[*]}"
stamp=$tree/.laid-from
is_laid() { [[ -f $stamp && $(<"$stamp") == "$recipe" ]]; }
if is_laid; then exit 0; fi

mkdir -p "$(dirname "$tree")"
exec 9>"$tree.lock"
flock 9
if is_laid; then exit 0; fi  # another run has laid it while this one waited

# The machine's own mirror: it's the one that is known to be reachable from here.
# shellcheck disable=SC2016  # the fields are apt's, not the shell's
mirror=$(apt-get indextargets --format '$(SITE) $(CODENAME) $(COMPONENT) $(CREATED_BY)' |
  awk -v codename="$codename" '$2 == codename && $3 == "main" && $4 == "Packages" { print $1; exit }')
[[ -n $mirror ]] || fail \
  "apt knows no main archive for '$codename', so there is nowhere to get 32-bit packages from." \
  "Add one to /etc/apt/sources.list.d, run 'apt-get update' and try again."

work=$(mktemp -d "$tree.XXXXXX")
trap 'rm -rf "$work"' EXIT
chmod 755 "$work"
log=$tree.log

echo "i386-tree: laying a 32-bit $codename tree into $tree (fetches about 80 MB, takes 250 MB)"
# Proxies, time-outs and the like of this machine hold for the downloads too.
apt-config dump Acquire >"$work/apt.conf"
# The package with the toolkit is unpacked by itself: it depends on GTK and OpenGL, which take some
# hundred megabytes and are only loaded when asked for.
# shellcheck disable=SC2016  # expanded by mmdebstrap's shell
unpack_toolkit='cd "$1"
  export APT_CONFIG="$MMDEBSTRAP_APT_CONFIG"
  apt-get -o APT::Sandbox::User=root download \
    "$(apt-cache depends default-jre | sed -n "s/.*Depends: \\(openjdk-[0-9]*-jre\\)\$/\\1/p")"
  dpkg-deb --extract openjdk-*-jre_*.deb .'
# The 'extract' variant unpacks and runs nothing, so neither root nor a 32-bit kernel is needed.
if ! mmdebstrap --mode=chrootless --variant=extract --architectures=i386 --format=directory \
  --aptopt="$work/apt.conf" --include="$(IFS=,; echo "${packages[*]}")" \
  --extract-hook="$unpack_toolkit" \
  "$codename" "$work/all" "deb $mirror $codename main" >"$log" 2>&1; then
  tail -n 20 "$log" >&2
  fail "the 32-bit packages could not be fetched and unpacked; the lines above and $log say why." \
    "Check the network and 'apt-get update', then run the command again."
fi

# Only what the compiler and the virtual machine read is kept. The emulator looks into the tree
# before the machine for every path, so anything else would hide the machine's own files.
mkdir -p "$work/kept/etc" "$work/kept/usr/share"
mv "$work/all/lib" "$work/kept/"
mv "$work/all/usr/include" "$work/all/usr/lib" "$work/kept/usr/"
mv "$work/all/usr/share/cmake" "$work/kept/usr/share/"  # header-only libraries describe themselves there
mv "$work"/all/etc/java-*-openjdk "$work/kept/etc/"

# An unpacked tree has no root of its own, so absolute links must become relative ones.
while IFS= read -r -d '' link; do
  target=$work/kept$(readlink "$link")
  ln -sfn "$(realpath -ms --relative-to="$(dirname "$link")" "$target")" "$link"
done < <(find "$work/kept" -type l -lname '/*' -print0)

# An empty cache keeps the 32-bit loader from reading the machine's, which names other libraries.
: >"$work/kept/etc/ld.so.cache"

# Emulated programs load the remedy for a fault of the emulator; without one nobody reads this.
gcc -m32 --sysroot="$work/kept" -O2 -Wall -Wextra -Werror -shared -fPIC \
  "$(dirname "$0")/emulated_threads.c" -o "$work/kept/lib/emulated_threads.so" ||
  fail "gcc could not compile tools/emulated_threads.c with -m32; the lines above say why." \
    "Run './dev setup', which installs gcc's 32-bit parts, and try again."
echo /lib/emulated_threads.so >"$work/kept/etc/ld.so.preload"

for library in server/libjvm.so libawt_xawt.so; do
  [[ -e $work/kept/usr/lib/jvm/default-java/lib/$library ]] || fail \
    "the unpacked packages hold no 32-bit Java virtual machine with a window toolkit." \
    "Report this with $log."
done

echo "$recipe" >"$work/kept/.laid-from"
rm -rf "$tree"
mv "$work/kept" "$tree"
echo "i386-tree: done"

# How Debian packages and the data in them get onto the machine.
# Sourced by ./dev; uses its say() and fail().
# shellcheck shell=bash

# install PACKAGE...: installs those that are not there yet.
install() {
  command -v apt-get >/dev/null || fail "this machine has no apt-get." \
    "Run on Debian 12, or install by hand what replaces these packages: $*"
  local missing=() package
  for package; do
    [[ $(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null) == installed ]] ||
      missing+=("$package")
  done
  (( ${#missing[@]} )) || return 0

  local as_root=()
  if (( EUID != 0 )); then
    if ! command -v sudo >/dev/null || ! sudo -n true 2>/dev/null; then
      fail "these packages are missing, and installing them takes root: ${missing[*]}" \
        "Run './dev setup' as root, or with 'sudo', once; after that no command needs it."
    fi
    as_root=(sudo -n)
  fi
  say "installing ${missing[*]}"
  local log=build/apt.log
  mkdir -p build
  # A fresh image has no package lists, an old one stale ones. What it will take is said before it
  # is taken.
  local options=(-o DPkg::Lock::Timeout=600 -o Dpkg::Use-Pty=0 --no-install-recommends)
  "${as_root[@]}" env LC_ALL=C sh -c 'apt-get update && apt-get --assume-no "$@"' \
    sh "${options[@]}" install "${missing[@]}" >"$log" 2>&1 </dev/null || true
  grep -E '^(Need to get|After this)' "$log" >&2 || true
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get "${options[@]}" --yes install "${missing[@]}" >>"$log" 2>&1 </dev/null || {
    tail -n 20 "$log" >&2
    fail "apt-get could not install the packages; the lines above and $log say why." \
      "Put that right (mostly it's the network or apt's sources) and run the command again."
  }
}

# The folder with the country codes and their translations. Minimal images tell dpkg to leave out
# translations; then the package is unpacked once more, beside the build.
iso_codes_folder() {
  if [[ -e /usr/share/locale/fr/LC_MESSAGES/iso_3166-1.mo ]]; then
    echo /usr/share
    return
  fi
  local folder=build/iso-codes
  if [[ ! -e $folder/usr/share/locale/fr/LC_MESSAGES/iso_3166-1.mo ]]; then
    say "this machine leaves out translations; unpacking iso-codes into $folder (3 MB to fetch, 20 MB on disk)"
    local work
    mkdir -p build
    work=$(mktemp -d build/iso-codes.XXXXXX)
    if ! (cd "$work" && apt-get -q -o APT::Sandbox::User=root download iso-codes >&2 &&
      dpkg-deb -x iso-codes_*.deb all); then
      rm -rf "$work"
      fail "the package iso-codes could not be fetched; the lines above say why." \
        "Check the network, run 'apt-get update' as root and try again."
    fi
    rm -rf "$folder"
    mv "$work/all" "$folder"
    rm -rf "$work"
  fi
  echo "$folder/usr/share"
}

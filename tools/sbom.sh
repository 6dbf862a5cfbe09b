#!/usr/bin/env bash
# Writes the list of components (SPDX 2.3, JSON) of what is shipped: the files with their hashes,
# and what of others is in them or needed by them, in the versions of the building machine.
# Usage: tools/sbom.sh VERSION FILE... ; the date is SOURCE_DATE_EPOCH.
set -euo pipefail

(( $# >= 2 )) || { echo "usage: $0 VERSION FILE..." >&2; exit 2; }
version=$1
shift
[[ $1 != -- ]] || shift
created=$(date -u -d "@${SOURCE_DATE_EPOCH:?}" +%Y-%m-%dT%H:%M:%SZ)

packages=()
relations=('{"spdxElementId":"SPDXRef-DOCUMENT","relationshipType":"DESCRIBES","relatedSpdxElement":"SPDXRef-kepotl"}')

# component NAME VERSION SUPPLIER [RELATION]: RELATION says what kepotl has to do with it.
component() {
  packages+=("{\"SPDXID\":\"SPDXRef-$1\",\"name\":\"$1\",\"versionInfo\":\"$2\",\"supplier\":\"$3\",\
\"downloadLocation\":\"NOASSERTION\",\"filesAnalyzed\":false,\"licenseConcluded\":\"NOASSERTION\",\
\"licenseDeclared\":\"NOASSERTION\",\"copyrightText\":\"NOASSERTION\"}")
  [[ -z ${4-} ]] ||
    relations+=("{\"spdxElementId\":\"SPDXRef-kepotl\",\"relationshipType\":\"$4\",\"relatedSpdxElement\":\"SPDXRef-$1\"}")
}

# debian PACKAGE NAME RELATION: a component as Debian has it.
debian() {
  component "$2" "$(dpkg-query -W -f='${Version}' "$1")" "Organization: Debian" "$3"
}

component kepotl "$version" NOASSERTION
# In the libraries of the jar, and in the outline command.
debian libsqlite3-dev sqlite STATIC_LINK
debian libcli11-dev cli11 STATIC_LINK
debian libcsv-dev libcsv STATIC_LINK
debian libfmt-dev fmt STATIC_LINK
debian libutf8proc-dev utf8proc STATIC_LINK
debian nlohmann-json3-dev nlohmann-json STATIC_LINK
# Beside the Java programs.
debian libpicocli-java picocli DEPENDS_ON
debian libgoogle-gson-java gson DEPENDS_ON
debian libmiglayout-java miglayout DEPENDS_ON
debian librsyntaxtextarea-java rsyntaxtextarea DEPENDS_ON
debian libautocomplete-java autocomplete DEPENDS_ON
# On the system; libpq and OpenSSL with stores on a server only.
debian libpq5 libpq DYNAMIC_LINK
debian libssl3 openssl DYNAMIC_LINK
debian libstdc++6 libstdcxx DYNAMIC_LINK
debian libc6 glibc DYNAMIC_LINK

files=()
for file; do
  read -r hash _ < <(sha256sum -- "$file")
  id=SPDXRef-File-$(basename "$file" | tr -c 'A-Za-z0-9.\n' -)
  files+=("{\"SPDXID\":\"$id\",\"fileName\":\"./$(basename "$file")\",\
\"checksums\":[{\"algorithm\":\"SHA256\",\"checksumValue\":\"$hash\"}],\
\"licenseConcluded\":\"NOASSERTION\",\"copyrightText\":\"NOASSERTION\"}")
  relations+=("{\"spdxElementId\":\"SPDXRef-kepotl\",\"relationshipType\":\"CONTAINS\",\"relatedSpdxElement\":\"$id\"}")
done

# The name of a document is its content's.
content=$(printf '%s\n' "${files[@]}" | sha256sum | cut -c1-32)
join() { local IFS=,; printf '%s' "$*"; }
printf '{"spdxVersion":"SPDX-2.3","dataLicense":"CC0-1.0","SPDXID":"SPDXRef-DOCUMENT",'
printf '"name":"kepotl-%s","documentNamespace":"urn:kepotl:%s:%s",' "$version" "$version" "$content"
printf '"creationInfo":{"created":"%s","creators":["Tool: tools/sbom.sh"]},\n' "$created"
printf '"packages":[%s],\n"files":[%s],\n"relationships":[%s]}\n' \
  "$(join "${packages[@]}")" "$(join "${files[@]}")" "$(join "${relations[@]}")"

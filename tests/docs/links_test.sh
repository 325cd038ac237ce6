#!/bin/sh
# Checks the links of all pages: each leads to a file that is there and, with "#name", to a heading in
# it. And each page in docs/ stands in the index, docs/README.md.
# Usage: links_test.sh SOURCE_DIRECTORY
set -eu
export LC_ALL=C
cd "$1"
broken=$(mktemp)
trap 'rm -f "$broken"' EXIT

# The text of a page without its code.
prose() { awk '/^ *```/ { code = !code; next } !code' "$1"; }

# What the headings of a page are called in links.
anchors() {
  prose "$1" | sed -n 's/^##* //p' | tr 'A-Z' 'a-z' | sed 's/[^a-z0-9 _-]//g; s/ /-/g'
}

links() { prose "$1" | grep -oE '\]\([^) ]+\)' | sed 's/^](//; s/)$//' | grep -vE '^(https?|mailto):' || true; }

pages=$(find . -maxdepth 1 -name '*.md' && find docs examples -name '*.md')
for page in $pages; do
  links "$page" | while read -r link; do
    path=${link%%#*}
    target=${path:+${page%/*}/$path}
    target=${target:-$page}
    if [ ! -e "$target" ]; then
      echo "$page: $link: no such file"
    elif [ "$path" != "$link" ] && ! anchors "$target" | grep -qxF "${link#*#}"; then
      echo "$page: $link: no such heading"
    fi
  done
done > "$broken"

# Without the index, some page.
index=docs/README.md
[ -e "$index" ] || index=$pages
for page in docs/*.md; do
  [ "$page" != docs/README.md ] || continue
  for from in $index; do links "$from"; done | sed 's/#.*//; s#^.*/##' | grep -qxF "${page##*/}" ||
    echo "$page: not in the index"
done >> "$broken"

cat "$broken"
[ ! -s "$broken" ] || exit 1
echo "$(echo "$pages" | wc -l) pages, all links lead somewhere"

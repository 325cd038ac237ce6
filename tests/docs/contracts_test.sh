#!/bin/sh
# Checks docs/contracts.md against the code and the tests:
#   - each `Contract: name` in lib/, providers/ and apps/ has its entry on the page;
#   - each entry is named in the code;
#   - each entry names a test, and the tests that it names exist.
# Usage: contracts_test.sh SOURCE_DIRECTORY
set -eu
export LC_ALL=C
cd "$1"
page=docs/contracts.md
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
failed=0

# Prints the lines of a file under a heading, and fails if there are any.
report() {
  [ -s "$2" ] || return 0
  echo "$1:"
  sed 's/^/  /' "$2"
  failed=1
}

# A comment may name several: "Contract: one, another."
grep -rhoE --include='*.h' --include='*.cpp' 'Contract: [a-z0-9-]+(, [a-z0-9-]+)*' lib providers apps |
  sed 's/^Contract: //' | tr -d ' ' | tr ',' '\n' | sort -u > "$scratch/named"
sed -n 's/^### //p' "$page" | sort > "$scratch/entries"
[ -s "$scratch/named" ] && [ -s "$scratch/entries" ]

uniq -d "$scratch/entries" > "$scratch/twice"
comm -23 "$scratch/named" "$scratch/entries" > "$scratch/missing"
comm -13 "$scratch/named" "$scratch/entries" > "$scratch/unnamed"

# What the entries say: a line "entry file test" for each test that one names.
awk '
  /^## / { entry = "" }
  /^### / { entry = $2 }
  /^(Test: |- )`/ {
    count = split($0, part, "`")
    for (i = 4; i < count; i += 2) print entry, part[2], part[i]
  }' "$page" | sort > "$scratch/holds"
cut -d' ' -f1 "$scratch/holds" | sort -u | comm -13 - "$scratch/entries" > "$scratch/untested"

# What there is: a line "file test" for each test. The head of a test may run over two lines.
find tests -name '*_test.cpp' | while read -r file; do
  tr -s '\n ' ' ' < "$file" |
    grep -oE 'TEST(_F|_P)?\([A-Za-z0-9_]+, [A-Za-z0-9_]+\)' |
    sed -E "s/.*\((.*), (.*)\)/${file##*/} \1.\2/" || true
done | sort -u > "$scratch/tests"
cut -d' ' -f2- "$scratch/holds" | sort -u | comm -23 - "$scratch/tests" > "$scratch/gone"

report "Named in the code, without an entry on the page" "$scratch/missing"
report "Entries that no code names" "$scratch/unnamed"
report "Entries that stand twice" "$scratch/twice"
report "Entries without a test" "$scratch/untested"
report "Tests that do not exist" "$scratch/gone"
[ "$failed" -eq 0 ] || exit 1
echo "$(wc -l < "$scratch/entries") contracts, held by $(cut -d' ' -f2- "$scratch/holds" | sort -u | wc -l) tests"

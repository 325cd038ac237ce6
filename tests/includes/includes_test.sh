#!/bin/sh
# Checks who includes whom:
#
#     includes_test.sh SOURCE_DIRECTORY
set -eu
cd "$1"
failed=0

# No file below the directories `$1` may include what matches `$2`, save what matches `$3`.
forbid() {
  # shellcheck disable=SC2086
  found=$(grep -rnE --include='*.h' --include='*.cpp' "^#include \"($2)" $1 | grep -vE "#include \"($3)\"" || true)
  [ -z "$found" ] || { printf 'not to be included from %s:\n%s\n' "$1" "$found"; failed=1; }
}

# The same for headers alone.
forbid_in_headers() {
  # shellcheck disable=SC2086
  found=$(grep -rnE --include='*.h' "^#include \"($2)" $1 | grep -vE "#include \"($3)\"" || true)
  [ -z "$found" ] || { printf 'not to be included from headers of %s:\n%s\n' "$1" "$found"; failed=1; }
}

none='^$'
log='hwxcore/diagnostics/detail/Log\.h'

# The libraries look down only, the programs and providers at what is public.
companions="lib/smbios lib/hwxbase lib/logger lib/hwxidentity"
[ ! -d lib/hwxsys ] || companions="$companions lib/hwxsys"
forbid "$companions" '(hwxcore|hwxkit|hwx)/' "$none"
forbid lib/hwxcore '(hwxkit|hwx)/' "$none"
forbid lib/hwxkit 'hwx/' "$none"
forbid 'apps providers examples' '[a-z]+/(.*/)?detail/' "$none"
forbid lib/hwxkit '[a-z]+/(.*/)?detail/' 'hwxkit/.*'
forbid lib/hwxcore '[a-z]+/(.*/)?detail/' 'hwxcore/.*'

# Inside the core: values, then schema and diagnostics, then the operating system.
forbid lib/hwxcore/value 'hwxcore/(diagnostics|os)/' "$log"
forbid lib/hwxcore/schema 'hwxcore/(diagnostics|os)/' "$log"
forbid_in_headers lib/hwxcore/value 'hwxcore/(schema|diagnostics|os)/' "$none"
forbid_in_headers lib/hwxcore/schema 'hwxcore/(diagnostics|os)/' "$none"
forbid_in_headers lib/hwxcore/diagnostics 'hwxcore/(schema|os)/' "$none"

exit $failed

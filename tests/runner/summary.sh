#!/usr/bin/env bash
# Counts single tests after a run of ctest:
#
#     summary.sh BUILD_DIR
#
# Tells the failed and the skipped tests by name on the standard error stream, and writes how many
# passed, failed and were skipped. Reads BUILD_DIR/report.xml, as `ctest --output-junit` writes it,
# and for the entries that are shares of an executable ("unit_value/0") the reports of run_shard.sh.
set -euo pipefail
build=$1
passed=0 failed=0 skipped=0

[ -s "$build/report.xml" ] || { echo "no report of ctest in $build" >&2 && exit 1; }

count_test() {
  case $1 in
    passed) passed=$((passed + 1)) ;;
    skipped) skipped=$((skipped + 1)) && echo "SKIPPED $2" >&2 ;;
    *) failed=$((failed + 1)) && echo "FAILED $2" >&2 ;;
  esac
}

count_share() {
  local report=$build/reports/${1/\//-} status=$2 outcome test told=""
  if [ -e "$report" ]; then
    while read -r outcome test; do
      count_test "$outcome" "$test"
      [ "$outcome" != failed ] || told=yes
    done <"$report"
  fi
  # Such as a share that took too long, or that could not be started.
  [ -e "$report" ] && { [ "$status" = run ] || [ -n "$told" ]; } || count_test failed "$1"
}

while read -r name status; do
  case $name:$status in
    */*:*) count_share "$name" "$status" ;;
    *:run) count_test passed "$name" ;;
    *:disabled) count_test skipped "$name" ;;
    *) count_test failed "$name" ;;
  esac
done < <(sed -n 's/^[[:space:]]*<testcase name="\([^"]*\)".* status="\([^"]*\)".*/\1 \2/p' "$build/report.xml")
echo "$passed $failed $skipped"

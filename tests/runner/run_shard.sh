#!/usr/bin/env bash
# Runs a share of an executable's tests in one process:
#
#     run_shard.sh PROGRAM INDEX COUNT REPORT
#
# The share is each COUNT-th test from number INDEX on, counted from 0. REPORT says afterwards what
# became of each: lines "passed NAME", "failed NAME" and "skipped NAME: why". A test that ends the
# process has failed, and the tests behind it get a new one.
set -uo pipefail
program=$1 index=$2 count=$3 report=$4
steps=$report.steps

all_tests() {
  "$program" --gtest_list_tests | awk '/^[^ ]/ { suite = $1; next } { print suite $1 }'
}

# A failure that GoogleTest could not tell.
fail() {
  echo "failed $1" >>"$report"
  echo "[  FAILED  ] $1: $2"
}

# Runs the tests $pending, and takes those away of which the outcome is known then.
run_pending() {
  local status=0 failed_before failed_after started
  failed_before=$(grep -c '^failed' "$report")
  : >"$steps"
  HWX_TEST_REPORT=$steps "$program" --gtest_brief=1 --gtest_filter="$(IFS=: && echo "${pending[*]}")" ||
    status=$?
  grep -v '^started' "$steps" >>"$report"
  started=$(tail -n 1 "$steps")
  case $started in
    "started "*) fail "${started#started }" "it ended the process with status $status" ;;
    "") fail "${pending[0]}" "the process ended with status $status before any test" ;;
  esac
  failed_after=$(grep -c '^failed' "$report")
  if [ $status -ne 0 ] && [ "$failed_before" -eq "$failed_after" ]; then
    fail "$(basename "$program")" "status $status, though no test failed"
  fi
  mapfile -t pending < <(printf '%s\n' "${pending[@]}" |
    awk 'FNR == NR { sub(/:$/, "", $2); known[$2]; next } !($0 in known)' "$report" -)
}

mkdir -p "$(dirname "$report")"
: >"$report"
mapfile -t tests < <(all_tests)
pending=()
for ((i = index; i < ${#tests[@]}; i += count)); do
  pending+=("${tests[i]}")
done
[ ${#tests[@]} -gt 0 ] || fail "$(basename "$program")" "it lists no tests"
while [ ${#pending[@]} -gt 0 ]; do
  run_pending
done
rm -f "$steps"
! grep -q '^failed' "$report"

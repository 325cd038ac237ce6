#!/usr/bin/env bash
# What run_shard.sh and summary.sh make of tests of all fates:
#
#     runner_test.sh SUBJECTS LEAKS_FATE
#
# LEAKS_FATE is "failed" where leaks are looked for, else "passed".
set -euo pipefail
subjects=$1 leaks_fate=$2
runner=$(dirname "$0")
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
mkdir "$scratch/reports"

fail() {
  echo "FAILED: $*" >&2
  exit 1
}

expect() {
  diff <(printf '%s\n' "$2") <(printf '%s\n' "$3") || fail "$1"
}

# A share's report, sorted.
share() {
  if "$runner/run_shard.sh" "$subjects" "$1" "$2" "$scratch/reports/subjects-$1" >"$scratch/out-$1" 2>&1; then
    echo "went well"
  fi
  sort "$scratch/reports/subjects-$1"
}

expect "the whole in one share" "$(sort <<EOF
failed Subjects.Fails
failed Subjects.IsKilled
failed Subjects.LeavesAsIfAllWereWell
$leaks_fate Subjects.LeaksUnderAddressSanitizer
passed All/Numbered.PassesBehindThem/0
passed All/Numbered.PassesBehindThem/1
passed Subjects.Passes
skipped Subjects.Skips: SKIPPED: on purpose
EOF
)" "$(share 0 1)"
grep -q "on purpose" "$scratch/out-0" || fail "the failure's text is not shown"
grep -q "FAILED.*Subjects.IsKilled: it ended the process with status 137" "$scratch/out-0" ||
  fail "the end of the process is not shown"

expect "the first of eight shares" "went well
passed Subjects.Passes" "$(share 0 8)"
expect "the last of eight shares" "went well
passed All/Numbered.PassesBehindThem/1" "$(share 7 8)"
expect "the second of two shares" "$(sort <<EOF
failed Subjects.Fails
failed Subjects.IsKilled
$leaks_fate Subjects.LeaksUnderAddressSanitizer
passed All/Numbered.PassesBehindThem/1
EOF
)" "$(share 1 2)"

# Share 0 went well. Share 2 was ended from outside, and share 3 never began.
echo "passed Subjects.Passes" >"$scratch/reports/subjects-2"
cat >"$scratch/report.xml" <<EOF
<testsuite name="x" tests="7" failures="2">
	<testcase name="subjects/0" classname="subjects/0" time="0.1" status="run">
	<testcase name="subjects/1" classname="subjects/1" time="0.1" status="fail">
	<testcase name="subjects/2" classname="subjects/2" time="0.1" status="fail">
	<testcase name="subjects/3" classname="subjects/3" time="0.1" status="run">
	<testcase name="install" classname="install" time="0.1" status="run">
	<testcase name="links" classname="links" time="0.1" status="fail">
	<testcase name="fuzz_smbios" classname="fuzz_smbios" time="0.1" status="notrun">
</testsuite>
EOF
counts=$("$runner/summary.sh" "$scratch" 2>"$scratch/names")
leaks_failed=0
[ "$leaks_fate" = passed ] || leaks_failed=1
expect "the counts" "$((5 - leaks_failed)) $((6 + leaks_failed)) 0" "$counts"
expect "the names" "$(
  echo "FAILED Subjects.Fails"
  echo "FAILED Subjects.IsKilled"
  [ $leaks_failed = 0 ] || echo "FAILED Subjects.LeaksUnderAddressSanitizer"
  printf 'FAILED %s\n' subjects/2 subjects/3 links fuzz_smbios)" "$(cat "$scratch/names")"

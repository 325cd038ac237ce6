# What tests must not leave behind. Sourced by ./test, which runs them by
#
#   run_watched COMMAND [ARGUMENT...]
#
# This gives them a directory of their own for TMPDIR, and afterwards names what they left there and
# elsewhere. It fails if there is anything, and only then. A file that somebody else makes meanwhile in one of
# the places that are watched counts too.

# What is there, one thing a line, sorted. Of /tmp and /var/log only what bears the names of this project,
# since others write there all the time; and not what other runs of the tests have in /tmp.
surroundings() {
  {
    find . \( -path ./build -o -path ./.cache -o -path ./.git \) -prune -o -print
    find "$HOME" /mnt -mindepth 1 -maxdepth 1
    find /tmp -maxdepth 1 \( -name 'hwx*' -o -name capture.log -o -name intr_address.tmp \) ! -name 'hwx-test*'
    find /var/log -path '/var/log/*_Support*'
    awk '{ print "mount at " $5 }' /proc/self/mountinfo
    grep -s . /sys/block/loop*/loop/backing_file | sed 's|^/sys/block/\([^/]*\)/loop/backing_file:|\1 on |'
  } 2>/dev/null | sort || true
}

# Whoever the tests started has inherited their TMPDIR.
processes_of_tests() {
  local process
  grep -lszx "TMPDIR=$test_scratch" /proc/[0-9]*/environ | while IFS=/ read -r _ _ process _; do
    echo "process $process: $({ tr '\0' ' ' <"/proc/$process/cmdline"; } 2>/dev/null)"
  done || true
}

leftovers() {
  find "$test_scratch" -mindepth 1 -printf '%p, of %TT\n'
  comm -13 <(echo "$surroundings") <(surroundings)
  processes_of_tests
}

# What is on its way out gets some seconds to go.
report_leftovers() {
  local left _
  for _ in 1 2 3 4 5; do
    left=$(leftovers)
    [ -n "$left" ] || break
    sleep 1
  done
  if [ -z "$left" ]; then
    echo "The tests left nothing behind."
  else
    sed 's/^/LEFT BEHIND: /' <<<"$left"
  fi
  [ -z "$left" ]
}

run_watched() {
  local status=0
  test_scratch=$(mktemp -d --tmpdir hwx-tests.XXXXXX)
  trap 'rm -rf --one-file-system "$test_scratch"' EXIT
  chmod 1777 "$test_scratch"  # for the users too whom tests become
  surroundings=$(surroundings)
  TMPDIR=$test_scratch "$@" || true
  report_leftovers || status=1
  rm -rf --one-file-system "$test_scratch"
  return $status
}

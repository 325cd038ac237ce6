#!/usr/bin/env bash
# Installs the build, uses it from outside by find_package and by pkg-config, moves the whole prefix,
# and uses it once more. The programs are the examples, one of which is the one in the README, and
# one that uses the core library without the kit.
set -euo pipefail
source_dir=$1 build_dir=$2
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
export HWX_SYSROOT=$scratch/machine
export CMAKE_GENERATOR=Ninja
unset LD_LIBRARY_PATH HWX_BOOST_ASSERT

fail() {
  echo "FAILED: $*" >&2
  exit 1
}

make_machine() {
  mkdir -p "$HWX_SYSROOT/proc/sys/kernel" "$HWX_SYSROOT/etc"
  echo "rack7" >"$HWX_SYSROOT/proc/sys/kernel/hostname"
  printf 'NAME="Example Linux"\nVERSION_ID="12"\n' >"$HWX_SYSROOT/etc/os-release"
}

# What an outsider does with the tree at $1; $2 names the round.
use_tree() {
  local prefix=$1 work=$scratch/$2
  local expected="rack7 runs Example Linux"

  cmake -S "$source_dir/examples/minimal-frontend" -B "$work/frontend" -DCMAKE_PREFIX_PATH="$prefix" >/dev/null
  cmake --build "$work/frontend" >/dev/null
  [ "$("$work/frontend/minimal-frontend")" = "$expected" ] || fail "$2: front end by find_package"

  local libdir
  libdir=$(dirname "$(find "$prefix" -name libhwxcore.so)")
  export PKG_CONFIG_PATH=$libdir/pkgconfig
  # shellcheck disable=SC2046
  g++ -std=c++17 "$source_dir/examples/minimal-frontend/main.cpp" -o "$work/by-pkg-config" \
    $(pkg-config --cflags --libs hwxkit) -Wl,-rpath,"$libdir"
  [ "$("$work/by-pkg-config")" = "$expected" ] || fail "$2: front end by pkg-config"

  expected="$libdir
00FF 5 kHWXStatusNotFound kHWXStatusFail QORSG_ComputerSystem text/11"
  cmake -S "$source_dir/tests/install/consumer" -B "$work/consumer" -DCMAKE_PREFIX_PATH="$prefix" >/dev/null
  cmake --build "$work/consumer" >/dev/null
  [ "$("$work/consumer/consumer")" = "$expected" ] || fail "$2: the core alone by find_package"
  # shellcheck disable=SC2046
  g++ -std=c++17 "$source_dir/tests/install/consumer/main.cpp" -o "$work/consumer-by-pkg-config" \
    $(pkg-config --cflags --libs hwxcore) -Wl,-rpath,"$libdir"
  [ "$("$work/consumer-by-pkg-config")" = "$expected" ] || fail "$2: the core alone by pkg-config"

  cmake -S "$source_dir/examples/minimal-provider" -B "$work/provider" -DCMAKE_PREFIX_PATH="$prefix" >/dev/null
  cmake --build "$work/provider" >/dev/null
  cp "$work/provider/libminimal.nsp.so" "$libdir"
  "$prefix/bin/hwx" providers | grep -q minimal || fail "$2: hwx doesn't see the example provider"
  rm "$libdir/libminimal.nsp.so"

  "$prefix/bin/hwx" providers | grep -q 'container  *loads, registered' || fail "$2: no containers"
  if [ -e "$build_dir/lib/libcurl.so.4" ]; then  # then the installed tree has one too
    { "$prefix/bin/hwx" send "$source_dir/README.md" 127.0.0.1:1 2>&1 || true; } |
      grep -q "nobody answers" || fail "$2: no libcurl"
  fi
  "$prefix/bin/hwx" identity | grep -q "rack7" || fail "$2: installed hwx"
}

make_machine
DESTDIR= cmake --install "$build_dir" --prefix "$scratch/first" >/dev/null
diff <(sed -n '/^```cpp$/,/^```$/p' "$source_dir/README.md" | sed '1d;$d') \
  "$source_dir/examples/minimal-frontend/main.cpp" || fail "README example differs from the built one"
use_tree "$scratch/first" installed
mv "$scratch/first" "$scratch/moved"
use_tree "$scratch/moved" moved
if grep -rIl "$scratch/first" "$scratch/moved"; then fail "the tree holds the path of its first place"; fi

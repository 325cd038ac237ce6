#!/bin/sh
# Compares what a library exports with the list beside this script:
#
#     exports_test.sh LIBRARY LIST
#
# Whoever changes the interface renews the lists, and looks at what has changed in them:
#
#     exports_test.sh --renew BUILD/lib
set -eu
here=$(dirname "$0")

# The names that `$1` defines for others, as people write them. Constructors and destructors stand
# there once, whatever forms of them there are.
exported() {
  nm --dynamic --defined-only --demangle "$1" | cut -d' ' -f3- | sed '
    s/std::__cxx11::basic_string<char, std::char_traits<char>, std::allocator<char> >/std::string/g
    s/\[abi:cxx11\]//g
    s/NQORHWX20:://g
    s/std::map<std::string, TCIMValue, std::less<std::string >, [^()]*TCIMValue> > >/TCIMContext/g
    s/std::vector<\([A-Za-z:]*\(<[A-Za-z:]*>\)\{0,1\}\), std::allocator<\1 *> >/std::vector<\1>/g' |
    LC_ALL=C sort -u
}

if [ "$1" = --renew ]; then
  for list in "$here"/*.list; do
    exported "$2/lib$(basename "$list" .list).so" > "$list"
  done
  exit
fi

if ! exported "$1" | diff -u "$here/$2" -; then
  echo "$1 exports other names than $here/$2 says" >&2
  echo "if it is to, renew the lists: $0 --renew $(dirname "$1")" >&2
  exit 1
fi

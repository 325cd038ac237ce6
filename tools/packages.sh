# The Debian packages that the project needs, and the one function that installs them.
# Sourced by ./run and ./test.

# To build and run the library, the providers and hwx.
run_packages=(
  g++ cmake ninja-build pkg-config
  libboost-dev libboost-thread-dev
  libpugixml-dev zlib1g-dev
  libcli11-dev nlohmann-json3-dev
)

# To build and run the tests, the fuzzers and the benchmarks too.
test_packages=(
  "${run_packages[@]}"
  libgtest-dev libgmock-dev libbenchmark-dev
  libspdlog-dev libpoco-dev libglib2.0-dev
  dmidecode clang-format
  hwinfo dosfstools e2fsprogs fdisk mount
)

# Installs those of the named packages that are missing; quick when none is.
ensure_packages() {
  local missing=() package
  for package in "$@"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return
  echo "Installing ${missing[*]}"
  local root=()
  [ "$(id -u)" -eq 0 ] || root=(sudo)
  "${root[@]}" apt-get update -qq
  "${root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends \
    "${missing[@]}" >/dev/null
}

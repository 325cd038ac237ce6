# The Debian packages that the project needs, and the one function that installs them.
# Sourced by ./run and ./test.

# To build and run the library, the providers and hwx.
run_packages=(
  g++ cmake ninja-build pkg-config
  libboost-dev libboost-thread-dev
  zlib1g-dev
  libcli11-dev nlohmann-json3-dev
  libcurl4  # opened at run time, for file transfer
)

# To build and run the tests, the fuzzers and the benchmarks too.
test_packages=(
  "${run_packages[@]}"
  clang libclang-rt-14-dev  # builds the sanitized tests, in two thirds of the time that g++ takes
  libgtest-dev libgmock-dev libbenchmark-dev
  libspdlog-dev libpoco-dev libglib2.0-dev
  dmidecode lshw clang-format clang-tidy
  libxml2-utils  # checks documents against their definition
  libpugixml-dev  # a peer of the container benchmark
  pure-ftpd openssh-server openssh-sftp-server tinyproxy-bin  # to transfer to and through
  curl
  locales  # to make one in which letters have other cases
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
  install_without_services "${missing[@]}"
}

# The tests start servers of their own: installing the packages must not make services of them.
install_without_services() {
  local policy=/usr/sbin/policy-rc.d made_policy="" status=0
  if [ ! -e $policy ]; then
    made_policy=yes
    printf '#!/bin/sh\nexit 101\n' | "${root[@]}" tee $policy >/dev/null
    "${root[@]}" chmod 755 $policy
  fi
  "${root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends \
    "$@" >/dev/null || status=$?
  [ -z "$made_policy" ] || "${root[@]}" rm -f $policy
  case " $* " in *" pure-ftpd "*) "${root[@]}" update-rc.d pure-ftpd disable >/dev/null 2>&1 || true ;; esac
  case " $* " in *" openssh-server "*) "${root[@]}" update-rc.d ssh disable >/dev/null 2>&1 || true ;; esac
  return $status
}

#!/bin/sh
# Installs the Debian packages the build and the tests need, only those that
# are missing; with --bench also those only the benchmark script needs. The
# programs the library runs under (numpy, Octave, MPI) come without the
# packages they merely recommend.
#   install-deps.sh [--bench]
set -e
packages="cmake ninja-build gcc g++ gfortran libgtest-dev googletest libbenchmark-dev libomp-14-dev
  g++-mingw-w64-x86-64-posix gcc-mingw-w64-x86-64-posix gfortran-mingw-w64-x86-64-posix
  binutils-mingw-w64-x86-64 wine wine64 libblas-test liblapack-test python3 libopenblas0-pthread pkg-config"
clients="python3-numpy octave libscalapack-openmpi-dev libopenmpi-dev openmpi-bin"
[ "${1:-}" = --bench ] && clients="$clients libblis4-openmp python3-matplotlib"

missing_of() {
  for p in "$@"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || echo "$p"
  done
}
missing=$(missing_of $packages)
missing_clients=$(missing_of $clients)
[ -z "$missing$missing_clients" ] && exit 0
echo "installing:" $missing $missing_clients
sudo=""
[ "$(id -u)" -eq 0 ] || sudo="sudo"
$sudo apt-get update -qq
[ -z "$missing" ] || DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq $missing >/dev/null
[ -z "$missing_clients" ] ||
  DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends $missing_clients >/dev/null

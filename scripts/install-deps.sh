#!/bin/sh
# Installs the Debian packages the build, the tests and the benchmarks need,
# only those that are missing.
set -e
packages="cmake ninja-build gcc g++ gfortran libgtest-dev googletest libbenchmark-dev libomp-14-dev
  g++-mingw-w64-x86-64-posix gcc-mingw-w64-x86-64-posix gfortran-mingw-w64-x86-64-posix
  binutils-mingw-w64-x86-64 wine wine64 libblas-test liblapack-test python3 libopenblas0-pthread"
missing=""
for p in $packages; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing="$missing $p"
done
[ -z "$missing" ] && exit 0
echo "installing:$missing"
sudo=""
[ "$(id -u)" -eq 0 ] || sudo="sudo"
$sudo apt-get update -qq
DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq $missing >/dev/null

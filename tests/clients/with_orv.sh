#!/bin/sh
# Runs a program whose BLAS and LAPACK come from the system's libblas.so.3 and
# liblapack.so.3 with the drop-in DROPIN as its BLAS under the reference
# LAPACK (Debian's liblapack3): a private folder of the two names, put first
# in the library search path.
#   with_orv.sh DROPIN WORK program [arguments...]
set -eu
dropin=$1 work=$2
shift 2
lapack=/usr/lib/$(gcc -print-multiarch)/lapack/liblapack.so.3
[ -e "$lapack" ] || { echo "$lapack missing: install the Debian package liblapack3" >&2; exit 1; }
mkdir -p "$work/lib"
ln -sf "$(readlink -f "$dropin")" "$work/lib/libblas.so.3"
ln -sf "$(readlink -f "$lapack")" "$work/lib/liblapack.so.3"
export ORV_EXPECT_BLAS="$(readlink -f "$dropin")" ORV_EXPECT_LAPACK="$(readlink -f "$lapack")"
LD_LIBRARY_PATH="$work/lib${LD_LIBRARY_PATH:+:$LD_LIBRARY_PATH}" exec "$@"

#!/bin/sh
# Runs the distributed example on two processes of this machine (more than
# its cores if need be), the drop-in as their BLAS under the reference LAPACK,
# and checks its residual and that each process, seeing the launcher's count
# of processes per node and no thread count of its own, keeps its BLAS to one
# thread, leaving the cores to the other process.
#   check_mpi.sh WITH_ORV DROPIN WORK EXAMPLE
set -eu
with_orv=$1 dropin=$2 work=$3 example=$4
export OMPI_ALLOW_RUN_AS_ROOT=1 OMPI_ALLOW_RUN_AS_ROOT_CONFIRM=1 OMPI_MCA_rmaps_base_oversubscribe=1
unset ORV_NUM_THREADS OMP_NUM_THREADS ORV_DOMAIN_NUM_THREADS
out=$("$with_orv" "$dropin" "$work" mpirun -np 2 -x LD_LIBRARY_PATH "$example" 600)
echo "$out"
echo "$out" | grep -q '^residual ok$'
[ "$(echo "$out" | grep -c '^process [01]: 1 BLAS threads$')" -eq 2 ] ||
  { echo "expected one BLAS thread in each of the two processes" >&2; exit 1; }

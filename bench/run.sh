#!/usr/bin/env bash
# Builds the benchmark programs (Release) and runs them in the variations the
# performance targets name, then writes one markdown report.
#
#   bench/run.sh [REPORT]        default REPORT: build/bench/results/performance.md
#
# Beside the report: one PNG per routine family (level 1, level 2, level 3 on
# the default path), ORV's rate against n beside OpenBLAS's and BLIS's, drawn
# by bench/plot.py from the runs' JSON (Debian's python3-matplotlib; BLIS is
# Debian's libblis4-openmp, loaded at run time like OpenBLAS; both are
# installed when missing).
#
# Environment: BUILD_DIR (default build/bench), JOBS (default 2),
# MAX_CALL_SECONDS (default 20: a dgemm case predicted to take longer per call
# is skipped and shown as skipped).
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
build=${BUILD_DIR:-$root/build/bench}
jobs=${JOBS:-2}
max_call=${MAX_CALL_SECONDS:-20}
results=$build/results
report=${1:-$results/performance.md}

"$root/scripts/install-deps.sh" --bench
cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release \
  -DORV_BUILD_TESTS=OFF -DORV_BUILD_EXAMPLES=OFF -DORV_BUILD_BENCH=ON >/dev/null
cmake --build "$build" -j "$jobs" --target orv_bench_level1 orv_bench_level2 orv_bench_gemm orv_bench_level3 orvinfo >/dev/null
mkdir -p "$results"
rm -f "$results"/*.md "$results"/*.log

level1=$build/bin/orv_bench_level1
level2=$build/bin/orv_bench_level2
gemm=$build/bin/orv_bench_gemm
level3=$build/bin/orv_bench_level3
orvinfo=$build/bin/orvinfo

# Variables that would change what is measured are cleared; each run sets
# its own.
unset ORV_DEBUG_CPU_TYPE ORV_ENABLE_INSTRUCTIONS ORV_NUM_THREADS ORV_DYNAMIC ORV_CBWR ORV_VERBOSE \
      OMP_NUM_THREADS OPENBLAS_CORETYPE OPENBLAS_NUM_THREADS

sections=()

# run NAME TITLE ENV... -- PROGRAM ARGS...
run() {
  local name=$1 title=$2
  shift 2
  local envs=()
  while [[ $1 != -- ]]; do envs+=("$1"); shift; done
  shift
  local program=$1
  shift
  local path_line
  path_line=$(env "${envs[@]}" "$orvinfo" | sed -n 's/^code path: *//p')
  echo "== $title" >&2
  env "${envs[@]}" "$program" "$@" --summary_out="$results/$name.md" \
    --benchmark_out="$results/$name.json" --benchmark_out_format=json >"$results/$name.log" 2>&1
  {
    echo "### $title"
    echo
    echo "ORV code path (orvinfo): $path_line; $(grep -m1 '^\(OpenBLAS\|BLIS\) from\|not available' "$results/$name.log" || true)"
    echo
    echo '```'
    echo "${envs[*]:+${envs[*]} }bench/$(basename "$program") $*"
    echo '```'
    echo
    grep '^check:' "$results/$name.log" || true
    echo
    cat "$results/$name.md"
    echo
  } >"$results/$name.section"
  sections+=("$results/$name.section")
}

l1_sizes=1000,100000,10000000
l1_opts=(--benchmark_min_time=0.1 --benchmark_repetitions=3)
l2_routines=dgemv_n,dgemv_t,zgemv_n,zgemv_c,dger,zgerc,dsymv,zhemv,dtrmv,dtrsv,ztrmv,ztrsv,dgbmv,dsbmv,dspmv,dtpmv,dtbsv,dsyr2,dsyr,zher,zher2
l2_sizes=500,2000,8000
l2_sizes_threads=4000,8000
# Level-2 rows report the fastest of three repetitions, for both libraries.
l2_opts=(--benchmark_min_time=0.2 --benchmark_repetitions=3)
gemm_sizes=8,16,32,64,128,256,500,1000,2000,4000
gemm_shapes=2000x2000x64,64x2000x2000,2000x64x2000
# dgemm rows report the fastest of three repetitions, for both libraries.
gemm_opts=(--benchmark_min_time=0.2 --benchmark_repetitions=3 --max_call_seconds="$max_call")
small_opts=(--benchmark_min_time=0.05 --benchmark_repetitions=3 --shapes= --max_call_seconds="$max_call")
l3_sizes=8,16,32,64,100,500,1000,2000
# Every level-3 routine, one option set each, dgemm as the yardstick; fastest of three
# repetitions for both libraries.
l3_opts=(--benchmark_min_time=0.2 --benchmark_repetitions=3)

run l1_default "Level 1, default path, 1 thread, OpenBLAS choosing its own kernels" \
  -- "$level1" --sizes=$l1_sizes --threads=1 "${l1_opts[@]}"
run l1_haswell "Level 1, default path, 1 thread, OpenBLAS Haswell kernels" OPENBLAS_CORETYPE=Haswell \
  -- "$level1" --sizes=$l1_sizes --threads=1 "${l1_opts[@]}"
run l1_threads2 "Level 1, default path, 2 threads, OpenBLAS choosing its own kernels" \
  -- "$level1" --sizes=10000000 --threads=2 "${l1_opts[@]}"

run l2_default "Level 2, default path, 1 thread, OpenBLAS choosing its own kernels" \
  -- "$level2" --routines=$l2_routines --sizes=$l2_sizes --incs=1,2 --threads=1 "${l2_opts[@]}"
run l2_threads2 "Level 2, default path, 2 threads, OpenBLAS choosing its own kernels" \
  -- "$level2" --routines=$l2_routines --sizes=$l2_sizes_threads --incs=1 --threads=2 "${l2_opts[@]}"

run gemm_avx2 "DGEMM, default path (avx2), 1 thread, OpenBLAS Haswell" OPENBLAS_CORETYPE=Haswell \
  -- "$gemm" --sizes=$gemm_sizes --shapes=$gemm_shapes --trans=NN,NT,TN,TT "${gemm_opts[@]}"
run gemm_avx2_small "DGEMM small sizes, default path (avx2), 1 thread, OpenBLAS Haswell" OPENBLAS_CORETYPE=Haswell \
  -- "$gemm" --sizes=4-32 --trans=NN,NT,TN,TT "${small_opts[@]}"
run gemm_avx512 "DGEMM, path 7 (avx512), 1 thread, OpenBLAS SkylakeX" \
  ORV_ENABLE_INSTRUCTIONS=AVX512 OPENBLAS_CORETYPE=SkylakeX \
  -- "$gemm" --sizes=$gemm_sizes --shapes=$gemm_shapes --trans=NN,NT,TN,TT "${gemm_opts[@]}"
run gemm_avx512_small "DGEMM small sizes, path 7 (avx512), 1 thread, OpenBLAS SkylakeX" \
  ORV_ENABLE_INSTRUCTIONS=AVX512 OPENBLAS_CORETYPE=SkylakeX \
  -- "$gemm" --sizes=4-32 --trans=NN,NT,TN,TT "${small_opts[@]}"
run level3_avx2 "Level 3, default path (avx2), 1 thread, OpenBLAS Haswell" OPENBLAS_CORETYPE=Haswell \
  -- "$level3" --sizes=$l3_sizes --threads=1 "${l3_opts[@]}"
run level3_avx512 "Level 3, path 7 (avx512), 1 thread, OpenBLAS SkylakeX" \
  ORV_DEBUG_CPU_TYPE=7 ORV_ENABLE_INSTRUCTIONS=AVX512 OPENBLAS_CORETYPE=SkylakeX \
  -- "$level3" --sizes=$l3_sizes --threads=1 "${l3_opts[@]}"
# The same families against BLIS, for the plots.
run l1_blis "Level 1, default path, 1 thread, BLIS" BENCH_COMPARE=blis \
  -- "$level1" --sizes=$l1_sizes --threads=1 "${l1_opts[@]}"
run l2_blis "Level 2, default path, 1 thread, BLIS" BENCH_COMPARE=blis \
  -- "$level2" --routines=$l2_routines --sizes=$l2_sizes --incs=1 --threads=1 "${l2_opts[@]}"
run level3_blis "Level 3, default path (avx2), 1 thread, BLIS" BENCH_COMPARE=blis \
  -- "$level3" --sizes=$l3_sizes --threads=1 "${l3_opts[@]}"
for path in 0 2 3 4 6; do
  run gemm_path$path "DGEMM n = 1000, forced path $path, 1 thread" \
    ORV_DEBUG_CPU_TYPE=$path OPENBLAS_CORETYPE=Haswell \
    -- "$gemm" --sizes=1000 --shapes= --trans=NN "${gemm_opts[@]}"
done

{
  echo "# ORV benchmark results"
  echo
  echo "- date: $(date -u '+%Y-%m-%d %H:%M UTC')"
  echo "- machine: $(sed -n 's/^model name[[:space:]]*: //p' /proc/cpuinfo | head -1), $(nproc) logical processors"
  echo "- load average when the runs ended: $(cut -d' ' -f1-3 /proc/loadavg)"
  if git -C "$root" rev-parse --short HEAD >/dev/null 2>&1; then
    echo "- source: commit $(git -C "$root" rev-parse --short HEAD)$(git -C "$root" status --porcelain | grep -q . && echo ' with uncommitted changes')"
  fi
  echo "- command: bench/run.sh"
  echo
  cat "${sections[@]}"
} >"$report"
rm -f "$results"/*.section

plot() {
  local name=$1 title=$2 openblas=$3 blis=$4
  /usr/bin/python3 "$root/bench/plot.py" "$results/$name.png" "$title" \
    "$results/$openblas.json:OpenBLAS" "$results/$blis.json:BLIS" && echo "plot: $results/$name.png" >&2
}
plot level1 "Level 1, one thread" l1_default l1_blis
plot level2 "Level 2, one thread, unit increments" l2_default l2_blis
plot level3 "Level 3, one thread, default path" level3_avx2 level3_blis
echo "report: $report" >&2

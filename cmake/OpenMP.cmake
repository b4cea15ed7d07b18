# OpenMP is the only threading layer. On Linux the code is compiled with
# GCC's -fopenmp but linked against the LLVM runtime, which provides the same
# entry points and survives fork(). On Windows GCC's runtime is linked in
# statically with the rest of the compiler runtimes.
add_library(orv_openmp INTERFACE)
target_compile_options(orv_openmp INTERFACE $<$<COMPILE_LANGUAGE:CXX>:-fopenmp>)
if(WIN32)
  target_link_options(orv_openmp INTERFACE -fopenmp)
else()
  find_library(ORV_LLVM_OMP NAMES omp PATHS /usr/lib/llvm-14/lib NO_DEFAULT_PATH)
  if(NOT ORV_LLVM_OMP)
    message(FATAL_ERROR "LLVM OpenMP runtime not found (Debian package libomp-14-dev)")
  endif()
  target_link_libraries(orv_openmp INTERFACE ${ORV_LLVM_OMP})
  get_filename_component(ORV_LLVM_OMP_DIR ${ORV_LLVM_OMP} DIRECTORY)
  target_link_options(orv_openmp INTERFACE -Wl,-rpath,${ORV_LLVM_OMP_DIR})
endif()

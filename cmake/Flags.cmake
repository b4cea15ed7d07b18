# Generic code is compiled for the x86-64 baseline; a code path's kernels add
# their own instruction-set flags per source file. Fused multiply-adds appear
# only where the code writes them, because rounding points are part of the
# results' contract.
set(ORV_BASELINE_FLAGS -march=x86-64 -mtune=generic -ffp-contract=off)
set(ORV_LIBRARY_FLAGS ${ORV_BASELINE_FLAGS}
  -fno-exceptions -fno-rtti
  -fvisibility=hidden -fvisibility-inlines-hidden
  -Wall -Wextra -Wno-unused-parameter)
if(CMAKE_BUILD_TYPE STREQUAL "Release")
  list(APPEND ORV_LIBRARY_FLAGS -O2)
endif()

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

# Checking builds (scripts/sanitize.sh): every target compiled and linked
# with the named sanitizers, for instance "address,undefined". A finding
# stops the program. The alignment check is left out: the routines take
# arrays of doubles at any byte address, as callers may hand them (the tests
# pass arrays 4 bytes off), and read them with loads that x86-64 allows.
set(ORV_SANITIZE "" CACHE STRING "Sanitizers for a checking build (-fsanitize=...), empty for none")
if(ORV_SANITIZE)
  add_compile_options(-fsanitize=${ORV_SANITIZE} -fno-sanitize=alignment -fno-sanitize-recover=all
    -fno-omit-frame-pointer -g)
  add_link_options(-fsanitize=${ORV_SANITIZE})
endif()

# Instruction-set flags of each code path. A source file under a folder named
# after a path (level1/kernels/avx2/, level3/kernels/avx512/, ...) is compiled
# with that path's flags and must keep everything it defines in the path's
# own namespace (orv::avx2, ...); a test checks the objects' symbols.
# The baseline path needs nothing beyond the baseline flags.
set(ORV_PATH_FLAGS_def "")
set(ORV_PATH_FLAGS_mc -mssse3)
set(ORV_PATH_FLAGS_mc3 -msse4.2 -mpopcnt)
set(ORV_PATH_FLAGS_avx -mavx)
set(ORV_PATH_FLAGS_avx2 -mavx2 -mfma -mbmi -mbmi2 -mlzcnt -mf16c)
# The many-core processors' AVX-512: foundation and conflict detection only.
set(ORV_PATH_FLAGS_avx512_qix -mavx2 -mfma -mavx512f -mavx512cd)
set(ORV_PATH_FLAGS_avx512 -mavx2 -mfma -mavx512f -mavx512cd -mavx512dq -mavx512bw -mavx512vl)
set(ORV_CODE_PATH_NAMES def mc mc3 avx avx2 avx512_qix avx512)

function(orv_apply_path_flags sources)
  foreach(source IN LISTS sources)
    if(source MATCHES "/kernels/(def|mc|mc3|avx|avx2|avx512_qix|avx512)/[^/]+\\.cpp$")
      set_source_files_properties(${source} PROPERTIES COMPILE_OPTIONS "${ORV_PATH_FLAGS_${CMAKE_MATCH_1}}")
    endif()
  endforeach()
endfunction()

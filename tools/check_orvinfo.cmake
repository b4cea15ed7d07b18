# Runs PROGRAM (through EMULATOR when cross-compiled) with the library's
# variables cleared and ENV (NAME=VALUE list) applied; fails unless it exits
# with STATUS and its output matches every regular expression in EXPECT.
# With PATH_FOR_CAP ("none" or "AVX512") the "code path" line must also name
# the path that the feature word and the vendor answer orvinfo printed select
# under that cap, so the check holds on any processor.
set(clear)
foreach(var ORV_VERBOSE ORV_DEBUG_CPU_TYPE ORV_ENABLE_INSTRUCTIONS ORV_CBWR ORV_NUM_THREADS
            ORV_DOMAIN_NUM_THREADS ORV_DYNAMIC OMP_NUM_THREADS ORV_DISABLE_FAST_MM ORV_FAST_MEMORY_LIMIT
            ORV_MPI_PPN CX_MPI_NUMBER_OF_MPI_PROCESSES_PER_NODE CX_MPI_PIN_MAPPING
            OMPI_COMM_WORLD_LOCAL_SIZE MPI_LOCALNRANKS CX_MPI_THREAD_LEVEL)
  list(APPEND clear --unset=${var})
endforeach()

execute_process(COMMAND ${CMAKE_COMMAND} -E env ${clear} ${ENV} ${EMULATOR} ${PROGRAM}
  RESULT_VARIABLE status OUTPUT_VARIABLE out ERROR_VARIABLE err)
# Windows programs end their lines with CR LF.
string(REPLACE "\r" "" out "${out}")

set(problems)
if(NOT status STREQUAL STATUS)
  list(APPEND problems "exit status ${status}, expected ${STATUS}")
endif()
foreach(pattern IN LISTS EXPECT)
  if(NOT out MATCHES "${pattern}")
    list(APPEND problems "no match for: ${pattern}")
  endif()
endforeach()
# The feature selection: the baseline for another vendor; otherwise the
# widest path whose feature group is complete (the server AVX-512 path only
# under the AVX512 cap).
function(selected_path word vendor cap out)
  set(path 0)
  # A group is complete when every bit of its mask is set.
  foreach(group avx:0x10000 avx2:0x9C2000 qix:0x708000000 server:0x6009000000 sse42:0x400 ssse3:0x100)
    string(REPLACE ":" ";" group ${group})
    list(GET group 0 name)
    list(GET group 1 mask)
    math(EXPR have "${word} & ${mask}")
    math(EXPR mask "${mask}")
    if(have EQUAL mask)
      set(${name} TRUE)
    else()
      set(${name} FALSE)
    endif()
  endforeach()
  if(NOT vendor STREQUAL "yes")
    set(path 0)
  elseif(avx AND avx2 AND server AND cap STREQUAL "AVX512")
    set(path 7)
  elseif(avx AND avx2 AND qix)
    set(path 6)
  elseif(avx AND avx2)
    set(path 5)
  elseif(avx)
    set(path 4)
  elseif(sse42)
    set(path 3)
  elseif(ssse3)
    set(path 2)
  endif()
  set(${out} ${path} PARENT_SCOPE)
endfunction()

if(PATH_FOR_CAP)
  if(out MATCHES "\nfeature word: +(0x[0-9a-f]+)\n" AND out MATCHES "\nreference vendor: +([a-z]+)\n")
    string(REGEX MATCH "\nfeature word: +(0x[0-9a-f]+)\n" ignored "${out}")
    set(word ${CMAKE_MATCH_1})
    string(REGEX MATCH "\nreference vendor: +([a-z]+)\n" ignored "${out}")
    selected_path(${word} ${CMAKE_MATCH_1} ${PATH_FOR_CAP} path)
    if(NOT out MATCHES "\ncode path: +${path} \\(")
      list(APPEND problems "code path is not ${path}, which feature word ${word} selects")
    endif()
  else()
    list(APPEND problems "no feature word or vendor line")
  endif()
endif()

if(problems)
  list(JOIN problems "\n  " text)
  message(FATAL_ERROR "orvinfo with ${ENV}:\n  ${text}\n--- output:\n${out}--- errors:\n${err}")
endif()

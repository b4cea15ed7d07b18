# Runs PROGRAM (through EMULATOR when cross-compiled) with the library's
# variables cleared and ENV (NAME=VALUE list) applied; fails unless it exits
# with STATUS and its output matches every regular expression in EXPECT.
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
if(problems)
  list(JOIN problems "\n  " text)
  message(FATAL_ERROR "orvinfo with ${ENV}:\n  ${text}\n--- output:\n${out}--- errors:\n${err}")
endif()

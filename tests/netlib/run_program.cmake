# Runs one reference test program against the library and fails on any
# failure report, on a missing pass report, or on a program that did not run.
#   PROGRAM  the test program        INPUT    its input file (level 2 and 3)
#   SUMMARY  the summary file name   LIBDIR   folder holding libblas.so.3
#   PRELOAD  bridge library          WORKDIR  scratch folder
file(REMOVE_RECURSE ${WORKDIR})
file(MAKE_DIRECTORY ${WORKDIR})

set(stdin_args "")
if(INPUT)
  # The error-exit checks call a handler the test program defines itself;
  # the library reports through its own, so they are switched off here.
  file(READ ${INPUT} text)
  string(REGEX REPLACE "\nT( +LOGICAL FLAG, T TO TEST ERROR EXITS)" "\nF\\1" text "${text}")
  file(WRITE ${WORKDIR}/input.in "${text}")
  set(stdin_args INPUT_FILE ${WORKDIR}/input.in)
endif()

execute_process(
  COMMAND ${CMAKE_COMMAND} -E env LD_LIBRARY_PATH=${LIBDIR} LD_PRELOAD=${PRELOAD} ${PROGRAM}
  ${stdin_args}
  WORKING_DIRECTORY ${WORKDIR}
  OUTPUT_VARIABLE out ERROR_VARIABLE err RESULT_VARIABLE rc)
if(SUMMARY AND EXISTS ${WORKDIR}/${SUMMARY})
  file(READ ${WORKDIR}/${SUMMARY} summary)
  string(APPEND out "${summary}")
endif()
message("${out}${err}")

if(NOT rc EQUAL 0)
  message(FATAL_ERROR "${PROGRAM} ended with status ${rc}")
endif()
if(out MATCHES "FAIL")
  message(FATAL_ERROR "${PROGRAM} reported a failure")
endif()
if(INPUT)
  # One "PASSED THE COMPUTATIONAL TESTS" per routine switched on in the input.
  string(REGEX MATCHALL "\n[A-Z0-9]+ +T PUT F FOR NO TEST" wanted "${text}")
  string(REGEX MATCHALL "PASSED THE COMPUTATIONAL TESTS" passed "${out}")
else()
  string(REGEX MATCHALL "Test of subprogram number" wanted "${out}")
  string(REGEX MATCHALL "----- PASS -----" passed "${out}")
endif()
list(LENGTH wanted n_wanted)
list(LENGTH passed n_passed)
if(n_wanted EQUAL 0 OR NOT n_passed EQUAL n_wanted)
  message(FATAL_ERROR "${PROGRAM}: ${n_passed} of ${n_wanted} routines passed")
endif()

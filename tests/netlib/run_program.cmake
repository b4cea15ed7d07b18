# Runs one reference test program against the drop-in library and fails
# unless the loader took our library and every routine passed: for levels 2
# and 3, the error exits and the computational tests of every routine the
# input switches on; for level 1, every subprogram.
#   PROGRAM  the test program     INPUT    its input file (levels 2 and 3)
#   LIBRARY  our libblas.so.3     WORKDIR  scratch folder
file(REMOVE_RECURSE ${WORKDIR})
file(MAKE_DIRECTORY ${WORKDIR})

set(stdin_args "")
if(INPUT)
  file(READ ${INPUT} text)
  if(NOT text MATCHES "\nT +LOGICAL FLAG, T TO TEST ERROR EXITS")
    message(FATAL_ERROR "${INPUT} does not ask for the error exits")
  endif()
  set(stdin_args INPUT_FILE ${INPUT})
endif()

# The system's libblas.so.3 may be another library: the loader's own log
# names the file it initialised.
get_filename_component(libdir ${LIBRARY} DIRECTORY)
execute_process(
  COMMAND ${CMAKE_COMMAND} -E env LD_LIBRARY_PATH=${libdir} LD_DEBUG=libs ${PROGRAM}
  ${stdin_args}
  WORKING_DIRECTORY ${WORKDIR}
  OUTPUT_VARIABLE out ERROR_VARIABLE err RESULT_VARIABLE rc)
# The summary goes to standard output (unit 6) or, with another unit in the
# input, to the file the input names.
if(INPUT AND text MATCHES "^'([^']+)'" AND EXISTS ${WORKDIR}/${CMAKE_MATCH_1})
  file(READ ${WORKDIR}/${CMAKE_MATCH_1} summary)
  string(APPEND out "${summary}")
endif()
string(REGEX REPLACE "(^|\n) *[0-9]+:[^\n]*" "" shown_err "${err}")
message("${out}${shown_err}")

if(NOT err MATCHES "calling init: ([^\n]*/libblas\\.so\\.3)\n")
  message(FATAL_ERROR "${PROGRAM} loaded no libblas.so.3")
endif()
file(REAL_PATH "${CMAKE_MATCH_1}" loaded)
file(REAL_PATH "${LIBRARY}" ours)
if(NOT loaded STREQUAL ours)
  message(FATAL_ERROR "${PROGRAM} loaded ${loaded}, not ${ours}")
endif()

if(NOT rc EQUAL 0)
  message(FATAL_ERROR "${PROGRAM} ended with status ${rc}")
endif()
if(out MATCHES "FAIL")
  message(FATAL_ERROR "${PROGRAM} reported a failure")
endif()
if(INPUT)
  string(REGEX MATCHALL "\n[A-Z0-9]+ +T PUT F FOR NO TEST" wanted "${text}")
  if(NOT wanted)
    message(FATAL_ERROR "${INPUT} switches no routine on")
  endif()
  foreach(line IN LISTS wanted)
    string(REGEX MATCH "[A-Z0-9]+" routine "${line}")
    foreach(report "TESTS OF ERROR-EXITS" "COMPUTATIONAL TESTS")
      if(NOT out MATCHES " ${routine} +PASSED THE ${report}")
        message(FATAL_ERROR "${routine} did not pass the ${report}")
      endif()
    endforeach()
  endforeach()
else()
  string(REGEX MATCHALL "Test of subprogram number" wanted "${out}")
  string(REGEX MATCHALL "----- PASS -----" passed "${out}")
  list(LENGTH wanted n_wanted)
  list(LENGTH passed n_passed)
  if(n_wanted EQUAL 0 OR NOT n_passed EQUAL n_wanted)
    message(FATAL_ERROR "${PROGRAM}: ${n_passed} of ${n_wanted} subprograms passed")
  endif()
endif()

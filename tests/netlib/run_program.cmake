# Runs one reference test program of Debian's libblas-test (the Fortran
# programs xblat* and the C-interface programs x?cblat*) against the drop-in
# library with its input unchanged (error-exit checks on; for the C programs
# both layouts) and fails unless the loader took our library and every
# routine the input switches on passed its error exits and its computations;
# at level 1, every subprogram.
#   PROGRAM  the test program     INPUT    its input file (levels 2 and 3)
#   LIBRARY  our libblas.so.3     WORKDIR  scratch folder
#   PROBE    tells whether a forced code path runs on this processor
file(REMOVE_RECURSE ${WORKDIR})
file(MAKE_DIRECTORY ${WORKDIR})

execute_process(COMMAND ${PROBE} OUTPUT_VARIABLE probe)
if(probe MATCHES "ORV_SKIP:")
  message("${probe}")
  return()
endif()

get_filename_component(name ${PROGRAM} NAME)
set(c_interface FALSE)
if(name MATCHES "cblat")
  set(c_interface TRUE)
endif()

set(stdin_args "")
if(INPUT)
  file(READ ${INPUT} text)
  if(NOT text MATCHES "\nT +LOGICAL FLAG, T TO TEST ERROR EXITS")
    message(FATAL_ERROR "${INPUT} does not ask for the error exits")
  endif()
  if(c_interface AND NOT text MATCHES "\n2 +(0 TO TEST COLUMN-MAJOR|LOGICAL FLAG, T TO TEST ROW-MAJOR)")
    message(FATAL_ERROR "${INPUT} does not ask for both layouts")
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
# The Fortran programs write their summary to standard output (unit 6) or,
# with another unit in the input, to the file the input names.
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
if(out MATCHES "FAIL|XERBLA WAS CALLED|NOT DETECTED")
  message(FATAL_ERROR "${PROGRAM} reported a failure")
endif()

if(NOT INPUT)
  string(REGEX MATCHALL "Test of subprogram number" wanted "${out}")
  string(REGEX MATCHALL "----- PASS -----" passed "${out}")
  list(LENGTH wanted n_wanted)
  list(LENGTH passed n_passed)
  if(n_wanted EQUAL 0 OR NOT n_passed EQUAL n_wanted)
    message(FATAL_ERROR "${PROGRAM}: ${n_passed} of ${n_wanted} subprograms passed")
  endif()
  return()
endif()

string(REGEX MATCHALL "\n(cblas_[a-z0-9]+|[A-Z0-9]+) +T PUT F FOR NO TEST" wanted "${text}")
if(NOT wanted)
  message(FATAL_ERROR "${INPUT} switches no routine on")
endif()
if(c_interface)
  # One error-exit report per routine (the conjugated rank-1 update reports
  # under the name of the unconjugated one), and one computational report
  # per layout; some programs name the layout in it.
  string(REGEX MATCHALL "PASSED THE TESTS OF ERROR-EXITS" exits "${out}")
  list(LENGTH wanted n_wanted)
  list(LENGTH exits n_exits)
  if(NOT n_exits EQUAL n_wanted)
    message(FATAL_ERROR "${n_exits} of ${n_wanted} routines passed the tests of their error exits")
  endif()
endif()
foreach(line IN LISTS wanted)
  string(REGEX MATCH "(cblas_[a-z0-9]+|[A-Z0-9]+)" routine "${line}")
  if(c_interface)
    string(REGEX MATCHALL " ${routine} +PASSED THE ([A-Z-]+ +)?COMPUTATIONAL TESTS" computed "${out}")
    list(LENGTH computed n_computed)
    if(NOT n_computed EQUAL 2)
      message(FATAL_ERROR "${routine} passed the computational tests of ${n_computed} of 2 layouts")
    endif()
  else()
    foreach(report "TESTS OF ERROR-EXITS" "COMPUTATIONAL TESTS")
      if(NOT out MATCHES " ${routine} +PASSED THE ${report}")
        message(FATAL_ERROR "${routine} did not pass the ${report}")
      endif()
    endforeach()
  endif()
endforeach()

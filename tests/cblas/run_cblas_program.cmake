# Runs one reference C-interface test program against the drop-in library
# with its input unchanged (error-exit checks on, both layouts) and fails
# unless the loader took our library and every routine the input switches on
# passed its error exits and its computations in both layouts.
#   PROGRAM  the test program     INPUT    its input file (level 2 and 3)
#   LIBRARY  our libblas.so.3     WORKDIR  scratch folder
file(REMOVE_RECURSE ${WORKDIR})
file(MAKE_DIRECTORY ${WORKDIR})

set(stdin_args "")
if(INPUT)
  file(READ ${INPUT} text)
  if(NOT text MATCHES "\nT +LOGICAL FLAG, T TO TEST ERROR EXITS"
     OR NOT text MATCHES "\n2 +(0 TO TEST COLUMN-MAJOR|LOGICAL FLAG, T TO TEST ROW-MAJOR)")
    message(FATAL_ERROR "${INPUT} does not ask for the error exits and both layouts")
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
string(REGEX REPLACE "[^\n]*calling init: [^\n]*\n" "" shown_err "${err}")
string(REGEX REPLACE "(^|\n) *[0-9]+:[^\n]*" "" shown_err "${shown_err}")
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
if(INPUT)
  string(REGEX MATCHALL "\ncblas_[a-z0-9]+ +T PUT F FOR NO TEST" wanted "${text}")
  if(NOT wanted)
    message(FATAL_ERROR "${INPUT} switches no routine on")
  endif()
  # One error-exit report per routine (the conjugated rank-1 update reports
  # under the name of the unconjugated one).
  string(REGEX MATCHALL "PASSED THE TESTS OF ERROR-EXITS" exits "${out}")
  list(LENGTH wanted n_wanted)
  list(LENGTH exits n_exits)
  if(NOT n_exits EQUAL n_wanted)
    message(FATAL_ERROR "${n_exits} of ${n_wanted} routines passed the tests of their error exits")
  endif()
  foreach(line IN LISTS wanted)
    string(REGEX MATCH "cblas_[a-z0-9]+" routine "${line}")
    # One report per layout; some programs name the layout in it.
    string(REGEX MATCHALL " ${routine} +PASSED THE ([A-Z-]+ +)?COMPUTATIONAL TESTS" computed "${out}")
    list(LENGTH computed n_computed)
    if(NOT n_computed EQUAL 2)
      message(FATAL_ERROR "${routine} passed the computational tests of ${n_computed} of 2 layouts")
    endif()
  endforeach()
else()
  string(REGEX MATCHALL "Test of subprogram number" wanted "${out}")
  string(REGEX MATCHALL "----- PASS -----" passed "${out}")
  list(LENGTH wanted n_wanted)
  list(LENGTH passed n_passed)
  if(n_wanted EQUAL 0 OR NOT n_passed EQUAL n_wanted)
    message(FATAL_ERROR "${PROGRAM}: ${n_passed} of ${n_wanted} routines passed")
  endif()
endif()

# Checks the objects compiled with a code path's instruction-set flags beyond
# the baseline (the def path has none, so it is not checked): every
# symbol they define for the linker must lie in that path's own namespace.
# A weak definition outside it (an inline helper, a template instantiated from
# a shared header or from the standard library) could be merged by the linker
# into baseline code, which would then fail on processors without the path's
# instructions.
#   OBJECTS  the library's object files, separated by "|"    NM  the nm program
string(REPLACE "|" ";" objects "${OBJECTS}")
set(checked 0)
set(problems "")
foreach(object IN LISTS objects)
  if(NOT object MATCHES "/kernels/(mc|mc3|avx|avx2|avx512_qix|avx512)/[^/]+$")
    continue()
  endif()
  set(path ${CMAKE_MATCH_1})
  string(LENGTH ${path} length)
  # Itanium mangling of names in orv::<path>: _ZN3orv<length><path>...
  set(prefix "_ZN3orv${length}${path}")
  execute_process(COMMAND ${NM} --defined-only --extern-only ${object} OUTPUT_VARIABLE dump RESULT_VARIABLE rc)
  if(NOT rc EQUAL 0)
    message(FATAL_ERROR "${NM} failed on ${object}")
  endif()
  string(REGEX MATCHALL "[^\n]+" lines "${dump}")
  foreach(line IN LISTS lines)
    if(NOT line MATCHES "^[0-9a-fA-F]+ ([A-Za-z]) (.+)$")
      continue()
    endif()
    set(name ${CMAKE_MATCH_2})
    # PE objects put a leading underscore only on 32-bit targets; none here.
    string(FIND "${name}" "${prefix}" at)
    if(NOT at EQUAL 0)
      list(APPEND problems "${object}: ${name}")
    endif()
  endforeach()
  math(EXPR checked "${checked} + 1")
endforeach()
if(checked EQUAL 0)
  message(STATUS "no code-path objects beyond the baseline yet")
endif()
if(problems)
  list(JOIN problems "\n  " text)
  message(FATAL_ERROR "symbols outside their code path's namespace:\n  ${text}")
endif()
message(STATUS "${checked} code-path objects define symbols only in their own namespace")

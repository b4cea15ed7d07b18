# A shared library exports exactly its list of names: a linker version script
# (ELF) or a module-definition file (PE) keeps everything else, including the
# statically linked compiler runtimes, out of the export table.
#
# liborv.so and orv.dll export the functions declared in include/orv.h; the
# names are read from the header. The drop-in libblas.so.3 exports the names
# listed in interface/dropin/exports.txt.
file(STRINGS ${PROJECT_SOURCE_DIR}/include/orv.h ORV_API_LINES REGEX "^ORV_API ")
set(ORV_EXPORT_NAMES "")
foreach(line IN LISTS ORV_API_LINES)
  if(line MATCHES "^ORV_API [A-Za-z_ ]+[ *]([a-z0-9_]+)\\(")
    list(APPEND ORV_EXPORT_NAMES ${CMAKE_MATCH_1})
  endif()
endforeach()
# A function declared in another form per platform appears once per form.
list(REMOVE_DUPLICATES ORV_EXPORT_NAMES)
list(LENGTH ORV_EXPORT_NAMES ORV_EXPORT_COUNT)
if(NOT ORV_EXPORT_COUNT EQUAL 77)
  message(FATAL_ERROR "include/orv.h declares ${ORV_EXPORT_COUNT} exports, expected 77")
endif()

set(ORV_DROPIN_EXPORT_LIST ${PROJECT_SOURCE_DIR}/interface/dropin/exports.txt)
file(STRINGS ${ORV_DROPIN_EXPORT_LIST} ORV_DROPIN_EXPORT_NAMES)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${ORV_DROPIN_EXPORT_LIST})

# Limits the exports of `target` to the names in list variable `names`; the
# script or definition file is written as build/<file_stem>.map or .def
# (a DLL is named <file_stem>.dll).
function(orv_limit_exports target names file_stem)
  if(WIN32)
    set(def "${CMAKE_BINARY_DIR}/${file_stem}.def")
    list(JOIN ${names} "\n  " body)
    file(WRITE ${def} "LIBRARY ${file_stem}.dll\nEXPORTS\n  ${body}\n")
    target_sources(${target} PRIVATE ${def})
    target_link_options(${target} PRIVATE -Wl,--exclude-all-symbols)
  else()
    set(map "${CMAKE_BINARY_DIR}/${file_stem}.map")
    list(JOIN ${names} ";\n    " body)
    file(WRITE ${map} "{\n  global:\n    ${body};\n  local: *;\n};\n")
    target_link_options(${target} PRIVATE -Wl,--version-script=${map} -Wl,--no-undefined)
    set_target_properties(${target} PROPERTIES LINK_DEPENDS ${map})
  endif()
endfunction()

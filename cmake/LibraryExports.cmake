# SPDX-License-Identifier: GPL-3.0-or-later
# What may leave a library.

# editorexport_limit_exports(LIBRARY EXPORTS names... [OWN_EXPORTS names...])
# Names are namespaces, classes (namespace::Class) and functions without C++ names ("C:name"). Symbols of others (those of the
# standard library's and of Qt's templates that the compiler makes visible wherever they are used) stay inside. What of the
# names leaves is still only what their headers mark with <LIBRARY>_EXPORT; abi/<LIBRARY>.symbols lists it.
# OWN_EXPORTS are classes and functions among them that no embedder has a header of: they leave for other libraries and programs of
# this repository, by the version <LIBRARY>_PRIVATE, which says that nobody else may rely on them. No list names them.
function(editorexport_limit_exports library)
  cmake_parse_arguments(ARG "" "" "EXPORTS;OWN_EXPORTS" ${ARGN})
  # The sanitizers have symbols of their own that must leave.
  if(EDITOREXPORT_SANITIZE)
    return()
  endif()
  editorexport_export_patterns(patterns ${ARG_EXPORTS})
  set(versions "{\n  global:\n${patterns}  local:\n    *;\n};\n")
  if(ARG_OWN_EXPORTS)
    # Of the versions whose patterns fit, a symbol gets the last.
    editorexport_export_patterns(patterns ${ARG_OWN_EXPORTS})
    string(PREPEND versions "${library}_${EDITOREXPORT_SOVERSION} ")
    string(APPEND versions "${library}_PRIVATE {\n  global:\n${patterns}};\n")
  endif()
  set(script "${PROJECT_BINARY_DIR}/exports/${library}.map")
  file(CONFIGURE OUTPUT "${script}" CONTENT "${versions}" @ONLY)
  target_link_options(${library} PRIVATE "LINKER:--version-script,${script}")
  set_property(TARGET ${library} APPEND PROPERTY LINK_DEPENDS "${script}")
endfunction()

# The lines of a version script for these names.
function(editorexport_export_patterns out)
  set(patterns "")
  foreach(name IN LISTS ARGN)
    if(name MATCHES "^C:(.+)$")
      string(APPEND patterns "    ${CMAKE_MATCH_1};\n")
      continue()
    endif()
    string(REPLACE "::" ";" parts "${name}")
    set(id "")
    foreach(part IN LISTS parts)
      string(LENGTH "${part}" length)
      string(APPEND id "${length}${part}")
    endforeach()
    # Members; tables, type information, guards of statics; the thunks of virtual functions.
    foreach(prefix _ZN _ZNK _ZTVN _ZTTN _ZTIN _ZTSN _ZTCN _ZTV _ZTT _ZTI _ZTS _ZTC _ZGVN _ZZN _ZZNK _ZGVZN _ZGVZNK
        _ZThn*_N _ZThn*_NK _ZTv*_N _ZTv*_NK _ZTch*_N _ZTch*_NK _ZTcv*_N _ZTcv*_NK)
      string(APPEND patterns "    ${prefix}${id}*;\n")
    endforeach()
  endforeach()
  set(${out} "${patterns}" PARENT_SCOPE)
endfunction()

# What may leave a library.

# editorexport_limit_exports(LIBRARY names...)
# Names are namespaces, global classes, and functions without C++ names ("C:name"). Symbols of others (those of the standard
# library's and of Qt's templates that the compiler makes visible wherever they are used) stay inside. What of the names
# leaves is still only what their headers mark with <LIBRARY>_EXPORT; abi/<LIBRARY>.symbols lists it.
function(editorexport_limit_exports library)
  # The sanitizers have symbols of their own that must leave.
  if(EDITOREXPORT_SANITIZE)
    return()
  endif()
  set(patterns "")
  foreach(name IN LISTS ARGN)
    if(name MATCHES "^C:(.+)$")
      string(APPEND patterns "    ${CMAKE_MATCH_1};\n")
      continue()
    endif()
    string(LENGTH "${name}" length)
    set(id "${length}${name}")
    # Members; tables, type information, guards of statics; the thunks of virtual functions.
    foreach(prefix _ZN _ZNK _ZTVN _ZTTN _ZTIN _ZTSN _ZTCN _ZTV _ZTT _ZTI _ZTS _ZTC _ZGVN _ZZN _ZZNK _ZGVZN _ZGVZNK
        _ZThn*_N _ZThn*_NK _ZTv*_N _ZTv*_NK _ZTch*_N _ZTch*_NK _ZTcv*_N _ZTcv*_NK)
      string(APPEND patterns "    ${prefix}${id}*;\n")
    endforeach()
  endforeach()
  set(script "${PROJECT_BINARY_DIR}/exports/${library}.map")
  file(CONFIGURE OUTPUT "${script}" CONTENT "{\n  global:\n${patterns}  local:\n    *;\n};\n" @ONLY)
  target_link_options(${library} PRIVATE "LINKER:--version-script,${script}")
  set_property(TARGET ${library} APPEND PROPERTY LINK_DEPENDS "${script}")
endfunction()

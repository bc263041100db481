# SPDX-License-Identifier: GPL-3.0-or-later
# A pkg-config file for each library that embedders link.

# What a library's headers include or its callers need beside it becomes Requires. Nothing stands under Requires.private:
# that serves linking with archives alone, of which there are none, and would have every embedder install the headers of
# libraries that no header here names. Headers of Boost have no such file, and threads are a part of the C library.
function(editorexport_pkg_config_requires out library)
  get_property(public GLOBAL PROPERTY EDITOREXPORT_PUBLIC_OF_${library})
  set(requires "")
  foreach(dependency IN LISTS public)
    get_property(description GLOBAL PROPERTY EDITOREXPORT_DESCRIPTION_OF_${dependency})
    if(description)
      list(APPEND requires "${dependency} = ${PROJECT_VERSION}")
    elseif(dependency MATCHES "^Qt5::(.+)$")
      list(APPEND requires "Qt5${CMAKE_MATCH_1} >= 5.15")
    elseif(NOT dependency MATCHES "^(Boost::headers|Threads::Threads)$")
      message(FATAL_ERROR "${library}: nothing says how pkg-config knows ${dependency}")
    endif()
  endforeach()
  list(JOIN requires ", " requires)
  set(${out} "${requires}" PARENT_SCOPE)
endfunction()

# The tree may be moved: a file finds its prefix from its own place.
function(editorexport_install_pkg_config_files)
  file(RELATIVE_PATH prefix_from_pc "/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/")
  string(REGEX REPLACE "/$" "" prefix_from_pc "${prefix_from_pc}")
  get_property(libraries GLOBAL PROPERTY EDITOREXPORT_LIBRARIES)
  foreach(name IN LISTS libraries)
    get_property(description GLOBAL PROPERTY EDITOREXPORT_DESCRIPTION_OF_${name})
    if(description)
      editorexport_pkg_config_requires(requires ${name})
      set(file "${PROJECT_BINARY_DIR}/pkgconfig/${name}.pc")
      configure_file("${PROJECT_SOURCE_DIR}/cmake/Library.pc.in" "${file}" @ONLY)
      install(FILES "${file}" DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)
    endif()
  endforeach()
endfunction()

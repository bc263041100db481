# SPDX-License-Identifier: GPL-3.0-or-later
# The install tree, by components:
#   runtime      the libraries and the catalogue of presets, in places that name the version, as those of another may stand there, too
#   tools        the command line, and what shells know it by
#   window       the export window, and what desktops know it by
#   development  headers, the CMake package, pkg-config files, examples
# A program's own CMakeLists.txt may install more beside it (its page, completions, icons): with the component of the program.
include(CMakePackageConfigHelpers)
include(PkgConfigFiles)

set(EDITOREXPORT_DATADIR "${CMAKE_INSTALL_DATADIR}/editor-export")
set(package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/EditorExport")
get_property(libraries GLOBAL PROPERTY EDITOREXPORT_LIBRARIES)

# What runs.
foreach(name IN LISTS libraries)
  get_property(description GLOBAL PROPERTY EDITOREXPORT_DESCRIPTION_OF_${name})
  if(description)
    install(TARGETS ${name} EXPORT EditorExportTargets
      LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT development)
  else()
    # Loaded by another one, linked by nobody.
    install(TARGETS ${name} LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_SKIP)
  endif()
endforeach()
install(FILES resources/presets/catalogue.json resources/presets/catalogue.schema.json
  DESTINATION ${EDITOREXPORT_DATADIR}/${EDITOREXPORT_SOVERSION}/presets COMPONENT runtime)
install(TARGETS editor-export RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT tools)
install(TARGETS editor-export-dialog RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT window)

# What programs are built with.
set(header_dir "${CMAKE_INSTALL_INCLUDEDIR}/EditorExport")
get_property(api_headers GLOBAL PROPERTY EDITOREXPORT_API_HEADERS)
get_property(api_roots GLOBAL PROPERTY EDITOREXPORT_API_ROOTS)
list(REMOVE_DUPLICATES api_roots)
foreach(root IN LISTS api_roots)
  foreach(header IN LISTS api_headers)
    cmake_path(IS_PREFIX root "${header}" is_below)
    if(is_below)
      cmake_path(RELATIVE_PATH header BASE_DIRECTORY "${root}" OUTPUT_VARIABLE included_as)
      cmake_path(GET included_as PARENT_PATH folder)
      install(FILES "${header}" DESTINATION "${header_dir}/${folder}" COMPONENT development)
    endif()
  endforeach()
endforeach()
foreach(name IN LISTS libraries)
  get_property(description GLOBAL PROPERTY EDITOREXPORT_DESCRIPTION_OF_${name})
  if(description)
    install(FILES "${PROJECT_BINARY_DIR}/include/${name}Export.h" DESTINATION ${header_dir} COMPONENT development)
  endif()
endforeach()
list(JOIN api_headers "\n" list_of_headers)
file(CONFIGURE OUTPUT "${PROJECT_BINARY_DIR}/api-headers.txt" CONTENT "${list_of_headers}\n" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/include/EditorExportVersion.h" DESTINATION ${header_dir} COMPONENT development)

set(public_libraries "")
foreach(name IN LISTS libraries)
  get_property(description GLOBAL PROPERTY EDITOREXPORT_DESCRIPTION_OF_${name})
  if(description)
    list(APPEND public_libraries ${name})
  endif()
endforeach()
list(JOIN public_libraries ", " public_libraries)
install(EXPORT EditorExportTargets NAMESPACE EditorExport:: DESTINATION ${package_dir} COMPONENT development)
configure_package_config_file(cmake/EditorExportConfig.cmake.in "${PROJECT_BINARY_DIR}/EditorExportConfig.cmake"
  INSTALL_DESTINATION ${package_dir})
if(PROJECT_VERSION_MAJOR EQUAL 0)
  set(compatibility SameMinorVersion)
else()
  set(compatibility SameMajorVersion)
endif()
write_basic_package_version_file("${PROJECT_BINARY_DIR}/EditorExportConfigVersion.cmake" COMPATIBILITY ${compatibility})
install(FILES "${PROJECT_BINARY_DIR}/EditorExportConfig.cmake" "${PROJECT_BINARY_DIR}/EditorExportConfigVersion.cmake"
  DESTINATION ${package_dir} COMPONENT development)
editorexport_install_pkg_config_files()

set(EDITOREXPORT_EXAMPLES_DIR "${CMAKE_INSTALL_DATADIR}/editor-export/examples" CACHE STRING "Where examples are installed")
install(DIRECTORY examples/ DESTINATION ${EDITOREXPORT_EXAMPLES_DIR} COMPONENT development)
